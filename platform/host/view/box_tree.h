// A packed tree of boxes: which of many boxes touch an area.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "platform/host/view/geometry.h"

namespace host {

/// Built once over boxes numbered from 0, which stay with their owner. Empty boxes are never found.
class BoxTree {
  public:
    /// About what a tree takes for each box, in bytes.
    static constexpr size_t bytes_per_box = 8;
    using BoxOf = std::function<const Box2&(uint32_t number)>;

    BoxTree() = default;
    BoxTree(size_t count, const BoxOf& box_of);

    bool empty() const { return order_.empty(); }

    /// Calls visit(number) for every box that touches `area`, in no order. Of boxes that lie together in a cluster
    /// smaller than `detail` one alone is visited, for the others would fall on the same pixel; 0 visits all.
    /// box_of(number) gives the boxes that the tree was built over.
    template <typename Box, typename Visit>
    void visit(const Box2& area, double detail, Box box_of, Visit visit) const {
        if (!empty()) {
            descend(levels_.size() - 1, 0, area, detail, box_of, visit);
        }
    }

  private:
    static constexpr size_t fan_out = 16;

    template <typename Box, typename Visit>
    void descend(size_t level, size_t node, const Box2& area, double detail, Box& box_of, Visit& visit) const {
        const Box2& box = levels_[level][node];
        if (!box.intersects(area)) {
            return;
        }
        const size_t first = node * fan_out;
        if (box.width() < detail && box.height() < detail) {
            size_t representative = first;
            for (size_t down = level; down > 0; --down) {
                representative *= fan_out;
            }
            visit(order_[representative]);
        } else if (level == 0) {
            visit_boxes(first, area, area.contains(box), box_of, visit);
        } else {
            const size_t end = std::min(first + fan_out, levels_[level - 1].size());
            for (size_t child = first; child < end; ++child) {
                descend(level - 1, child, area, detail, box_of, visit);
            }
        }
    }

    template <typename Box, typename Visit>
    void visit_boxes(size_t first, const Box2& area, bool all, Box& box_of, Visit& visit) const {
        const size_t end = std::min(first + fan_out, order_.size());
        for (size_t place = first; place < end; ++place) {
            if (all || box_of(order_[place]).intersects(area)) {
                visit(order_[place]);
            }
        }
    }

    std::vector<uint32_t> order_;            ///< box numbers, neighbours together
    std::vector<std::vector<Box2>> levels_;  ///< around 16 boxes each in that order, then around 16 of the level below
};

}  // namespace host
