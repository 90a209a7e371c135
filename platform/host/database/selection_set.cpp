#include "platform/host/database/selection_set.h"

#include <algorithm>

namespace host {

std::vector<bool>& SelectionSet::members() const {
    if (members_.empty() && !records_.empty()) {
        members_.resize(size_t{*std::max_element(records_.begin(), records_.end())} + 1);
        for (const dxf::RecordId record : records_) {
            members_[record] = true;
        }
    }
    return members_;
}

bool SelectionSet::contains(dxf::RecordId record) const {
    const std::vector<bool>& known = members();
    return record < known.size() && known[record];
}

std::vector<dxf::RecordId> SelectionSet::add(const std::vector<dxf::RecordId>& records) {
    std::vector<bool>& known = members();
    std::vector<dxf::RecordId> added;
    for (const dxf::RecordId record : records) {
        if (record >= known.size()) {
            known.resize(size_t{record} + 1);
        }
        if (!known[record]) {
            known[record] = true;
            added.push_back(record);
        }
    }
    records_.insert(records_.end(), added.begin(), added.end());
    return added;
}

std::vector<dxf::RecordId> SelectionSet::remove(const std::vector<dxf::RecordId>& records) {
    std::vector<bool>& known = members();
    std::vector<dxf::RecordId> removed;
    for (const dxf::RecordId record : records) {
        if (record < known.size() && known[record]) {
            known[record] = false;
            removed.push_back(record);
        }
    }
    std::erase_if(records_, [&known](dxf::RecordId record) { return !known[record]; });
    return removed;
}

uint32_t SelectionSets::put(SelectionSet set) {
    sets_.push_back(std::make_unique<SelectionSet>(std::move(set)));
    return static_cast<uint32_t>(sets_.size());
}

SelectionSet* SelectionSets::at(uint32_t number) {
    return number == 0 || number > sets_.size() ? nullptr : sets_[number - 1].get();
}

}  // namespace host
