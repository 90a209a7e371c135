// Edits of a drawing: each leaves the index as if the edited drawing had been read.
#include <algorithm>
#include <array>
#include <cassert>
#include <limits>
#include <utility>
#include <vector>

#include "platform/host/dxf/drawing.h"
#include "platform/host/dxf/index_builder.h"

namespace dxf {

namespace {

/// The order in which sections stand in a drawing.
constexpr std::array<std::string_view, 6> section_order = {"HEADER", "CLASSES",  "TABLES",
                                                           "BLOCKS", "ENTITIES", "OBJECTS"};
constexpr std::string_view hand_seed = "$HANDSEED";

std::wstring wide(std::string_view ascii) {
    return {ascii.begin(), ascii.end()};
}

bool since_r13(const std::string& version) {
    return version >= "AC1012";
}

/// Where the value's own bytes begin within a record, and end: the line end of an ASCII value stays as it is.
std::pair<size_t, size_t> value_range(const Group& group, const char* record_begin) {
    const auto begin = static_cast<size_t>(group.value.data() - record_begin);
    if (group.encoding == Encoding::ascii) {
        return {begin, begin + group.value.size()};
    }
    const size_t length_byte = kind_of(group.code) == ValueKind::chunk ? 1 : 0;
    return {begin - length_byte, static_cast<size_t>(group.end)};
}

/// Handles that must be free for new records, whose numbers have 32 bits.
constexpr uint64_t handle_room = uint64_t{1} << 32;

/// Where the widest gap between handles begins.
uint64_t begin_of_widest_gap(std::vector<uint64_t> handles) {
    handles.push_back(0);
    handles.push_back(std::numeric_limits<uint64_t>::max());  // would leave no $HANDSEED
    std::sort(handles.begin(), handles.end());
    size_t widest = 1;
    for (size_t i = 2; i < handles.size(); ++i) {
        widest = handles[i] - handles[i - 1] > handles[widest] - handles[widest - 1] ? i : widest;
    }
    return handles[widest - 1] + 1;
}

/// The first of `handle_room` handles in a row that no record of the drawing has (sub-records and records outside the
/// index included). `seed`, the value of $HANDSEED, is taken unless it is not above the drawing's handles or is
/// nonsense. `bytes` are the drawing's; they are read again when the handles leave no room behind the highest one.
uint64_t first_new_handle(uint64_t seed, const DrawingIndex& index, std::string_view bytes) {
    constexpr uint64_t last = DrawingIndex::first_unusual_handle - handle_room;
    const uint64_t behind = index.highest_usual_handle + 1;
    if (behind <= last) {
        return seed <= last ? std::max(seed, behind) : behind;
    }
    std::vector<uint64_t> handles;
    DrawingIndex again;
    again.all_handles = &handles;
    const bool whole = static_cast<bool>(build_index(bytes, again));
    assert(whole);  // it was read before
    (void)whole;
    return begin_of_widest_gap(std::move(handles));
}

}  // namespace

bool Drawing::uses_handles() const {
    if (since_r13(index_.version)) {
        return true;
    }
    const RecordId handling = header_variable("$HANDLING");
    return index_.highest_handle != 0 || (handling != no_record && view(handling).integer(70) != 0);
}

uint64_t Drawing::allocate_handle() {
    if (!uses_handles()) {
        return 0;
    }
    if (next_handle_ == 0) {
        const RecordId seed = header_variable(hand_seed);
        next_handle_ = first_new_handle(seed == no_record ? 0 : view(seed).handle(5), index_, original());
    }
    hand_seed_due_ = true;
    return next_handle_++;
}

void Drawing::settle_hand_seed() {
    if (!std::exchange(hand_seed_due_, false)) {
        return;
    }
    // The seed is above all handles; when there is nothing above them, it is the next handle that will be given.
    const uint64_t next_seed = std::max(next_handle_, index_.highest_handle + 1);
    const UndoHistory::Pause handles_stay_taken(history_);
    const RecordId seed = header_variable(hand_seed);
    if (seed != no_record) {
        replace_value(seed, 5, Handle{next_seed});
    } else if (index_.section("HEADER") != nullptr) {
        append_header_variable(RecordWriter(manner()).text(9, wide(hand_seed)).handle(5, next_seed).take());
    }
}

RecordId Drawing::add_record(std::string bytes, Place before) {
    await_readers();
    const auto id = static_cast<RecordId>(index_.records.size());
    const auto length = static_cast<uint32_t>(bytes.size());
    Record record = read_record(bytes, index_).value_or(Record());
    record.length = length;
    record.place = edits_.insert_before(before, std::move(bytes));
    index_.records.push_back(record);
    return id;
}

RecordId Drawing::append_entity(std::string bytes) {
    const RecordId id = add_record(std::move(bytes), ensure_section("ENTITIES"));
    index_.entities.append(id);
    note_addition(id);
    return id;
}

RecordId Drawing::append_object(std::string bytes) {
    const RecordId id = add_record(std::move(bytes), ensure_section("OBJECTS"));
    index_.objects.append(id);
    note_addition(id);
    return id;
}

RecordId Drawing::append_header_variable(std::string bytes) {
    const RecordId id = add_record(std::move(bytes), ensure_section("HEADER"));
    index_.records[id].type = static_cast<uint16_t>(index_.types.intern(view(id).type(), index_.codec));
    index_.header.append(id);
    note_addition(id);
    return id;
}

RecordId Drawing::append_to_block(BlockId block, std::string bytes) {
    const RecordId id = add_record(std::move(bytes), index_.blocks[block].end);
    index_.blocks[block].entities.append(id);
    note_addition(id);
    return id;
}

BlockId Drawing::append_block(std::string head, std::string end) {
    const Place where = ensure_section("BLOCKS");
    if (!index_.blocks.empty()) {
        keep_end_before(index_.blocks.back().end, where);
    }
    Block block;
    block.head = add_record(std::move(head), where);
    block.end_record = add_record(std::move(end), where);
    block.end = record(block.end_record).place;
    block.name = record(block.head).block_name;
    const auto id = static_cast<BlockId>(index_.blocks.size());
    index_.name_block(block.name, id);
    note_addition(block.head);
    note_addition(block.end_record);
    index_.blocks.push_back(std::move(block));
    return id;
}

RecordId Drawing::append_entry(std::string_view table_name, std::string bytes) {
    Table& table = ensure_table(table_name);
    const RecordId id = add_record(std::move(bytes), table.end);
    table.entries.append(id);
    note_addition(id);
    const int64_t count = view(table.head).integer(70) + 1;
    replace_value(table.head, 70, count);
    return id;
}

bool Drawing::replace_value(RecordId id, int code, const Value& value, size_t nth) {
    const std::string_view old = bytes_of(record(id));
    const auto group = view(id).group(code, nth);
    if (!group) {
        return false;
    }
    const auto [begin, end] = value_range(*group, old.data());
    std::string bytes(old.substr(0, begin));
    bytes += encode_value(code, value, manner());
    bytes += old.substr(end);
    update_record(id, std::move(bytes));
    return true;
}

void Drawing::rewrite(RecordId id, std::string bytes) {
    update_record(id, std::move(bytes));
}

void Drawing::update_record(RecordId id, std::string bytes) {
    await_readers();
    note_change(id);
    const Record old = record(id);
    // A header variable is no record of its own kind: only its bytes change.
    Record changed = read_record(bytes, index_).value_or(old);
    changed.flags &= static_cast<uint16_t>(~Record::erased);
    changed.length = static_cast<uint32_t>(bytes.size());
    changed.place = edits_.replace(old.place, old.length, std::move(bytes));
    index_.records[id] = changed;
}

void Drawing::erase(RecordId id) {
    await_readers();
    note_change(id);
    Record& gone = index_.records[id];
    edits_.erase(gone.place, gone.length);
    gone.flags |= Record::erased;
}

Place Drawing::ensure_section(std::string_view name) {
    await_readers();
    // Where there are several of one name, their records make one run, which goes on in the last.
    const auto last = std::find_if(index_.sections.rbegin(), index_.sections.rend(),
                                   [name](const Section& section) { return section.name == name; });
    if (last != index_.sections.rend()) {
        return last->end;
    }
    Place before = index_.end_of_drawing;
    const auto* const own = std::find(section_order.begin(), section_order.end(), name);
    for (const auto* later = own; later != section_order.end(); ++later) {
        if (const Section* const found = index_.section(*later)) {
            before = found->begin;
            break;
        }
    }
    end_last_line(before);
    RecordWriter writer(manner());
    writer.type(L"SECTION").text(2, wide(name));
    Section section;
    section.name = std::string(name);
    section.begin = edits_.insert_before(before, writer.take());
    section.end = edits_.insert_before(before, writer.type(L"ENDSEC").take());
    index_.sections.push_back(section);
    return section.end;
}

/// A drawing without EOF may end within a line. What is added behind it needs a line of its own.
void Drawing::end_last_line(Place before) {
    const std::string_view bytes = original();
    const bool at_end = !before.added() && before.number() == bytes.size();
    if (at_end && index_.encoding == Encoding::ascii && bytes.back() != '\n' && !edits_.has_pieces_before(before)) {
        edits_.insert_before(before, index_.line_end);
    }
}

/// The last block or table of a section may lack its end record, and end where the section does. Once another follows
/// it there, what is added to it must still go before that one.
void Drawing::keep_end_before(Place& end, Place section_end) {
    if (end == section_end) {
        end = edits_.insert_before(section_end, {});
    }
}

Table& Drawing::ensure_table(std::string_view name) {
    const auto found = std::find_if(index_.tables.begin(), index_.tables.end(),
                                    [name](const Table& table) { return table.name == name; });
    if (found != index_.tables.end()) {
        return *found;
    }
    const Place before = ensure_section("TABLES");
    if (!index_.tables.empty()) {
        keep_end_before(index_.tables.back().end, before);
    }
    RecordWriter writer(manner());
    writer.type(L"TABLE").text(2, wide(name));
    if (since_r13(index_.version)) {
        writer.handle(5, allocate_handle()).handle(330, 0).text(100, L"AcDbSymbolTable");
    }
    Table table;
    table.name = std::string(name);
    table.head = add_record(writer.integer(70, 0).take(), before);
    table.end = edits_.insert_before(before, writer.type(L"ENDTAB").take());
    index_.tables.push_back(std::move(table));
    return index_.tables.back();
}

}  // namespace dxf
