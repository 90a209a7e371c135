#include "grid/side_heading_layout.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace corvanes {

bool SideHeadingLayout::set_total_width(int width) {
    if (width < 0 || width > widest) {
        return false;
    }
    if (total_ == 0) {
        std::fill(widths_.begin(), widths_.end(), 1);
        total_ = count();
    }
    int left = width;
    for (int& column : widths_) {
        column = std::min(left, static_cast<int>(std::lround(static_cast<double>(column) * width / total_)));
        left -= column;
    }
    widths_.back() += left;
    total_ = width;
    return true;
}

bool SideHeadingLayout::set_width(int column, int width) {
    if (column < 0 || column >= count()) {
        return false;
    }
    std::vector<int> widths = widths_;
    widths[column] = width;
    return set_widths(widths);
}

bool SideHeadingLayout::set_widths(const std::vector<int>& widths) {
    long long total = 0;
    for (const int width : widths) {
        if (width < 0) {
            return false;
        }
        total += width;
    }
    if (widths.empty() || total > widest) {
        return false;
    }
    widths_ = widths;
    total_ = static_cast<int>(total);
    return true;
}

}  // namespace corvanes
