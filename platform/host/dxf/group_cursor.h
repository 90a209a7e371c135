// Reading groups one after another from a span of bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/host/dxf/group.h"

namespace dxf {

/// Walks the groups of an ASCII (LF or CR LF line ends, mixed at will, blanks around codes, the last line with or
/// without an end) or binary drawing. Never reads outside its bytes, allocates nothing.
class GroupCursor {
  public:
    GroupCursor(std::string_view bytes, Encoding encoding, uint64_t position = 0)
        : begin_(bytes.data()), at_(begin_ + position), end_(begin_ + bytes.size()), encoding_(encoding) {}

    /// Reads the next group. False at the end of the bytes and at a fault; error() tells which.
    bool next(Group& group) { return encoding_ == Encoding::ascii ? next_ascii(group) : next_binary(group); }

    /// What is wrong at position(), or nullptr.
    const char* error() const { return error_; }

    /// The offset of the group that next() will read, or of the fault.
    uint64_t position() const { return static_cast<uint64_t>(at_ - begin_); }

  private:
    bool next_ascii(Group& group);
    bool next_binary(Group& group);
    bool fail(const char* at, const char* why);

    const char* begin_;
    const char* at_;
    const char* end_;
    Encoding encoding_;
    const char* error_ = nullptr;
};

}  // namespace dxf
