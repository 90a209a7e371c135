// Tests of the grid's own commands in the BOM Template dialog.
#include <gtest/gtest.h>

#include "bidi/clipboard_text.h"
#include "resources/resource.h"
#include "tests/pricelist/open_template.h"

using test_support::OpenTemplate;
using Boxes = std::vector<std::wstring>;

namespace {

class TemplateCommands : public testing::Test {
  protected:
    OpenTemplate run{{"DOOR", "bolt", "*U3", "\xe3\xec\xfa 80"}};
};

TEST_F(TemplateCommands, FindsBesideTheDialogAndReplacesAllOrNothing) {
    const std::string rows = "Door|1|a\r\nbolt|2|door\r\n\xe3\xec\xfa|3|doors\r\n";
    run.write(L"list.prc", rows);
    run.open(L"list.prc");
    const auto current = [this] {
        return std::to_string(run.grid().GetCurrentColumn()) + std::to_string(run.grid().GetCurrentRow());
    };
    const auto find = [&](const wchar_t* text) {
        ::SendMessageW(::GetFocus(), EM_SETSEL, 0, -1);
        run.type(text);
        run.key(VK_RETURN);
        return current();
    };
    run.key('F', {VK_CONTROL});
    EXPECT_EQ(find(L"DOOR"), "21");
    run.key('G', {VK_CONTROL});
    EXPECT_EQ(current(), "22");
    EXPECT_EQ(find(L"DOOR"), "00") << "after the last cell the first";
    EXPECT_EQ(find(L"\x5D3\x5DC"), "02");
    EXPECT_EQ(find(L"nothing"), "02");
    EXPECT_EQ(run.boxes(), (Boxes{L"Item not found"}));
    run.key(VK_ESCAPE);
    EXPECT_TRUE(run.is_open());
    EXPECT_EQ(::GetFocus(), run.grid().GetGrid().m_hWnd);

    const auto replace_all = [&](const wchar_t* by, std::vector<int> answers) {
        ::SendMessageW(::GetFocus(), EM_SETSEL, 0, -1);
        run.type(L"door");
        run.key(VK_TAB);
        run.type(by);
        run.answer_boxes(std::move(answers));
        ::PostMessageW(::GetParent(::GetFocus()), WM_SYSCHAR, 'a', 1 << 29);
        run.pump();
        run.key(VK_ESCAPE);
        run.key('H', {VK_CONTROL});
        return run.boxes();
    };
    run.key('H', {VK_CONTROL});
    EXPECT_EQ(replace_all(L"bolt", {IDOK}),
              (Boxes{L"Replace \"door\" by \"bolt\" in 3 cells?", L"Block name bolt is not unique"}));
    EXPECT_EQ(replace_all(L"gate", {IDCANCEL}).size(), 1U);
    EXPECT_EQ(run.rows(), L"Door|1|a\nbolt|2|door\n\x5D3\x5DC\x5EA|3|doors\n");
    EXPECT_EQ(replace_all(L"gate", {IDOK, IDOK}),
              (Boxes{L"Replace \"door\" by \"gate\" in 3 cells?", L"3 cells were changed"}));
    EXPECT_EQ(run.rows(), L"gate|1|a\nbolt|2|gate\n\x5D3\x5DC\x5EA|3|gates\n");
    EXPECT_EQ(run.buttons()[0], 'S');
    run.press(IDC_TEMPLATE_SAVE);
    run.press(IDC_TEMPLATE_CLOSE);
    EXPECT_FALSE(run.is_open()) << "with the window for replacing still there";
}

TEST_F(TemplateCommands, TakesRowsFromASpreadsheetWholeOrNotAtAll) {
    run.write(L"list.prc", "Door|1|a\r\nbolt|2|b\r\n");
    run.open(L"list.prc");
    const auto paste = [this](std::wstring_view text) {
        corvanes::put_clipboard_text(run.dialog().m_hWnd, text);
        run.key('V', {VK_CONTROL});
        return run.boxes();
    };
    run.grid().GotoCell(0, 1);
    EXPECT_EQ(paste(L"beam\t1,250.00\t\"in two\nlines\"\narch\n"), Boxes());
    EXPECT_EQ(run.rows(), L"Door|1|a\nbeam|1,250.00|in two lines\narch|0|\n");
    EXPECT_EQ(run.text_of(IDC_TEMPLATE_STATUS), L"Row 2: the price \"1,250.00\" is read as 1.00");
    EXPECT_EQ(run.buttons(), "SAIDUd");
    const std::wstring before = run.rows();
    run.grid().ClearSelection();
    EXPECT_EQ(paste(L"new\nDOOR\nBeam"), (Boxes{L"Block name DOOR is not unique"}));
    EXPECT_EQ(paste(L"new\nNEW"), (Boxes{L"Block name new is not unique"}));
    EXPECT_EQ(run.rows(), before);
    EXPECT_EQ(paste(L"arch\nbeam"), Boxes()) << "two rows exchange their names";
    EXPECT_EQ(run.rows(), L"Door|1|a\narch|1,250.00|in two lines\nbeam|0|\n");

    std::wstring many;
    for (int row = 0; row < 100'000; ++row) {
        many += L"Part " + std::to_wstring(row) + L"\t" + std::to_wstring(row) + L".50\tx\n";
    }
    run.grid().GotoCell(0, 2);
    run.grid().ClearSelection();
    EXPECT_EQ(paste(many), Boxes());
    EXPECT_EQ(run.grid().GetRowCount(), 100'002);
    run.key('V', {VK_CONTROL});
    EXPECT_EQ(run.grid().GetRowCount(), 100'002) << "the same again, over itself";
}

}  // namespace
