#include "platform/host/dxf/index_builder.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace dxf {

namespace {

constexpr std::string_view binary_sentinel("AutoCAD Binary DXF\r\n\x1a\0", 22);
constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
/// Handles beyond are nonsense that would leave no room for new ones.
constexpr uint64_t highest_sane_handle = uint64_t{1} << 62;

enum Code { code_type = 0, code_name = 2, code_handle = 5, code_layer = 8, code_variable = 9, code_paper = 67 };
constexpr int code_dimstyle_handle = 105;
constexpr int code_comment = 999;

bool starts_with(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}

/// How the groups behind the binary sentinel are laid out: code 0 takes one byte or two, and so does a comment's.
Encoding binary_encoding(std::string_view groups) {
    const bool two_byte_zero = starts_with(groups, std::string_view("\0\0", 2));
    const bool two_byte_comment = starts_with(groups, "\xE7\x03");
    return two_byte_zero || two_byte_comment ? Encoding::binary : Encoding::binary_r12;
}

/// Room for the records still to come, judged by those so far. Growing sixteenfold at most keeps a dense start of the
/// file from claiming memory for all of it.
size_t expected_records(size_t count, uint64_t bytes_read, uint64_t bytes_in_all) {
    const uint64_t each = std::max<uint64_t>(1, bytes_read / count);
    const uint64_t expected = bytes_in_all / each + bytes_in_all / each / 16;
    return static_cast<size_t>(std::clamp<uint64_t>(expected, count + count / 4 + 64, uint64_t{16} * count));
}

}  // namespace

IndexBuilder::IndexBuilder(std::string_view bytes, DrawingIndex& index, uint64_t start)
    : bytes_(bytes), index_(index), cursor_(bytes, index.encoding, start) {}

Error IndexBuilder::error() const {
    return error_.value_or(Error());
}

bool IndexBuilder::fail_at(uint64_t position, std::string reason) {
    if (!error_) {
        Error error;
        error.reason = std::move(reason);
        const bool lines = index_.encoding == Encoding::ascii;
        error.place = lines ? Error::Place::line : Error::Place::byte;
        const auto until = bytes_.begin() + static_cast<std::ptrdiff_t>(std::min<uint64_t>(position, bytes_.size()));
        error.position = lines ? static_cast<uint64_t>(std::count(bytes_.begin(), until, '\n')) + 1 : position;
        error_ = std::move(error);
    }
    return false;
}

/// Reads the next group into group_. At the end of the bytes at_end_ is set and group_ stands, empty, at the end.
inline bool IndexBuilder::advance() {
    if (cursor_.next(group_)) {
        return true;
    }
    if (cursor_.error() != nullptr && !rest_is_blank()) {
        return fail_at(cursor_.position(), cursor_.error());
    }
    at_end_ = true;
    group_ = Group();
    group_.begin = cursor_.position();
    return true;
}

/// Blank lines and an end-of-file character behind the last group do no harm.
bool IndexBuilder::rest_is_blank() const {
    return bytes_.find_first_not_of(std::string_view(" \t\r\n\x1a\0", 6), cursor_.position()) == std::string_view::npos;
}

bool IndexBuilder::take_type(uint16_t& type) {
    if (group_.value != last_type_) {
        const NameId id = index_.types.intern(group_.word(), index_.codec);
        if (id > std::numeric_limits<uint16_t>::max()) {
            return fail("too many types of records");
        }
        last_type_ = group_.value;
        last_type_id_ = static_cast<uint16_t>(id);
    }
    type = last_type_id_;
    return true;
}

/// Reads groups up to the next type, and keeps what the index holds of them.
inline bool IndexBuilder::take_fields(Record& record) {
    name_ = {};
    while (advance()) {
        switch (group_.code) {
            case code_type:
                return true;
            case code_name:
                name_ = name_.data() == nullptr ? group_.value : name_;
                break;
            case code_handle:
                record.handle = record.handle == 0 && record.type != type_dimstyle ? group_.handle() : record.handle;
                break;
            case code_dimstyle_handle:
                record.handle = record.type == type_dimstyle ? group_.handle() : record.handle;
                break;
            case code_layer:
                if (record.layer == no_name) {
                    if (group_.value != last_layer_ || last_layer_id_ == no_name) {
                        last_layer_ = group_.value;
                        last_layer_id_ = index_.layers.intern(group_.value, index_.codec);
                    }
                    record.layer = last_layer_id_;
                }
                break;
            case code_paper:
                record.flags |= group_.integer() != 0 ? Record::paper_space : 0;
                break;
            default:
                break;
        }
    }
    return false;
}

/// Reads past the ATTRIB, VERTEX and SEQEND records that belong to an INSERT or POLYLINE.
bool IndexBuilder::take_parts(Record& record) {
    uint16_t type = 0;
    while (!at_end_) {
        if (!take_type(type)) {
            return false;
        }
        if (type != type_attrib && type != type_vertex && type != type_seqend) {
            return true;
        }
        record.flags |= Record::has_parts;
        Record part;
        part.type = type;
        if (!take_fields(part)) {
            return false;
        }
        if (part.handle < highest_sane_handle) {
            index_.highest_handle = std::max(index_.highest_handle, part.handle);
        }
        if (type == type_seqend) {
            return true;
        }
    }
    return true;
}

void IndexBuilder::note_name(Record& record) {
    const bool names_block = record.type == type_insert || record.type == type_block;
    if (names_block && name_.data() != nullptr) {
        record.block_name = index_.block_names.intern(name_, index_.codec);
    }
}

/// Reads the record whose type is in group_; afterwards group_ is the type of the next one.
bool IndexBuilder::take_record(Record& record) {
    const uint64_t begin = group_.begin;
    record.place = Place::original(begin);
    if (!take_type(record.type) || !take_fields(record)) {
        return false;
    }
    note_name(record);
    if ((record.type == type_insert || record.type == type_polyline) && !take_parts(record)) {
        return false;
    }
    const uint64_t length = group_.begin - begin;
    if (length > std::numeric_limits<uint32_t>::max()) {
        return fail_at(begin, "a record of more than 4 GB");
    }
    record.length = static_cast<uint32_t>(length);
    if (record.handle < highest_sane_handle) {
        index_.highest_handle = std::max(index_.highest_handle, record.handle);
    }
    return true;
}

RecordId IndexBuilder::keep(const Record& record) {
    std::vector<Record>& records = index_.records;
    if (records.size() == records.capacity()) {
        records.reserve(records.empty() ? 256 : expected_records(records.size(), group_.begin, bytes_.size()));
    }
    records.push_back(record);
    return static_cast<RecordId>(records.size() - 1);
}

std::optional<Record> IndexBuilder::read_only_record() {
    Record record;
    if (!advance() || at_end_ || group_.code != code_type || !take_record(record) || !at_end_) {
        return std::nullopt;
    }
    return record;
}

/// Whether group_ may stand between sections. Some programs close HEADER too early, or close sections twice: what is
/// then outside is kept in the file, without meaning. Before the first section only comments are taken.
bool IndexBuilder::is_stray_group(uint16_t type) const {
    if (group_.code == code_comment) {
        return true;
    }
    return !index_.sections.empty() && (group_.code != code_type || type == type_endsec);
}

bool IndexBuilder::read_drawing() {
    while (advance() && !at_end_) {
        uint16_t type = 0;
        if (group_.code == code_type && !take_type(type)) {
            return false;
        }
        if (is_stray_group(type)) {
            continue;
        }
        if (group_.code != code_type || (type != type_section && type != type_eof)) {
            return fail("SECTION or EOF was expected here");
        }
        if (type == type_eof) {
            index_.has_eof = true;
            break;
        }
        if (!read_section()) {
            return false;
        }
    }
    index_.end_of_drawing = Place::original(group_.begin);
    if (!error_ && index_.sections.empty()) {
        return fail("a drawing without sections");
    }
    return !error_;
}

bool IndexBuilder::read_section() {
    Section section;
    section.begin = Place::original(group_.begin);
    do {
        if (!advance()) {
            return false;
        }
    } while (!at_end_ && group_.code == code_comment);
    if (at_end_ || group_.code != code_name) {
        return fail("a SECTION without a name");
    }
    section.name = std::string(group_.word());
    section_name_ = section.name;
    if (section.name == "HEADER") {
        return read_header() && close_section(section);
    }
    if (!to_first_record()) {
        return false;
    }
    bool read = false;
    if (section.name == "TABLES") {
        read = read_tables();
    } else if (section.name == "BLOCKS") {
        read = read_blocks();
    } else if (section.name == "ENTITIES") {
        read = read_run(index_.entities);
    } else if (section.name == "OBJECTS") {
        read = read_run(index_.objects);
    } else {
        read = skip_records();
    }
    return read && close_section(section);
}

bool IndexBuilder::to_first_record() {
    while (advance()) {
        if (at_record_end()) {
            return at_end_ || take_type(type_);
        }
    }
    return false;
}

/// Group_ is what ended the section: it must be ENDSEC.
bool IndexBuilder::close_section(Section& section) {
    uint16_t type = 0;
    if (at_end_) {
        return fail_at(bytes_.size(), "the drawing ends within the section " + section_name_);
    }
    if (!take_type(type) || type != type_endsec) {
        return fail("the section " + section_name_ + " is not closed before this");
    }
    section.end = Place::original(group_.begin);
    index_.sections.push_back(std::move(section));
    return true;
}

/// Each variable is a record from its name (code 9) to the next.
bool IndexBuilder::read_header() {
    if (!advance()) {
        return false;
    }
    while (!at_record_end()) {
        Record record;
        record.place = Place::original(group_.begin);
        const bool variable = group_.code == code_variable;
        if (variable && !take_type(record.type)) {
            return false;
        }
        do {
            if (!advance()) {
                return false;
            }
        } while (!at_record_end() && group_.code != code_variable);
        record.length = static_cast<uint32_t>(group_.begin - record.place.number());
        if (variable) {
            index_.header.append(keep(record));
        }
    }
    settle_codec();
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

bool IndexBuilder::read_tables() {
    while (!at_end_ && !ends_section(type_)) {
        const bool is_table = type_ == type_table;
        Record stray;
        // Records between the tables are kept in the file without an index of their own.
        if (!(is_table ? read_table() : take_record(stray)) || !(at_end_ || take_type(type_))) {
            return false;
        }
    }
    return true;
}

bool IndexBuilder::read_table() {
    Record head;
    Table table;
    if (!take_record(head)) {
        return false;
    }
    table.name = std::string(name_);
    table.head = keep(head);
    uint16_t type = 0;
    while (!at_end_) {
        if (!take_type(type)) {
            return false;
        }
        if (type == type_endtab || type == type_table || ends_section(type)) {
            break;
        }
        Record entry;
        if (!take_record(entry)) {
            return false;
        }
        table.entries.append(keep(entry));
    }
    table.end = Place::original(group_.begin);
    index_.tables.push_back(std::move(table));
    Record end;
    return type != type_endtab || take_record(end);
}

bool IndexBuilder::read_blocks() {
    while (!at_end_ && !ends_section(type_)) {
        Record stray;
        if (!(type_ == type_block ? read_block() : take_record(stray)) || !(at_end_ || take_type(type_))) {
            return false;
        }
    }
    return true;
}

bool IndexBuilder::read_block() {
    Record head;
    Block block;
    if (!take_record(head)) {
        return false;
    }
    block.name = head.block_name;
    block.head = keep(head);
    uint16_t type = 0;
    while (!at_end_) {
        if (!take_type(type)) {
            return false;
        }
        if (type == type_endblk || type == type_block || ends_section(type)) {
            break;
        }
        Record entity;
        if (!take_record(entity)) {
            return false;
        }
        block.entities.append(keep(entity));
    }
    block.end = Place::original(group_.begin);
    if (type == type_endblk) {
        Record end;
        if (!take_record(end)) {
            return false;
        }
        block.end_record = keep(end);
    }
    index_.name_block(block.name, static_cast<BlockId>(index_.blocks.size()));
    index_.blocks.push_back(std::move(block));
    return true;
}

bool IndexBuilder::read_run(RecordRun& run) {
    while (!at_end_ && !ends_section(type_)) {
        Record record;
        if (!take_record(record)) {
            return false;
        }
        run.append(keep(record));
        if (!at_end_ && !take_type(type_)) {
            return false;
        }
    }
    return true;
}

bool IndexBuilder::skip_records() {
    while (!at_end_ && !ends_section(type_)) {
        Record record;
        if (!take_record(record) || !(at_end_ || take_type(type_))) {
            return false;
        }
    }
    return true;
}

namespace {

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
    if (starts_with(bytes, binary_sentinel.substr(0, 18))) {
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

std::optional<Error> build_index(std::string_view bytes, DrawingIndex& index) {
    uint64_t start = 0;
    if (auto reason = judge_start(bytes, index, start)) {
        Error error;
        error.reason = *std::move(reason);
        return error;
    }
    IndexBuilder builder(bytes, index, start);
    if (!builder.read_drawing()) {
        return builder.error();
    }
    return std::nullopt;
}

std::optional<Record> read_record(std::string_view bytes, DrawingIndex& index) {
    return IndexBuilder(bytes, index, 0).read_only_record();
}

}  // namespace dxf
