#include "platform/host/view/proxy_stream.h"

#include <algorithm>

namespace host {

namespace {

int hexadecimal(char digit) {
    return digit >= '0' && digit <= '9'   ? digit - '0'
           : digit >= 'A' && digit <= 'F' ? digit - 'A' + 10
           : digit >= 'a' && digit <= 'f' ? digit - 'a' + 10
                                          : -1;
}

/// A chunk's bytes: hexadecimal digits in text, as they are in binary drawings.
void append_chunk(const dxf::Group& group, std::string& bytes) {
    if (group.encoding != dxf::Encoding::ascii) {
        bytes.append(group.value);
        return;
    }
    const std::string_view digits = group.word();
    for (size_t i = 0; i + 1 < digits.size(); i += 2) {
        const int high = hexadecimal(digits[i]);
        const int low = hexadecimal(digits[i + 1]);
        if (high < 0 || low < 0) {
            return;
        }
        bytes.push_back(static_cast<char>(high << 4 | low));
    }
}

}  // namespace

std::optional<std::string> proxy_graphics_of(const dxf::RecordFields& fields) {
    const std::vector<dxf::Group>& groups = fields.groups();
    for (size_t i = 0; i + 1 < groups.size(); ++i) {
        if ((groups[i].code != 92 && groups[i].code != 160) || groups[i + 1].code != 310) {
            continue;
        }
        const auto length = static_cast<size_t>(std::max<int64_t>(groups[i].integer(), 0));
        std::string bytes;
        for (++i; i < groups.size() && groups[i].code == 310 && bytes.size() < length; ++i) {
            append_chunk(groups[i], bytes);
        }
        bytes.resize(std::min(bytes.size(), length));
        return bytes;
    }
    return std::nullopt;
}

std::string_view ProxyStream::take(size_t size) {
    if (size > bytes_.size()) {
        ended_ = true;
        bytes_ = {};
        return {};
    }
    const std::string_view taken = bytes_.substr(0, size);
    bytes_.remove_prefix(size);
    return taken;
}

std::string_view ProxyStream::text() {
    const size_t length = std::min(bytes_.find('\0'), bytes_.size());
    const std::string_view text = bytes_.substr(0, length);
    take(length / 4 * 4 + 4);
    return text;
}

std::wstring ProxyStream::wide_text() {
    std::wstring text;
    size_t length = 0;
    for (; length + 1 < bytes_.size(); length += 2) {
        uint16_t unit = 0;
        std::memcpy(&unit, bytes_.data() + length, sizeof unit);
        if (unit == 0) {
            break;
        }
        text.push_back(static_cast<wchar_t>(unit));
    }
    take(length / 4 * 4 + 4);
    return text;
}

uint32_t ProxyBits::bits(size_t count) {
    uint32_t value = 0;
    for (; count > 0; --count, ++at_) {
        ended_ = ended_ || at_ / 8 >= bytes_.size();
        const unsigned byte = ended_ ? 0 : static_cast<unsigned char>(bytes_[at_ / 8]);
        value = value << 1 | (byte >> (7 - at_ % 8) & 1);
    }
    return value;
}

uint32_t ProxyBits::bytes(size_t count) {
    uint32_t value = 0;
    for (size_t i = 0; i < count; ++i) {
        value |= bits(8) << 8 * i;
    }
    return value;
}

uint32_t ProxyBits::short_number() {
    switch (bits(2)) {
        case 0:
            return bytes(2);
        case 1:
            return bytes(1);
        case 2:
            return 0;
        default:
            return 256;
    }
}

uint32_t ProxyBits::long_number() {
    switch (bits(2)) {
        case 0:
            return bytes(4);
        case 1:
            return bytes(1);
        default:
            return 0;
    }
}

double ProxyBits::raw_real() {
    const uint32_t parts[] = {bytes(4), bytes(4)};
    double value = 0;
    std::memcpy(&value, parts, sizeof value);
    return value;
}

double ProxyBits::real() {
    const uint32_t form = bits(2);
    return form == 0 ? raw_real() : form == 1 ? 1 : 0;
}

double ProxyBits::real_like(double usual) {
    uint32_t parts[2];
    std::memcpy(parts, &usual, sizeof parts);
    switch (bits(2)) {
        case 0:
            return usual;
        case 1:
            parts[0] = bytes(4);
            break;
        case 2:
            parts[1] = (parts[1] & 0xFFFF0000) | bytes(2);
            parts[0] = bytes(4);
            break;
        default:
            return raw_real();
    }
    double value = 0;
    std::memcpy(&value, parts, sizeof value);
    return value;
}

}  // namespace host
