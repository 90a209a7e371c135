// Fills, sorts and scrolls a grid of a million rows in a real window. Each figure stands beside that of a plain way to
// do the same.
#include <afxwin.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cwchar>
#include <random>
#include <string>
#include <vector>

#include "grid/grid_control.h"

namespace {

constexpr int rows = 1'000'000;
constexpr int columns = 5;
constexpr int frames = 200;

double milliseconds(const std::chrono::steady_clock::time_point since) {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - since).count();
}

template <class Work>
double timed(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return milliseconds(start);
}

void print(const char* what, double ours, const char* reference, double theirs) {
    std::printf("%-34s %9.1f ms   %-42s %9.1f ms   ratio %.2f\n", what, ours, reference, theirs, ours / theirs);
}

void pump() {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        ::DispatchMessageW(&message);
    }
}

int by_number(double a, double b) {
    return static_cast<int>(a > b) - static_cast<int>(a < b);
}

// Orders prices as a report does: by value, and reads each cell once.
class PriceGrid : public CUGCtrl {
  public:
    void OnGridSetup() override {
        SetSideHeadingWidth(0);
        SetColumnCount(columns);
    }
    int OnGridSortCompare(CUGCell* a, CUGCell* b, int flags) override {
        return (flags & 2) != 0 ? by_number(b->GetNumber(), a->GetNumber()) : by_number(a->GetNumber(), b->GetNumber());
    }
};

// The same, but reads both texts in every comparison.
class RereadingGrid : public PriceGrid {
  public:
    int OnGridSortCompare(CUGCell* a, CUGCell* b, int) override {
        return by_number(_wtof(a->GetText()), _wtof(b->GetText()));
    }
};

std::vector<std::wstring> prices() {
    std::mt19937 random(1);
    std::vector<std::wstring> texts;
    texts.reserve(rows);
    for (int row = 0; row < rows; ++row) {
        const unsigned cents = random() % 10'000'000;
        texts.push_back(std::to_wstring(cents / 100) + L"." + std::to_wstring(10 + cents % 90));
    }
    return texts;
}

void fill(CUGCtrl& grid, const std::vector<std::wstring>& texts) {
    for (int row = 0; row < rows; ++row) {
        grid.AppendRow();
        for (int column = 0; column < columns; ++column) {
            grid.SetCellText(column, row, texts[row].c_str());
        }
        grid.RedrawRow(row);
    }
    pump();
}

void bench_fill_and_sort(CWnd& frame, const std::vector<std::wstring>& texts) {
    RECT place;
    frame.GetClientRect(&place);
    RereadingGrid grid;
    grid.CreateGrid(WS_VISIBLE, place, &frame, 1);

    std::vector<std::vector<std::wstring>> table;
    const double plain_fill = timed([&] {
        for (const std::wstring& text : texts) {
            table.emplace_back(columns, text);
        }
    });
    print("fill 1,000,000 rows of 5 cells", timed([&] { fill(grid, texts); }), "a vector of vectors of strings",
          plain_fill);

    const double plain_sort = timed([&] {
        std::stable_sort(table.begin(), table.end(),
                         [](const auto& a, const auto& b) { return _wtof(a[1].c_str()) < _wtof(b[1].c_str()); });
    });
    print("sort, reading texts each time", timed([&] { grid.SortBy(1, 1); }), "std::stable_sort, the same", plain_sort);
}

// A text that only the last cell holds, and the widest one.
void bench_commands(CUGCtrl& grid, const std::vector<std::wstring>& texts) {
    const corvanes::CellSearch search(L"Not There", {});
    corvanes::SearchSpace space;
    space.rows = rows;
    space.text = [&grid](corvanes::CellAddress cell) { return grid.GetCellText(cell.column, cell.row); };
    for (int column = 0; column < columns; ++column) {
        space.columns.push_back(column);
    }
    size_t found = 0;
    const double plain_search = timed([&] {
        for (const std::wstring& text : texts) {
            for (int column = 0; column < columns; ++column) {
                found += text.find(L"not there") != text.npos ? 1 : 0;
            }
        }
    });
    print("find in 1,000,000 rows of 5 cells", timed([&] {
              search_cells(search, space, {0, 0}, false, [] { return true; });
          }),
          "find in the strings, case and all", plain_search + static_cast<double>(found));
    size_t longest = 0;
    const double plain_fit = timed([&] {
        for (const std::wstring& text : texts) {
            longest = std::max(longest, text.size());
        }
    });
    print("fit a column to 1,000,000 rows", timed([&] { grid.Commands().Run(corvanes::GridCommand::fit_column, 1); }),
          "the longest of the strings", plain_fit + static_cast<double>(longest > 0 ? 0 : 1));
}

void bench_sort_and_scroll(CWnd& frame, const std::vector<std::wstring>& texts) {
    RECT place;
    frame.GetClientRect(&place);
    PriceGrid grid;
    grid.CreateGrid(WS_VISIBLE, place, &frame, 1);
    fill(grid, texts);
    std::vector<double> numbers;
    const double plain_sort = timed([&] {
        std::transform(texts.begin(), texts.end(), std::back_inserter(numbers),
                       [](const auto& t) { return _wtof(t.c_str()); });
        std::stable_sort(numbers.begin(), numbers.end());
    });
    print("sort, reading texts once", timed([&] { grid.SortBy(1, 1); }), "std::stable_sort of the bare numbers",
          plain_sort);
    print("sort again, descending", timed([&] { grid.SortBy(1, 2); }), "the same", plain_sort);
    pump();

    bench_commands(grid, texts);

    std::vector<double> times;
    for (int frame_index = 0; frame_index < frames; ++frame_index) {
        times.push_back(timed([&] {
            grid.SetTopRow(frame_index * 4999);
            ::GdiFlush();
        }));
    }
    std::sort(times.begin(), times.end());
    CClientDC dc(&grid.GetGrid());
    const double blit = timed([&] {
        for (int frame_index = 0; frame_index < frames; ++frame_index) {
            dc.BitBlt(0, 0, place.right, place.bottom, &dc, 0, 1, SRCCOPY);
        }
        ::GdiFlush();
    });
    print("scrolled frame, median", times[frames / 2], "copying the window's pixels", blit / frames);
    print("scrolled frame, slowest", times.back(), "copying the window's pixels", blit / frames);
}

}  // namespace

int main() {
    CWnd frame;
    const LPCWSTR window_class = AfxRegisterWndClass(0);
    if (!frame.CreateEx(0, window_class, L"grid", WS_POPUP | WS_VISIBLE, CRect(0, 0, 1000, 700), nullptr, 0)) {
        std::fprintf(stderr, "grid_bench: no window\n");
        return 1;
    }
    pump();
    const std::vector<std::wstring> texts = prices();
    bench_fill_and_sort(frame, texts);
    bench_sort_and_scroll(frame, texts);
    frame.DestroyWindow();
    return 0;
}
