#include "platform/host/view/box_tree.h"

#include <algorithm>

namespace host {

namespace {

/// The place of a cell on the Hilbert curve through 65536 x 65536 cells: cells near on the curve are near in the plane.
uint32_t hilbert_place(uint32_t x, uint32_t y) {
    uint32_t place = 0;
    for (uint32_t side = 1U << 15; side > 0; side >>= 1) {
        const uint32_t right = (x & side) != 0 ? 1 : 0;
        const uint32_t upper = (y & side) != 0 ? 1 : 0;
        place = place << 2 | ((3 * right) ^ upper);
        if (upper == 0) {
            if (right == 1) {
                x = 0xFFFF - (x & 0xFFFF);
                y = 0xFFFF - (y & 0xFFFF);
            }
            std::swap(x, y);
        }
    }
    return place;
}

uint32_t cell(double position, double low, double extent) {
    constexpr double cells = 65535;
    return extent > 0 ? static_cast<uint32_t>(std::clamp((position - low) / extent, 0.0, 1.0) * cells) : 0;
}

struct Placed {
    uint32_t place;
    uint32_t number;
};

std::vector<Placed> places_on_curve(uint32_t count, const BoxTree::BoxOf& box_of) {
    Box2 centres;
    for (uint32_t number = 0; number < count; ++number) {
        if (!box_of(number).empty()) {
            centres.add(box_of(number).centre());
        }
    }
    std::vector<Placed> placed;
    placed.reserve(count);
    for (uint32_t number = 0; number < count; ++number) {
        if (!box_of(number).empty()) {
            const Vec2 centre = box_of(number).centre();
            placed.push_back({hilbert_place(cell(centre.x, centres.low.x, centres.width()),
                                            cell(centre.y, centres.low.y, centres.height())),
                              number});
        }
    }
    return placed;
}

}  // namespace

BoxTree::BoxTree(size_t count, const BoxOf& box_of) {
    std::vector<Placed> placed = places_on_curve(static_cast<uint32_t>(count), box_of);
    std::sort(placed.begin(), placed.end(), [](const Placed& a, const Placed& b) { return a.place < b.place; });
    if (placed.empty()) {
        return;
    }
    const auto nodes_over = [](size_t children) { return (children + fan_out - 1) / fan_out; };
    order_.reserve(placed.size());
    std::vector<Box2> lowest(nodes_over(placed.size()));
    for (const Placed& leaf : placed) {
        lowest[order_.size() / fan_out].add(box_of(leaf.number));
        order_.push_back(leaf.number);
    }
    levels_.push_back(std::move(lowest));
    while (levels_.back().size() > 1) {
        const std::vector<Box2>& below = levels_.back();
        std::vector<Box2> level(nodes_over(below.size()));
        for (size_t i = 0; i < below.size(); ++i) {
            level[i / fan_out].add(below[i]);
        }
        levels_.push_back(std::move(level));
    }
}

}  // namespace host
