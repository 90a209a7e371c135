#include "platform/host/dxf/record_reader.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/host/dxf/own_groups.h"

namespace dxf {

namespace {

enum Code {
    code_type = 0,
    code_name = 2,
    code_handle = 5,
    code_layer = 8,
    code_paper = 67,
    code_columns = 70,
    code_rows = 71,
    code_dimstyle_handle = 105
};

}  // namespace

RecordReader::RecordReader(std::string_view bytes, DrawingIndex& index, uint64_t start)
    : bytes_(bytes), index_(index), cursor_(bytes, index.encoding, start) {}

bool RecordReader::fail_at(uint64_t position, std::string reason) {
    if (!error_) {
        Error error;
        error.reason = std::move(reason);
        // A name out of a binary drawing may hold anything; the message is one line.
        std::replace_if(
            error.reason.begin(), error.reason.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; }, '?');
        const bool lines = index_.encoding == Encoding::ascii;
        error.place = lines ? Error::Place::line : Error::Place::byte;
        const auto until = bytes_.begin() + static_cast<std::ptrdiff_t>(std::min<uint64_t>(position, bytes_.size()));
        error.position = lines ? static_cast<uint64_t>(std::count(bytes_.begin(), until, '\n')) + 1 : position;
        error_ = std::move(error);
    }
    return false;
}

bool RecordReader::stop() {
    if (cursor_.error() != nullptr && !rest_is_blank()) {
        return fail_at(cursor_.position(), cursor_.error());
    }
    at_end_ = true;
    group_ = Group();
    group_.begin = cursor_.position();
    return true;
}

/// Blank lines and an end-of-file character behind the last group do no harm.
bool RecordReader::rest_is_blank() const {
    return bytes_.find_first_not_of(std::string_view(" \t\r\n\x1a\0", 6), cursor_.position()) == std::string_view::npos;
}

bool RecordReader::peek_type(uint16_t& type) {
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

void RecordReader::note_layer(Record& record) {
    if (record.layer != no_name) {
        return;
    }
    if (group_.value != last_layer_ || last_layer_id_ == no_name) {
        last_layer_ = group_.value;
        last_layer_id_ = index_.layers.intern(group_.value, index_.codec);
    }
    record.layer = last_layer_id_;
}

void RecordReader::note_handle(uint64_t handle) {
    index_.highest_handle = std::max(index_.highest_handle, handle);
    if (handle < DrawingIndex::first_unusual_handle) {
        index_.highest_usual_handle = std::max(index_.highest_usual_handle, handle);
    }
    if (index_.all_handles != nullptr) {
        index_.all_handles->push_back(handle);
    }
}

/// Keeps what the index holds of the group ahead. Group 5 of a DIMSTYLE is the name of an arrow block.
inline void RecordReader::take_field(Record& record) {
    switch (group_.code) {
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
            note_layer(record);
            break;
        case code_paper:
            record.flags |= group_.integer() != 0 ? Record::paper_space : 0;
            break;
        case code_columns:
        case code_rows:
            record.flags |= record.type == type_insert && group_.integer() > 1 ? Record::array : 0;
            break;
        default:
            break;
    }
}

/// Reads groups up to the next type.
inline bool RecordReader::take_fields(Record& record) {
    OwnGroups own;
    while (advance()) {
        if (group_.code == code_type) {
            note_handle(record.handle);
            return true;
        }
        if (own.owns(group_)) {
            take_field(record);
        }
    }
    return false;
}

/// Reads past the ATTRIB, VERTEX and SEQEND records that belong to an INSERT or POLYLINE.
bool RecordReader::take_parts(Record& record) {
    uint16_t type = 0;
    while (!at_end_) {
        if (!peek_type(type)) {
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
        if (type == type_seqend) {
            return true;
        }
    }
    return true;
}

/// The LAYER table stands before the entities, so that its spelling of a layer's name is met first and kept.
void RecordReader::note_name(Record& record) {
    if (name_.data() == nullptr) {
        return;
    }
    if (record.type == type_insert || record.type == type_block) {
        record.block_name = index_.block_names.intern(name_, index_.codec);
    } else if (record.type == type_layer) {
        record.layer = index_.layers.intern(name_, index_.codec);
    }
}

bool RecordReader::take(Record& record) {
    const uint64_t begin = group_.begin;
    record.place = Place::original(begin);
    name_ = {};
    if (!peek_type(record.type) || !take_fields(record)) {
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
    return true;
}

}  // namespace dxf
