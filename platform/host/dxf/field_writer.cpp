#include "platform/host/dxf/field_writer.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <variant>

namespace dxf {

FieldWriter& FieldWriter::add(int code, Value value, bool as_if_absent, Presence presence) {
    Field& field = fields_.emplace_back();
    field.code = code;
    field.value = std::move(value);
    field.as_if_absent = as_if_absent;
    field.presence = presence;
    return *this;
}

FieldWriter& FieldWriter::begin(std::wstring_view type, std::wstring_view subclass_name) {
    add(0, std::wstring(type), false);
    if (identity_.handle != 0) {
        handle(5, identity_.handle);
    }
    if (subclasses_ && identity_.owner != 0) {
        handle(330, identity_.owner);
    }
    return subclass(subclass_name);
}

FieldWriter& FieldWriter::subclass(std::wstring_view name) {
    return subclasses_ ? add(100, std::wstring(name), false) : *this;
}

FieldWriter& FieldWriter::text(int code, std::wstring_view value, std::wstring_view absent, Presence presence) {
    return add(code, std::wstring(value), value == absent, presence);
}

FieldWriter& FieldWriter::integer(int code, int64_t value, int64_t absent, Presence presence) {
    return add(code, value, value == absent, presence);
}

FieldWriter& FieldWriter::real(int code, double value, double absent, Presence presence) {
    return add(code, value, value == absent, presence);
}

FieldWriter& FieldWriter::point(int code, const Vec3& point) {
    return real(code, point.x).real(code + 10, point.y).real(code + 20, point.z);
}

FieldWriter& FieldWriter::point_if(bool needed, int code, const Vec3& point, const Vec3& absent) {
    if (needed) {
        return this->point(code, point);
    }
    constexpr Presence presence = Presence::if_needed;
    return add(code, absent.x, true, presence)
        .add(code + 10, absent.y, true, presence)
        .add(code + 20, absent.z, true, presence);
}

FieldWriter& FieldWriter::handle(int code, uint64_t value) {
    return add(code, Handle{value}, false);
}

FieldWriter& FieldWriter::following(std::string_view records) {
    following_ += records;
    return *this;
}

std::string FieldWriter::encode(const Manner& manner) const {
    RecordWriter writer(manner);
    for (const Field& field : fields_) {
        if (!field.as_if_absent || field.presence == Presence::always) {
            writer.add(field.code, field.value);
        }
    }
    return writer.raw(following_).take();
}

namespace {

constexpr int type_code = 0;
constexpr int handle_code = 5;
constexpr int owner_code = 330;
constexpr int subclass_code = 100;

bool identifies(int code) {
    return code == type_code || code == handle_code || code == owner_code || code == subclass_code;
}

bool same_value(const RecordView& record, const Group& group, const Value& value) {
    if (const auto* const text = std::get_if<std::wstring>(&value)) {
        return record.decode(group.value) == *text;
    }
    if (const auto* const real = std::get_if<double>(&value)) {
        const double stored = group.real();
        const bool as_bad = stored == *real || (std::isnan(stored) && std::isnan(*real));
        return as_bad || std::abs(stored - *real) <= 1e-12 * std::max({1.0, std::abs(stored), std::abs(*real)});
    }
    if (const auto* const integer = std::get_if<int64_t>(&value)) {
        return group.integer() == *integer;
    }
    return group.handle() == std::get<Handle>(value).value;
}

/// Bytes to put in place of [begin, end) of the record.
struct Piece {
    size_t begin;
    size_t end;
    std::string bytes;
};

std::string group_bytes(const Field& field, const Manner& manner) {
    return RecordWriter(manner).add(field.code, field.value).take();
}

class Merge {
  public:
    Merge(const RecordView& record, const Manner& manner)
        : record_(record), manner_(manner), groups_(RecordFields(record).groups()) {}

    void take(const Field& field) {
        const auto found = std::find_if(groups_.begin() + static_cast<std::ptrdiff_t>(next_), groups_.end(),
                                        [&](const Group& group) { return stands_for(group, field); });
        if (found != groups_.end()) {
            settle(*found, field);
            // The fields that follow are looked for behind this group.
            last_end_ = found->end;
            std::rotate(groups_.begin() + static_cast<std::ptrdiff_t>(next_), found, found + 1);
            ++next_;
        } else if (!identifies(field.code) && !field.as_if_absent) {
            insert(field);
        }
    }

    std::string result() {
        std::stable_sort(pieces_.begin(), pieces_.end(),
                         [](const Piece& left, const Piece& right) { return left.begin < right.begin; });
        const std::string_view old = record_.bytes();
        std::string bytes;
        size_t at = 0;
        for (const Piece& piece : pieces_) {
            bytes += old.substr(at, piece.begin - at);
            bytes += piece.bytes;
            at = piece.end;
        }
        bytes += old.substr(at);
        return bytes;
    }

  private:
    static bool stands_for(const Group& group, const Field& field) {
        if (group.code != field.code || field.code != subclass_code) {
            return group.code == field.code;
        }
        const std::string_view word = group.word();
        const std::wstring& name = std::get<std::wstring>(field.value);
        return std::equal(word.begin(), word.end(), name.begin(), name.end(),
                          [](char byte, wchar_t letter) { return static_cast<wchar_t>(byte) == letter; });
    }

    void settle(const Group& group, const Field& field) {
        if (!identifies(field.code) && !same_value(record_, group, field.value)) {
            pieces_.push_back({group.begin, group.end, group_bytes(field, manner_)});
        }
    }

    void insert(const Field& field) {
        std::string bytes = group_bytes(field, manner_);
        // The last group of a cut-off file has no line end.
        if (manner_.encoding == Encoding::ascii && last_end_ > 0 && record_.bytes()[last_end_ - 1] != '\n') {
            bytes.insert(0, manner_.line_end);
        }
        pieces_.push_back({last_end_, last_end_, std::move(bytes)});
    }

    const RecordView& record_;
    const Manner& manner_;
    std::vector<Group> groups_;  ///< those that were matched come first
    size_t next_ = 0;
    size_t last_end_ = 0;
    std::vector<Piece> pieces_;
};

}  // namespace

std::string merge_fields(const RecordView& record, const std::vector<Field>& fields, const Manner& manner) {
    Merge merge(record, manner);
    for (const Field& field : fields) {
        merge.take(field);
    }
    return merge.result();
}

}  // namespace dxf
