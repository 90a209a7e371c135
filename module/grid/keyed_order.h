// KeyedOrder, an order of cells that reads each cell once, so that a sort of a million rows compares adjacent keys.
#pragma once

#include <array>
#include <cstdint>

#include "grid/cell.h"

namespace corvanes {

// What an order has read of a cell. Only the order's own two operations give the fields a meaning.
struct SortKey {
    const wchar_t* text = nullptr;  // the cell's own, which outlives the sort
    double number = 0;
    std::array<std::uint64_t, 2> letters{};
    std::uint8_t kind = 0;
};

class KeyedOrder {
  public:
    virtual ~KeyedOrder() = default;
    // The key of a cell; null for an absent one.
    virtual SortKey read(const CUGCell* cell) const = 0;
    // Below 0, 0 or above 0: what the comparison of the two cells would answer.
    virtual int compare(const SortKey& first, const SortKey& second) const = 0;
};

}  // namespace corvanes
