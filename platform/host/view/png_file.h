// Pictures of windows and drawings, in PNG files. An existing file is replaced, and stays as it was when that fails.
#pragma once

#include <windows.h>

#include <filesystem>
#include <functional>
#include <memory>

#include "base/result.h"
#include "platform/host/view/areas.h"

namespace host {

/// Saves what the window shows, frame and title bar included.
base::Outcome<> save_window_png(HWND window, const std::filesystem::path& path);

/// Saves what `paint` paints on a context of that many pixels; saves nothing when that fails.
base::Outcome<> save_painted_png(int width, int height, const std::function<base::Outcome<>(HDC)>& paint,
                                 const std::filesystem::path& path);

/// A part of a drawing, and the size of its picture in pixels.
struct PictureArea {
    Box2 box;
    int width = picture_width;
    int height = picture_height;
};

/// Saves what a list shows there, on white, with its line weights as on paper.
base::Outcome<> save_drawing_png(std::shared_ptr<const DisplayList> list, const PictureArea& area,
                                 const std::filesystem::path& path);

}  // namespace host
