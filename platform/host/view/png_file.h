// Pictures of windows and drawings, in PNG files. An existing file is replaced, and stays as it was when that fails.
#pragma once

#include <windows.h>

#include <filesystem>
#include <memory>

#include "base/result.h"
#include "platform/host/view/display_list.h"

namespace host {

/// Saves what the window shows, frame and title bar included.
base::Outcome<> save_window_png(HWND window, const std::filesystem::path& path);

/// Saves all that a list shows, 1600 by 1200 pixels on white.
base::Outcome<> save_drawing_png(std::shared_ptr<const DisplayList> list, const std::filesystem::path& path);

}  // namespace host
