#include "grid/row_layout.h"

#include <algorithm>

namespace corvanes {

bool RowLayout::set_height(int height) {
    if (height < 1 || height > tallest_row) {
        return false;
    }
    height_ = height;
    return true;
}

int RowLayout::at(int y, int top) const {
    const int offset = y / height_;
    return y >= 0 && offset < count_ - top ? top + offset : -1;
}

int RowLayout::distance(int top, int row, int limit) const {
    const long long pixels = static_cast<long long>(row - top) * height_;
    return static_cast<int>(std::min<long long>(pixels, limit));
}

int RowLayout::fitting(int height) const {
    return std::max(1, height / height_);
}

int RowLayout::last_top(int height) const {
    return std::max(0, count_ - fitting(height));
}

int RowLayout::top_showing(int row, int top, int height) const {
    return row <= top ? row : std::max(top, row - fitting(height) + 1);
}

}  // namespace corvanes
