#include "grid/row_layout.h"

#include <algorithm>
#include <cstddef>

namespace corvanes {

namespace {

constexpr int by_default = -1;

}  // namespace

bool RowLayout::set_count(int count) {
    if (count < 0) {
        return false;
    }
    count_ = count;
    if (uniform()) {
        heights_ = {};
    } else if (measured()) {
        heights_.resize(static_cast<std::size_t>(count), by_default);
    }
    return true;
}

bool RowLayout::set_default_height(int height) {
    if (height < 1 || height > tallest_row) {
        return false;
    }
    default_height_ = height;
    return true;
}

int RowLayout::height(int row) const {
    return measured() && heights_[row] != by_default ? heights_[row] : default_height_;
}

bool RowLayout::set_height(int row, int height) {
    if (uniform() || row < 0 || row >= count_ || height < 0 || height > tallest_row) {
        return false;
    }
    heights_.resize(static_cast<std::size_t>(count_), by_default);
    heights_[row] = height;
    return true;
}

void RowLayout::insert(int row) {
    if (measured()) {
        heights_.insert(heights_.begin() + row, by_default);
    }
}

void RowLayout::remove(int row) {
    if (measured()) {
        heights_.erase(heights_.begin() + row);
    }
}

int RowLayout::at(int y, int top) const {
    if (y < 0) {
        return -1;
    }
    if (!measured()) {
        const int offset = y / default_height_;
        return offset < count_ - top ? top + offset : -1;
    }
    for (int row = top; row < count_; ++row) {
        y -= height(row);
        if (y < 0) {
            return row;
        }
    }
    return -1;
}

int RowLayout::distance(int top, int row, int limit) const {
    if (!measured()) {
        const long long pixels = static_cast<long long>(row - top) * default_height_;
        return static_cast<int>(std::min<long long>(pixels, limit));
    }
    int pixels = 0;
    for (int above = top; above < row && pixels < limit; ++above) {
        pixels += height(above);
    }
    return std::min(pixels, limit);
}

int RowLayout::fitting(int top, int height_shown) const {
    if (!measured()) {
        return std::max(1, height_shown / default_height_);
    }
    int rows = 0;
    for (int row = top; row < count_ && height(row) <= height_shown; ++row) {
        height_shown -= height(row);
        ++rows;
    }
    return std::max(1, rows);
}

int RowLayout::top_ending_at(int row, int height_shown) const {
    if (!measured()) {
        return std::max(0, row - std::max(1, height_shown / default_height_) + 1);
    }
    int top = row;
    int left = height_shown - height(row);
    while (top > 0 && height(top - 1) <= left) {
        --top;
        left -= height(top);
    }
    return top;
}

int RowLayout::last_top(int height_shown) const {
    return count_ > 0 ? top_ending_at(count_ - 1, height_shown) : 0;
}

int RowLayout::top_showing(int row, int top, int height_shown) const {
    if (row <= top) {
        return row;
    }
    return std::max(top, top_ending_at(row, height_shown));
}

}  // namespace corvanes
