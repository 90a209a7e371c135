// What a person does with a grid's cells by keys, menus and the mouse.
#include "bidi/clipboard_text.h"
#include "tests/grid/grid_window.h"

using namespace grid_test;

namespace {

class Commands : public GridTest {
  protected:
    void SetUp() override {
        GridTest::SetUp();
        Fill(3);
        grid.changeable = true;
        corvanes::put_clipboard(grid, {});
    }
    void chord(std::initializer_list<int> held, UINT code) {
        hold(held);
        key(code);
        release_keys();
    }
    void put(std::wstring_view text) { corvanes::put_clipboard_text(grid, text); }
    std::wstring copied(std::initializer_list<int> held = {VK_CONTROL}) {
        chord(held, 'C');
        return corvanes::clipboard_text(grid).value_or(L"(none)");
    }
    void paste() {
        grid.SetFocus();
        chord({VK_CONTROL}, 'V');
    }
    // Answers the next message box, and returns its text.
    std::string said_at(const std::function<void()>& act) {
        static std::string text;
        text.clear();
        const UINT_PTR timer = ::SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR, DWORD) {
            if (const HWND box = ::FindWindowW(L"#32770", nullptr); box != nullptr && text.empty()) {
                wchar_t message[200] = {};
                HWND label = nullptr;  // the first label may be that of the icon
                while (message[0] == 0 && (label = ::FindWindowExW(box, label, L"Static", nullptr)) != nullptr) {
                    ::GetWindowTextW(label, message, 200);
                }
                text = narrow(message);
                ::EndDialog(box, IDOK);
            }
        });
        act();
        ::KillTimer(nullptr, timer);
        return text;
    }
};

TEST_F(Commands, CopyWhatIsSelectedAndShown) {
    grid.SetCellText(1, -1, L"Price");
    EXPECT_EQ(copied(), L"0a\r\n");
    hold({VK_SHIFT});
    key(VK_DOWN), key(VK_RIGHT), key(VK_RIGHT);
    EXPECT_EQ(grid.ShowColumn(0, FALSE), 0);
    EXPECT_EQ(copied({VK_CONTROL, VK_SHIFT}), L"Price\t\r\n0b\t0c\r\n1b\t1c\r\n");
    EXPECT_NE(::IsClipboardFormatAvailable(::RegisterClipboardFormatW(L"HTML Format")), 0);
    EXPECT_EQ(grid.GetColumnWidth(0), 100) << "hidden from the eye only";
    EXPECT_EQ(grid.ShowColumn(1, FALSE) + grid.ShowColumn(2, FALSE) + grid.ShowColumn(3, TRUE), 2) << "one stays";
    grid.ShowColumn(0, TRUE), grid.ShowColumn(1, TRUE);
    chord({VK_CONTROL}, 'A');
    click(grid.GetGrid(), 110, 25, MK_CONTROL);
    EXPECT_EQ(picture(), "0a*|0b*|0c*\n1a*|1b|1c*\n2a*|2b*|2c*\n");
    chord({VK_CONTROL}, 'X');
    EXPECT_EQ(picture(), "*|*|*\n*|1b|*\n*|*|*\n") << "but for the cell that was taken out";
}

TEST_F(Commands, PasteAllOrNothing) {
    grid.GotoCell(1, 1);
    put(L"x\t1,250.00\r\n\"two\nlines\"\r\nz\ty\r\n");
    paste();
    EXPECT_EQ(picture(), "0a|0b|0c\n1a|x*|1,250.00*\n2a|two lines*|2c*\n|z*|y*\n");
    EXPECT_EQ(current(), "1,1");
    EXPECT_EQ(grid.take().front(), "can move 0 0 1 1");
    chord({}, VK_DELETE);
    put(L"one");
    paste();
    EXPECT_EQ(picture(), "0a|0b|0c\n1a|one*|one*\n2a|one*|one*\n|one*|one*\n");

    const std::string before = picture();
    put(L"a\tb\tc");
    EXPECT_EQ(said_at([this] { paste(); }), "The clipboard has 3 columns, and only 2 begin here");
    corvanes::put_clipboard(grid, {});
    EXPECT_EQ(said_at([this] { paste(); }), "There is no text on the clipboard");
    put(std::wstring(1'000'000, L'x'));
    EXPECT_EQ(said_at([this] { paste(); }), "Row 2: the text is longer than 1024 characters");
    put(L"p\tq\nr\ts");
    grid.finished = 0;
    EXPECT_EQ(said_at([this] { paste(); }), "Row 2: \"p\" is not accepted");
    grid.finished = 1;
    grid.changeable = false;
    paste();
    chord({}, VK_DELETE);
    EXPECT_EQ(picture(), before);
}

TEST_F(Commands, EscapeEndsASearchThatTakesLong) {
    grid.SetRowCount(100'000);
    chord({VK_CONTROL}, 'F');
    type(L"none");
    const HWND window = ::GetParent(::GetFocus());
    const auto find = [window] { ::SendMessageW(window, WM_COMMAND, IDOK, 0); };
    EXPECT_EQ(said_at(find), "Item not found");
    ::PostMessageW(window, WM_KEYDOWN, VK_ESCAPE, 1);
    EXPECT_EQ(said_at(find), "");
    EXPECT_NE(::IsWindow(window), 0) << "that Escape was for the search";
}

TEST_F(Commands, FitColumnsByDoubleClickAndResizeThemByKeys) {
    grid.SetCellText(1, 2, L"the longest text of the column by far, and no other");
    CClientDC dc(&grid);
    const HGDIOBJ former = ::SelectObject(dc.m_hDC, grid.GetGridFont());
    const int wide = corvanes::text_width(dc, grid.GetCellText(1, 2)) + 2 * corvanes::cell_text_margin + 1;
    ::SelectObject(dc.m_hDC, former);
    send(grid.GetTopHeading(), WM_LBUTTONDBLCLK, MK_LBUTTON, 199, 5);
    EXPECT_EQ(grid.GetColumnWidth(1), wide);
    EXPECT_EQ(grid.take(), (Log{"sizing 1 " + std::to_string(wide)}));
    send(grid.GetTopHeading(), WM_LBUTTONDBLCLK, MK_LBUTTON, 50, 5);
    EXPECT_EQ(grid.take(), (Log{"heading 0 -1 1 0 100"})) << "elsewhere it is a click";
    for (const auto& [code, width] : {std::pair(VK_RIGHT, 108), std::pair(VK_LEFT, 100)}) {
        grid.GetGrid().SendMessage(WM_SYSKEYDOWN, static_cast<WPARAM>(code), 1 << 29);
        EXPECT_EQ(grid.GetColumnWidth(0), width);
    }
}

TEST_F(Commands, ScrollWhileADragIsHeldOutside) {
    Fill(40);
    press(grid.GetGrid(), 10, 5);
    drag(grid.GetGrid(), 10, 210);
    const int top = grid.GetTopRow();
    grid.GetGrid().SendMessage(WM_TIMER, 1);
    EXPECT_GT(grid.GetTopRow(), top) << "though the pointer rests";
    release(grid.GetGrid(), 10, 210);
    const int released = grid.GetTopRow();
    grid.GetGrid().SendMessage(WM_TIMER, 1);
    EXPECT_EQ(grid.GetTopRow(), released);
}

TEST_F(Commands, LettersLeadToTheNextRowThatBeginsSo) {
    grid.changeable = false;
    const wchar_t* const names[] = {L"Bolt", L"arch", L"beam", L"\x5D3\x5DC\x5EA", L"boiler"};
    for (int row = 0; row < 5; ++row) {
        grid.SetRowCount(5);
        grid.SetCellText(0, row, names[row]);
    }
    const auto after = [this](const wchar_t* letters) {
        type(letters);
        return grid.GetCurrentRow();
    };
    EXPECT_EQ(after(L"b"), 2);
    EXPECT_EQ(after(L"B"), 4);
    EXPECT_EQ(after(L"b"), 0) << "round to the first";
    grid.GotoCell(0, 1);
    EXPECT_EQ(after(L"x"), 1) << "nothing begins with all that was typed";
}

TEST_F(Commands, ArrowsEndAnEditInALineAndGoOn) {
    const auto edited = [this](const wchar_t* text, UINT code) {
        grid.GotoCell(1, 1);
        grid.SetCellText(1, 1, text);
        grid.StartEdit();
        type(L"!");
        key(code);
        const bool open = grid.IsEditing();
        key(VK_ESCAPE);
        return narrow(grid.GetCellText(1, 1)) + " " + current() + (open ? " open" : "");
    };
    EXPECT_EQ(edited(L"a", VK_UP), "a! 1,0");
    EXPECT_EQ(edited(L"a", VK_DOWN), "a! 1,2");
    EXPECT_EQ(edited(L"a\nb", VK_UP), "a\nb 1,1 open");
    hold({VK_SHIFT});
    EXPECT_EQ(edited(L"a", VK_DOWN), "a 1,1 open");
}

// Sends keys to the menu, which runs until one of them chooses.
TEST_F(Commands, AMenuHidesAndShowsColumns) {
    const auto choose = [this](std::initializer_list<UINT> letters) {
        for (const UINT letter : letters) {
            grid.GetGrid().PostMessage(WM_KEYDOWN, letter, 1);
        }
        grid.GetGrid().SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(grid.GetGrid().m_hWnd), -1);
        pump();
        return (grid.state().columns.hidden(0) ? "0" : "") + std::string(grid.state().columns.hidden(1) ? "1" : "");
    };
    grid.SetCellText(0, -1, L"Name");
    EXPECT_EQ(choose({'E'}), "0");
    EXPECT_EQ(current(), "1,0");
    EXPECT_EQ(choose({'E'}), "01");
    EXPECT_EQ(choose({'W', VK_ESCAPE, VK_ESCAPE}), "01");
    EXPECT_EQ(choose({'W', 'A'}), "");
    EXPECT_EQ(choose({VK_ESCAPE}), "");
    choose({'A'});
    EXPECT_EQ(picture(), "0a*|0b*|0c*\n1a*|1b*|1c*\n2a*|2b*|2c*\n");
}

}  // namespace
