// Reading records one after another: groups in, what the index keeps of them out.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/host/dxf/error.h"
#include "platform/host/dxf/group_cursor.h"
#include "platform/host/dxf/index.h"

namespace dxf {

/// Walks groups with one group of look-ahead, and knows which sub-records belong to which record. Names are interned
/// in the index, whose highest handle follows. All functions return false from the first fault on.
class RecordReader {
  public:
    RecordReader(std::string_view bytes, DrawingIndex& index, uint64_t start);

    /// The group ahead; at the end of the bytes an empty one that stands there.
    const Group& ahead() const { return group_; }
    bool at_end() const { return at_end_; }
    /// Whether a record's type or the end is ahead.
    bool at_record() const { return at_end_ || group_.code == 0; }
    bool advance() { return cursor_.next(group_) || stop(); }

    /// The type id of the value ahead.
    bool peek_type(uint16_t& type);
    /// Reads the record whose type is ahead, with its sub-records.
    bool take(Record& record);
    /// The first group 2 of the record that was taken last.
    std::string_view name() const { return name_; }

    /// Notes a fault at the group ahead or at an offset; the first one stays. Returns false.
    bool fail(std::string reason) { return fail_at(group_.begin, std::move(reason)); }
    bool fail_at(uint64_t position, std::string reason);
    const std::optional<Error>& error() const { return error_; }

  private:
    /// Called when no group could be read; true at the end of the bytes, false at a fault.
    bool stop();
    bool rest_is_blank() const;
    void take_field(Record& record);
    bool take_fields(Record& record);
    bool take_parts(Record& record);
    void note_layer(Record& record);
    void note_name(Record& record);
    void note_handle(uint64_t handle);

    std::string_view bytes_;
    DrawingIndex& index_;
    GroupCursor cursor_;
    Group group_;
    bool at_end_ = false;
    std::optional<Error> error_;
    std::string_view name_;
    // The last type that was looked up, and its id: neighbouring records often have the same type.
    std::string_view last_type_ = "INSERT";
    uint16_t last_type_id_ = type_insert;
    std::string_view last_layer_;
    NameId last_layer_id_ = no_name;
};

}  // namespace dxf
