// Reading groups one after another from a span of bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

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
    bool fail_ascii(const char* stopped);
    bool fail(const char* why);

    const char* begin_;
    const char* at_;
    const char* end_;
    Encoding encoding_;
    const char* error_ = nullptr;
};

/// The first line feed in [at, end), or `end`. Value lines are short: a block of 16 bytes nearly always holds it.
inline const char* find_line_feed(const char* at, const char* end) {
#ifdef __SSE2__
    const __m128i line_feeds = _mm_set1_epi8('\n');
    while (end - at >= 16) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
        const int found = _mm_movemask_epi8(_mm_cmpeq_epi8(block, line_feeds));
        if (found != 0) {
            return at + __builtin_ctz(static_cast<unsigned>(found));
        }
        at += 16;
    }
#endif
    const void* found_late = at == end ? nullptr : std::memchr(at, '\n', static_cast<size_t>(end - at));
    return found_late == nullptr ? end : static_cast<const char*>(found_late);
}

inline bool GroupCursor::next_ascii(Group& group) {
    const char* at = at_;
    while (at != end_ && (*at == ' ' || *at == '\t')) {
        ++at;
    }
    const bool negative = at != end_ && *at == '-';
    at += negative ? 1 : 0;
    const char* const digits = at;
    int code = 0;
    while (at != end_ && static_cast<unsigned char>(*at - '0') < 10 && at - digits < 5) {
        code = code * 10 + (*at - '0');
        ++at;
    }
    const bool numeric = at != digits;
    while (at != end_ && (*at == ' ' || *at == '\t' || *at == '\r')) {
        ++at;
    }
    if (!numeric || at == end_ || *at != '\n' || at + 1 == end_) {
        return fail_ascii(at);
    }
    const char* const value = at + 1;
    const char* const line_feed = find_line_feed(value, end_);
    const char* value_end = line_feed;
    while (value_end != value && value_end[-1] == '\r') {
        --value_end;
    }
    group.code = negative ? -code : code;
    group.encoding = Encoding::ascii;
    group.begin = position();
    group.value = {value, static_cast<size_t>(value_end - value)};
    at_ = line_feed == end_ ? end_ : line_feed + 1;
    group.end = position();
    return true;
}

}  // namespace dxf
