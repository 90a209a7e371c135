#include "platform/host/dxf/index.h"

namespace dxf {

namespace {

/// In the order of KnownType.
constexpr std::string_view known_types[] = {"INSERT", "ATTRIB", "VERTEX",  "SEQEND", "POLYLINE", "BLOCK",    "ENDBLK",
                                            "TABLE",  "ENDTAB", "SECTION", "ENDSEC", "EOF",      "DIMSTYLE", "LAYER"};
static_assert(sizeof known_types / sizeof *known_types == known_type_count, "one name for each known type");

}  // namespace

DrawingIndex::DrawingIndex() {
    for (const std::string_view type : known_types) {
        types.intern(type, codec);
    }
}

const Section* DrawingIndex::section(std::string_view name) const {
    for (const Section& section : sections) {
        if (section.name == name) {
            return &section;
        }
    }
    return nullptr;
}

void DrawingIndex::name_block(NameId name, BlockId block) {
    if (name == no_name) {
        return;
    }
    if (name >= block_of_name.size()) {
        block_of_name.resize(block_names.size(), no_block);
    }
    if (block_of_name[name] == no_block) {
        block_of_name[name] = block;
    }
}

}  // namespace dxf
