#include "platform/host/dxf/record_fields.h"

#include <algorithm>
#include <limits>

#include "platform/host/dxf/own_groups.h"

namespace dxf {

void RecordFields::read(const RecordView& record) {
    constexpr size_t usual_count = 32;
    for (const Group& group : groups_) {
        if (group.code >= 0 && group.code < most_codes) {
            places_[group.code] = 0;
        }
    }
    groups_.clear();
    groups_.reserve(usual_count);
    codec_ = record.codec();
    OwnGroupCursor cursor(record.groups());
    Group group;
    while (cursor.next(group)) {
        groups_.push_back(group);
        if (group.code >= 0 && group.code < most_codes && places_[group.code] == 0 &&
            groups_.size() <= std::numeric_limits<uint16_t>::max()) {
            places_[group.code] = static_cast<uint16_t>(groups_.size());
        }
    }
}

const Group* RecordFields::group(int code) const {
    if (code >= 0 && code < most_codes &&
        (places_[code] != 0 || groups_.size() <= std::numeric_limits<uint16_t>::max())) {
        return places_[code] == 0 ? nullptr : &groups_[places_[code] - 1];
    }
    const auto found =
        std::find_if(groups_.begin(), groups_.end(), [code](const Group& group) { return group.code == code; });
    return found == groups_.end() ? nullptr : &*found;
}

std::vector<Vec3> RecordFields::points(int code) const {
    std::vector<Vec3> found;
    for (const Group& group : groups_) {
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
    for (const Group& group : groups_) {
        if (group.code == code) {
            found.push_back(group.real());
        }
    }
    return found;
}

}  // namespace dxf
