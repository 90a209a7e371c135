// Pictures of drawings.
#pragma once

#include <filesystem>
#include <string>

#include "platform/host/dxf/drawing.h"

namespace host {

struct PictureSize {
    int width = 1600;
    int height = 1200;
};

/// Saves the whole of model space, on white, as a PNG file. An existing file is replaced, and stays as it was when this
/// fails. The reason for a failure, or an empty text.
std::wstring save_drawing_png(const dxf::Drawing& drawing, const std::filesystem::path& path, PictureSize size = {});

}  // namespace host
