#include "bidi/text_editing.h"

#include <gmock/gmock.h>

#include "tests/bidi/capital_hebrew.h"

namespace corvanes {
namespace {

TextEditing editor_with(std::wstring_view text, bool right_to_left) {
    TextEditing editing;
    editing.set_right_to_left(right_to_left);
    editing.reset(hebrew(text));
    return editing;
}

std::wstring text_of(const TextEditing& editing) {
    return capitals(editing.model().logical());
}

TEST(TextModel, KeepsBothOrders) {
    TextModel model;
    EXPECT_EQ(model.line_count(), 0);
    EXPECT_THAT(model.map(), testing::ElementsAre(0));
    EXPECT_TRUE(model.set_logical(hebrew(L"ab CD")));
    EXPECT_EQ(capitals(model.visual()), L"ab DC");
    EXPECT_THAT(model.map(), testing::ElementsAre(0, 1, 2, 4, 3, 5));
    EXPECT_TRUE(model.set_right_to_left(true));
    EXPECT_EQ(capitals(model.visual()), L"ba CD");
    EXPECT_TRUE(model.set_visual(hebrew(L"AB ml")));
    EXPECT_EQ(capitals(model.logical()), L"AB lm");
    // No character moves into another line, whatever the lines hold.
    model.set_logical(hebrew(L"AB 1\ncd\nEF"));
    EXPECT_EQ(capitals(model.visual()), L"AB 1\ndc\nEF");
    EXPECT_TRUE(model.set_right_to_left(false));
    EXPECT_EQ(capitals(model.visual()), L"BA 1\ncd\nFE");
    EXPECT_THAT(model.map(), testing::ElementsAre(1, 0, 2, 3, 4, 5, 6, 7, 9, 8, 10));
    EXPECT_TRUE(model.set_visual(model.visual()));
    EXPECT_EQ(capitals(model.logical()), L"AB 1\ncd\nEF");
    model.set_right_to_left(true);
    model.set_logical(hebrew(L"AB\n\nC"));
    EXPECT_EQ(model.line_count(), 3);
    EXPECT_EQ(model.line_of_row(0), 2);
    EXPECT_EQ(model.visual_line(2).start, 4u);
    EXPECT_EQ(model.visual_line(1).length(), 0u);
    EXPECT_EQ(SyncText(model, 1), 1);
    model.set_logical(L"");
    EXPECT_THAT(model.map(), testing::ElementsAre(0));
}

// text_editing_fuzzer checks what edits and undoing make of texts.
TEST(TextEditing, KeepsALongerTextAndUndoesToItsBeginning) {
    TextEditing editing;
    editing.reset(std::wstring(3000, L'y'));
    EXPECT_EQ(editing.model().logical().size(), 3000u) << "only not made longer";
    EXPECT_FALSE(editing.insert(L"b"));
    editing.reset(L"given");
    editing.move(Motion::text_end, false);
    editing.delete_before();
    editing.undo();
    EXPECT_EQ(editing.caret(), (VisualCaret{0, 0}));
    EXPECT_TRUE(editing.modified());
    editing.reset(L"ab\r\ncd\re");
    EXPECT_EQ(text_of(editing), L"ab\ncd\ne");
}

TEST(TextEditing, PastedTextsBecomeOneLine) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"NAME\r\n", L"NAME"},     {L"NAME\t\r\n\n", L"NAME"},
        {L"\r\n NAME ", L" NAME "}, {L"one\ttwo\r\n\r\nthree", L"one two three"},
        {L"a\rb", L"a b"},          {L"\t\n", L""},
    };
    for (const auto& [pasted, line] : cases) {
        EXPECT_EQ(single_line(pasted), line);
    }
    TextEditing editing;
    editing.reset(L"kept");
    EXPECT_TRUE(editing.replace_selection(L""));
    EXPECT_FALSE(editing.modified() || editing.can_undo()) << "nothing was pasted over nothing";
}

TEST(TextEditing, SelectsWhatTheCaretPasses) {
    TextEditing editing = editor_with(L"AB 12.5 CD", true);
    // From the left end the caret passes the two letters and the blank, and then the number from its left side.
    editing.move(Motion::line_end, false);
    for (int i = 0; i < 3; ++i) {
        editing.move(Motion::right, false);
    }
    for (const wchar_t* expected : {L"1", L"12", L"12."}) {
        editing.move(Motion::right, true);
        EXPECT_EQ(editing.selected_text(), expected);
    }
}

TEST(TextEditing, LinesAndColumns) {
    TextEditing editing = editor_with(L"abcd\n\nxyz", false);
    editing.select(8, 8);
    EXPECT_EQ(std::pair(editing.caret_line(), editing.caret_column()), std::pair(2, 2));
    editing.select(4, 4);
    editing.move(Motion::down, false);
    editing.move(Motion::down, false);
    EXPECT_EQ(editing.caret().index, 9u);
    editing.move(Motion::up, true);
    editing.move(Motion::up, true);
    EXPECT_EQ(editing.caret().index, 4u) << "the column survives shorter lines";
    EXPECT_EQ(editing.selected_text(), L"\n\nxyz");
    editing.move(Motion::up, false);
    EXPECT_EQ(editing.caret().index, 4u);
    editing.move(Motion::line_start, false);
    EXPECT_EQ(editing.caret().index, 0u);
    // In a right-to-left text the first line is the lowest.
    TextEditing right = editor_with(L"AB\nCD", true);
    right.move(Motion::up, false);
    EXPECT_EQ(right.caret_line(), 1);
    right.move(Motion::down, false);
    EXPECT_EQ(right.caret_line(), 0);
    EXPECT_EQ(tab_blanks(0, 4), 4);
    EXPECT_EQ(tab_blanks(2, 4), 2);
    EXPECT_EQ(tab_blanks(7, 1), 1);
}

TEST(TextEditing, WordsUnderADoubleClick) {
    TextEditing editing = editor_with(L"ab CD, 12", false);
    const std::pair<size_t, TextRange> clicks[] = {{1, {0, 2}}, {2, {2, 3}}, {4, {3, 5}}, {5, {5, 6}}, {99, {7, 9}}};
    for (const auto& [index, expected] : clicks) {
        editing.select_word(index);
        EXPECT_EQ(editing.selection().start, expected.start);
        EXPECT_EQ(editing.selection().end, expected.end);
    }
}

TEST(VisualCaret, ShowsWhereTheNextCharacterGoes) {
    struct Row {
        const wchar_t* text;
        bool right_to_left;
        std::vector<size_t> gaps;  // of each typed position
    };
    const Row rows[] = {
        {L"abc", false, {0, 1, 2, 3}},
        {L"ab CD", false, {0, 1, 2, 3, 4, 3}},  // painted "ab DC": the end of Hebrew is at its left
        {L"CD ab", true, {0, 1, 2, 3, 4, 3}},   // painted "ba DC", counted from the right edge
        {L"AB", false, {2, 1, 0}},
        {L"a\n\nb", false, {0, 1, 2, 3, 4}},
    };
    for (const Row& row : rows) {
        const TextEditing editing = editor_with(row.text, row.right_to_left);
        std::vector<size_t> gaps;
        for (size_t index = 0; index < row.gaps.size(); ++index) {
            gaps.push_back(caret_at_index(editing.model(), index).gap);
        }
        EXPECT_EQ(gaps, row.gaps);
    }
}

}  // namespace
}  // namespace corvanes
