#include "platform/host/dxf/index.h"

#include "platform/host/dxf/index_builder.h"

namespace dxf {

namespace {

/// In the order of KnownType.
constexpr std::string_view known_types[] = {"INSERT", "ATTRIB", "VERTEX",  "SEQEND", "POLYLINE", "BLOCK",    "ENDBLK",
                                            "TABLE",  "ENDTAB", "SECTION", "ENDSEC", "EOF",      "DIMSTYLE", "LAYER"};
static_assert(sizeof known_types / sizeof *known_types == known_type_count, "one name for each known type");

constexpr std::string_view binary_sentinel("AutoCAD Binary DXF\r\n\x1a\0", 22);
constexpr size_t sentinel_words = 18;
constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

bool starts_with(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}

/// How the groups behind the binary sentinel are laid out: code 0 takes one byte or two, and so does a comment's.
Encoding binary_encoding(std::string_view groups) {
    const bool two_byte_zero = starts_with(groups, std::string_view("\0\0", 2));
    const bool two_byte_comment = starts_with(groups, "\xE7\x03");
    return two_byte_zero || two_byte_comment ? Encoding::binary : Encoding::binary_r12;
}

/// Sets the encoding and says where the groups begin, or why there are none.
std::optional<std::string> judge_start(std::string_view bytes, DrawingIndex& index, uint64_t& start) {
    if (bytes.empty()) {
        return "the file is empty";
    }
    if (starts_with(bytes, binary_sentinel)) {
        start = binary_sentinel.size();
        index.encoding = binary_encoding(bytes.substr(start));
        return std::nullopt;
    }
    if (starts_with(bytes, binary_sentinel.substr(0, sentinel_words))) {
        return "a damaged binary drawing: its first line is not as it must be";
    }
    if (starts_with(bytes, "AC10")) {
        return "a DWG drawing, not a DXF drawing";
    }
    start = starts_with(bytes, byte_order_mark) ? byte_order_mark.size() : 0;
    const size_t line_feed = bytes.find('\n');
    if (line_feed != std::string_view::npos && line_feed > 0 && bytes[line_feed - 1] == '\r') {
        index.line_end = "\r\n";
    }
    return std::nullopt;
}

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

std::optional<Error> build_index(std::string_view bytes, DrawingIndex& index) {
    uint64_t start = 0;
    if (auto reason = judge_start(bytes, index, start)) {
        Error error;
        error.reason = *std::move(reason);
        return error;
    }
    IndexBuilder builder(bytes, index, start);
    return builder.read_drawing() ? std::nullopt : builder.error();
}

std::optional<Record> read_record(std::string_view bytes, DrawingIndex& index) {
    RecordReader reader(bytes, index, 0);
    Record record;
    const bool at_type = reader.advance() && !reader.at_end() && reader.ahead().code == 0;
    if (!at_type || !reader.take(record) || !reader.at_end()) {
        return std::nullopt;
    }
    return record;
}

}  // namespace dxf
