#include "platform/host/view/draw_order.h"

#include <algorithm>

#include "base/case_folding.h"
#include "platform/host/dxf/own_groups.h"

namespace host {

DrawOrder::DrawOrder(const dxf::Drawing& drawing, DrawingSettings& settings) : drawing_(drawing) {
    const dxf::NameId type = drawing.type_names().find(L"SORTENTSTABLE");
    for (const dxf::RecordId id : drawing.objects()) {
        if (type != dxf::no_name && drawing.record(id).type == type && !drawing.record(id).is(dxf::Record::erased)) {
            read(drawing.view(id), settings);
        }
    }
    for (auto& [owner, keys] : keys_) {
        std::sort(keys.begin(), keys.end());
    }
}

/// Each group 5 behind a 331 sorts the entity that the 331 names; the table's own handle has no 331 before it.
void DrawOrder::read(const dxf::RecordView& table, DrawingSettings& settings) {
    std::wstring owner;
    SortKeys keys;
    uint64_t entity = 0;
    dxf::OwnGroupCursor cursor(table.groups());
    dxf::Group group;
    while (cursor.next(group)) {
        if (group.code == 330 && owner.empty()) {
            owner = base::lower(settings.block_name(group.handle()));
        } else if (group.code == 331) {
            entity = group.handle();
        } else if (group.code == 5 && entity != 0) {
            keys.emplace_back(std::exchange(entity, 0), group.handle());
        }
    }
    if (!owner.empty() && !keys.empty()) {
        keys_[owner] = std::move(keys);
    }
}

const DrawOrder::SortKeys* DrawOrder::keys_of(const std::wstring& owner) const {
    const auto found = keys_.empty() ? keys_.end() : keys_.find(base::lower(owner));
    return found == keys_.end() ? nullptr : &found->second;
}

std::vector<dxf::RecordId> DrawOrder::sorted(const std::wstring& owner, const dxf::RecordRun& entities) const {
    const SortKeys& keys = *keys_of(owner);
    std::vector<std::pair<uint64_t, dxf::RecordId>> places;
    places.reserve(entities.size());
    for (const dxf::RecordId id : entities) {
        const uint64_t handle = drawing_.record(id).handle;
        const auto key = std::lower_bound(keys.begin(), keys.end(), std::make_pair(handle, uint64_t{0}));
        places.emplace_back(key != keys.end() && key->first == handle ? key->second : handle, id);
    }
    std::sort(places.begin(), places.end());
    std::vector<dxf::RecordId> ids;
    ids.reserve(places.size());
    for (const auto& place : places) {
        ids.push_back(place.second);
    }
    return ids;
}

}  // namespace host
