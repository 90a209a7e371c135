// The index of a drawing: what one pass over its bytes leaves in memory.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host/dxf/group.h"
#include "platform/host/dxf/name_table.h"
#include "platform/host/dxf/record.h"
#include "platform/host/dxf/text_codec.h"

namespace dxf {

using BlockId = uint32_t;
constexpr BlockId no_block = 0xFFFFFFFF;

struct Section {
    std::string name;
    Place begin;  ///< of its SECTION group
    Place end;    ///< of its ENDSEC group
};

struct Table {
    std::string name;  ///< as stored, usually in capitals
    RecordId head = no_record;
    RecordRun entries;
    Place end;  ///< of its ENDTAB, or of what follows where that is missing
};

struct Block {
    NameId name = no_name;      ///< in the block names; no_name for a block without a name
    RecordId head = no_record;  ///< BLOCK: base point (10, 20, 30), flags (70), layer, name as stored (2)
    RecordRun entities;
    RecordId end_record = no_record;  ///< ENDBLK, where there is one
    Place end;                        ///< of its ENDBLK, or of what follows where that is missing
};

struct DrawingIndex {
    /// Handles from this one on are taken for damaged: behind them there would be no room for new ones.
    static constexpr uint64_t first_unusual_handle = uint64_t{1} << 62;

    Encoding encoding = Encoding::ascii;
    std::string line_end = "\n";  ///< the first line's
    std::string version = "AC1009";
    TextCodec codec{1252};
    NameTable types;
    NameTable layers;
    NameTable block_names;
    std::vector<Record> records;
    std::vector<Section> sections;
    RecordRun header;
    std::vector<Table> tables;
    std::vector<Block> blocks;
    std::vector<BlockId> block_of_name;  ///< by NameId of block_names; may be shorter
    RecordRun entities;
    RecordRun objects;
    Place end_of_drawing;  ///< of the EOF group; where it would stand when it is missing
    bool has_eof = false;
    uint64_t highest_handle = 0;        ///< of all records, sub-records and what stands between them included
    uint64_t highest_usual_handle = 0;  ///< below first_unusual_handle
    std::vector<uint64_t>* all_handles = nullptr;  ///< where a reader notes every handle; null: nowhere

    DrawingIndex();
    /// The first section of that name, or nullptr.
    const Section* section(std::string_view name) const;
    void name_block(NameId name, BlockId block);
};

}  // namespace dxf
