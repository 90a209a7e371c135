// RecordView, a record's groups read on demand, and FieldValues, the look-ups by group code.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host/dxf/group.h"
#include "platform/host/dxf/group_cursor.h"
#include "platform/host/dxf/text_codec.h"
#include "platform/host/dxf/vectors.h"

namespace dxf {

/// Look-ups of values by group code, which `Record` gets by deriving from this. `Record` has group(code), which gives
/// something like a pointer to the first of its own groups with the code, and decode(), which decodes texts.
template <class Record>
class FieldValues {
  public:
    bool has(int code) const { return static_cast<bool>(self().group(code)); }
    std::wstring text(int code, std::wstring_view absent = {}) const {
        const auto found = self().group(code);
        return found ? self().decode(found->value) : std::wstring(absent);
    }
    int64_t integer(int code, int64_t absent = 0) const {
        const auto found = self().group(code);
        return found ? found->integer() : absent;
    }
    double real(int code, double absent = 0) const {
        const auto found = self().group(code);
        return found ? found->real() : absent;
    }
    /// Degrees as radians.
    double angle(int code, double absent = 0) const {
        const auto found = self().group(code);
        return found ? found->real() * pi / 180 : absent;
    }
    /// Groups `code`, `code` + 10 and `code` + 20; what is missing comes from `absent`.
    Vec3 point(int code, const Vec3& absent = {}) const {
        return {real(code, absent.x), real(code + 10, absent.y), real(code + 20, absent.z)};
    }
    /// A handle (hexadecimal); 0 when absent.
    uint64_t handle(int code) const {
        const auto found = self().group(code);
        return found ? found->handle() : 0;
    }

  private:
    const Record& self() const { return static_cast<const Record&>(*this); }
};

/// A cheap look at one record's bytes. Valid until the record is edited or the drawing is saved or closed.
/// Values are searched among the record's own groups (own_groups.h), not those of its sub-records. For many
/// values of one record RecordFields is faster.
class RecordView : public FieldValues<RecordView> {
  public:
    RecordView(std::string_view bytes, Encoding encoding, TextCodec codec);

    /// A cursor over all groups, from the record's own type (code 0, or 9 of a header variable) to the last group of
    /// its last sub-record.
    GroupCursor groups() const { return GroupCursor(bytes_, encoding_); }
    /// The sub-records in file order, its SEQEND included.
    std::vector<RecordView> parts() const;

    /// The raw type: "INSERT", or the variable's name ("$ACADVER").
    std::string_view type() const;
    /// The nth group (from 0) with this code.
    std::optional<Group> group(int code, size_t nth = 0) const;
    /// The first group with this code in the record's extended data.
    std::optional<Group> extended_group(int code) const;

    std::wstring decode(std::string_view raw) const { return codec_.decode(raw); }
    const TextCodec& codec() const { return codec_; }
    std::string_view bytes() const { return bytes_; }

  private:
    std::string_view bytes_;
    Encoding encoding_;
    TextCodec codec_;
};

}  // namespace dxf
