// A packed tree of boxes: which of many boxes touch an area.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/host/view/geometry.h"

namespace host {

/// Built once over a list of boxes, in which a box has the number of its place. Empty boxes are never found.
class BoxTree {
  public:
    BoxTree() = default;
    explicit BoxTree(const std::vector<Box2>& boxes);

    bool empty() const { return order_.empty(); }

    /// Calls visit(number) for every box that touches `area`, in no order. Of boxes that lie together in a cluster
    /// smaller than `detail` one alone is visited, for the others would fall on the same pixel; 0 visits all.
    template <typename Visit>
    void visit(const Box2& area, double detail, Visit visit) const {
        if (!empty()) {
            descend(levels_.size() - 1, 0, area, detail, visit);
        }
    }

  private:
    static constexpr size_t fan_out = 16;

    template <typename Visit>
    void descend(size_t level, size_t node, const Box2& area, double detail, Visit& visit) const {
        const Box2& box = levels_[level][node];
        if (!box.intersects(area)) {
            return;
        }
        if (level == 0) {
            visit(order_[node]);
            return;
        }
        const std::vector<Box2>& below = levels_[level - 1];
        const size_t first = node * fan_out;
        if (box.width() < detail && box.height() < detail) {
            size_t representative = first;
            for (size_t down = level - 1; down > 0; --down) {
                representative *= fan_out;
            }
            visit(order_[representative]);
            return;
        }
        for (size_t child = first; child < below.size() && child < first + fan_out; ++child) {
            descend(level - 1, child, area, detail, visit);
        }
    }

    std::vector<uint32_t> order_;            ///< box numbers, neighbours together
    std::vector<std::vector<Box2>> levels_;  ///< the boxes in that order, then boxes around 16 of the level below each
};

}  // namespace host
