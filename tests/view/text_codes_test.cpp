#include "platform/host/view/text_codes.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "base/code_page.h"

namespace host {

namespace {

/// "text" with what is not usual of it in brackets behind it.
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
    const ParagraphText text = parse_paragraphs(
        L"{\\fDavid|b1|i0|c177;\\H2.5x;\\C3;\\W0.8;\\LTitle\\l}\\P"
        L"\\A1;line\\~two \\H9;\\S1/2;\\S+0.1^-0.2; \\\\ \\{x\\} 45%%d\nthree\\Q15;^");
    EXPECT_EQ((std::vector<std::wstring>{L"Title",
                                         L"line\x00A0"
                                         L"two 1/2+0.1/-0.2 \\ {x} 45\x00B0",
                                         L"three^"}),
              text.lines);
    EXPECT_EQ(2.5, text.height_factor.value());
    EXPECT_FALSE(text.height);
    EXPECT_EQ(0.8, text.width_factor.value());
    EXPECT_EQ(3, text.colour_index.value());
    EXPECT_EQ(L"David", text.font_family);
    EXPECT_TRUE(text.bold);
    EXPECT_FALSE(text.italic);
    EXPECT_EQ(3, parse_paragraphs(L"\\H3;a").height.value());
}

}  // namespace host
