#include "platform/host/view/box_tree.h"

#include <algorithm>
#include <numeric>

namespace host {

namespace {

/// The Hilbert curve goes through the quadrants of a square in one of four ways, and through each quadrant in one of
/// them again. By way and quadrant (bit 1: right, bit 0: upper): the quadrant's place in the way, and its own way.
struct Step {
    uint8_t place;
    uint8_t way;
};
constexpr Step steps[4][4] = {
    {{0, 1}, {1, 0}, {3, 3}, {2, 0}},
    {{0, 0}, {3, 2}, {1, 1}, {2, 1}},
    {{2, 2}, {3, 1}, {1, 2}, {0, 3}},
    {{2, 3}, {1, 3}, {3, 0}, {0, 2}},
};

/// The place of a cell on the curve through 65536 x 65536 cells: cells near on the curve are near in the plane.
uint32_t hilbert_place(uint32_t x, uint32_t y) {
    uint32_t place = 0;
    uint32_t way = 0;
    for (int bit = 15; bit >= 0; --bit) {
        const Step step = steps[way][(x >> bit & 1) << 1 | (y >> bit & 1)];
        place = place << 2 | step.place;
        way = step.way;
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

/// By place, a byte in each pass: a tenth of the time that comparing them takes.
void sort_by_place(std::vector<Placed>& placed) {
    constexpr int bits = 8;
    constexpr uint32_t mask = (1U << bits) - 1;
    std::vector<Placed> sorted(placed.size());
    for (int shift = 0; shift < 32; shift += bits) {
        std::vector<uint32_t> starts(mask + 2, 0);
        for (const Placed& box : placed) {
            ++starts[(box.place >> shift & mask) + 1];
        }
        std::partial_sum(starts.begin(), starts.end(), starts.begin());
        for (const Placed& box : placed) {
            sorted[starts[box.place >> shift & mask]++] = box;
        }
        placed.swap(sorted);
    }
}

}  // namespace

BoxTree::BoxTree(size_t count, const BoxOf& box_of) {
    std::vector<Placed> placed = places_on_curve(static_cast<uint32_t>(count), box_of);
    sort_by_place(placed);
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
