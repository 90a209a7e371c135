// The one pass that builds an index: sections, tables and blocks.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/result.h"
#include "platform/host/dxf/index.h"
#include "platform/host/dxf/record_reader.h"

namespace dxf {

/// Reads a whole drawing into an index. All functions return false from the first fault on.
class IndexBuilder {
  public:
    IndexBuilder(std::string_view bytes, DrawingIndex& index, uint64_t start)
        : bytes_(bytes), index_(index), reader_(bytes, index, start) {}

    bool read_drawing();
    /// Why read_drawing() gave up; nothing before that.
    const std::optional<Error>& error() const { return reader_.error(); }

  private:
    bool is_stray_group(uint16_t type) const;
    bool read_section();
    bool read_section_name(std::string& name);
    bool read_records(const std::string& section);
    bool close_section(Section& section);
    bool read_header();
    bool read_variable(Record& variable);
    void settle_codec();
    bool read_tables();
    bool read_table();
    bool read_blocks();
    bool read_block();
    bool read_run(RecordRun* run);
    /// Reads on to the next record; type_ is then its type.
    bool take(Record& record);
    bool in_section() const;
    RecordId keep(const Record& record);

    std::string_view bytes_;
    DrawingIndex& index_;
    RecordReader reader_;
    uint16_t type_ = 0;       ///< of the record ahead
    uint64_t next_word_ = 0;  ///< the place from which on the progress is told again
};

/// One pass over a whole drawing. The reason of a failure says where and why (its file is left empty); the index then
/// holds what was read before it.
base::Outcome<Error> build_index(std::string_view bytes, DrawingIndex& index);

/// The record that stands alone in `bytes` (with its sub-records), its names interned in `index`; nothing when the
/// bytes are not exactly one record. Its place is left to the caller.
std::optional<Record> read_record(std::string_view bytes, DrawingIndex& index);

}  // namespace dxf
