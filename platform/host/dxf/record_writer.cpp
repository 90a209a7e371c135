#include "platform/host/dxf/record_writer.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <utility>

#include "base/code_page.h"

namespace dxf {

namespace {

/// The shortest text that reads back as the same number, always with a point: "0.0", "2.5", "1.0E+20".
std::string real_text(double value) {
    char buffer[40];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, std::isfinite(value) ? value : 0.0).ptr;
    std::string text(buffer, end);
    const size_t exponent = text.find('e');
    if (text.find('.') == std::string::npos) {
        text.insert(exponent == std::string::npos ? text.size() : exponent, ".0");
    }
    const size_t moved = text.find('e');
    if (moved != std::string::npos) {
        text[moved] = 'E';
    }
    return text;
}

std::string as_text(const Value& value, const TextCodec& codec) {
    if (const auto* integer = std::get_if<int64_t>(&value)) {
        return std::to_string(*integer);
    }
    if (const auto* real = std::get_if<double>(&value)) {
        return real_text(*real);
    }
    if (const auto* handle = std::get_if<Handle>(&value)) {
        return handle_text(handle->value);
    }
    return codec.encode(std::get<std::wstring>(value));
}

/// A group with this text as its value, by which a text is read as a number.
Group as_group(const std::string& text) {
    Group group;
    group.value = text;
    return group;
}

int64_t as_integer(const Value& value, const TextCodec& codec) {
    if (const auto* integer = std::get_if<int64_t>(&value)) {
        return *integer;
    }
    return as_group(as_text(value, codec)).integer();
}

double as_real(const Value& value, const TextCodec& codec) {
    if (const auto* real = std::get_if<double>(&value)) {
        return *real;
    }
    return as_group(as_text(value, codec)).real();
}

std::string little_endian(uint64_t value, size_t size) {
    std::string bytes;
    for (size_t i = 0; i < size; ++i) {
        bytes += static_cast<char>(value >> (8 * i) & 0xFF);
    }
    return bytes;
}

/// A chunk from its hexadecimal text, its length first. A chunk holds 127 bytes at most by convention, 255 by its form.
std::string chunk_bytes(const std::string& hex) {
    std::string bytes;
    for (size_t i = 0; i + 1 < hex.size() && bytes.size() < 255; i += 2) {
        bytes += static_cast<char>(parse_handle(std::string_view(hex).substr(i, 2)));
    }
    return static_cast<char>(bytes.size()) + bytes;
}

std::string binary_value(ValueKind kind, const Value& value, const TextCodec& codec) {
    switch (kind) {
        case ValueKind::real: {
            const double number = as_real(value, codec);
            uint64_t bits = 0;
            std::memcpy(&bits, &number, sizeof bits);
            return little_endian(bits, 8);
        }
        case ValueKind::int64:
            return little_endian(static_cast<uint64_t>(as_integer(value, codec)), 8);
        case ValueKind::int32:
            return little_endian(static_cast<uint64_t>(as_integer(value, codec)), 4);
        case ValueKind::int16:
            return little_endian(static_cast<uint64_t>(as_integer(value, codec)), 2);
        case ValueKind::boolean:
            return little_endian(static_cast<uint64_t>(as_integer(value, codec)), 1);
        case ValueKind::chunk:
            return chunk_bytes(as_text(value, codec));
        case ValueKind::text:
            break;
    }
    return as_text(value, codec) + '\0';
}

std::string ascii_value(ValueKind kind, const Value& value, const TextCodec& codec) {
    switch (kind) {
        case ValueKind::real:
            return real_text(as_real(value, codec));
        case ValueKind::text:
        case ValueKind::chunk:
            return as_text(value, codec);
        default:
            return std::to_string(as_integer(value, codec));
    }
}

std::string encode_code(int code, Encoding encoding) {
    switch (encoding) {
        case Encoding::binary:
            return little_endian(static_cast<uint64_t>(code), 2);
        case Encoding::binary_r12:
            return code < 255 ? std::string(1, static_cast<char>(code))
                              : '\xFF' + little_endian(static_cast<uint64_t>(code), 2);
        case Encoding::ascii:
            break;
    }
    char text[16];
    std::snprintf(text, sizeof text, "%3d", code);
    return text;
}

}  // namespace

std::string encode_value(int code, const Value& value, const Manner& manner) {
    const ValueKind kind = kind_of(code);
    return manner.encoding == Encoding::ascii ? ascii_value(kind, value, manner.codec)
                                              : binary_value(kind, value, manner.codec);
}

RecordWriter& RecordWriter::text(int code, std::wstring_view value) {
    return add(code, std::wstring(value));
}
RecordWriter& RecordWriter::integer(int code, int64_t value) {
    return add(code, value);
}
RecordWriter& RecordWriter::real(int code, double value) {
    return add(code, value);
}
RecordWriter& RecordWriter::handle(int code, uint64_t value) {
    return add(code, Handle{value});
}

RecordWriter& RecordWriter::point(int code, double x, double y, double z) {
    return real(code, x).real(code + 10, y).real(code + 20, z);
}

RecordWriter& RecordWriter::raw(std::string_view bytes) {
    bytes_ += bytes;
    return *this;
}

std::string RecordWriter::take() {
    return std::exchange(bytes_, {});
}

RecordWriter& RecordWriter::add(int code, const Value& value) {
    const bool ascii = manner_.encoding == Encoding::ascii;
    bytes_ += encode_code(code, manner_.encoding);
    bytes_ += ascii ? manner_.line_end : "";
    bytes_ += encode_value(code, value, manner_);
    bytes_ += ascii ? manner_.line_end : "";
    return *this;
}

}  // namespace dxf
