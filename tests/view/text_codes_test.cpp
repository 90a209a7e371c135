#include "platform/host/view/text_codes.h"

#include <gtest/gtest.h>

namespace host {

TEST(TextCodes, OfSingleLines) {
    EXPECT_EQ(
        L"\x00D8"
        L"20 \x00B1"
        L"5\x00B0 100% A",
        plain_text(L"%%c20 %%P5%%d 100%%% %%065"));
    EXPECT_EQ(L"under over struck", plain_text(L"%%uunder%%u %%Oover%%o %%kstruck%%K"));
    EXPECT_EQ(L"50% %%x %% %", plain_text(L"50% %%x %% %"));
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
}

TEST(TextCodes, CutOffAnywhereAreStillRead) {
    const std::wstring whole = L"{\\fArial|b1;\\H3;a\\S1#2;\\C7;b\\P%%065\\";
    for (size_t length = 0; length <= whole.size(); ++length) {
        EXPECT_FALSE(parse_paragraphs(whole.substr(0, length)).lines.empty());
        plain_text(whole.substr(0, length));
    }
    EXPECT_EQ(3, parse_paragraphs(L"\\H3;a").height.value());
}

}  // namespace host
