#include "grid/cells_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "grid/number_sum.h"
#include "grid/selected_cells.h"
#include "grid/typed_word.h"
#include "grid/widest_texts.h"

using namespace corvanes;

namespace {

// Rows in brackets, cells between bars, a line break as a slash.
std::wstring shown(std::wstring_view text) {
    std::wstring shown;
    for (const auto& row : cells_of_text(text)) {
        shown += L'[' + row.front();
        for (size_t column = 1; column < row.size(); ++column) {
            shown += L'|' + row[column];
        }
        shown += L']';
    }
    std::replace(shown.begin(), shown.end(), L'\n', L'/');
    return shown;
}

TEST(CellsText, ReadsWhatSpreadsheetsWrite) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"", L""},
        {L"a", L"[a]"},
        {L"a\tb\r\nc\td\r\n", L"[a|b][c|d]"},
        {L"a\rb\nc\n\n", L"[a][b][c][]"},
        {L"\t\r\n", L"[|]"},
        {L"door\t1,250.00\t\"two\r\nlines\nmore\"\r\n", L"[door|1,250.00|two/lines/more]"},
        {L"\"a\tb\"\t\"say \"\"hi\"\"\"\t\"\"", L"[a\tb|say \"hi\"|]"},
        {L"5\" pipe\t\"5\" x 3\"\t\"open\tend", L"[5\" pipe|\"5\" x 3\"|\"open|end]"},
        {L"\"\"\"\t\"", L"[\"\t]"},
    };
    for (const auto& [text, cells] : cases) {
        EXPECT_EQ(shown(text), cells);
    }
}

TEST(CellsText, WritesTextAndTableForSpreadsheets) {
    TabSeparatedText text;
    HtmlTable table;
    const auto add = [&](const wchar_t* cell, HtmlTable::Kind kind) {
        text.add(cell);
        table.add(cell, kind);
    };
    add(L"Name", HtmlTable::Kind::heading);
    add(L"\x5D3\x5DC\x5EA", HtmlTable::Kind::heading);
    text.end_row(), table.end_row();
    add(L"a<b>&\"c\"\nd", HtmlTable::Kind::text);
    add(L"12.50", HtmlTable::Kind::number);
    text.end_row(), table.end_row();
    EXPECT_EQ(text.take(), L"Name\t\x5D3\x5DC\x5EA\r\n\"a<b>&\"\"c\"\"\nd\"\t12.50\r\n");
    const std::string html = table.take();
    const auto offset = [&html](const char* name) {
        return std::stoul(html.substr(html.find(name) + std::strlen(name)));
    };
    EXPECT_EQ(
        html.substr(offset("StartFragment:"), offset("EndFragment:") - offset("StartFragment:")),
        "<table>\r\n<tr><th style=\"mso-number-format:'\\@'\" sdnum=\"1033;0;@\" x:str>Name</th>"
        "<th dir=\"rtl\" style=\"mso-number-format:'\\@'\" sdnum=\"1033;0;@\" "
        "x:str>\xd7\x93\xd7\x9c\xd7\xaa</th></tr>\r\n"
        "<tr><td style=\"mso-number-format:'\\@'\" sdnum=\"1033;0;@\" x:str>a&lt;b&gt;&amp;&quot;c&quot;<br>d</td>"
        "<td align=\"right\" sdnum=\"1033;\" sdval=\"12.50\" x:num=\"12.50\">12.50</td></tr>\r\n</table>");
    EXPECT_EQ(html.substr(offset("StartHTML:"), 5) + html.substr(offset("EndHTML:") - 7), "<html</html>");
    EXPECT_EQ(html.size(), offset("EndHTML:"));
}

TEST(CellsText, TellsTheBlockThatIsSelectedAndShown) {
    ColumnLayout columns;
    columns.set_count(5);
    columns.hide(1, true);
    columns.set_width(3, 0);
    Selection selection;
    EXPECT_EQ(selected_block(selection, columns, {2, 7}), (CellBlock{{2}, {{7, 7}}}));
    EXPECT_TRUE(selected_block(selection, columns, {1, 7}).empty() && selected_block(selection, columns, {}).empty());
    selection.add(0, 9);
    selection.stretch_to(3, 12);
    selection.add(4, 13);
    selection.add(2, 20);
    selection.remove(2, 10);
    EXPECT_FALSE(selection.contains(2, 10));
    EXPECT_TRUE(selection.contains(1, 10) && selection.contains(3, 10) && selection.contains(2, 11));
    EXPECT_EQ(selected_block(selection, columns, {}), (CellBlock{{0, 2, 4}, {{9, 13}, {20, 20}}}));
    columns.set_width(1, 30);
    EXPECT_EQ(columns.total_width(), 4 * ColumnLayout::default_width - ColumnLayout::default_width + 30);
}

TEST(NumberSum, AddsPlainNumbersOnly) {
    NumberSum sum;
    for (const wchar_t* text : {L"10.00", L"2.5", L"-1", L"door", L"", L"1,250.00", L"12 kg", L".", L"1.2.3"}) {
        sum.add(text);
    }
    EXPECT_EQ(sum.words(), L"Count: 3   Sum: 11.50");
    NumberSum one;
    one.add(L"7");
    EXPECT_EQ(one.words(), L"");
}

TEST(WidestTexts, KeepsTheWidestRowsAndAsksOnceForACharacter) {
    int asked = 0;
    WidestTexts widest([&asked](wchar_t character) { return ++asked, character == L'W' ? 10 : 3; });
    const wchar_t* const texts[] = {L"iiiii", L"WW", L"", L"W\nWWW", L"iiiiii", L"i", L"Wi", L"iW", L"ii", L"iii"};
    for (int row = 0; row < 10; ++row) {
        widest.add(row, texts[row]);
    }
    EXPECT_EQ(widest.rows(), (std::vector<int>{3, 1, 4, 0, 6, 7, 9, 8}));
    EXPECT_EQ(asked, 2);
}

TEST(TypedWord, BeginsAnewAfterAPause) {
    TypedWord word;
    word.add(L'b', 5000);
    word.add(L'B', 6000);
    EXPECT_TRUE(word.letters() == L"bb" && word.is_one_letter());
    word.add(L'o', 6500);
    EXPECT_TRUE(word.letters() == L"bbo" && !word.is_one_letter());
    word.add(L'x', 7501);
    EXPECT_EQ(word.letters(), L"x");
}

}  // namespace
