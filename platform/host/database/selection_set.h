// Selection sets of a drawing.
#pragma once

#include <memory>
#include <vector>

#include "adsdef.h"
#include "platform/host/dxf/record.h"

namespace host {

/// Entities in the order in which they were selected, each once.
class SelectionSet {
  public:
    SelectionSet() = default;
    /// Records without a repetition.
    explicit SelectionSet(std::vector<dxf::RecordId> records) : records_(std::move(records)) {}

    const std::vector<dxf::RecordId>& records() const { return records_; }
    bool empty() const { return records_.empty(); }
    bool contains(dxf::RecordId record) const;
    /// Adds `records` to the set and returns those that were not in it, in order.
    std::vector<dxf::RecordId> add(const std::vector<dxf::RecordId>& records);
    /// Removes `records` from the set and returns those that were in it.
    std::vector<dxf::RecordId> remove(const std::vector<dxf::RecordId>& records);

  private:
    std::vector<bool>& members() const;

    std::vector<dxf::RecordId> records_;
    mutable std::vector<bool> members_;  ///< by record; empty until somebody asks
};

/// The sets that commands hold of one drawing, by number from 1. A number is not used twice.
class SelectionSets {
  public:
    uint32_t put(SelectionSet set);
    /// Null when there is none.
    SelectionSet* at(uint32_t number);
    void free(uint32_t number) { sets_[number - 1].reset(); }

    /// What the user selected last, without what has been erased since.
    std::vector<dxf::RecordId> previous;

  private:
    std::vector<std::unique_ptr<SelectionSet>> sets_;
};

}  // namespace host
