#include "bidi/text_layout.h"

#include <gmock/gmock.h>

#include <ostream>

#include "tests/bidi/capital_hebrew.h"

namespace corvanes {

bool operator==(const PlacedCharacter& left, const PlacedCharacter& right) {
    return left.index == right.index && left.x == right.x && left.y == right.y;
}

void PrintTo(const PlacedCharacter& character, std::ostream* out) {
    *out << character.index << " at " << character.x << "," << character.y;
}

namespace {

/// Ten pixels a character, five an "i".
TextPositions measure(std::wstring_view text) {
    TextPositions positions{0};
    for (const wchar_t character : text) {
        positions.push_back(positions.back() + (character == L'i' ? 5 : 10));
    }
    return positions;
}

TextLayout laid_out(std::wstring_view text, const LayoutRect& rect, unsigned alignment, bool left_to_right) {
    const auto layout = lay_out_text(text, measure(text), rect, 12, alignment, left_to_right);
    EXPECT_TRUE(layout.has_value());
    return layout.value_or(TextLayout{});
}

using Places = std::vector<PlacedCharacter>;

TEST(TextLayout, PlacesEachCharacter) {
    const LayoutRect rect{100, 200, 160, 230};
    EXPECT_EQ(laid_out(L"aib", rect, 0, true).characters, (Places{{0, 100, 201}, {1, 110, 201}, {2, 115, 201}}));
    EXPECT_EQ(laid_out(L"ai", rect, align_right, true).characters, (Places{{0, 145, 201}, {1, 155, 201}}));
    EXPECT_EQ(laid_out(L"ai", rect, align_center, true).characters, (Places{{0, 122, 201}, {1, 132, 201}}));
    EXPECT_EQ(laid_out(L"a", rect, align_middle, true).characters, (Places{{0, 100, 209}}));
    EXPECT_EQ(laid_out(L"a", rect, align_bottom | align_right, true).characters, (Places{{0, 150, 217}}));
    // From the right: the first character is the rightmost one.
    EXPECT_EQ(laid_out(L"aib", rect, align_right, false).characters,
              (Places{{2, 135, 201}, {1, 145, 201}, {0, 150, 201}}));
    EXPECT_EQ(laid_out(L"ai", rect, align_center, false).characters, (Places{{1, 123, 201}, {0, 128, 201}}));
}

TEST(TextLayout, Lines) {
    const LayoutRect rect{0, 0, 60, 30};
    TextLayout layout = laid_out(L"a\n\nbc", rect, 0, true);
    EXPECT_EQ(layout.characters, (Places{{0, 0, 1}})) << "three lines of 12 do not fit into 30";
    EXPECT_EQ(std::pair(layout.line_count, layout.longest_line), std::pair(3, 2));
    layout = laid_out(L"a\nbc", rect, align_right, false);
    EXPECT_EQ(layout.characters, (Places{{3, 40, 1}, {2, 50, 1}, {0, 50, 13}})) << "the first line is the lowest";
    // Cut at both edges: no part of a character is painted outside.
    EXPECT_EQ(laid_out(L"abcdefgh", {5, 0, 40, 12}, align_right, true).characters,
              (Places{{5, 10, 1}, {6, 20, 1}, {7, 30, 1}}));
    EXPECT_EQ(laid_out(L"abcdefgh", {0, 0, 20, 12}, 0, true).characters, (Places{{0, 0, 1}, {1, 10, 1}}));
    EXPECT_TRUE(laid_out(L"a", {0, 0, 20, 11}, 0, true).characters.empty());

    EXPECT_EQ(lay_out_text(L"", {0}, rect, 12, 0, true)->line_count, 0);
    EXPECT_FALSE(lay_out_text(L"\u05B0", {0, 0}, rect, 12, 0, true).has_value());
}

class View {
  public:
    View(std::wstring_view text, bool right_to_left, int first_column = 0, int first_line = 0) {
        model.set_right_to_left(right_to_left);
        model.set_logical(hebrew(text));
        view.client = {0, 0, 100, 30};
        view.line_height = 12;
        view.alignment = right_to_left ? align_right : 0U;
        view.first_visible_column = first_column;
        view.first_visible_line = first_line;
    }
    std::pair<int, int> hit(int x, int y) const {
        const TextHit found = CharFromPoint(model, view, measure, {x, y});
        return {found.line, found.column};
    }
    std::pair<int, int> caret(size_t gap) const {
        const LayoutPoint point = caret_point(model, view, measure, gap);
        return {point.x, point.y};
    }

    TextModel model;
    TextView view;
};

using Pair = std::pair<int, int>;

TEST(HitTesting, LeftToRight) {
    const View view(L"abi\ncd\nxyz", false);
    EXPECT_EQ(view.hit(-5, -9), Pair(0, 0));
    EXPECT_EQ(view.hit(9, 0), Pair(0, 0));
    EXPECT_EQ(view.hit(10, 11), Pair(0, 1));
    EXPECT_EQ(view.hit(99, 0), Pair(0, 3));
    EXPECT_EQ(view.hit(15, 12), Pair(1, 1));
    EXPECT_EQ(view.hit(0, 500), Pair(2, 0));
    EXPECT_EQ(View(L"", false).hit(50, 50), Pair(0, 0));
    EXPECT_EQ(View(L"abcd\nx", false, 2).hit(10, 0), Pair(0, 3));
    EXPECT_EQ(View(L"a\nb\nc", false, 0, 1).hit(10, 0), Pair(1, 1));

    EXPECT_EQ(PosFromChar(view.model, view.view, measure, 0, 3), 25);
    EXPECT_EQ(view.caret(3), Pair(25, 1));
    EXPECT_EQ(view.caret(4), Pair(0, 13));
    EXPECT_EQ(View(L"abcd", false, 2).caret(3), Pair(10, 1));
    EXPECT_EQ(View(L"abcd", false, 2).caret(1), Pair(0, 1)) << "scrolled out";
    EXPECT_EQ(View(L"", false).caret(0), Pair(0, 1));
}

TEST(HitTesting, RightToLeft) {
    const View view(L"ABC\nDE", true);
    EXPECT_EQ(view.hit(100, 12), Pair(0, 0)) << "the first line is the lower one";
    EXPECT_EQ(view.hit(99, 12), Pair(0, 1));
    EXPECT_EQ(view.hit(89, 12), Pair(0, 2));
    EXPECT_EQ(view.hit(0, 0), Pair(1, 2));
    EXPECT_EQ(view.caret(0), Pair(100, 13));
    EXPECT_EQ(view.caret(3), Pair(70, 13));
    EXPECT_EQ(view.caret(6), Pair(80, 1));
    EXPECT_EQ(View(L"", true).caret(0), Pair(100, 1));
}

TEST(VisibleText, IsMirroredInRightToLeftTexts) {
    const auto text_of = [](const View& shown) { return capitals(visible_text(shown.model, shown.view, {}).text); };
    const View left(L"ab\ncd\nef", false, 1, 1);
    EXPECT_EQ(text_of(left), L"d\nf");
    EXPECT_THAT(visible_text(left.model, left.view, {5, 8}).selected, testing::ElementsAre(false, true, true));
    EXPECT_EQ(text_of(View(L"AB\nCD\nEF", true)), L"CD\nEF") << "the last line is on top";
    EXPECT_EQ(text_of(View(L"", true)), L"");
    EXPECT_EQ(text_of(View(L"ab", false, 0, 1)), L"") << "scrolled past the end";
}

TEST(VisibleText, OfSomeRows) {
    const View shown(L"AB\nCD\nEF", true);
    const TextView second = rows_of_view(shown.view, 1, 1);
    EXPECT_EQ(capitals(visible_text(shown.model, second, {}).text), L"CD");
    EXPECT_EQ(std::pair(second.client.top, second.client.bottom), Pair(12, 24));
    // Two rows of twelve pixels from 1 on.
    const Pair heights[] = {{0, 30}, {0, 1}, {13, 14}, {12, 14}, {25, 30}, {14, 100}};
    const Pair expected[] = {{0, 2}, {0, 0}, {1, 1}, {0, 2}, {2, 0}, {1, 1}};
    for (size_t i = 0; i < std::size(heights); ++i) {
        const RowRange rows = rows_between(shown.view, heights[i].first, heights[i].second);
        EXPECT_EQ(Pair(rows.first, rows.count), expected[i]) << heights[i].first;
    }
    View low(L"AB", true);
    low.view.client.bottom = 11;
    EXPECT_EQ(rows_of_view(low.view, 0, 1).client.height(), 11) << "a row that does not fit is not made to fit";
}

}  // namespace
}  // namespace corvanes
