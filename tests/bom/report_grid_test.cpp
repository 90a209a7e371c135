#include "bom/report_grid.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "bidi/clipboard_text.h"
#include "bom/report_options.h"
#include "bom/report_rows.h"
#include "grid/page_query.h"

namespace {

constexpr int button_down = 1;

/// The report grid in a real, invisible window.
class ReportGrid : public testing::Test {
  protected:
    void SetUp() override {
        corvanes::report_options() = {};
        ASSERT_TRUE(parent_.CreateEx(0, nullptr, L"", WS_POPUP, CRect(0, 0, 640, 400), nullptr, 0));
        ASSERT_TRUE(grid_.CreateGrid(WS_CHILD, CRect(0, 0, 620, 300), &parent_, 1));
    }
    void TearDown() override {
        grid_.DestroyWindow();
        parent_.DestroyWindow();
        corvanes::report_options() = {};
    }

    void add(const wchar_t* name, double price, int quantity, const wchar_t* description, double total) {
        ResultString row;
        row.Set(name, price, description);
        row.quantity = quantity;
        row.total = total;
        rows_.Add(row);
    }
    void fill() {
        add(L"door", 10, 3, L"Wood", 30);
        add(L"bolt", 9, 100, L"", 900);
        add(L"never counted", 5, 0, L"x", 0);
        add(L"Arch", 9.125, 1, L"stone", 9.125);
        grid_.FillReportGrid(rows_);
    }
    void click_heading(int column) {
        RECT rect{};
        POINT point{};
        grid_.OnGridHeadingClick(column, -1, button_down, &rect, &point, 0);
    }
    /// The grid as text, a line for each row.
    std::wstring printed() {
        std::wstring text;
        for (const auto& row : corvanes::shown_rows(grid_)) {
            for (const std::wstring& cell : row) {
                text += cell + L'|';
            }
            text += L'\n';
        }
        return text;
    }
    std::wstring names() {
        std::wstring text;
        for (const auto& row : corvanes::shown_rows(grid_)) {
            text += row[corvanes::name_column] + L' ';
        }
        return text;
    }
    /// Which heading carries the arrow, and its style.
    std::string arrow() {
        for (int column = 0; column < corvanes::report_columns; ++column) {
            CUGCell cell;
            grid_.GetCell(column, -1, &cell);
            if (cell.GetCellType() != corvanes::type_normal) {
                return std::to_string(column) + ':' + std::to_string(cell.GetCellTypeOptions());
            }
        }
        return "none";
    }
    std::string widths() {
        std::string text;
        for (int column = 0; column < corvanes::report_columns; ++column) {
            text += std::to_string(grid_.GetColumnWidth(column)) + ' ';
        }
        return text;
    }

    CWnd parent_;
    MyCug2 grid_;
    RowList rows_;
};

TEST_F(ReportGrid, HidesUncountedRowsOfAnAttachedPriceList) {
    grid_.set_price_list_attached(true);
    fill();
    EXPECT_EQ(names(), L"door bolt Arch Summary: ");
    EXPECT_EQ(arrow(), "0:32");
    rows_.RemoveAll();
    grid_.FillReportGrid(rows_);
    EXPECT_EQ(printed(), L"") << "an empty report has no summary";
    click_heading(0);
    EXPECT_EQ(printed(), L"Summary:||||0.00|\n");
    click_heading(0);
    EXPECT_EQ(printed(), L"Summary:||||0.00|\nSummary:||||0.00|\n");
}

TEST_F(ReportGrid, SortsByAHeadingWithTheSummaryLast) {
    grid_.set_price_list_attached(true);
    fill();
    const struct {
        int column;
        const wchar_t* names;
        const char* arrow;
    } clicks[] = {
        {0, L"door bolt Arch Summary: ", "0:16"},  // the rows stand in this order, so the first click reverses it
        {0, L"Arch bolt door Summary: ", "0:32"}, {1, L"bolt Arch door Summary: ", "1:32"},
        {1, L"door Arch bolt Summary: ", "1:16"}, {2, L"Arch door bolt Summary: ", "2:32"},
        {3, L"Arch door bolt Summary: ", "3:32"},  // the empty description stays at the bottom
        {3, L"door Arch bolt Summary: ", "3:16"}, {4, L"Arch door bolt Summary: ", "4:32"},
    };
    for (const auto& click : clicks) {
        click_heading(click.column);
        EXPECT_EQ(names(), click.names) << click.arrow;
        EXPECT_EQ(arrow(), click.arrow);
    }
    RECT rect{};
    POINT point{};
    grid_.OnGridHeadingClick(2, -1, 0, &rect, &point, 0);
    EXPECT_EQ(arrow(), "4:32") << "the button coming up sorts nothing";
    // The current cell stays on its row, the last one on the summary.
    grid_.GotoCell(0, 1);
    click_heading(1);
    EXPECT_STREQ(grid_.GetCellText(0, grid_.GetCurrentRow()), L"door");
    grid_.GotoCell(4, 3);
    click_heading(1);
    EXPECT_EQ(grid_.GetCurrentRow(), 3);
}

TEST_F(ReportGrid, HidesMoneyAndHoldsTheOtherWidths) {
    fill();
    CRect client;
    grid_.GetClientRect(&client);
    const std::string equal = std::to_string(4 * (client.Width() / 20)) + ' ';
    EXPECT_EQ(widths(), equal + equal + equal + equal + equal);
    for (int row = 0; row < 100; ++row) {
        grid_.AppendRow();
    }
    CRect filled;
    grid_.UpdateLayout();
    grid_.GetClientRect(&filled);
    EXPECT_TRUE(filled == client) << "the vertical bar takes nothing from the columns, nor brings the other bar";

    grid_.SetColumnWidth(corvanes::price_column, 77);
    grid_.SetColumnWidth(corvanes::quantity_column, 55);
    corvanes::report_options().show_prices = false;
    grid_.ApplyShowPrice();
    EXPECT_EQ(widths(), equal + "0 55 " + equal + "0 ");
    grid_.GotoCell(corvanes::description_column, 0);
    grid_.MoveCurrentColumn(1);
    EXPECT_EQ(grid_.GetCurrentColumn(), corvanes::description_column);
    for (int column = 0; column < corvanes::report_columns; ++column) {
        int dragged = 33;
        grid_.OnGridColumnSizing(column, &dragged);
        EXPECT_EQ(dragged, grid_.GetColumnWidth(column)) << column;
    }
    grid_.StoreColumnWidths();
    EXPECT_EQ(grid_.stored_widths()[corvanes::price_column], 77) << "a hidden column keeps its stored width";

    corvanes::report_options().show_prices = true;
    grid_.ApplyShowPrice();
    EXPECT_EQ(widths(), equal + "77 55 " + equal + equal);
    int dragged = 33;
    grid_.OnGridColumnSizing(corvanes::name_column, &dragged);
    EXPECT_EQ(dragged, 33);
}

/// A page of paper in memory.
class Page {
  public:
    Page() {
        BITMAPINFO info{{sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
        bitmap_ = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, reinterpret_cast<void**>(&pixels_), nullptr, 0);
        former_ = ::SelectObject(context_, bitmap_);
    }
    ~Page() {
        ::SelectObject(context_, former_);
        ::DeleteObject(bitmap_);
        ::DeleteDC(context_);
    }
    Page(const Page&) = delete;
    Page& operator=(const Page&) = delete;

    /// Paints the page that is asked for, and returns how many pages there are.
    LRESULT ask(HWND grid, int page) {
        corvanes::PrintedPageQuery query{context_, width, height, 72, page};
        const UINT message = ::RegisterWindowMessageW(L"PrintedPageQuery");
        const LRESULT pages = ::SendMessageW(grid, message, 0, reinterpret_cast<LPARAM>(&query));
        ::GdiFlush();
        return pages;
    }
    std::vector<std::uint32_t> pixels() const { return {pixels_, pixels_ + width * height}; }

  private:
    static constexpr int width = 595;
    static constexpr int height = 842;
    HDC context_ = ::CreateCompatibleDC(nullptr);
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ former_ = nullptr;
    std::uint32_t* pixels_ = nullptr;
};

TEST_F(ReportGrid, NeitherPrintsNorCopiesNorFindsHiddenMoney) {
    Page page;
    const auto printed_with = [&](double price, bool shown) {
        corvanes::report_options().show_prices = shown;
        rows_.RemoveAll();
        add(L"door", price, 1, L"Wood", price);
        grid_.FillReportGrid(rows_);
        grid_.ApplyShowPrice();
        EXPECT_EQ(page.ask(grid_.m_hWnd, 0), 1);
        return page.pixels();
    };
    EXPECT_NE(printed_with(10, true), printed_with(99, true));
    EXPECT_EQ(printed_with(10, false), printed_with(99, false));
    grid_.Commands().Run(corvanes::GridCommand::select_all, 0);
    grid_.Commands().Run(corvanes::GridCommand::copy_with_headings, 0);
    EXPECT_EQ(corvanes::clipboard_text(nullptr),
              L"Block name\tQuantity\tDescription\r\ndoor\t1\tWood\r\nSummary:\t\t\r\n");
    grid_.Commands().Run(corvanes::GridCommand::show_column, -1);
    EXPECT_EQ(grid_.GetColumnWidth(corvanes::price_column), 0);

    for (int row = 0; row < 200; ++row) {
        add(L"bolt", 1, 1, L"", 1);
    }
    grid_.FillReportGrid(rows_);
    const LRESULT pages = page.ask(grid_.m_hWnd, 0);
    EXPECT_TRUE(pages > 2 && pages < 10) << pages;
    const auto first = page.pixels();
    page.ask(grid_.m_hWnd, 1);
    EXPECT_NE(page.pixels(), first);
}

TEST_F(ReportGrid, KeepsTheWidthsOfColumnsThatAPersonHides) {
    fill();
    const std::string before = widths();
    EXPECT_EQ(grid_.ShowColumn(corvanes::price_column, FALSE) + grid_.ShowColumn(corvanes::name_column, FALSE), 0);
    grid_.StoreColumnWidths();
    EXPECT_EQ(widths(), before);
    corvanes::report_options().show_prices = false;
    grid_.ApplyShowPrice();
    corvanes::report_options().show_prices = true;
    grid_.ApplyShowPrice();
    EXPECT_EQ(widths(), before);
    EXPECT_TRUE(grid_.state().columns.hidden(corvanes::name_column));
    EXPECT_EQ(printed().substr(0, 24), L"door|10.00|3|Wood|30.00|");
}

}  // namespace
