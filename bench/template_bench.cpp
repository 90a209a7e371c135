// A price list of 100,000 rows in the real BOM Template dialog, over a drawing with 10,000 blocks: opened, scrolled,
// sorted, edited and saved. Each figure stands beside that of a plain way to do the same.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <random>
#include <sstream>

#include "base/code_page.h"
#include "bom/report_grid.h"
#include "resources/resource.h"
#include "tests/pricelist/open_template.h"

namespace {

constexpr int rows = 100'000;
constexpr int report_rows = 1'000'000;
constexpr int blocks = 10'000;
constexpr int frames = 200;

template <class Work>
double timed(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

void print(const char* what, double ours, const char* reference, double theirs) {
    std::printf("%-36s %8.1f ms   %-40s %8.1f ms   ratio %.2f\n", what, ours, reference, theirs, ours / theirs);
    std::fflush(stdout);
}

/// The bytes of an unsorted price list. Names, prices and descriptions differ; a third of the descriptions is Hebrew.
std::string price_list(int count) {
    std::mt19937 random(1);
    std::string bytes;
    for (int row = 0; row < count; ++row) {
        const auto key = static_cast<unsigned>(row) * 48271U % 999983U;
        const unsigned cents = random() % 10'000'000;
        bytes += "Part_" + std::to_string(key) + '|' + std::to_string(cents / 100) + '.' +
                 std::to_string(10 + cents % 90) + '|';
        bytes += row % 3 == 0 ? "\xe3\xec\xfa " + std::to_string(random() % 100)
                              : "Steel part, size " + std::to_string(random() % 1000);
        bytes += "\r\n";
    }
    return bytes;
}

std::vector<std::string> block_names() {
    std::vector<std::string> names;
    for (int block = 0; block < blocks; ++block) {
        names.push_back("Block " + std::to_string(block * 7919 % blocks));
    }
    return names;
}

using Table = std::vector<std::vector<std::wstring>>;

/// The plain way, without a grid: reads lines from a stream and splits them into strings.
Table plain_read(const std::string& bytes) {
    Table table;
    std::wistringstream stream(base::wide_from_bytes(bytes, base::system_code_page()));
    for (std::wstring line; std::getline(stream, line);) {
        std::wistringstream fields(line);
        table.emplace_back(3);
        for (std::wstring& field : table.back()) {
            std::getline(fields, field, L'|');
        }
    }
    return table;
}

double plain_sort(Table table, size_t column) {
    return timed([&] {
        std::stable_sort(table.begin(), table.end(), [column](const auto& a, const auto& b) {
            return column == 1 ? _wtof(a[1].c_str()) < _wtof(b[1].c_str())
                               : _wcsicmp(a[column].c_str(), b[column].c_str()) < 0;
        });
    });
}

void click_heading(CUGCtrl& grid, int column) {
    POINT point{};
    RECT cell{};
    grid.OnGridHeadingClick(column, -1, 1, &cell, &point, 0);
}

void bench_scrolling(test_support::OpenTemplate& run) {
    std::vector<double> times;
    for (int frame = 0; frame < frames; ++frame) {
        times.push_back(timed([&] {
            run.grid().SetTopRow(frame * 499);
            ::GdiFlush();
        }));
    }
    std::sort(times.begin(), times.end());
    RECT place;
    run.grid().GetClientRect(&place);
    CClientDC dc(&run.grid().GetGrid());
    const double blit = timed([&] {
        for (int frame = 0; frame < frames; ++frame) {
            dc.BitBlt(0, 0, place.right, place.bottom, &dc, 0, 1, SRCCOPY);
        }
        ::GdiFlush();
    });
    print("scrolled frame, median", times[frames / 2], "copying the window's pixels", blit / frames);
    print("scrolled frame, slowest", times.back(), "copying the window's pixels", blit / frames);
}

void bench_editing(test_support::OpenTemplate& run) {
    std::vector<std::wstring> names;
    for (const std::string& name : block_names()) {
        names.emplace_back(name.begin(), name.end());
    }
    const double filling = timed([&] { std::sort(names.begin(), names.end()); });
    const char* const reference = "std::sort of 10,000 names";
    run.grid().GotoCell(0, rows / 2);
    print("insert a row", timed([&] { run.press(IDC_TEMPLATE_INSERT_ROW); }), reference, filling);
    print("paint it anew", timed([&] {
              run.grid().RedrawAll();
              run.pump();
          }),
          reference, filling);
    run.grid().SetFocus();
    print("open the drop list", timed([&] { run.key(VK_F4); }), reference, filling);
    print("type a key in it", timed([&] { run.type(L"b"); }), reference, filling);
    print("choose a name", timed([&] { run.key(VK_RETURN); }), reference, filling);
    run.type(L"Part of its own");
    print("commit a typed name", timed([&] { run.key(VK_RETURN); }), reference, filling);
}

void bench_report_sort() {
    CWnd frame;
    frame.CreateEx(0, AfxRegisterWndClass(0), L"report", WS_POPUP | WS_VISIBLE, CRect(0, 0, 700, 400), nullptr, 0);
    MyCug2 grid;
    grid.CreateGrid(WS_VISIBLE, CRect(0, 0, 700, 400), &frame, 1);
    Table table = plain_read(price_list(report_rows));
    std::printf("a report of 1,000,000 rows\n");
    print("filled", timed([&] {
              ResultString row;
              for (const auto& cells : table) {
                  row.name = cells[0].c_str();
                  row.price = _wtof(cells[1].c_str());
                  row.description = cells[2].c_str();
                  grid.AddReportRow(row, false);
              }
          }),
          "reading the list into strings", timed([] { plain_read(price_list(report_rows)); }));
    for (const int column : {1, 0}) {
        const double plain = plain_sort(table, static_cast<size_t>(column));
        const char* const what = column == 1 ? "sorted by price" : "sorted by name";
        print(what, timed([&] { click_heading(grid, column); }), "std::stable_sort of strings", plain);
    }
    frame.DestroyWindow();
}

}  // namespace

int main() {
    {
        test_support::OpenTemplate run(block_names());
        const std::string bytes = price_list(rows);
        run.write(L"list.prc", bytes);
        Table table;
        const double reading = timed([&] { table = plain_read(run.read(L"list.prc")); });
        print("open 100,000 rows", timed([&] { run.open(L"list.prc"); }), "reading the list into strings", reading);
        bench_scrolling(run);
        for (const int column : {1, 2, 0}) {
            const std::string what = "sort by column " + std::to_string(column);
            print(what.c_str(), timed([&] { click_heading(run.grid(), column); }), "std::stable_sort of strings",
                  plain_sort(table, static_cast<size_t>(column)));
        }
        run.open(L"list.prc");
        run.write(L"plain.prc", bytes);
        const double writing = timed([&] { run.write(L"plain.prc", bytes); });
        print("save 100,000 rows", timed([&] { run.press(IDC_TEMPLATE_SAVE_AS, run.path(L"saved.prc").wstring()); }),
              "writing the same bytes", writing);
        std::printf("the saved list is %s\n", run.read(L"saved.prc") == bytes ? "identical" : "DIFFERENT");
        bench_editing(run);
    }
    bench_report_sort();
    return 0;
}
