#include "platform/host/view/text_codes.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "base/code_page.h"

namespace host {

namespace {

/// "text", and behind it in brackets what differs from a plain run.
std::string told(const std::vector<TextRun>& runs) {
    std::string all;
    for (const TextRun& run : runs) {
        std::string look;
        const auto add = [&look](bool said, const std::string& word) { look += said ? " " + word : ""; };
        char number[64];
        std::snprintf(number, sizeof number, "h%g w%g up%g", run.height, run.width_factor, run.raise);
        add(run.height != 1 || run.width_factor != 1 || run.raise != 0, number);
        add(run.slant != 0, "slanted");
        add(run.stacked, "stacked");
        add((run.rules & TextRun::under) != 0, "under");
        add((run.rules & TextRun::over) != 0, "over");
        add((run.rules & TextRun::through) != 0, "through");
        std::snprintf(number, sizeof number, "#%06x", run.ink.value_or(Ink()).value);
        add(run.ink.has_value(), number);
        add(run.face.has_value(), run.face ? base::utf8_from_wide(run.face->family) : "");
        add(run.face && run.face->bold, "bold");
        all += (all.empty() ? "" : "|") + base::utf8_from_wide(run.text) +
               (look.empty() ? "" : " [" + look.substr(1) + "]");
    }
    return all;
}

std::string told(const std::vector<TextLine>& lines) {
    std::string all;
    for (const TextLine& line : lines) {
        const char* const sides[] = {"<", "=", ">"};
        all += (line.alignment ? sides[static_cast<int>(*line.alignment)] : "") + told(line.runs) + "\n";
    }
    return all;
}

}  // namespace

TEST(TextCodes, OfSingleLines) {
    EXPECT_EQ("Ø20 ±5° 100% A", told(line_runs(L"%%c20 %%P5%%d 100%%% %%065")));
    EXPECT_EQ("un|der [under]| |ov [over]|er [under over]", told(line_runs(L"un%%uder%%u %%Oov%%Uer")));
    EXPECT_EQ("a [through]", told(line_runs(L"%%ka%%K")));
    EXPECT_EQ("50% %%x %% %", told(line_runs(L"50% %%x %% %")));
}

TEST(TextCodes, OfParagraphs) {
    EXPECT_EQ(
        "Title [h2.5 w0.8 up0 under #00ff00 David bold]\n"
        "line\xC2\xA0two  \\ {x} 45°\n"
        "=middle [#123456]\n"
        "=also  [#123456]\n"
        ">\n",
        told(paragraph_lines(
            L"{\\fDavid|b1|i0|c177;\\H2.5x;\\C3;\\W0.8;\\LTitle\\l}\\P"
            L"\\A1;line\\~two \\H1;\\Q0; \\\\ \\{x\\} 45%%d\n\\pi0,xqc;\\c5649426;middle^Jalso^I^M\\P\\pqr;",
            {})));
    EXPECT_EQ(
        "3|1 [h0.6 w1 up0.5 under]|2 [h0.6 w1 up-0.25 stacked]|;|+0.1 [h0.6 w1 up0.5]|-0.2 [h0.6 w1 up-0.25 stacked]\n",
        told(paragraph_lines(L"3\\S1/2;;\\S+0.1^-0.2;", {})));
    EXPECT_EQ("a [#ff0000]|b|c [slanted]|d [h3 w1 up0 slanted]\n",
              told(paragraph_lines(L"{\\C1;a}b\\C256;\\Q15;c\\H3;d", {})));
}

TEST(TextCodes, CutOffAnywhereAreStillRead) {
    const std::wstring whole = L"{\\fArial|b1;\\H3;a\\S1#2;\\C7;b}}\\P%%065^J\\pxqc;\\";
    for (size_t length = 0; length <= whole.size(); ++length) {
        EXPECT_FALSE(paragraph_lines(whole.substr(0, length), {}).empty());
        line_runs(whole.substr(0, length));
    }
}

}  // namespace host
