// The one pass that builds an index.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/host/dxf/group_cursor.h"
#include "platform/host/dxf/index.h"

namespace dxf {

/// Walks a drawing's groups with one group of look-ahead. All functions return false once failed() is set.
class IndexBuilder {
  public:
    IndexBuilder(std::string_view bytes, DrawingIndex& index, uint64_t start);

    /// The whole drawing.
    bool read_drawing();
    /// The record that makes up all of the bytes.
    std::optional<Record> read_only_record();

    Error error() const;

  private:
    // Groups.
    bool advance();
    bool fail(std::string reason) { return fail_at(group_.begin, std::move(reason)); }
    bool fail_at(uint64_t position, std::string reason);
    bool rest_is_blank() const;

    // Records.
    bool take_record(Record& record);
    bool take_fields(Record& record);
    bool take_parts(Record& record);
    bool take_type(uint16_t& type);
    void note_name(Record& record);
    RecordId keep(const Record& record);
    bool at_record_end() const { return at_end_ || group_.code == 0; }
    bool ends_section(uint16_t type) const { return type >= type_section && type <= type_eof; }

    // Sections.
    bool is_stray_group(uint16_t type) const;
    bool read_section();
    bool to_first_record();
    bool close_section(Section& section);
    bool read_header();
    bool read_tables();
    bool read_table();
    bool read_blocks();
    bool read_block();
    bool read_run(RecordRun& run);
    bool skip_records();
    void settle_codec();

    std::string_view bytes_;
    DrawingIndex& index_;
    GroupCursor cursor_;
    Group group_;
    bool at_end_ = false;
    std::optional<Error> error_;
    std::string section_name_;
    uint16_t type_ = 0;                      ///< of the record at group_, after take_type()
    std::string_view last_type_ = "INSERT";  ///< looked up last: neighbours are often alike
    uint16_t last_type_id_ = type_insert;
    std::string_view last_layer_;
    NameId last_layer_id_ = no_name;
    std::string_view name_;  ///< first group 2 of the record that is being read
};

}  // namespace dxf
