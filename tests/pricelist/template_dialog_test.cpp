// Tests of the BOM Template dialog with a person's clicks and keys, and with its real timers.
#include <gmock/gmock.h>

#include <chrono>

#include "resources/resource.h"
#include "tests/pricelist/open_template.h"

using test_support::OpenTemplate;
using Boxes = std::vector<std::wstring>;

namespace {

class TemplateDialog : public testing::Test {
  protected:
    TemplateDialog() : run({"DOOR", "bolt", "*U3", "\xe3\xec\xfa 80"}) {}

    /// Types a text into a cell in place of what is there.
    void fill(int column, int row, const wchar_t* text) {
        run.click(column, row);
        ::SendMessageW(::GetFocus(), EM_SETSEL, 0, -1);
        run.type(text);
        run.key(VK_TAB);
    }
    std::wstring status() const { return run.text_of(IDC_TEMPLATE_STATUS); }
    std::wstring path(const wchar_t* name) const { return run.path(name).wstring(); }

    OpenTemplate run;
};

TEST_F(TemplateDialog, EnablesTheButtonsThatTheStateAllows) {
    run.write(L"one.prc", "a|1|x\r\n");
    run.write(L"three.prc", "a|1|x\r\nb|2|y\r\nc|3|z\r\n");
    const auto press = [this](int id, const wchar_t* file = L"") {
        return [this, id, file] { run.press(id, *file != L'\0' ? path(file) : L""); };
    };
    const struct {
        const char* action;
        std::function<void()> act;
        const char* buttons;
    } steps[] = {
        {"nothing yet", [] {}, "------"},
        {"New, cancelled", press(IDC_TEMPLATE_NEW), "------"},
        {"New that cannot be written", press(IDC_TEMPLATE_NEW, L"nowhere/a.prc"), "------"},
        {"Open, cancelled", press(IDC_TEMPLATE_OPEN), "------"},
        {"Open of a missing file", press(IDC_TEMPLATE_OPEN, L"missing.prc"), "--ID--"},
        {"Insert Row without a list", press(IDC_TEMPLATE_INSERT_ROW), "--ID--"},
        {"New", press(IDC_TEMPLATE_NEW, L"list.prc"), "-AID--"},
        {"a cancelled edit", [this] { run.click(2, 0), run.key(VK_ESCAPE); }, "SAID--"},
        {"Save without a name", press(IDC_TEMPLATE_SAVE), "SAID--"},
        {"an edit", [this] { fill(0, 0, L"door"); }, "SAID--"},
        {"Save", press(IDC_TEMPLATE_SAVE), "-AID--"},
        {"Insert Row", press(IDC_TEMPLATE_INSERT_ROW), "-AIDU-"},
        {"the first row", [this] { run.click(1, 0), run.key(VK_ESCAPE); }, "SAID-d"},
        {"Save As without a name", press(IDC_TEMPLATE_SAVE_AS, L"as.prc"), "SAIDU-"},
        {"Move Up", press(IDC_TEMPLATE_MOVE_UP), "SAID-d"},
        {"Move Down", press(IDC_TEMPLATE_MOVE_DOWN), "SAIDU-"},
        {"Delete Row, one left", press(IDC_TEMPLATE_DELETE_ROW), "SAID--"},
        {"Save As, cancelled", press(IDC_TEMPLATE_SAVE_AS), "SAID--"},
        {"Save As that cannot be written", press(IDC_TEMPLATE_SAVE_AS, L"nowhere/a.prc"), "SAID--"},
        {"Save As", press(IDC_TEMPLATE_SAVE_AS, L"as.prc"), "-AID--"},
        {"Delete Row, none left", press(IDC_TEMPLATE_DELETE_ROW), "-AID--"},
        {"Delete Row without rows", press(IDC_TEMPLATE_DELETE_ROW), "-AID--"},
        {"Insert Row, the first again", press(IDC_TEMPLATE_INSERT_ROW), "-AID-d"},
        {"Open of three", press(IDC_TEMPLATE_OPEN, L"three.prc"), "-AID-d"},
        {"the row between", [this] { run.click(2, 1), run.key(VK_ESCAPE); }, "SAIDUd"},
        {"sorted", [this] { run.click_heading(1); }, "SAIDUd"},
        {"Open of one", press(IDC_TEMPLATE_OPEN, L"one.prc"), "-AID--"},
        {"New again", press(IDC_TEMPLATE_NEW, L"other.prc"), "-AID--"},
    };
    run.answer_boxes({IDOK, IDOK, IDOK, IDNO});
    for (const auto& step : steps) {
        step.act();
        EXPECT_EQ(run.buttons(), step.buttons) << step.action;
        EXPECT_TRUE(::IsWindowEnabled(::GetFocus())) << "the keyboard is dead after: " << step.action;
    }
    EXPECT_EQ(run.boxes(), (Boxes{L"File " + path(L"nowhere\\a.prc") + L" could  not be opened",
                                  L"File " + path(L"missing.prc") + L" could  not be opened",
                                  L"File " + path(L"nowhere\\a.prc") + L" could  not be opened",
                                  L"Save changes to " + path(L"three.prc")}));
    EXPECT_EQ(run.read(L"list.prc") + run.read(L"as.prc"), "door|0|\r\ndoor|0|\r\n");
    EXPECT_EQ(run.read(L"other.prc"), "a|1|x\r\n") << "the new file has the rows that were shown";
}

/// The numbers of the timer ticks at which the label was greyed or enabled, from now on, until there are `count` of
/// them or the blinking ends.
std::vector<int> blinks(HWND label, size_t count) {
    std::vector<int> changes;
    int ticks = 0;
    bool enabled = ::IsWindowEnabled(label) != 0;
    MSG message;
    while (changes.size() < count && ::GetWindowTextLengthW(label) > 0 && ::GetMessageW(&message, nullptr, 0, 0) > 0) {
        ticks += message.hwnd == label && message.message == WM_TIMER && message.wParam == 0 ? 1 : 0;
        ::DispatchMessageW(&message);
        if ((::IsWindowEnabled(label) != 0) != enabled) {
            enabled = !enabled;
            changes.push_back(ticks);
        }
    }
    return changes;
}

TEST_F(TemplateDialog, BlinksUntilTheGridIsClicked) {
    run.write(L"list.prc", "a|1|x\r\nb|2|y\r\n");
    run.open(L"list.prc");
    run.click(1, 1);
    ::SendMessageW(::GetFocus(), EM_SETSEL, 0, -1);
    run.key(VK_BACK);
    run.key(VK_TAB);
    const auto start = std::chrono::steady_clock::now();
    run.press(IDC_TEMPLATE_SAVE);
    EXPECT_EQ(status(), L"Price is absent");
    EXPECT_TRUE(run.grid().IsSelected(1, 1));
    const HWND label = run.control(IDC_TEMPLATE_STATUS);
    EXPECT_TRUE(::IsWindowEnabled(label));
    // Enabled by the first tick of 200 ms, greyed by the second, and so on. No tick comes early; how late one comes
    // depends on the machine.
    EXPECT_EQ(blinks(label, 6), (std::vector<int>{2, 3, 4, 5, 6, 7}));
    EXPECT_GT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(1350));
    HDC context = ::GetDC(label);
    ::SendMessageW(run.dialog().m_hWnd, WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(context),
                   reinterpret_cast<LPARAM>(label));
    EXPECT_EQ(::GetTextColor(context), RGB(255, 0, 0));
    ::ReleaseDC(label, context);

    run.click(2, 0);
    EXPECT_EQ(status(), L"");
    EXPECT_TRUE(::IsWindowEnabled(label));
    EXPECT_FALSE(::KillTimer(label, 0) || ::KillTimer(label, 1)) << "no timer is left";
    EXPECT_EQ(run.read(L"list.prc"), "a|1|x\r\nb|2|y\r\n");

    run.dialog().status().ShowMessage(1000, 200, L"for a second");
    const auto second = std::chrono::steady_clock::now();
    EXPECT_THAT(blinks(label, 100).size(), testing::AllOf(testing::Ge(1u), testing::Le(4u))) << "ticks may fall out";
    EXPECT_GT(std::chrono::steady_clock::now() - second, std::chrono::milliseconds(950));
    EXPECT_TRUE(::IsWindowEnabled(label));
}

TEST_F(TemplateDialog, HasItsGridInThePlaceholdersPlace) {
    run.press(IDC_TEMPLATE_NEW, path(L"list.prc"));
    MyCug& grid = run.grid();
    CRect expected(8, 23, 320, 235);
    ::MapDialogRect(run.dialog().m_hWnd, expected);
    CRect place;
    grid.GetWindowRect(place);
    ::MapWindowPoints(nullptr, run.dialog().m_hWnd, reinterpret_cast<POINT*>(&place), 2);
    EXPECT_EQ(place, expected);
    EXPECT_EQ(grid.GetExStyle() & WS_EX_CLIENTEDGE, WS_EX_CLIENTEDGE);
    EXPECT_EQ(::GetWindow(grid.m_hWnd, GW_HWNDPREV), run.control(IDC_TEMPLATE_STATUS));
    EXPECT_FALSE(grid.AttachGrid(&run.dialog(), IDC_TEMPLATE_FILE)) << "it has a window already";
    run.key(VK_RIGHT);
    EXPECT_EQ(grid.GetCurrentColumn(), 1) << "arrows are the grid's";
    run.key(VK_TAB);
    EXPECT_EQ(::GetFocus(), run.control(IDC_TEMPLATE_INSERT_ROW)) << "Tab is the dialog's";
}

TEST_F(TemplateDialog, AsksBeforeChangesAreLost) {
    const auto start = [this] {
        run.write(L"list.prc", "a|1|x\r\n");
        run.open(L"list.prc");
        fill(2, 0, L"new");
    };
    const Boxes question{L"Save changes to " + path(L"list.prc")};
    for (const int button : {IDC_TEMPLATE_NEW, IDC_TEMPLATE_OPEN}) {
        start();
        run.answer_boxes({IDCANCEL});
        run.press(button, path(L"other.prc"));
        EXPECT_EQ(run.rows(), L"a|1|new\n") << button;
        run.answer_boxes({IDNO});
        run.press(button);
        EXPECT_EQ(run.read(L"list.prc"), "a|1|x\r\n") << "the file question was cancelled after No";
        run.answer_boxes({IDYES});
        run.press(button);
        EXPECT_EQ(run.read(L"list.prc"), "a|1|new\r\n");
        EXPECT_EQ(run.rows(), L"a|1|new\n");
        EXPECT_EQ(run.boxes(), (Boxes{question[0], question[0], question[0]}));
        run.press(IDC_TEMPLATE_SAVE);
    }
    // A change in an open editor counts, however the dialog is closed.
    start();
    run.press(IDC_TEMPLATE_SAVE);
    for (const WPARAM command : {SC_CLOSE, SC_CLOSE | 2}) {
        run.click(2, 0);
        run.type(L"!");
        run.answer_boxes({IDCANCEL});
        run.dialog().SendMessage(WM_SYSCOMMAND, command);
        EXPECT_EQ(run.boxes(), question);
        EXPECT_TRUE(run.is_open());
    }
    // Close is pressed again while the question is shown.
    ::PostMessageW(run.dialog().m_hWnd, WM_CLOSE, 0, 0);
    run.press(IDC_TEMPLATE_CLOSE);
    EXPECT_EQ(run.boxes(), question);
    EXPECT_FALSE(std::filesystem::exists(run.path(L"corvane1.set")));
    run.grid().SetFocus();
    run.answer_boxes({IDYES});
    run.key(VK_ESCAPE);
    EXPECT_FALSE(run.is_open()) << "Escape in the grid closes as the button does";
    EXPECT_NE(run.read(L"list.prc"), "a|1|new\r\n");
    EXPECT_EQ(run.read(L"filename.set"), run.path(L"list.prc").string());
}

TEST_F(TemplateDialog, EscapeOnAButtonEndsWithoutAQuestion) {
    run.press(IDC_TEMPLATE_NEW, path(L"list.prc"));
    fill(0, 0, L"door");
    ::SetFocus(run.control(IDC_TEMPLATE_OPEN));
    run.key(VK_ESCAPE);
    EXPECT_FALSE(run.is_open());
    EXPECT_EQ(run.boxes(), Boxes());
    EXPECT_FALSE(std::filesystem::exists(run.path(L"filename.set")));
}

TEST_F(TemplateDialog, KeepsWhatIsTypedWhenTheRowsChange) {
    run.write(L"list.prc", "a|1|x\r\nb|2|y\r\nc|3|z\r\n");
    run.open(L"list.prc");
    const auto type = [this](int column, int row) {
        run.click(column, row);
        ::SendMessageW(::GetFocus(), EM_SETSEL, 100, 100);
        run.type(L"!");
    };
    type(2, 1);
    run.press(IDC_TEMPLATE_MOVE_UP);
    EXPECT_EQ(run.rows(), L"b|2|y!\na|1|x\nc|3|z\n");
    type(2, 0);
    run.press(IDC_TEMPLATE_INSERT_ROW);
    type(2, 2);
    run.click_heading(0);
    EXPECT_EQ(run.rows(), L"c|3|z\nb|2|y!!\na|1|x!\n|0|\n");
    type(2, 3);
    run.press(IDC_TEMPLATE_DELETE_ROW);
    type(1, 2);
    run.press(IDC_TEMPLATE_SAVE);
    EXPECT_EQ(run.read(L"list.prc"), "c|3|z\r\nb|2|y!!\r\na|1!|x!\r\n");
    // The editor of a refused name stays open, whatever is pressed.
    run.click(0, 2);
    ::SendMessageW(::GetFocus(), EM_SETSEL, 0, -1);
    run.type(L"C");
    for (const int button : {IDC_TEMPLATE_INSERT_ROW, IDC_TEMPLATE_DELETE_ROW, IDC_TEMPLATE_SAVE, IDC_TEMPLATE_CLOSE}) {
        run.press(button);
        EXPECT_EQ(run.boxes(), Boxes{L"Block name C is not unique"}) << button;
        EXPECT_TRUE(run.grid().IsEditing());
    }
    for (int column = 0; column < MyCug::column_count; ++column) {
        run.click(column, 0);
        EXPECT_EQ(run.boxes(), Boxes{L"Block name C is not unique"});
        run.click_heading(column);
        EXPECT_EQ(run.boxes(), Boxes{L"Block name C is not unique"});
    }
    run.type(L"c");
    run.key(VK_RETURN);
    EXPECT_EQ(run.boxes(), Boxes());
    EXPECT_EQ(run.rows(), L"c|3|z\nb|2|y!!\nCc|1!|x!\n");
}

TEST_F(TemplateDialog, TellsWhatTheFormatCannotHold) {
    run.press(IDC_TEMPLATE_NEW, path(L"list.prc"));
    fill(0, 0, L"door");
    fill(2, 0, L"steel|wood");
    EXPECT_EQ(status(), L"Row 1: a vertical bar ends a field");
    const std::wstring question = L" when the list is read again.\nSave it all the same?";
    for (const int button : {IDC_TEMPLATE_SAVE, IDC_TEMPLATE_SAVE_AS}) {
        run.answer_boxes({IDCANCEL});
        run.press(button, path(L"as.prc"));
        EXPECT_EQ(run.boxes(), Boxes{L"Row 1: a vertical bar ends a field" + question});
    }
    run.answer_boxes({IDYES, IDCANCEL});
    run.press(IDC_TEMPLATE_OPEN);
    EXPECT_EQ(run.boxes().size(), 2u);
    EXPECT_EQ(run.read(L"list.prc") + run.read(L"as.prc"), "");
    run.answer_boxes({IDOK});
    run.press(IDC_TEMPLATE_SAVE);
    EXPECT_EQ(run.read(L"list.prc"), "door|0|steel|wood\r\n");

    // A text is pasted that makes the line 998 characters long, and then one that is longer by one.
    run.boxes();
    fill(2, 0, std::wstring(998 - 7, L'x').c_str());
    EXPECT_EQ(status(), L"");
    run.press(IDC_TEMPLATE_SAVE);
    run.open(L"list.prc");
    EXPECT_EQ(run.rows(), L"door|0|" + std::wstring(991, L'x') + L"\n");
    run.paste(2, 0, std::wstring(992, L'y'));
    EXPECT_EQ(status(), L"Row 1: the text is too long and is cut");
    run.press(IDC_TEMPLATE_SAVE);
    EXPECT_EQ(run.boxes(), Boxes{L"Row 1: the text is too long and is cut" + question});
    EXPECT_EQ(run.rows(), L"door|0|" + std::wstring(992, L'y') + L"\n");
}

TEST_F(TemplateDialog, LosesNothingWhenAFileCannotBeWritten) {
    run.write(L"list.prc", "a|1|x\r\n");
    run.open(L"list.prc");
    fill(2, 0, L"typed");
    // Someone else holds the file.
    const HANDLE held = ::CreateFileW(path(L"list.prc").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    run.answer_boxes({IDYES, IDOK, IDOK});
    run.press(IDC_TEMPLATE_CLOSE);
    EXPECT_TRUE(run.is_open()) << "the changes are not saved";
    run.press(IDC_TEMPLATE_SAVE);
    const std::wstring cannot = L"File " + path(L"list.prc") + L" could  not be opened";
    EXPECT_EQ(run.boxes(), (Boxes{L"Save changes to " + path(L"list.prc"), cannot, cannot}));
    ::CloseHandle(held);
    EXPECT_EQ(run.read(L"list.prc"), "a|1|x\r\n");
    EXPECT_EQ(run.rows(), L"a|1|typed\n");
    // A path beyond the old limit of 260 characters.
    const std::wstring below = L"deep\\" + std::wstring(90, L'f') + L'\\' + std::wstring(90, L'g') + L'\\';
    const std::wstring deep = L"\\\\?\\" + path((below + std::wstring(90, L'h')).c_str());
    std::filesystem::create_directories(deep);
    run.press(IDC_TEMPLATE_SAVE_AS, deep + L"\\list.prc");
    EXPECT_EQ(run.boxes(), Boxes());
    EXPECT_EQ(run.text_of(IDC_TEMPLATE_FILE), deep + L"\\list.prc");
    run.open(L"list.prc");
    EXPECT_EQ(run.rows(), L"a|1|x\n");
    run.press(IDC_TEMPLATE_OPEN, deep + L"\\list.prc");
    EXPECT_EQ(run.rows(), L"a|1|typed\n");
    // Moves it up, since its long path could not be removed.
    EXPECT_TRUE(::MoveFileW(deep.c_str(), path(L"up").c_str()));
}

TEST_F(TemplateDialog, ReadsFilesThatPeopleMade) {
    run.write(L"list.prc", "a|1|x\r\nA|2|y\r\n\r\n|3|z\r\nd|\r\n");
    run.open(L"list.prc");
    EXPECT_EQ(run.rows(), L"a|1|x\nA|2|y\n");
    // The editor of a name that occurs twice can be opened and left.
    run.click(0, 1);
    run.key(VK_ESCAPE);
    EXPECT_FALSE(run.grid().IsEditing());
    EXPECT_EQ(run.boxes(), Boxes());
    // Save keeps the file. New over its name asks first, and does not touch the file.
    run.press(IDC_TEMPLATE_SAVE);
    run.open(L"list.prc");
    EXPECT_EQ(run.rows(), L"a|1|x\nA|2|y\n");
    run.answer_boxes({IDNO, IDYES});
    run.press(IDC_TEMPLATE_NEW, path(L"list.prc"));
    EXPECT_EQ(run.rows(), L"a|1|x\nA|2|y\n");
    run.press(IDC_TEMPLATE_NEW, path(L"list.prc"));
    EXPECT_EQ(run.rows(), L"|0|\n");
    EXPECT_EQ(run.read(L"list.prc"), "a|1|x\r\nA|2|y\r\n");
}

TEST_F(TemplateDialog, GoesOnInTheGridAfterAButton) {
    run.press(IDC_TEMPLATE_NEW, path(L"list.prc"));
    run.type(L"dd");
    run.key(VK_RETURN);
    run.press(IDC_TEMPLATE_INSERT_ROW);
    run.type(L"i d");
    run.key(VK_RETURN);
    run.press(IDC_TEMPLATE_INSERT_ROW);
    run.press(IDC_TEMPLATE_DELETE_ROW);
    run.key(VK_F2);
    run.type(L"!");
    run.key(VK_RETURN);
    EXPECT_EQ(run.rows(), L"dd|0|\ni d!|0|\n") << "letters press no buttons";
    run.press(IDC_TEMPLATE_SAVE_AS, path(L"as.prc"));
    run.click(2, 1);
    run.key(VK_ESCAPE);
    run.answer_boxes({IDNO});
    run.open(L"as.prc");
    run.type(L"d");
    run.key(VK_RETURN);
    EXPECT_EQ(run.rows(), L"d|0|\ni d!|0|\n") << "the first name is ready";
}

TEST_F(TemplateDialog, ShowsTheCurrentRowAfterSorting) {
    std::string list;
    for (char name = 'A'; name <= 'Z'; ++name) {
        list += std::string(1, name) + "|1|\r\n" + name + "2|1|\r\n";
    }
    run.write(L"list.prc", list.c_str());
    run.open(L"list.prc");
    run.key(VK_F3);
    EXPECT_EQ(run.grid().GetCurrentRow(), 51);
    const RECT cell = run.grid().GetGrid().CellRectangle(0, 51);
    EXPECT_FALSE(::IsRectEmpty(&cell)) << "buttons act on it";
}

TEST_F(TemplateDialog, TakesAMessageBackOnceItsCauseIsGone) {
    const auto empty_price = [this] {
        run.write(L"list.prc", "a|1|x\r\nb|2|y\r\n");
        run.answer_boxes({IDNO});
        run.open(L"list.prc");
        run.click(1, 1);
        run.key(VK_BACK);
        run.key(VK_TAB);
        run.press(IDC_TEMPLATE_SAVE);
        EXPECT_EQ(status() + (run.grid().IsSelected(1, 1) ? L"*" : L""), L"Price is absent*");
    };
    const std::pair<const char*, std::function<void()>> mendings[] = {
        {"an edit of the cell", [this] { run.key(VK_F2), run.type(L"5"), run.key(VK_RETURN); }},
        {"the row deleted", [this] { run.press(IDC_TEMPLATE_DELETE_ROW); }},
        {"the row moved", [this] { run.press(IDC_TEMPLATE_MOVE_UP); }},
        {"sorted", [this] { run.key(VK_F3); }},
        {"New", [this] { run.answer_boxes({IDNO}), run.press(IDC_TEMPLATE_NEW, path(L"other.prc")); }},
        {"a check that passes",
         [this] {
             run.grid().SetCellText(1, 1, L"5");
             run.press(IDC_TEMPLATE_SAVE);
         }},
    };
    for (const auto& [what, mend] : mendings) {
        empty_price();
        mend();
        EXPECT_EQ(status(), L"") << what;
        for (int row = 0; row < 2; ++row) {
            EXPECT_FALSE(run.grid().IsSelected(1, row)) << what;
        }
    }
    empty_price();
    run.key(VK_UP);
    run.key(VK_F2);
    run.key(VK_RETURN);
    EXPECT_EQ(status(), L"Price is absent") << "the edit was of another cell";
}

TEST_F(TemplateDialog, TellsHowAPriceIsRead) {
    run.press(IDC_TEMPLATE_NEW, path(L"list.prc"));
    fill(0, 0, L"door");
    fill(1, 0, L"1,000");
    EXPECT_EQ(status(), L"Row 1: the price \"1,000\" is read as 1.00");
    HWND label = ::GetDlgItem(run.dialog().m_hWnd, IDC_TEMPLATE_STATUS);
    EXPECT_TRUE(::KillTimer(label, 1)) << "a notice ends by itself";
    fill(1, 0, L"1000");
    EXPECT_EQ(status(), L"");
    fill(1, 0, L"12,5");
    run.click(2, 0);
    run.key(VK_ESCAPE);
    EXPECT_EQ(status(), L"");
    run.press(IDC_TEMPLATE_SAVE);
    EXPECT_EQ(status(), L"Row 1: the price \"12,5\" is read as 12.00");
    EXPECT_EQ(run.read(L"list.prc"), "door|12,5|\r\n") << "nothing is refused";
    EXPECT_EQ(run.boxes(), Boxes());
}

TEST_F(TemplateDialog, BeginsAnEmptyDescriptionInTheDirectionOfTheOthers) {
    run.write(L"list.prc", "a|1|\r\nb|2|\xe3\xec\xfa\r\nc|3|\r\nd|4|wood\r\n");
    run.open(L"list.prc");
    std::string directions;
    for (int row = 0; row < 4; ++row) {
        run.click(2, row);
        directions += dynamic_cast<CUGMaskedEdit&>(*CWnd::FromHandle(::GetFocus())).RightToLeft() ? 'R' : 'L';
        run.key(VK_ESCAPE);
    }
    EXPECT_EQ(directions, "RRRL");
}

}  // namespace
