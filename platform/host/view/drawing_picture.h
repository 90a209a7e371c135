// Pictures of drawings.
#pragma once

#include <filesystem>
#include <string>

#include "platform/host/view/display_list.h"

namespace host {

struct PictureSize {
    int width = 1600;
    int height = 1200;
};

/// Saves all that a list shows, on white, as a PNG file. An existing file is replaced, and stays as it was when this
/// fails. The reason for a failure, or an empty text.
std::wstring save_drawing_png(std::shared_ptr<const DisplayList> list, const std::filesystem::path& path,
                              PictureSize size = {});

}  // namespace host
