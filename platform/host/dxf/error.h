// Error, the reason why a drawing could not be read, with its place in the file.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace dxf {

/// A failure with its place. The place is a line (from 1) in an ASCII drawing, a byte offset (from 0) in a binary one.
struct Error {
    enum class Place { none, line, byte };

    std::filesystem::path file;
    Place place = Place::none;
    uint64_t position = 0;
    std::string reason;

    /// "plan.dxf:17: reason", "plan.dxf: byte 17: reason" or "plan.dxf: reason", in UTF-8.
    std::string message() const {
        const std::u8string name = file.u8string();
        std::string text(name.begin(), name.end());
        if (place == Place::line) {
            text.append(":").append(std::to_string(position));
        } else if (place == Place::byte) {
            text.append(": byte ").append(std::to_string(position));
        }
        return text.append(": ").append(reason);
    }
};

}  // namespace dxf
