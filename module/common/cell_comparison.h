// How the module's grids order two cells when a heading is clicked.
#pragma once

#include "grid/cell.h"
#include "grid/cell_order.h"
#include "grid/keyed_order.h"

namespace corvanes {

/// The order in which empty texts go last, ascending or descending. With `by_value` the numbers at the front of the
/// texts are compared; otherwise numeric cells compare by their values and all others as texts without regard to case.
/// It is not a strict weak order when cells without text are among them.
class EmptyLastOrder final : public KeyedOrder {
  public:
    EmptyLastOrder(int flags, bool by_value) : descending_((flags & sort_descending) != 0), by_value_(by_value) {}

    SortKey read(const CUGCell* cell) const override;
    int compare(const SortKey& first, const SortKey& second) const override;

  private:
    bool descending_;
    bool by_value_;
};

/// Compares two cells in that order; null stands for no cell. Negative, 0 or positive.
int compare_empty_last(const CUGCell* first, const CUGCell* second, int flags, bool by_value);

}  // namespace corvanes
