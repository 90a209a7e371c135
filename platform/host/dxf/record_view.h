// A record's groups, read on demand.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host/dxf/field_values.h"
#include "platform/host/dxf/group.h"
#include "platform/host/dxf/group_cursor.h"
#include "platform/host/dxf/text_codec.h"

namespace dxf {

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
