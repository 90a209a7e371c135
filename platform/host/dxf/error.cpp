#include "platform/host/dxf/error.h"

namespace dxf {

std::string Error::message() const {
    std::string text = file.u8string();
    if (place == Place::line) {
        text += ":" + std::to_string(position);
    } else if (place == Place::byte) {
        text += ": byte " + std::to_string(position);
    }
    return text + ": " + reason;
}

}  // namespace dxf
