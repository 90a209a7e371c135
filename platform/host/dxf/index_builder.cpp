#include "platform/host/dxf/index_builder.h"

#include <algorithm>
#include <utility>

#include "base/progress.h"

namespace dxf {

namespace {

constexpr int code_name = 2;
constexpr int code_variable = 9;
constexpr int code_comment = 999;

/// Room for the records still to come, judged by those so far. Growing sixteenfold at most keeps a dense start of the
/// file from claiming memory for all of it.
size_t expected_records(size_t count, uint64_t bytes_read, uint64_t bytes_in_all) {
    const uint64_t each = std::max<uint64_t>(1, bytes_read / count);
    const uint64_t expected = bytes_in_all / each + bytes_in_all / each / 16;
    return static_cast<size_t>(std::clamp<uint64_t>(expected, count + count / 4 + 64, uint64_t{16} * count));
}

constexpr std::string_view binary_sentinel("AutoCAD Binary DXF\r\n\x1a\0", 22);
constexpr size_t sentinel_words = 18;
constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

/// How the groups behind the binary sentinel are laid out: code 0 takes one byte or two, and so does a comment's.
Encoding binary_encoding(std::string_view groups) {
    const bool two_byte_zero = groups.starts_with(std::string_view("\0\0", 2));
    const bool two_byte_comment = groups.starts_with("\xE7\x03");
    return two_byte_zero || two_byte_comment ? Encoding::binary : Encoding::binary_r12;
}

/// Sets the encoding and says where the groups begin, or why there are none.
std::optional<std::string> judge_start(std::string_view bytes, DrawingIndex& index, uint64_t& start) {
    if (bytes.empty()) {
        return "the file is empty";
    }
    if (bytes.starts_with(binary_sentinel)) {
        start = binary_sentinel.size();
        index.encoding = binary_encoding(bytes.substr(start));
        return std::nullopt;
    }
    if (bytes.starts_with(binary_sentinel.substr(0, sentinel_words))) {
        return "a damaged binary drawing: its first line is not as it must be";
    }
    if (bytes.starts_with("AC10")) {
        return "a DWG drawing, not a DXF drawing";
    }
    start = bytes.starts_with(byte_order_mark) ? byte_order_mark.size() : 0;
    const size_t line_feed = bytes.find('\n');
    if (line_feed != std::string_view::npos && line_feed > 0 && bytes[line_feed - 1] == '\r') {
        index.line_end = "\r\n";
    }
    return std::nullopt;
}

}  // namespace

RecordId IndexBuilder::keep(const Record& record) {
    std::vector<Record>& records = index_.records;
    if (records.size() == records.capacity()) {
        records.reserve(records.empty() ? 256 : expected_records(records.size(), reader_.ahead().begin, bytes_.size()));
    }
    records.push_back(record);
    return static_cast<RecordId>(records.size() - 1);
}

bool IndexBuilder::take(Record& record) {
    constexpr uint64_t step = 1U << 20;  // bytes between two words on the progress
    if (reader_.ahead().begin >= next_word_) {
        next_word_ = reader_.ahead().begin + step;
        if (!base::ProgressWatch::goes_on(static_cast<double>(reader_.ahead().begin) /
                                          static_cast<double>(bytes_.size()))) {
            return reader_.fail("reading it was stopped here");
        }
    }
    return reader_.take(record) && (reader_.at_end() || reader_.peek_type(type_));
}

bool IndexBuilder::in_section() const {
    return !reader_.at_end() && type_ != type_endsec && type_ != type_section && type_ != type_eof;
}

/// Whether the group ahead may stand between sections. Some programs close HEADER too early, or close sections twice:
/// what is then outside is kept in the file, without meaning. Before the first section only comments are taken.
bool IndexBuilder::is_stray_group(uint16_t type) const {
    const int code = reader_.ahead().code;
    return code == code_comment || (!index_.sections.empty() && (code != 0 || type == type_endsec));
}

bool IndexBuilder::read_drawing() {
    while (reader_.advance() && !reader_.at_end()) {
        uint16_t type = 0;
        if (reader_.at_record() && !reader_.peek_type(type)) {
            return false;
        }
        if (is_stray_group(type)) {
            continue;
        }
        if (!reader_.at_record() || (type != type_section && type != type_eof)) {
            return reader_.fail("SECTION or EOF was expected here");
        }
        if (type == type_eof) {
            index_.has_eof = true;
            break;
        }
        if (!read_section()) {
            return false;
        }
    }
    index_.end_of_drawing = Place::original(reader_.ahead().begin);
    if (!reader_.error() && index_.sections.empty()) {
        return reader_.fail("a drawing without sections");
    }
    return !reader_.error();
}

bool IndexBuilder::read_section_name(std::string& name) {
    do {
        if (!reader_.advance()) {
            return false;
        }
    } while (reader_.ahead().code == code_comment);
    if (reader_.at_end() || reader_.ahead().code != code_name) {
        return reader_.fail("a SECTION without a name");
    }
    name = std::string(reader_.ahead().word());
    return true;
}

bool IndexBuilder::read_section() {
    Section section;
    section.begin = Place::original(reader_.ahead().begin);
    if (!read_section_name(section.name)) {
        return false;
    }
    const bool read = section.name == "HEADER" ? read_header() : read_records(section.name);
    return read && close_section(section);
}

bool IndexBuilder::read_records(const std::string& section) {
    do {
        if (!reader_.advance()) {
            return false;
        }
    } while (!reader_.at_record());
    if (!reader_.at_end() && !reader_.peek_type(type_)) {
        return false;
    }
    if (section == "TABLES") {
        return read_tables();
    }
    if (section == "BLOCKS") {
        return read_blocks();
    }
    RecordRun* const run = section == "ENTITIES" ? &index_.entities : section == "OBJECTS" ? &index_.objects : nullptr;
    return read_run(run);
}

/// Checks that the record that ended the section is ENDSEC.
bool IndexBuilder::close_section(Section& section) {
    uint16_t type = 0;
    if (reader_.at_end()) {
        return reader_.fail_at(bytes_.size(), "the drawing ends within the section " + section.name);
    }
    if (!reader_.peek_type(type)) {
        return false;
    }
    if (type != type_endsec) {
        return reader_.fail("the section " + section.name + " is not closed before this");
    }
    section.end = Place::original(reader_.ahead().begin);
    index_.sections.push_back(std::move(section));
    return true;
}

bool IndexBuilder::read_header() {
    if (!reader_.advance()) {
        return false;
    }
    while (!reader_.at_record()) {
        if (reader_.ahead().code != code_variable) {
            if (!reader_.advance()) {
                return false;
            }
            continue;
        }
        Record variable;
        if (!read_variable(variable)) {
            return false;
        }
        index_.header.append(keep(variable));
    }
    settle_codec();
    return true;
}

/// A variable is a record from its name (code 9) to the next one's.
bool IndexBuilder::read_variable(Record& variable) {
    const uint64_t begin = reader_.ahead().begin;
    variable.place = Place::original(begin);
    if (!reader_.peek_type(variable.type)) {
        return false;
    }
    do {
        if (!reader_.advance()) {
            return false;
        }
    } while (!reader_.at_record() && reader_.ahead().code != code_variable);
    variable.length = static_cast<uint32_t>(std::min<uint64_t>(reader_.ahead().begin - begin, UINT32_MAX));
    return true;
}

void IndexBuilder::settle_codec() {
    const NameId version = index_.types.find(L"$ACADVER");
    const NameId code_page = index_.types.find(L"$DWGCODEPAGE");
    std::string_view code_page_name;
    for (const RecordId id : index_.header) {
        const Record& record = index_.records[id];
        GroupCursor cursor(bytes_, index_.encoding, record.place.number());
        Group name;
        Group value;
        const bool asked = record.type == version || record.type == code_page;
        if (!asked || !cursor.next(name) || !cursor.next(value)) {
            continue;
        }
        if (record.type == version) {
            index_.version = std::string(value.word());
        } else {
            code_page_name = value.word();
        }
    }
    index_.codec = TextCodec::for_drawing(index_.version, code_page_name);
}

/// Records between the tables are kept in the file without an index of their own.
bool IndexBuilder::read_tables() {
    while (in_section()) {
        Record stray;
        if (!(type_ == type_table ? read_table() : take(stray))) {
            return false;
        }
    }
    return true;
}

bool IndexBuilder::read_table() {
    Record head;
    Table table;
    if (!take(head)) {
        return false;
    }
    table.name = std::string(reader_.name());
    table.head = keep(head);
    while (in_section() && type_ != type_endtab && type_ != type_table) {
        Record entry;
        if (!take(entry)) {
            return false;
        }
        table.entries.append(keep(entry));
    }
    const bool closed = in_section() && type_ == type_endtab;
    table.end = Place::original(reader_.ahead().begin);
    index_.tables.push_back(std::move(table));
    Record end;
    return !closed || take(end);
}

bool IndexBuilder::read_blocks() {
    while (in_section()) {
        Record stray;
        if (!(type_ == type_block ? read_block() : take(stray))) {
            return false;
        }
    }
    return true;
}

bool IndexBuilder::read_block() {
    Record head;
    Block block;
    if (!take(head)) {
        return false;
    }
    block.name = head.block_name;
    block.head = keep(head);
    while (in_section() && type_ != type_endblk && type_ != type_block) {
        Record entity;
        if (!take(entity)) {
            return false;
        }
        block.entities.append(keep(entity));
    }
    block.end = Place::original(reader_.ahead().begin);
    if (in_section() && type_ == type_endblk) {
        Record end;
        if (!take(end)) {
            return false;
        }
        block.end_record = keep(end);
    }
    index_.name_block(block.name, static_cast<BlockId>(index_.blocks.size()));
    index_.blocks.push_back(std::move(block));
    return true;
}

/// The records of a section without structure; without a run they are only passed over.
bool IndexBuilder::read_run(RecordRun* run) {
    while (in_section()) {
        Record record;
        if (!take(record)) {
            return false;
        }
        if (run != nullptr) {
            run->append(keep(record));
        }
    }
    return true;
}

base::Outcome<Error> build_index(std::string_view bytes, DrawingIndex& index) {
    uint64_t start = 0;
    if (auto reason = judge_start(bytes, index, start)) {
        return base::Failure{Error{{}, Error::Place::none, 0, *std::move(reason)}};
    }
    IndexBuilder builder(bytes, index, start);
    return builder.read_drawing() ? base::Outcome<Error>() : base::Failure{*builder.error()};
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
