#include "grid/page_layout.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace corvanes {

std::vector<int> fitted_widths(const std::vector<int>& natural, int available) {
    const auto whole = std::accumulate(natural.begin(), natural.end(), 0LL);
    if (whole > 0 && whole <= available) {
        std::vector<int> grown;
        grown.reserve(natural.size());
        for (const int width : natural) {
            grown.push_back(static_cast<int>(width * static_cast<long long>(available) / whole));
        }
        return grown;
    }
    std::vector<std::size_t> by_width(natural.size());
    std::iota(by_width.begin(), by_width.end(), std::size_t{0});
    std::stable_sort(by_width.begin(), by_width.end(),
                     [&natural](std::size_t one, std::size_t other) { return natural[one] < natural[other]; });
    std::vector<int> widths(natural.size());
    auto sharing = static_cast<int>(natural.size());
    for (const std::size_t column : by_width) {
        widths[column] = std::max(1, std::min(natural[column], available / sharing));
        available = std::max(0, available - widths[column]);
        --sharing;
    }
    return widths;
}

std::vector<RowSpan> rows_of_pages(const std::vector<int>& heights, int available) {
    std::vector<RowSpan> pages{{0, -1}};
    int used = 0;
    for (const int height : heights) {
        RowSpan& page = pages.back();
        if (used + height > available && page.last >= page.first) {
            pages.push_back({page.last + 1, page.last + 1});
            used = 0;
        } else {
            ++page.last;
        }
        used += height;
    }
    return pages;
}

}  // namespace corvanes
