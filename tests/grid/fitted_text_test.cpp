#include "grid/fitted_text.h"

#include <gtest/gtest.h>

using namespace corvanes;

namespace {

/// What a cell shows of a line whose characters, and the ellipsis, are ten pixels wide each.
std::wstring shown(std::wstring_view line, int width) {
    std::vector<int> ends;
    for (size_t i = 0; i < line.size(); ++i) {
        ends.push_back(static_cast<int>(i + 1) * 10);
    }
    const FittedLine fitted = fit_line(line, ends, {width, 10, 10});
    if (fitted.shown == FittedLine::Shown::number_signs) {
        return std::wstring(fitted.length, L'#');
    }
    return std::wstring(line.substr(0, fitted.length)) + (fitted.shown == FittedLine::Shown::beginning ? L"~" : L"");
}

TEST(FittedText, ShowsThatALineWasCut) {
    const struct {
        const wchar_t* line;
        int width;
        const wchar_t* shown;
    } cases[] = {
        {L"door", 40, L"door"},
        {L"door", 39, L"do~"},
        {L"do or", 40, L"do~"},
        {L"door", 5, L"~"},
        {L"", 0, L""},
        {L"2100", 40, L"2100"},
        {L"2100", 39, L"###"},
        {L"-1,000.50", 25, L"##"},
        {L"2100", 3, L"#"},
        {L"2100 mm", 39, L"21~"},
        {L"ab\xD83D\xDE00z", 40, L"ab~"},
        {L"-.", 10, L"~"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(shown(c.line, c.width), c.shown) << c.width;
    }
}

TEST(FittedText, BreaksLongTextsAtBlanks) {
    const auto wrapped = [](std::wstring_view text) {
        return wrapped_text(text, 50, [](std::wstring_view part) { return static_cast<int>(part.size()) * 10; });
    };
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"", L""},
        {L"one", L"one"},
        {L"three four", L"three\nfour"},
        {L"a b c d e", L"a b c\nd e"},
        {L"abcdefghijk lm", L"abcde\nfghij\nk lm"},
        {L"one\ntwo", L"one\ntwo"},
        {L"one\n\ntwo", L"one\n\ntwo"},
    };
    for (const auto& [text, lines] : cases) {
        EXPECT_EQ(wrapped(text), lines);
    }
}

}  // namespace
