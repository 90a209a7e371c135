// Where our rules and the Unicode algorithm say the same, FriBidi must paint the same line.
#include <fribidi/fribidi.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "bidi/reordering.h"
#include "tests/bidi/capital_hebrew.h"

namespace corvanes {
namespace {

/// FriBidi's line, from left to right as ours is.
std::wstring by_fribidi(const std::wstring& text, bool left_to_right) {
    const std::vector<FriBidiChar> logical(text.begin(), text.end());
    std::vector<FriBidiChar> visual(text.size() + 1);
    FriBidiParType base = left_to_right ? FRIBIDI_PAR_LTR : FRIBIDI_PAR_RTL;
    fribidi_log2vis(logical.data(), static_cast<FriBidiStrIndex>(logical.size()), &base, visual.data(), nullptr,
                    nullptr, nullptr);
    return {visual.begin(), visual.end() - 1};
}

std::wstring by_us(const std::wstring& text, bool left_to_right) {
    std::wstring visual(text.size() + 1, L'\0');
    LogicalToVisual(text.data(), text.size(), visual.data(), nullptr, left_to_right ? 1 : 0);
    visual.pop_back();
    if (!left_to_right) {
        std::reverse(visual.begin(), visual.end());
    }
    return visual;
}

std::wstring words(std::mt19937& random, std::wstring_view letters, bool numbers) {
    std::wstring line;
    for (unsigned word = 0, count = 1 + random() % 8; word < count; ++word) {
        const bool number = numbers && word % 2 == 1;
        line += word > 0 ? L" " : L"";
        for (unsigned i = 0, length = 1 + random() % 6; i < length; ++i) {
            line += number ? static_cast<wchar_t>(L'0' + random() % 10) : letters[random() % letters.size()];
        }
        line += number && random() % 3 == 0 ? L".5" : L"";
    }
    return line;
}

TEST(FriBidiAgreement, OnLinesOfOneScriptAndNumbers) {
    std::mt19937 random(7);
    const std::wstring hebrew_letters = hebrew(L"ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    for (int round = 0; round < 3000; ++round) {
        const bool numbers = round % 2 != 0;
        const std::wstring right_to_left = words(random, hebrew_letters, numbers);
        ASSERT_EQ(capitals(by_us(right_to_left, false)), capitals(by_fribidi(right_to_left, false)));
        const std::wstring latin = words(random, L"abcdefgh", numbers);
        ASSERT_EQ(by_us(latin, true), by_fribidi(latin, true));
        const std::wstring plain_hebrew = words(random, hebrew_letters, false);
        ASSERT_EQ(capitals(by_us(plain_hebrew, true)), capitals(by_fribidi(plain_hebrew, true)));
    }
    for (const wchar_t* line : {L"AB (CD) EF", L"[AB] {C} <D>", L"AB (cd ef) GH", L"AB cd EF", L"AB 1-2% CD"}) {
        EXPECT_EQ(capitals(by_us(hebrew(line), false)), capitals(by_fribidi(hebrew(line), false)));
    }
}

}  // namespace
}  // namespace corvanes
