// Pictures of windows and drawings, in PNG files. An existing file is replaced, and stays as it was when that fails.
// All give the reason for a failure, or an empty text.
#pragma once

#include <windows.h>

#include <filesystem>
#include <memory>
#include <string>

#include "platform/host/view/display_list.h"

namespace host {

/// Saves what the window shows, frame and title bar included.
std::wstring save_window_png(HWND window, const std::filesystem::path& path);

/// Saves all that a list shows, 1600 by 1200 pixels on white.
std::wstring save_drawing_png(std::shared_ptr<const DisplayList> list, const std::filesystem::path& path);

}  // namespace host
