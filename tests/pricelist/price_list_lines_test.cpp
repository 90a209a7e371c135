#include "pricelist/price_list_lines.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Lines = std::vector<std::wstring>;

/// The entries of a text, each as its three fields between brackets.
Lines entries_of(const std::wstring& text, size_t* dropped = nullptr) {
    Lines result;
    const auto counts = corvanes::read_entries(text, [&result](const corvanes::PriceListEntry& entry) {
        result.push_back(L'[' + std::wstring(entry.name) + L"][" + std::wstring(entry.price) + L"][" +
                         std::wstring(entry.description) + L']');
    });
    EXPECT_EQ(counts.entries, result.size());
    if (dropped != nullptr) {
        *dropped = counts.dropped;
    }
    return result;
}

TEST(PriceListLines, AcceptsAndDropsByTheRulesOfTheFormat) {
    const struct {
        std::wstring text;
        Lines entries;
        size_t dropped;
    } cases[] = {
        {L"", {}, 0},
        {L"Pipe|12.5|Steel pipe\n", {L"[Pipe][12.5][Steel pipe]"}, 0},
        {L"Pipe|12.5|Steel pipe\r\n", {L"[Pipe][12.5][Steel pipe]"}, 0},
        {L"Pipe|12.5|Steel pipe", {}, 1},
        {L"Pipe|12.5\n", {L"[Pipe][12.5][]"}, 0},
        {L"Pipe||x\n", {}, 1},
        {L"|12.5|x\n", {}, 1},
        {L"Pipe\n\n", {}, 2},
        {L"A|1|B|C\n", {L"[A][1][B]"}, 0},
        {L"A|1|x\nA|2|y\r\nlast|3|z", {L"[A][1][x]", L"[A][2][y]"}, 1},
        {L" A | 1 | x \n", {L"[ A ][ 1 ][ x ]"}, 0},
        {L"A\r|1|x\ry\r\r\n", {L"[A\r][1][x\ry\r]"}, 0},
        {std::wstring(L"A|1|x\0y\nB\0|2|z\nC|3|w\n", 21), {L"[A][1][x]", L"[C][3][w]"}, 1},
    };
    for (const auto& c : cases) {
        size_t dropped = 0;
        EXPECT_EQ(entries_of(c.text, &dropped), c.entries) << c.text;
        EXPECT_EQ(dropped, c.dropped) << c.text;
    }
}

TEST(PriceListLines, LongLinesFallApartIntoPieces) {
    // A line of n characters before its end: "A|1|" and then x.
    const auto line = [](size_t n) { return L"A|1|" + std::wstring(n - 4, L'x'); };
    const auto entry = [](size_t x) { return L"[A][1][" + std::wstring(x, L'x') + L']'; };
    for (const std::wstring end : {L"\n", L"\r\n"}) {
        EXPECT_EQ(entries_of(line(998) + end), Lines{entry(994)});
        EXPECT_EQ(entries_of(line(999) + end + L"B|2|\n"), (Lines{entry(994), L"[B][2][]"}))
            << "the last character goes";
        EXPECT_EQ(entries_of(line(1000) + end), Lines{entry(994)});
        EXPECT_EQ(entries_of(line(999) + L"B|2|y" + end), (Lines{entry(994), L"[B][2][y]"}));
    }
    EXPECT_EQ(entries_of(line(999)), Lines{entry(994)}) << "the limit is met before the end of the file";
    EXPECT_EQ(entries_of(line(998)), Lines{});
    size_t dropped = 0;
    EXPECT_EQ(entries_of(std::wstring(10'000'000, L'x') + L'\n', &dropped), Lines{});
    EXPECT_EQ(dropped, 10'000'000U / 999 + 1);
}

TEST(PriceListLines, WritesEveryRowThatHoldsAnything) {
    std::wstring text;
    for (const corvanes::PriceListEntry& row : std::vector<corvanes::PriceListEntry>{
             {L"Door", L"12.5", L"\u05d3\u05dc\u05ea"}, {L"", L"", L""}, {L"", L"0", L""}, {L"x|y", L"", L" z "}}) {
        corvanes::append_entry(text, row);
    }
    EXPECT_EQ(text, L"Door|12.5|\u05d3\u05dc\u05ea\r\n|0|\r\nx|y|| z \r\n");
}

TEST(PriceListLines, KnowsWhatReadingWouldLose) {
    const std::wstring fits(993, L'x');
    for (const wchar_t* name : {L"ab", L"a|b", L"a\nb", L"a\rb"}) {
        for (const wchar_t* price : {L"1", L"1|", L"|", L"1\n"}) {
            for (const std::wstring& description : {std::wstring(), L"x" + fits.substr(1), L"x" + fits, L"xx" + fits,
                                                    std::wstring(L"x\r"), std::wstring(L"\n"), std::wstring(L"x|y")}) {
                const corvanes::PriceListEntry entry{name, price, description};
                std::wstring line;
                corvanes::append_entry(line, entry);
                const Lines whole{L'[' + std::wstring(name) + L"][" + price + L"][" + description + L']'};
                EXPECT_EQ(corvanes::loss_on_reading(entry) == corvanes::EntryLoss::nothing, entries_of(line) == whole)
                    << testing::PrintToString(line);
            }
        }
    }
}

}  // namespace
