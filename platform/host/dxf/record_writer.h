// Encoding of new groups and records in a drawing's own manner.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "platform/host/dxf/group.h"
#include "platform/host/dxf/text_codec.h"

namespace dxf {

/// The encoding, line ends and code page of a drawing (Drawing::manner()), so that what is added looks like the rest.
struct Manner {
    Encoding encoding = Encoding::ascii;
    std::string line_end = "\n";
    TextCodec codec{1252};
};

struct Handle {
    uint64_t value = 0;
};

/// A decoded value. It is written in the form that the code's kind asks for.
using Value = std::variant<int64_t, double, std::wstring, Handle>;

/// A value's bytes without the code: in ASCII without the line end, in binary complete.
std::string encode_value(int code, const Value& value, const Manner& manner);

/// Builds the bytes of one or more records, group by group.
class RecordWriter {
  public:
    explicit RecordWriter(Manner manner) : manner_(std::move(manner)) {}

    RecordWriter& type(std::wstring_view name) { return text(0, name); }
    RecordWriter& add(int code, const Value& value);
    RecordWriter& text(int code, std::wstring_view value);
    RecordWriter& integer(int code, int64_t value);
    RecordWriter& real(int code, double value);
    RecordWriter& handle(int code, uint64_t value);
    /// Three reals at `code`, `code` + 10 and `code` + 20.
    RecordWriter& point(int code, double x, double y, double z);
    /// Adds bytes that are encoded groups already.
    RecordWriter& raw(std::string_view bytes);

    const std::string& bytes() const { return bytes_; }
    /// The bytes; the writer is empty afterwards.
    std::string take();

  private:
    Manner manner_;
    std::string bytes_;
};

}  // namespace dxf
