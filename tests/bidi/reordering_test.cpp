#include "bidi/reordering.h"

#include <gmock/gmock.h>

#include <array>
#include <numeric>

#include "bidi/code_page_1255_types.h"
#include "bidi/system_character_types.h"
#include "bidi/type_search.h"
#include "base/code_page.h"
#include "tests/bidi/all_types.h"
#include "tests/bidi/capital_hebrew.h"
#include "tests/support/rows.h"

namespace corvanes {
namespace {

using Map = std::vector<std::uint32_t>;
using Entry = decltype(&LogicalToVisual);

std::wstring shown(std::wstring_view text, bool left_to_right, Entry entry = LogicalToVisual) {
    const std::wstring logical = hebrew(text);
    std::wstring visual(text.size() + 1, L'?');
    EXPECT_EQ(entry(logical.data(), logical.size(), visual.data(), nullptr, left_to_right ? 1 : 0), 1);
    EXPECT_EQ(visual.back(), L'\0');
    visual.pop_back();
    return capitals(visual);
}

/// A line as typed, as painted, and the levels of its typed characters, from which the painted line can be worked out
/// by hand.
using Examples = std::vector<std::array<const wchar_t*, 3>>;

void check(const Examples& examples, bool left_to_right) {
    for (const auto& [logical, visual, levels] : examples) {
        EXPECT_EQ(shown(logical, left_to_right), visual) << capitals(logical).c_str() << ", levels " << levels;
    }
}

TEST(Reordering, LeftToRightLines) {
    check(
        {
            {L"", L"", L""},
            {L"abc DEF ghi", L"abc FED ghi", L"0000 111 0000: spaces between unlike neighbours follow the line"},
            {L"ABCdef", L"defCBA", L"111222: at level 1 both words turn over together"},
            {L"A (B) C", L"C )B( A", L"all 1: nothing is mirrored in a left-to-right line"},
            {L"AB 12 CD", L"BA 12 DC", L"11 0 00 0 11: digits at the base level part the words"},
            {L"AB\nCD", L"DC\nBA", L"11111: a line feed is a neutral"},
            {L"A\u05B0B", L"B\u05B0A", L"111: a vowel point is a neutral"},
            {L"A\u4E2DB x\u4E2Dy", L"B\u4E2DA x\u4E2Dy", L"1110202: so is a character that the code page lacks"},
            {L"Ac\x01"
             L"dB",
             L"cA\x01"
             L"dB",
             L"12001: back at the base level, d does not turn over with the Hebrew"},
        },
        true);
}

TEST(Reordering, RightToLeftLines) {
    check(
        {
            {L"abc", L"cba", L"222: no odd level, only the last reversal"},
            {L"abc DEF", L"cba DEF", L"222 1 333"},
            {L"abcDEF", L"DEFcba", L"222333: lowest odd level 3, Latin is only reversed at the end"},
            {L"ABC 12 500 D", L"ABC 005 21 D", L"1111 222222 11: one number"},
            {L"A -5 B", L"A 5- B", L"11 22 11: a hyphen that joins nothing is L"},
            {L"ABC (def) GHI", L"ABC )fed( GHI", L"11111 222 11111"},
            {L"a(b) C", L"b(a( C", L"222 11 3: the closing bracket follows the line, between unlike neighbours"},
            {L"a(bCD", L"CDb)a", L"22233: the bracket of level 2 is painted at index 3, where level 3 stands"},
            {L"AB\nCD", L"AB\nCD", L"11111"},
            {L"aB\x01"
             L"Cd",
             L"Cd\x01"
             L"Ba",
             L"23012: back at the base level"},
        },
        false);
}

/// Capitals are Hebrew letters, 1 is a European number and % an Arabic one, + separates numbers and $ terminates them,
/// and ^ has no type.
std::string levels_of(std::string_view characters, bool left_to_right) {
    static const CharacterTypes types = all_types();
    std::wstring text;
    for (const char character : characters) {
        const bool letter = character >= 'A' && character <= 'Z';
        text.push_back(character == '^' ? L'\x0E'
                                        : static_cast<wchar_t>(letter ? 0xE0 + (character - 'A') : character));
    }
    Reordering reordering(types);
    std::wstring visual(text.size(), L'?');
    reordering.reorder(text, visual.data(), nullptr, left_to_right);
    std::string levels;
    for (const LevelRun& run : reordering.level_runs()) {
        levels.append(run.length, static_cast<char>('0' + run.level));
    }
    return levels;
}

TEST(Reordering, LevelsByEachRule) {
    // Characters, their levels in a left-to-right line, and their levels in a right-to-left line.
    const char* const rows[] = {
        // The first strong run has the base level, and the other direction one more. Then a run whose direction does
        // not fit its level goes up by one.
        "==|a=0=2|A=1=1|aAaA=0101=2323|AaAa=1212=1212",
        // A character without a type has level 0, and the direction that goes on after it has the base level.
        "^=0=0|a^A=001=203|aA^Aa=01010=23012|Aa^aA=12001=12021",
        // A separator between two numbers of a kind joins them; no other does.
        "A1+1A=10001=12221|A1,1A=10001=12221|A%,%A=12221=12221|A1+A=1001=1221|A+1A=1001=1221",
        "A1,A=1001=1211|A%+%A=12121=12121|A%,1A=12001=12121",
        // Terminators go with a number on either side.
        "A$$1A=10001=12221|A1$$A=10001=12221|$1=00=22|A$A=111=111|a$A=001=223",
        // So do neutrals between two numbers.
        "A1 1A=10001=12221|A1 \t!1A=1000001=1222221|A1 A=1001=1211|A1!A=1001=1221",
        // Arabic numbers are two above an even level, and neutrals do not take their direction from them.
        "A %A=1121=1121|a %A=0021=2123|% a=200=222",
        // Neutrals between two runs of one direction.
        "A*A=111=111|A(A=111=111|A!A=111=111|a(a=000=222",
        // Neutrals between runs of different directions.
        "a*A=001=213|a(A=001=213|a!A=001=223|A*a=102=112|A(a=102=112|A!a=102=122",
        // Neutrals with a neighbour on one side only.
        " A=11=11|*A=01=21|(A=01=11|!A=01=21|A =11=11|A*=10=12|A(=10=11|A!=10=12|a =00=22|a(=00=21",
        // Neutrals without neighbours.
        " =0=2|*=0=2|(=0=1|!=0=2",
        // What is left of a character without a type counts as resolved, what is right of it does not yet.
        "a^ A=0001=2013|A ^ =1101=1101|A!^ =1000=1202| ^ =000=202|*^ A=0001=2011|%^ a=2000=2022",
    };
    for (const char* const group : rows) {
        for (const auto& row : test_support::rows_of(group)) {
            EXPECT_EQ(levels_of(row[0], true), row[1]) << row[0];
            EXPECT_EQ(levels_of(row[0], false), row[2]) << row[0];
        }
    }
    for (const char separator : std::string_view(" ./;,\"*@`~")) {
        EXPECT_EQ(levels_of(std::string{'a', separator, 'A'}, false), "213") << separator;
    }
    for (const char bracket : std::string_view("()[]{}<>")) {
        EXPECT_EQ(levels_of(std::string{'a', bracket, 'A'}, false), "213") << bracket;
    }
    for (const char other : std::string_view("!:'+-_#$&=?\\|\n\t")) {
        EXPECT_EQ(levels_of(std::string{'a', other, 'A'}, false), "223") << other;
    }
}

TEST(Reordering, OtherEntries) {
    EXPECT_EQ(shown(L"abc DEF", true, LogicalToVisualLine), L"abc FED");
    // All levels one higher: 1111 222 from 0000 111, and 2 for a Hebrew line, which then stays as it is.
    EXPECT_EQ(shown(L"abc DEF", true, LogicalToVisualRaised), L"DEF cba");
    EXPECT_EQ(shown(L"DEF", true, LogicalToVisualRaised), L"DEF");
}

TEST(Reordering, ByGivenLevels) {
    const std::wstring text = L"(ab)";
    const Level levels[] = {1, 2, 4, 1};
    std::wstring visual(4, L'?');
    Map map(5);
    EXPECT_EQ(ReorderLevels(text.data(), 4, visual.data(), levels, map.data(), 1), 1);
    // 4 down to 1: b; ab -> ba; ba again at level 2; all.
    EXPECT_EQ(visual, L")ab(");
    EXPECT_THAT(map, testing::ElementsAre(3, 1, 2, 0, 4));
    ReorderLevels(text.data(), 4, visual.data(), levels, nullptr, 0);
    EXPECT_EQ(visual, L")ba(");
}

TEST(Reordering, ReversesInPlace) {
    std::wstring text = L"abcde";
    ReverseChars(text.data(), 4);
    EXPECT_EQ(text, L"dcbae");
    Map map = {1, 2, 3};
    ReverseIndexes(map.data(), 3);
    EXPECT_THAT(map, testing::ElementsAre(3, 2, 1));
    ReverseIndexes(map.data(), 0);
}

TEST(TypeSearch, FindsTheNearestOfItsGroup) {
    using T = BidiType;
    /// Searches from a place; tells the place and the type where the search ends, and whether it found anything.
    const auto find = [](auto search, const auto* text, int limit, int position, bool forward) {
        T found = T::not_applicable;
        const bool success = search(text, limit, position, found, forward);
        return std::tuple(position, found, success);
    };
    using Types = bool (*)(const T*, int, int&, T&, bool);
    using Bytes = bool (*)(const char*, int, int&, T&, bool);
    const T types[] = {T::right_to_left, T::white_space, T::european_number, T::other_neutral, T::left_to_right};
    EXPECT_EQ(find(Types{FindStrongType}, types, 4, 1, true), std::tuple(4, T::left_to_right, true));
    EXPECT_EQ(find(Types{FindStrongType}, types, 4, 3, false), std::tuple(0, T::right_to_left, true));
    EXPECT_EQ(find(Types{FindStrongType}, types, 3, 1, true), std::tuple(1, T::not_applicable, false));
    EXPECT_EQ(find(Types{FindWeakType}, types, 4, 1, true), std::tuple(2, T::european_number, true));
    EXPECT_EQ(find(Types{FindNeutralType}, types, 4, 2, false), std::tuple(1, T::white_space, true));
    const char text[] = "a 1,\xE0";
    EXPECT_EQ(find(Bytes{FindStrongType}, text, 4, 1, true), std::tuple(4, T::right_to_left, true));
    EXPECT_EQ(find(Bytes{FindWeakType}, text, 4, 4, false), std::tuple(3, T::common_separator, true));
    EXPECT_EQ(find(Bytes{FindNeutralType}, text, 4, 0, true), std::tuple(1, T::white_space, true));
}

TEST(CharacterTypes, SystemAndTableAgreeOnCodePage1255) {
    ASSERT_EQ(base::system_code_page(), base::code_page_hebrew);
    const ByteCharacters characters = characters_of_code_page(base::code_page_hebrew);
    for (unsigned byte = 0; byte < 256; ++byte) {
        const auto character = static_cast<unsigned char>(byte);
        const BidiType corrected = corrected_byte_type(character, code_page_1255_types()[byte]);
        EXPECT_EQ(corrected_byte_type(character, GetCharBidiType(character, system_default_locale)), corrected) << byte;
        EXPECT_EQ(system_character_types()->of(characters[byte]), corrected) << byte;
    }
    ByteCharacters western{};
    std::iota(western.begin(), western.end(), wchar_t{0});  // the letters of code page 1252 have these codes
    const CharacterTypes elsewhere(code_page_1255_types(), western);
    for (wchar_t letter = alef; letter <= alef + 26; ++letter) {
        EXPECT_EQ(elsewhere.of(letter), BidiType::right_to_left) << "whatever the code page";
    }
    EXPECT_EQ(system_character_types()->of(alef + 26), BidiType::right_to_left);
    EXPECT_EQ(system_character_types()->of(0x5F0), BidiType::other_neutral) << "a ligature, byte 0xD4";
    EXPECT_EQ(system_character_types()->of(0x623), BidiType::other_neutral) << "Arabic is not in the code page";
}

}  // namespace
}  // namespace corvanes
