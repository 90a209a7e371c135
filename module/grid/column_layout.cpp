#include "grid/column_layout.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>

namespace corvanes {

namespace {

// Far edges stop here, so that positions and differences of them fit in an int.
constexpr long long farthest_edge = 1'000'000'000;

}  // namespace

bool ColumnLayout::set_count(int count) {
    if (count < 0 || count > most_columns) {
        return false;
    }
    widths_.resize(static_cast<std::size_t>(count), default_width);
    aligned_right_.resize(widths_.size());
    hidden_.resize(widths_.size());
    stale_ = true;
    return true;
}

void ColumnLayout::set_width(int column, int width) {
    widths_[column] = width;
    hidden_[column] = false;
    stale_ = true;
}

void ColumnLayout::hide(int column, bool hide) {
    hidden_[column] = hide;
    stale_ = true;
}

void ColumnLayout::update() const {
    if (!stale_) {
        return;
    }
    edges_.assign(widths_.size() + 1, 0);
    long long edge = 0;
    for (std::size_t column = 0; column < widths_.size(); ++column) {
        edge = std::min(edge + (hidden_[column] ? 0 : std::max(widths_[column], 0)), farthest_edge);
        edges_[column + 1] = static_cast<int>(edge);
    }
    stale_ = false;
}

int ColumnLayout::left(int column) const {
    update();
    return edges_[column];
}

int ColumnLayout::at(int x) const {
    update();
    if (x < 0 || x >= edges_.back()) {
        return -1;
    }
    return static_cast<int>(std::upper_bound(edges_.begin(), edges_.end(), x) - edges_.begin()) - 1;
}

int ColumnLayout::nearest_shown(int column) const {
    if (!contains(column) || shows(column)) {
        return column;
    }
    // A hidden column has no width, so the column shown at its left edge is the next one to its right.
    const int right = at(left(column));
    return right >= 0 ? right : last_shown() >= 0 ? last_shown() : column;
}

void mend_widths(std::span<int> widths, std::span<const int> defaults) {
    for (size_t column = 0; column < widths.size(); ++column) {
        if (widths[column] < ColumnLayout::narrowest_column || widths[column] > ColumnLayout::widest_column) {
            widths[column] = defaults[column];
        }
    }
}

int ColumnLayout::border_at(int x, int reach) const {
    update();
    // The nearest border: the last one at or left of x, or the first one right of it.
    const auto after = std::upper_bound(edges_.begin() + 1, edges_.end(), x);
    const int next = static_cast<int>(after - edges_.begin());
    const int previous = next - 1;
    const bool next_near = next <= count() && edges_[next] - x <= reach;
    const bool previous_near = previous >= 1 && x - edges_[previous] <= reach;
    if (previous_near && (!next_near || x - edges_[previous] <= edges_[next] - x)) {
        return previous - 1;
    }
    return next_near ? next - 1 : -1;
}

}  // namespace corvanes
