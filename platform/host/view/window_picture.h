// Pictures of windows.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

namespace host {

/// Saves what the window shows, frame and title bar included, as a PNG file. An existing file is replaced, and stays as
/// it was when this fails. The reason for a failure, or an empty text.
std::wstring save_window_png(HWND window, const std::filesystem::path& path);

/// The same for any bitmap, which must not be selected into a device context.
std::wstring save_bitmap_png(HBITMAP bitmap, const std::filesystem::path& path);

}  // namespace host
