#include "pricelist/price_list_lines.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/text_conversion.h"
#include "pricelist/foreign_file.h"

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

TEST(PriceListEncoding, IsToldFromTheBytesAndKept) {
    using corvanes::TextEncoding;
    const std::string hebrew = "\xd7\x93\xd7\x9c\xd7\xaa|1|x\r\n";
    const struct {
        std::string bytes;
        TextEncoding encoding;
        std::wstring text;
    } cases[] = {
        {"Door|1|x\r\n", TextEncoding::system_code_page, L"Door|1|x\r\n"},
        {"\xe3\xec\xfa|1|x\r\n", TextEncoding::system_code_page, L"\u05d3\u05dc\u05ea|1|x\r\n"},
        {hebrew, TextEncoding::utf8, L"\u05d3\u05dc\u05ea|1|x\r\n"},
        {"\xef\xbb\xbf" + hebrew, TextEncoding::utf8_behind_mark, L"\u05d3\u05dc\u05ea|1|x\r\n"},
        {std::string("\xff\xfe\xd3\x05|\0\r\0\n\0", 10), TextEncoding::utf16_little_endian, L"\u05d3|\r\n"},
        {std::string("\xfe\xff\x05\xd3\0|\0\r\0\n", 10), TextEncoding::utf16_big_endian, L"\u05d3|\r\n"},
        {"\xd7\x93|1|x\r\n\xe0", TextEncoding::system_code_page, L"\u05f3\u201c|1|x\r\n\u05d0"},
    };
    for (const auto& c : cases) {
        const auto decoded = corvanes::decoded_text(c.bytes);
        EXPECT_EQ(decoded.encoding, c.encoding) << testing::PrintToString(c.bytes);
        EXPECT_EQ(decoded.text, c.text);
        EXPECT_EQ(corvanes::file_bytes_from_text(c.text, c.encoding), c.bytes);
        EXPECT_EQ(corvanes::foreign_kind(c.bytes), L"");
        // Text that is typed into the list later comes back.
        for (const std::wstring added : {L"", L"\u05d0", L"\ubb38", L"\u05f3\u201d"}) {
            const auto bytes = corvanes::file_bytes_from_text(added + c.text, c.encoding);
            EXPECT_EQ(corvanes::text_from_file_bytes(bytes), added + c.text);
        }
    }
}

TEST(PriceListEncoding, AFileOfAnotherKindIsNamed) {
    const struct {
        std::string bytes;
        std::wstring kind;
    } cases[] = {
        {"", L""},
        {"no list at all", L""},
        {std::string("A|1|x\0y\r\n", 9) + std::string(4, '\0') + "\n", L""},
        {"A|1|x\rB|2|y\r\n", L""},
        {"0|1|x\r\nSECTION|2|y\r\n", L""},
        {"A|1|x\rB|2|y\r", L"its lines end in carriage returns alone"},
        {"  0\r\nSECTION\r\n  2\r\n", L"it is a drawing"},
        {"999\nby hand\n0\nSECTION\n", L"it is a drawing"},
        {"AutoCAD Binary DXF\r\n\x1a", L"it is a drawing"},
        {std::string("AC1032\0\0\0\0\0\x01\n\0\0\0\0", 17), L"it is not a text"},
        {"MZ\x90" + std::string(9, '\0') + "\n", L"it is not a text"},
        {std::string("A\0|\x001\0|\0x\0y\0z\0\r\0\n\0", 18), L"it is not a text"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(corvanes::foreign_kind(c.bytes), c.kind) << testing::PrintToString(c.bytes);
    }
}

}  // namespace
