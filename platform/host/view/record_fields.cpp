#include "platform/host/view/record_fields.h"

#include "platform/host/dxf/own_groups.h"

namespace host {

void RecordFields::read(const dxf::RecordView& record) {
    groups_.clear();
    record_ = record;
    dxf::OwnGroupCursor cursor(record.groups());
    dxf::Group group;
    while (cursor.next(group)) {
        groups_.push_back(group);
    }
}

const dxf::Group* RecordFields::find(int code) const {
    for (const dxf::Group& group : groups_) {
        if (group.code == code) {
            return &group;
        }
    }
    return nullptr;
}

double RecordFields::real(int code, double fallback) const {
    const dxf::Group* const found = find(code);
    return found != nullptr ? found->real() : fallback;
}

int64_t RecordFields::integer(int code, int64_t fallback) const {
    const dxf::Group* const found = find(code);
    return found != nullptr ? found->integer() : fallback;
}

std::wstring RecordFields::text(int code) const {
    const dxf::Group* const found = find(code);
    return found != nullptr ? decode(found->value) : std::wstring();
}

double RecordFields::angle(int code, double fallback) const {
    return real(code, fallback * 180 / pi) * pi / 180;
}

Vec3 RecordFields::point(int code, const Vec3& fallback) const {
    return {real(code, fallback.x), real(code + 10, fallback.y), real(code + 20, fallback.z)};
}

std::vector<Vec3> RecordFields::points(int code) const {
    std::vector<Vec3> found;
    for (const dxf::Group& group : groups_) {
        if (group.code == code) {
            found.push_back({group.real(), 0, 0});
        } else if (!found.empty() && group.code == code + 10) {
            found.back().y = group.real();
        } else if (!found.empty() && group.code == code + 20) {
            found.back().z = group.real();
        }
    }
    return found;
}

std::vector<double> RecordFields::reals(int code) const {
    std::vector<double> found;
    for (const dxf::Group& group : groups_) {
        if (group.code == code) {
            found.push_back(group.real());
        }
    }
    return found;
}

Transform3 RecordFields::extrusion() const {
    return has(210) ? Transform3::extrusion(point(210, {0, 0, 1})) : Transform3();
}

}  // namespace host
