#include "platform/host/dxf/group_cursor.h"

namespace dxf {

namespace {

constexpr int highest_code = 1071;

uint16_t two_bytes(const char* at) {
    return static_cast<uint16_t>(static_cast<unsigned char>(at[0]) | static_cast<unsigned char>(at[1]) << 8);
}

/// Bytes of a code at `at`: one in R12, three where the first says that a two-byte code follows.
ptrdiff_t code_size(Encoding encoding, const char* at) {
    if (encoding == Encoding::binary) {
        return 2;
    }
    return static_cast<unsigned char>(*at) == 255 ? 3 : 1;
}

/// Bytes of a value that has a fixed size; 0 for text and chunks.
ptrdiff_t fixed_size(ValueKind kind) {
    switch (kind) {
        case ValueKind::real:
        case ValueKind::int64:
            return 8;
        case ValueKind::int32:
            return 4;
        case ValueKind::int16:
            return 2;
        case ValueKind::boolean:
            return 1;
        default:
            return 0;
    }
}

constexpr const char* cut_short = "the drawing ends within a group";

}  // namespace

bool GroupCursor::next_binary(Group& group) {
    if (at_ == end_) {
        return false;
    }
    const ptrdiff_t size_of_code = code_size(encoding_, at_);
    if (end_ - at_ < size_of_code) {
        return fail(cut_short);
    }
    const int code =
        size_of_code == 1 ? static_cast<unsigned char>(*at_) : two_bytes(at_ + (size_of_code == 3 ? 1 : 0));
    if (code > highest_code) {
        return fail("a group code was expected");
    }
    const char* value = at_ + size_of_code;
    const ValueKind kind = kind_of(code);
    ptrdiff_t size = fixed_size(kind);
    ptrdiff_t final_zero = 0;
    if (kind == ValueKind::chunk && value != end_) {
        size = static_cast<unsigned char>(*value++);
    } else if (size == 0) {
        const void* zero = value == end_ ? nullptr : std::memchr(value, 0, static_cast<size_t>(end_ - value));
        size = zero == nullptr ? end_ - value : static_cast<const char*>(zero) - value;
        final_zero = 1;
    }
    if (end_ - value < size + final_zero) {
        return fail(cut_short);
    }
    group.code = code;
    group.encoding = encoding_;
    group.begin = position();
    group.value = {value, static_cast<size_t>(size)};
    at_ = value + size + final_zero;
    group.end = position();
    return true;
}

/// Says why the code line that begins at position() is no group's; `stopped` is where reading it came to.
bool GroupCursor::fail_ascii(const char* stopped) {
    if (at_ == end_) {
        return false;
    }
    const bool no_more = stopped == end_ || (*stopped == '\n' && stopped + 1 == end_);
    return fail(no_more && stopped != at_ ? cut_short : "a group code was expected");
}

bool GroupCursor::fail(const char* why) {
    error_ = why;
    return false;
}

}  // namespace dxf
