#include "platform/host/view/record_fields.h"

namespace host {

namespace {

constexpr int control_string = 102;
constexpr int embedded_object = 101;
constexpr int first_extended_code = 1000;

}  // namespace

void RecordFields::read(const dxf::RecordView& record) {
    groups_.clear();
    record_ = record;
    bool in_list = false;
    dxf::GroupCursor cursor = record.groups();
    dxf::Group group;
    for (bool own_type = true; cursor.next(group); own_type = false) {
        if ((group.code == 0 && !own_type) || group.code == embedded_object || group.code >= first_extended_code) {
            return;
        }
        if (group.code == control_string) {
            in_list = group.word().substr(0, 1) == "{";
        } else if (!in_list) {
            groups_.push_back(group);
        }
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
