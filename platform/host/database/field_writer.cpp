#include "platform/host/database/field_writer.h"

#include <algorithm>

#include "platform/host/database/database_store.h"
#include "platform/host/database/record_merge.h"

namespace host {
namespace {

constexpr double degrees_per_radian = 57.295779513082320876798154814105;

}  // namespace

FieldWriter::FieldWriter(const DatabaseStore& store, RecordIdentity identity) : store_(store), identity_(identity) {}

FieldWriter& FieldWriter::add(int code, const dxf::Value& value, bool as_if_absent, Field::Presence presence) {
    Field& field = fields_.emplace_back();
    field.code = code;
    field.value = value;
    field.as_if_absent = as_if_absent;
    field.presence = presence;
    return *this;
}

FieldWriter& FieldWriter::begin(std::wstring_view type, std::wstring_view subclass_name) {
    add(0, std::wstring(type), false);
    if (identity_.handle != 0) {
        handle(5, identity_.handle);
    }
    if (store_.has_subclasses() && identity_.owner != 0) {
        handle(330, identity_.owner);
    }
    return subclass(subclass_name);
}

FieldWriter& FieldWriter::subclass(std::wstring_view name) {
    return store_.has_subclasses() ? add(100, std::wstring(name), false) : *this;
}

FieldWriter& FieldWriter::text(int code, std::wstring_view value) {
    return add(code, std::wstring(value), value.empty());
}

FieldWriter& FieldWriter::text(int code, std::wstring_view value, std::wstring_view default_value,
                               Field::Presence presence) {
    return add(code, std::wstring(value), value == default_value, presence);
}

FieldWriter& FieldWriter::integer(int code, int64_t value) {
    return add(code, value, value == 0);
}

FieldWriter& FieldWriter::integer(int code, int64_t value, int64_t default_value) {
    return add(code, value, value == default_value, Field::Presence::if_needed);
}

FieldWriter& FieldWriter::real(int code, double value) {
    return add(code, value, value == 0.0);
}

FieldWriter& FieldWriter::real(int code, double value, double default_value) {
    return add(code, value, value == default_value, Field::Presence::if_needed);
}

FieldWriter& FieldWriter::angle(int code, double radians) {
    return add(code, radians * degrees_per_radian, radians == 0.0);
}

FieldWriter& FieldWriter::angle(int code, double radians, double default_radians) {
    return add(code, radians * degrees_per_radian, radians == default_radians, Field::Presence::if_needed);
}

FieldWriter& FieldWriter::point(int code, const AcGePoint3d& point) {
    return real(code, point.x).real(code + 10, point.y).real(code + 20, point.z);
}

FieldWriter& FieldWriter::point_if(bool needed, int code, const AcGePoint3d& point) {
    if (needed) {
        return this->point(code, point);
    }
    constexpr Field::Presence presence = Field::Presence::if_needed;
    return add(code, point.x, true, presence)
        .add(code + 10, point.y, true, presence)
        .add(code + 20, point.z, true, presence);
}

FieldWriter& FieldWriter::handle(int code, uint64_t value) {
    return add(code, dxf::Handle{value}, false);
}

FieldWriter& FieldWriter::following(std::string_view records) {
    following_ += records;
    return *this;
}

std::string FieldWriter::encode() const {
    dxf::RecordWriter writer(store_.drawing().manner());
    for (const Field& field : fields_) {
        if (!field.as_if_absent || field.presence == Field::Presence::always) {
            write_value(writer, field.code, field.value);
        }
    }
    return writer.raw(following_).take();
}

const dxf::Group* FieldReader::find(int code) const {
    const auto found =
        std::find_if(groups_.begin(), groups_.end(), [code](const dxf::Group& group) { return group.code == code; });
    return found == groups_.end() ? nullptr : &*found;
}

std::wstring FieldReader::text(int code, std::wstring_view fallback) const {
    const dxf::Group* const found = find(code);
    return found == nullptr ? std::wstring(fallback) : record_.decode(found->value);
}

int FieldReader::integer(int code, int fallback) const {
    const dxf::Group* const found = find(code);
    return found == nullptr ? fallback : static_cast<int>(found->integer());
}

double FieldReader::real(int code, double fallback) const {
    const dxf::Group* const found = find(code);
    return found == nullptr ? fallback : found->real();
}

double FieldReader::angle(int code) const {
    return real(code) / degrees_per_radian;
}

AcGePoint3d FieldReader::point(int code) const {
    return {real(code), real(code + 10), real(code + 20)};
}

}  // namespace host
