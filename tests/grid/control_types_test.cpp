#include <functional>

#include "grid/run_layout.h"
#include "tests/grid/grid_window.h"

using namespace corvanes;
using namespace grid_test;

namespace {

// A control with its text, and the point where a press acts on it in a cell of 99 by 19 pixels.
struct Control {
    int type;
    DWORD options;
    const wchar_t* label;
    const wchar_t* text;
    int x;
};
const Control controls[] = {
    {type_arrow, arrow_right, L"", L"more", 90},
    {type_button, 0, L"", L"press", 50},
    {type_ellipsis, 0, L"", L"file", 90},
    {type_spin_button, 0, L"max=9", L"4", 90},
    {type_slider, slider_shows_number, L"max=10", L"4", 60},
    {type_radio, 0, L"oak\nash", L"ash", 6},
    {type_progress, 0, L"", L"40", 50},
    {type_advanced_progress, 0, L"bands=50 green,90 red", L"60", 50},
    {type_pie_chart, 0, L"", L"5 3", 52},
    {type_multi_font, 0, L"3 bold; 4 red", L"one two", 6},
    {type_auto_font, 0, L"", L"fits", 50},
};

class Controls : public GridTest {
  protected:
    // Shows the control in the cell in the middle of the top row.
    void Put(const Control& control, DWORD options = 0) {
        grid.SetCellText(1, 0, control.text);
        grid.SetCellLabel(1, 0, control.label);
        grid.SetCellTypeIndex(1, 0, control.type);
        grid.SetCellTypeOptions(1, 0, control.options | options);
        pump();
        grid.take();
    }
    void click(int x, int y = 5) { GridTest::click(grid.GetGrid(), x, y); }
    void key_up(UINT code) {
        ::SendMessageW(::GetFocus(), WM_KEYUP, code, 1);
        pump();
    }
    void wheel(int turn) {
        POINT point{150, 5};
        ::ClientToScreen(grid.GetGrid().m_hWnd, &point);
        grid.GetGrid().SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, turn), MAKELPARAM(point.x, point.y));
        pump();
    }
    // The notifications of the controls, in one line.
    std::string told() {
        std::string line;
        for (const std::string& entry : grid.take()) {
            if (!entry.starts_with("c") && !entry.starts_with("row") && !entry.starts_with("key")) {
                line += (line.empty() ? "" : ", ") + entry;
            }
        }
        return line;
    }
    std::wstring text() { return grid.GetCellText(1, 0); }
};

// The pixels of a control in a rectangle of this size within a larger picture of one colour. With `mirrored` each row
// is reversed.
std::vector<COLORREF> painted(CUGCtrl& grid, const Control& control, DWORD options, SIZE size, bool mirrored = false) {
    constexpr int border = 8;
    CClientDC screen(&grid);
    CDC dc;
    dc.CreateCompatibleDC(&screen);
    CBitmap bitmap;
    const int width = size.cx + 2 * border;
    const int height = size.cy + 2 * border;
    bitmap.CreateCompatibleBitmap(&screen, width, height);
    const SelectedFont font(dc, grid.GetGridFont());
    CBitmap* former = dc.SelectObject(&bitmap);
    const RECT whole{0, 0, width, height};
    dc.FillSolidRect(&whole, RGB(255, 0, 255));
    CUGCell cell;
    cell.SetText(control.text);
    cell.SetLabelText(control.label);
    cell.SetCellTypeOptions(control.options | options);
    grid.CellType(control.type)
        .OnDraw(dc, {border, border, border + size.cx, border + size.cy}, cell,
                {::GetSysColor(COLOR_WINDOWTEXT), ::GetSysColor(COLOR_WINDOW)});
    std::vector<COLORREF> pixels;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const COLORREF pixel = dc.GetPixel(mirrored ? width - 1 - x : x, y);
            const bool outside = x < border || y < border || x >= border + size.cx || y >= border + size.cy;
            EXPECT_TRUE(!outside || pixel == RGB(255, 0, 255)) << control.type << ": " << x << ' ' << y;
            pixels.push_back(pixel);
        }
    }
    dc.SelectObject(former);
    return pixels;
}

TEST_F(Controls, AreWorkedWithTheMouse) {
    std::string all;
    for (const Control& control : controls) {
        Put(control);
        click(100 + control.x);
        all += std::to_string(control.type) + ": " + told() + '\n';
        Put(control, control_disabled);
        click(100 + control.x);
        EXPECT_EQ(told(), "") << "disabled";
        EXPECT_EQ(text(), control.text);
        Put(control, control_right_to_left);
        click(100 + 98 - control.x);
        EXPECT_NE(told(), "") << "the parts are mirrored";
    }
    EXPECT_EQ(all,
              "3: notify more 1 0 1 8\n4: notify press 1 0 2 1\n5: notify file 1 0 3 1\n"
              "6: verify 5 1 0, finish 5 1 0 0, notify 5 1 0 4 1\n"
              "7: notify 8 1 0 6 1, verify 8 1 0, finish 8 1 0 0, notify 8 1 0 5 1\n"
              "8: verify oak 1 0, finish oak 1 0 0, notify oak 1 0 7 0\n"
              "9: notify 40 1 0 8 1\n10: notify 60 1 0 9 1\n11: notify 5 1 0 10 0\n12: notify one 1 0 11 0\n"
              "13: notify fits 1 0 12 1\n");
}

TEST_F(Controls, AreWorkedWithTheKeyboard) {
    grid.GotoCell(1, 0);
    std::string all;
    for (const Control& control : controls) {
        Put(control);
        key(VK_SPACE);
        type(L" ");
        EXPECT_EQ(told(), "") << "the space bar acts on its release";
        key_up(VK_SPACE);
        const std::string by_space = told();
        for (const UINT code : {VK_F4, VK_UP, VK_RIGHT, VK_HOME}) {
            key(code);
            grid.GotoCell(1, 0);
        }
        all += std::to_string(control.type) + ": " + by_space + " | " + told() + '\n';
        Put(control, control_disabled);
        key(VK_F4);
        key(VK_LEFT);
        EXPECT_EQ(current(), "0,0") << "a disabled cell has no keys";
        EXPECT_EQ(told(), "");
        grid.GotoCell(1, 0);
    }
    EXPECT_EQ(all,
              "3:  | notify more 1 0 1 8\n4: notify press 1 0 2 1 | notify press 1 0 2 1\n5:  | notify file 1 0 3 1\n"
              "6:  | verify 5 1 0, finish 5 1 0 0, notify 5 1 0 4 1\n"
              "7:  | verify 5 1 0, finish 5 1 0 0, notify 5 1 0 5 1, verify 0 1 0, finish 0 1 0 0, notify 0 1 0 5 1\n"
              "8:  | verify oak 1 0, finish oak 1 0 0, notify oak 1 0 7 0\n"
              "9: notify 40 1 0 8 1 | notify 40 1 0 8 1\n10: notify 60 1 0 9 1 | notify 60 1 0 9 1\n"
              "11: notify 5 3 1 0 10 -1 | notify 5 3 1 0 10 -1\n12:  | notify one two 1 0 11 -1\n"
              "13:  | notify fits 1 0 12 1\n");
}

TEST_F(Controls, DragAndTurnAndTakeARefusal) {
    Put(controls[4]);
    press(grid.GetGrid(), 100 + 36, 5);
    EXPECT_EQ(told(), "") << "taking hold of the thumb changes nothing";
    drag(grid.GetGrid(), 100 + 56, 5);
    drag(grid.GetGrid(), 900, 150);
    EXPECT_EQ(told(), "notify 7 1 0 6 1, notify 10 1 0 6 1");
    EXPECT_EQ(text(), L"4") << "stored on release";
    key(VK_ESCAPE);
    EXPECT_EQ(grid.take(), Log()) << "this Escape is for the drag only";
    drag(grid.GetGrid(), 150, 45);
    release(grid.GetGrid(), 150, 45);
    EXPECT_EQ(told(), "");
    EXPECT_EQ(current(), "1,0");
    wheel(WHEEL_DELTA / 2);
    wheel(WHEEL_DELTA / 2);
    EXPECT_EQ(text(), L"5");
    grid.verified = 0;
    wheel(-WHEEL_DELTA);
    click(100 + 5);
    EXPECT_EQ(text(), L"5");
    EXPECT_EQ(grid.GetTopRow(), 0);
    grid.GotoCell(0, 1);
    wheel(-WHEEL_DELTA);
    EXPECT_GT(grid.GetTopRow(), 0) << "over another cell than the current one the wheel scrolls";
    grid.SetTopRow(0);

    Put(controls[1]);
    press(grid.GetGrid(), 150, 5);
    const CellHold* hold = grid.HeldCell();
    ASSERT_NE(hold, nullptr);
    drag(grid.GetGrid(), 150, 45);
    EXPECT_FALSE(hold->over) << "it pops up while the pointer is elsewhere";
    release(grid.GetGrid(), 150, 45);
    EXPECT_EQ(told(), "");
    EXPECT_FALSE(grid.IsSelected(1, 1)) << "and no cells are selected by that drag";
    press(grid.GetGrid(), 150, 5);
    frame.SetFocus();
    EXPECT_EQ(grid.HeldCell(), nullptr);
    release(grid.GetGrid(), 150, 5);
    EXPECT_EQ(told(), "");
}

TEST_F(Controls, SurviveWhatTheirNotificationsDo) {
    const std::function<void()> attacks[] = {[this] { grid.DeleteRow(0); }, [this] { grid.SetColumnCount(1); },
                                             [this] { grid.DestroyWindow(); }};
    for (const auto& attack : attacks) {
        for (const bool in_verify : {false, true}) {
            for (const Control& control : controls) {
                TearDown();
                SetUp();
                Put(control);
                (in_verify ? grid.on_verify : grid.on_notify) = attack;
                click(100 + control.x);
                if (grid.m_hWnd != nullptr) {
                    key(VK_F4);
                    key(VK_UP);
                }
                grid.on_verify = grid.on_notify = nullptr;
                EXPECT_EQ(grid.HeldCell(), nullptr);
                EXPECT_EQ(::GetCapture(), nullptr);
                EXPECT_TRUE(grid.GetRowCount() == 20 || grid.GetCellText(1, 0) == std::wstring_view(L"1b"))
                    << "another row got the text of " << control.type;
            }
        }
    }
    TearDown();
    SetUp();
    for (const Control& control : controls) {
        Put(control);
        press(grid.GetGrid(), 100 + control.x, 5);
        grid.DeleteRow(0);
        drag(grid.GetGrid(), 150, 45);
        release(grid.GetGrid(), 150, 45);
        EXPECT_TRUE(narrow(grid.GetCellText(1, 0)).ends_with("b")) << "rows that go take the drag along";
    }
}

TEST_F(Controls, PaintNothingOutsideOfTheirCells) {
    const std::wstring huge(3000, L'9');
    std::wstring bands = L"max=1e300; ticks=1e-300; labels=1e-9; bands=";
    for (int band = 0; band < 1000; ++band) {
        bands += std::to_wstring(band) + L" red,";
    }
    const wchar_t* const labels[] = {L"", L"=;;\n\n,max=;min=x\x5D0", bands.c_str(), huge.c_str()};
    const wchar_t* const texts[] = {L"", L"-1e999, 4 nan", L"\x5D0\nb\x5D1", huge.c_str()};
    for (const Control& control : controls) {
        for (const SIZE size : {SIZE{1, 1}, SIZE{3, 20}, SIZE{40, 2}, SIZE{50, 24}}) {
            for (const wchar_t* label : labels) {
                for (const wchar_t* shown : texts) {
                    painted(grid, {control.type, 1, label, shown, 0}, 0, size);
                }
            }
        }
    }
}

TEST_F(Controls, WorkInTinyAndHiddenCells) {
    for (const Control& control : controls) {
        for (const int width : {3, 2, 0}) {
            Put(control);
            grid.SetColumnWidth(1, width);
            grid.SetRowHeight(0, width + 1);
            grid.GotoCell(1, 0);
            pump();
            click(100, 0);
            click(101, 1);
            wheel(WHEEL_DELTA);
            for (const UINT code : {VK_SPACE, VK_F4, VK_LEFT, VK_DOWN}) {
                key(code);
                key_up(code);
            }
            EXPECT_EQ(grid.HeldCell(), nullptr);
            grid.SetColumnWidth(1, 100);
            grid.SetRowHeight(0, 20);
        }
        Put(control);
        grid.GotoCell(1, 0);
        grid.SetTopRow(8);
        key(VK_F4);
        key(VK_SPACE);
        key_up(VK_SPACE);
        EXPECT_EQ(grid.HeldCell(), nullptr) << "out of sight";
        grid.SetTopRow(0);
    }
}

TEST_F(Controls, LookDisabledAndMirrored) {
    const SIZE size{90, 24};
    for (const Control& control : controls) {
        EXPECT_NE(painted(grid, control, 0, size), painted(grid, control, control_disabled, size)) << control.type;
        CUGCell cell;
        cell.SetText(control.text);
        cell.SetLabelText(control.label);
        cell.SetCellTypeOptions(control.options);
        CClientDC dc(&grid);
        const SelectedFont font(dc, grid.GetGridFont());
        const SIZE best = grid.CellType(control.type).BestSize(dc, cell);
        EXPECT_FALSE(grid.CellType(control.type).CutsText(dc, {0, 0, best.cx, best.cy}, cell)) << control.type;
    }
    // Letters and the light on buttons are not mirrored; all else is.
    for (const Control& control :
         {Control{type_arrow, arrow_up, L"", L"", 0}, Control{type_progress, progress_hides_number, L"", L"40", 0},
          Control{type_advanced_progress, 1, L"bands=30 red,70 green,80 blue; ticks=7", L"40", 0}}) {
        EXPECT_EQ(painted(grid, control, 0, size), painted(grid, control, control_right_to_left, size, true))
            << control.type;
    }
    for (const wchar_t* text : {L"plain text", L"\x5E9\x5DC\x5D5\x5DD (12) abc", L"two\nlines"}) {
        EXPECT_EQ(painted(grid, {type_multi_font, 0, L"3;2", text, 0}, 0, size),
                  painted(grid, {type_normal, 0, L"", text, 0}, 0, size))
            << "runs without a style of their own look like a normal cell";
    }
}

}  // namespace
