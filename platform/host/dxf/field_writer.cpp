#include "platform/host/dxf/field_writer.h"

#include <utility>

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

}  // namespace dxf
