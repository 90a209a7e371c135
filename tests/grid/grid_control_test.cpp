#include <algorithm>

#include "grid/cell_query.h"
#include "tests/grid/grid_window.h"

using namespace grid_test;

namespace {

class Grid : public GridTest {};

TEST_F(Grid, RefusesArgumentsOutOfRange) {
    const std::vector<int> refused{
        grid.SetColumnCount(-1),
        grid.SetColumnCount(32001),
        grid.SetRowCount(-1),
        grid.SetColumnWidth(3, 50),
        grid.SetColumnWidth(-1, 50),
        grid.GetColumnWidth(3),
        grid.GetColumnWidth(-1),
        grid.SetDefaultRowHeight(0),
        grid.SetDefaultRowHeight(1025),
        grid.SetSideHeadingWidth(-1),
        grid.SetSideHeadingWidth(1025),
        grid.SetCellText(3, 0, L"x"),
        grid.SetCellText(0, 20, L"x"),
        grid.SetCellLabel(0, 20, L"x"),
        grid.SetCellTypeIndex(0, 20, 1),
        grid.SetCellTypeIndex(0, 0, -1),
        grid.SetCellTypeOptions(3, 0, 32),
        grid.InsertRow(21),
        grid.InsertRow(-1),
        grid.DeleteRow(20),
        grid.DeleteRow(-1),
        grid.SortBy(3, 1),
        grid.SortBy(0, 0),
        grid.MoveCurrentRow(6),
        grid.GotoCell(0, 20),
        grid.GotoCell(-1, 0),
        grid.SelectCell(0, -1),
        grid.RedrawCell(3, 0),
        grid.RedrawRow(20),
        grid.StartEdit(0, 20, 0),
    };
    EXPECT_EQ(refused, std::vector<int>(refused.size(), 1));
    EXPECT_EQ(grid.AddCellType(nullptr), -1);
    EXPECT_EQ(grid.GetCellText(3, 0), nullptr);
    EXPECT_EQ(grid.log, Log());
    EXPECT_EQ(grid.GetSideHeadingWidth(), 50) << "a column left of the cells is the side heading's";
}

TEST_F(Grid, RowsComeAndGoWithTheCurrentCell) {
    grid.SetRowCount(0);
    EXPECT_EQ(grid.take(), (Log{"row 0 -1", "cell 0 0 0 -1"}));
    EXPECT_EQ(grid.AppendRow(), 0);
    EXPECT_EQ(grid.AppendRow(), 0);
    EXPECT_EQ(grid.InsertRow(1), 0);
    EXPECT_EQ(grid.take(), (Log{"row -1 0", "cell 0 0 -1 0"}));
    grid.SetCellText(0, 0, L"first");
    grid.SetCellText(1, 1, L"second");
    grid.SetCellText(2, 2, L"third");
    EXPECT_EQ(picture(), "first||\n|second|\n||third\n");
    EXPECT_EQ(grid.GotoCell(1, 2), 0);
    EXPECT_EQ(grid.SelectCell(2, 2), 0);
    EXPECT_EQ(grid.DeleteRow(0), 0);
    EXPECT_EQ(picture(), "|second|\n||third*\n") << "the selection goes with its row";
    EXPECT_EQ(grid.take(), (Log{"can move 0 0 1 2", "row 0 2", "cell 0 1 0 2", "row 2 1", "cell 1 1 2 1"}));
    EXPECT_EQ(grid.GetPreviousRow(), 2);
    grid.InsertRow(0);
    EXPECT_EQ(picture(), "||\n|second|\n||third*\n");
    EXPECT_EQ(current(), "1,2");
    grid.ClearSelection();
    grid.DeleteRow(2);
    hold({VK_SHIFT});
    key(VK_UP);
    EXPECT_EQ(picture(), "|*|\n|second*|\n") << "the anchor is the cell that took the place";
}

TEST_F(Grid, SortsByItsOwnOrderAndTheOwnersFlags) {
    grid.SetRowCount(0);
    const wchar_t* const texts[] = {L"10", nullptr, L"9", L"100", L""};
    for (int row = 0; row < 5; ++row) {
        grid.AppendRow();
        grid.SetCellText(1, row, std::to_wstring(row).c_str());
        if (texts[row] != nullptr) {
            grid.SetCellText(0, row, texts[row]);
        }
    }
    grid.SelectCell(0, 0);
    grid.GotoCell(1, 3);
    EXPECT_EQ(grid.SortBy(0, 1), 0);
    EXPECT_EQ(picture(), "|1|\n|4|\n10|0|\n100|3|\n9|2|\n");
    EXPECT_EQ(current(), "1,3");
    for (int row = 0; row < 5; ++row) {
        CUGCell cell;
        grid.GetCell(0, row, &cell);
        cell.SetDataType(corvanes::data_number);
        grid.SetCell(0, row, &cell);
    }
    EXPECT_EQ(grid.SortBy(0, 1), 0);
    EXPECT_EQ(picture(), "|1|\n|4|\n9|2|\n10|0|\n100|3|\n");
    EXPECT_EQ(grid.SortBy(0, 2), 0);
    EXPECT_EQ(picture(), "100|3|\n10|0|\n9|2|\n|4|\n|1|\n");
    EXPECT_EQ(current(), "1,0") << "the current cell goes with its row";
    grid.GotoCell(1, 3);
    grid.SortBy(0, 1);
    hold({VK_SHIFT});
    key(VK_UP);
    EXPECT_EQ(picture(), "|1*|\n|4*|\n9|2|\n10|0|\n100|3|\n") << "and so does the anchor";
}

TEST_F(Grid, TheBestSizeOfACellIsTheLeastThatShowsItWhole) {
    CClientDC dc(&grid);
    dc.SelectObject(CFont::FromHandle(grid.GetGridFont()));
    CUGSortArrowType arrow;
    const int arrow_index = grid.AddCellType(&arrow);
    grid.SetCellTypeOptions(0, 0, corvanes::arrow_down_ascending);
    for (const wchar_t* text : {L"", L"a name", L"two\nlines, the second long", L"\x5E9\x5DC\x5D5\x5DD 12"}) {
        grid.SetCellText(0, 0, text);
        for (const int type : {static_cast<int>(corvanes::type_normal), static_cast<int>(corvanes::type_drop_list)}) {
            grid.SetCellTypeIndex(0, 0, type);
            CUGCell cell;
            grid.GetCell(0, 0, &cell);
            const SIZE best = grid.CellType(type).BestSize(dc, cell);
            EXPECT_FALSE(grid.CellType(type).CutsText(dc, {5, 0, 5 + best.cx, best.cy}, cell)) << narrow(text);
            EXPECT_EQ(grid.CellType(type).CutsText(dc, {5, 0, 4 + best.cx, best.cy}, cell), text[0] != 0);
        }
        CUGCell cell;
        grid.GetCell(0, 0, &cell);
        EXPECT_GT(arrow.BestSize(dc, cell).cx, grid.CellType(0).BestSize(dc, cell).cx);
    }
    EXPECT_EQ(arrow_index, corvanes::standard_cell_types);
    CUGCell none;
    EXPECT_EQ(grid.CellType(corvanes::type_check_box).BestSize(dc, none).cx, 13);
}

TEST_F(Grid, NeverStandsInAHiddenColumn) {
    grid.SetColumnWidth(2, 0);
    hold({VK_CONTROL});
    key(VK_END);
    EXPECT_EQ(current(), "1,19");
    hold({});
    grid.SetColumnWidth(1, 0);
    EXPECT_EQ(current(), "0,19");
    grid.SetColumnWidth(1, 50);
    grid.SetColumnWidth(0, 0);
    EXPECT_EQ(current(), "1,19");
    key(VK_HOME);
    EXPECT_EQ(current(), "1,19");
    EXPECT_EQ(grid.GotoCell(0, 0), 1);
    grid.SetColumnWidth(1, 0);
    grid.take();
    key(VK_F3);
    EXPECT_EQ(grid.take(), (Log{"key 114 0"})) << "no heading is clicked that nobody sees";
}

TEST_F(Grid, AddsUpTheTurnsOfAWheel) {
    const auto wheel = [this](UINT message, int turn, WPARAM keys = 0) {
        grid.GetGrid().SendMessage(message, MAKEWPARAM(keys, turn));
        return grid.GetTopRow() * 1000 + grid.state().scroll_x;
    };
    EXPECT_EQ(wheel(WM_MOUSEWHEEL, -20), 0);
    EXPECT_EQ(wheel(WM_MOUSEWHEEL, -20), 1000) << "a third of a notch";
    EXPECT_EQ(wheel(WM_MOUSEWHEEL, -39), 1000);
    EXPECT_EQ(wheel(WM_MOUSEWHEEL, 39), 1000) << "turned back";
    EXPECT_EQ(wheel(WM_MOUSEWHEEL, 1), 0);
    grid.SetColumnWidth(1, 2000);
    EXPECT_EQ(wheel(WM_MOUSEHWHEEL, 60), 16);
    EXPECT_EQ(wheel(WM_MOUSEHWHEEL, 60), 48);
    EXPECT_EQ(wheel(WM_MOUSEWHEEL, 40, MK_SHIFT), 32);
}

TEST_F(Grid, ClicksMoveFirstAndNotifyThen) {
    CUGGrid& cells = grid.GetGrid();
    press(cells, 110, 45);
    release(cells, 210, 10);
    EXPECT_EQ(grid.take(), (Log{"can move 0 0 1 2", "row 0 2", "cell 0 1 0 2", "click 1 2 1 100 40 199 59 110 45 0",
                                "click 2 0 0 200 0 299 19 210 10 0"}));
    click(cells, 350, 45);
    EXPECT_EQ(grid.take(), (Log{"click -1 2 1 0 0 0 0 350 45 0", "click -1 2 0 0 0 0 0 350 45 0"}));
    grid.may_move = false;
    click(cells, 10, 10);
    EXPECT_EQ(grid.take(), (Log{"can move 1 2 0 0", "click 0 0 1 0 0 99 19 10 10 0", "click 0 0 0 0 0 99 19 10 10 0"}));
    EXPECT_EQ(current(), "1,2");
}

TEST_F(Grid, ShiftAndDraggingStretchTheSelectionAndCtrlAddsToIt) {
    Fill(4);
    CUGGrid& cells = grid.GetGrid();
    press(cells, 10, 10);
    drag(cells, 110, 25);
    release(cells, 110, 25);
    EXPECT_EQ(picture(), "0a*|0b*|0c\n1a*|1b*|1c\n2a|2b|2c\n3a|3b|3c\n");
    click(cells, 210, 65, MK_CONTROL);
    EXPECT_EQ(picture(), "0a*|0b*|0c\n1a*|1b*|1c\n2a|2b|2c\n3a|3b|3c*\n");
    click(cells, 110, 65);
    EXPECT_EQ(picture(), "0a|0b|0c\n1a|1b|1c\n2a|2b|2c\n3a|3b|3c\n");
    hold({VK_SHIFT});
    key(VK_UP);
    key(VK_RIGHT);
    EXPECT_EQ(picture(), "0a|0b|0c\n1a|1b|1c\n2a|2b*|2c*\n3a|3b*|3c*\n");
    release_keys();
    key(VK_UP);
    EXPECT_EQ(picture(), "0a|0b|0c\n1a|1b|1c\n2a|2b|2c\n3a|3b|3c\n");
}

TEST_F(Grid, KeysAreAnnouncedAndMayBeChanged) {
    const auto after = [this](UINT code) {
        key(code);
        return current();
    };
    // The window shows ten of the twenty rows, less the heading.
    EXPECT_EQ((std::vector<std::string>{after(VK_DOWN), after(VK_RIGHT), after(VK_NEXT), after(VK_NEXT),
                                        after(VK_PRIOR), after(VK_END), after(VK_HOME), after(VK_LEFT), after(VK_UP)}),
              (std::vector<std::string>{"0,1", "1,1", "1,11", "1,19", "1,9", "2,9", "0,9", "0,9", "0,8"}));
    hold({VK_CONTROL});
    EXPECT_EQ(after(VK_END), "2,19");
    EXPECT_EQ(after(VK_HOME), "0,0");
    release_keys();
    grid.take();
    key(VK_ESCAPE);
    grid.replace_key = VK_DOWN;
    key('X');
    grid.replace_key = 0;
    key(VK_DOWN);
    type(L"d\x1b");
    EXPECT_EQ(grid.take(),
              (Log{"key 27 0", "key 88 0", "can move 0 0 0 1", "row 0 1", "cell 0 0 0 1", "key 40 0", "char 100 0"}));
    EXPECT_EQ(current(), "0,1");
}

TEST_F(Grid, MoveCurrentRowAnswersWhatHappened) {
    EXPECT_EQ(grid.MoveCurrentRow(0), 0);
    EXPECT_EQ(grid.take(), Log()) << "the first row is current already";
    grid.SelectCell(0, 0);
    EXPECT_EQ(grid.MoveCurrentRow(5), 0);
    EXPECT_FALSE(grid.IsSelected(0, 0));
    EXPECT_EQ(grid.GetTopRow(), 10);
    EXPECT_EQ(grid.take(), (Log{"can move 0 0 0 19", "row 0 19", "cell 0 0 0 19"}));
    grid.may_move = false;
    EXPECT_EQ(grid.MoveCurrentRow(4), 2);
    EXPECT_EQ(grid.GotoCell(1, 1), 2);
    EXPECT_EQ(current(), "0,19");
    grid.SetRowCount(0);
    EXPECT_EQ(grid.MoveCurrentRow(1), 1);
}

TEST_F(Grid, HeadingClicksAndBorderDrags) {
    CUGTopHdg& heading = grid.GetTopHeading();
    press(heading, 150, 5);
    release(heading, 20, 5);
    EXPECT_EQ(grid.take(), (Log{"heading 1 -1 1 100 200", "heading 1 -1 0 100 200"}));
    click(heading, 350, 5);
    EXPECT_EQ(grid.take(), Log()) << "right of the last column is no heading";

    press(heading, 199, 5);
    drag(heading, 219, 5);
    drag(heading, -50, 5);
    grid.sizing_result = 70;
    drag(heading, 250, 5);
    release(heading, 250, 5);
    drag(heading, 260, 5);
    EXPECT_EQ(grid.take(), (Log{"sizing 1 120", "sizing 1 8", "sizing 1 151"}));
    EXPECT_EQ(grid.GetColumnWidth(1), 70);
    grid.SetColumnWidth(1, 0);
    grid.sizing_result = -1;
    press(heading, 101, 5);
    drag(heading, 131, 5);
    release(heading, 131, 5);
    EXPECT_EQ(grid.take(), (Log{"sizing 1 30"})) << "a hidden column is pulled open from the right of its border";
}

TEST_F(Grid, ScrollBarsFollowTheCells) {
    const auto bar = [this](int which) {
        SCROLLINFO info{sizeof info, SIF_ALL, 0, 0, 0, 0, 0};
        ::GetScrollInfo(grid.m_hWnd, which, &info);
        const bool shown = (grid.GetStyle() & (which == SB_VERT ? WS_VSCROLL : WS_HSCROLL)) != 0;
        return shown ? std::to_string(info.nPos) + " of " + std::to_string(info.nMax) + " by " +
                           std::to_string(info.nPage)
                     : std::string("none");
    };
    EXPECT_EQ(bar(SB_VERT), "0 of 19 by 10");
    EXPECT_EQ(bar(SB_HORZ), "none");
    grid.SetRowCount(10);
    pump();
    EXPECT_EQ(bar(SB_VERT), "none");
    grid.SetColumnWidth(2, 401);
    pump();
    const int bar_width = ::GetSystemMetrics(SM_CXVSCROLL);
    EXPECT_EQ(bar(SB_HORZ), "0 of 600 by " + std::to_string(400 - bar_width));
    EXPECT_EQ(bar(SB_VERT), "0 of 9 by 9") << "the horizontal bar covers the last row";
    grid.SetRowCount(1000000);
    grid.GotoCell(2, 999999);
    EXPECT_EQ(bar(SB_VERT), "999991 of 999999 by 9");
    grid.SendMessage(WM_VSCROLL, SB_PAGEUP);
    EXPECT_EQ(grid.GetTopRow(), 999982);
    grid.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA));
    EXPECT_LT(grid.GetTopRow(), 999982);
    grid.SendMessage(WM_VSCROLL, SB_TOP);
    EXPECT_EQ(bar(SB_VERT), "0 of 999999 by 9");
    grid.SetColumnWidth(2, 10);
    grid.SetRowCount(1);
    pump();
    EXPECT_EQ(bar(SB_VERT) + bar(SB_HORZ), "nonenone");
}

TEST_F(Grid, TellsWhereACellIs) {
    const UINT message = ::RegisterWindowMessageW(L"CellRectangleQuery");
    const auto ask = [&](int column, int row) {
        corvanes::CellRectangleQuery query{column, row, {}};
        if (grid.SendMessage(message, 0, reinterpret_cast<LPARAM>(&query)) != 1) {
            return std::string("none");
        }
        return std::to_string(query.rect.left) + "," + std::to_string(query.rect.top) + "," +
               std::to_string(query.rect.right) + "," + std::to_string(query.rect.bottom);
    };
    EXPECT_EQ(ask(1, 0), "150,70,249,89");
    EXPECT_EQ(ask(1, -1), "150,50,250,70");
    EXPECT_EQ(ask(0, 19), "50,250,149,269") << "scrolled into view";
    EXPECT_EQ(ask(3, 0), "none");
    EXPECT_EQ(ask(0, 20), "none");
    grid.SetColumnWidth(0, 0);
    EXPECT_EQ(ask(0, 0), "none");
}

// Checks the sort arrows and the colours of the current and of a selected cell.
TEST_F(Grid, PaintsArrowsAndTheColoursOfCells) {
    CUGSortArrowType arrow;
    const int index = grid.AddCellType(&arrow);
    EXPECT_EQ(grid.AddCellType(&arrow), index);
    const auto arrow_picture = [this](DWORD options) {
        grid.SetCellTypeOptions(0, -1, options);
        grid.RedrawCell(0, -1);
        pump();
        CClientDC dc(&grid.GetTopHeading());
        const COLORREF black = ::GetSysColor(COLOR_BTNTEXT);
        std::string picture;
        for (int y = 2; y < 18; ++y) {
            std::string line;
            for (int x = 75; x < 96; ++x) {
                line += dc.GetPixel(x, y) == black ? '#' : ' ';
            }
            if (line.find('#') != std::string::npos) {
                picture +=
                    line.substr(line.find_first_not_of(' ')).erase(line.find_last_of('#') - line.find('#') + 1) + "\n";
            }
        }
        return picture;
    };
    grid.SetCellTypeIndex(0, -1, index);
    EXPECT_EQ(arrow_picture(32), "#########\n#######\n#####\n###\n#\n");
    EXPECT_EQ(arrow_picture(16), "#\n###\n#####\n#######\n#########\n");
    EXPECT_EQ(arrow_picture(0), "");

    grid.GotoCell(1, 1);
    grid.SelectCell(2, 2);
    pump();
    CClientDC dc(&grid.GetGrid());
    const std::vector<COLORREF> found{dc.GetPixel(190, 21), dc.GetPixel(290, 45), dc.GetPixel(90, 5),
                                      dc.GetPixel(350, 5)};
    EXPECT_EQ(found, (std::vector<COLORREF>{::GetSysColor(COLOR_HIGHLIGHT), ::GetSysColor(COLOR_HIGHLIGHT),
                                            ::GetSysColor(COLOR_WINDOW), ::GetSysColor(COLOR_WINDOW)}));
}

TEST_F(Grid, ShowsThatATextDoesNotFit) {
    grid.GotoCell(2, 5);
    // The pixels of a cell of row 0 or 1, without the grid lines.
    const auto pixels = [this](int column, int row, int from_right = 0) {
        pump();
        CClientDC dc(&grid.GetGrid());
        const RECT cell = grid.GetGrid().CellRectangle(column, row);
        std::vector<COLORREF> found;
        for (int y = cell.top; y < cell.bottom; ++y) {
            for (int x = cell.left; x < cell.right - from_right; ++x) {
                found.push_back(dc.GetPixel(x, y));
            }
        }
        return found;
    };
    const auto same = [&](const wchar_t* text, const wchar_t* shown) {
        grid.SetCellText(0, 0, text);
        grid.SetCellText(0, 1, shown);
        grid.RedrawAll();
        return pixels(0, 0) == pixels(0, 1);
    };
    grid.SetColumnWidth(0, 38);
    EXPECT_FALSE(same(L"13", L"14")) << "a number that fits is shown";
    EXPECT_TRUE(same(L"2100345.50", L"###"));
    EXPECT_TRUE(same(L"alphabet", L"alphorn") && !same(L"alphabet", L"a")) << "only the beginning, and a mark";
    EXPECT_TRUE(same(L"\x5D0\x5D1\x5D2\x5D3\x5D4\x5D5 abc", L"\x5D0\x5D1\x5D2\x5D3\x5D4\x5D5 xyz"))
        << "of Hebrew the beginning stays";
    EXPECT_EQ(grid.AlignColumnRight(0, TRUE), 0);
    EXPECT_EQ(grid.AlignColumnRight(3, TRUE), 1);
    EXPECT_FALSE(same(L"1", L"2"));
    EXPECT_EQ(pixels(0, 0, 19), pixels(0, 1, 19)) << "the digits stand at the right edge";

    // Of a column wider than the window, only the visible part counts.
    grid.SetColumnWidth(1, 2000);
    grid.SetScrollX(500);
    const RECT wide = grid.GetGrid().CellRectangle(1, 0);
    EXPECT_EQ(std::pair(wide.left, wide.right), std::pair(LONG{0}, LONG{400 - ::GetSystemMetrics(SM_CXVSCROLL)}));
}

TEST_F(Grid, HintsAtATextThatDoesNotFit) {
    const auto hint = [] {
        HWND found = nullptr;
        const auto look = [](HWND window, LPARAM into) -> BOOL {
            const bool tool = (::GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOOLWINDOW) != 0;
            if (tool && ::IsWindowVisible(window) != 0) {
                *reinterpret_cast<HWND*>(into) = window;
            }
            return TRUE;
        };
        ::EnumThreadWindows(::GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(&found));
        CRect place(0, 0, 0, 0);
        if (found != nullptr) {
            ::GetWindowRect(found, place);
        }
        return place;
    };
    grid.SetColumnWidth(2, 300);
    grid.SetCellText(0, 1, (std::wstring(30, L'w') + L" " + std::wstring(60, L'v')).c_str());
    send(grid.GetGrid(), WM_MOUSEHOVER, 0, 10, 5);
    EXPECT_EQ(hint(), CRect(0, 0, 0, 0)) << "the text fits";
    send(grid.GetGrid(), WM_MOUSEHOVER, 0, 10, 25);
    EXPECT_EQ(hint().TopLeft(), CPoint(50, 50 + 20 + 39 + 2)) << "below the cell";
    EXPECT_GT(hint().Height(), 2 * grid.GetFontHeight()) << "broken at the blank";
    send(grid.GetGrid(), WM_MOUSEMOVE, 0, 20, 30);
    EXPECT_GT(hint().Width(), 0);
    send(grid.GetGrid(), WM_MOUSEMOVE, 0, 20, 50);
    EXPECT_EQ(hint().Width(), 0);
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"a menu's key", [this] { grid.GetGrid().SendMessage(WM_SYSKEYDOWN, VK_MENU); }},
        {"scrolling", [this] { grid.SetScrollX(1), grid.SetScrollX(0); }},
        {"another row under the pointer", [this] { grid.DeleteRow(1); }},
    };
    for (const auto& [what, end] : ends) {
        send(grid.GetGrid(), WM_MOUSEHOVER, 0, 10, 25);
        EXPECT_GT(hint().Width(), 0);
        end();
        EXPECT_EQ(hint().Width(), 0) << what;
    }
}

}  // namespace
