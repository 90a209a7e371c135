#include "platform/host/dxf/error.h"

namespace dxf {

std::string Error::message() const {
    const std::u8string name = file.u8string();
    std::string text(name.begin(), name.end());
    if (place == Place::line) {
        text += ":" + std::to_string(position);
    } else if (place == Place::byte) {
        text += ": byte " + std::to_string(position);
    }
    return text + ": " + reason;
}

}  // namespace dxf
