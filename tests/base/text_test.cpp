#include <gtest/gtest.h>

#include "base/case_folding.h"
#include "base/code_page.h"
#include "tests/support/rows.h"

namespace {

TEST(CaseFolding, LowersBeyondAscii) {
    EXPECT_EQ(base::lower(L"\u0130I"), L"\u0130i");
    EXPECT_EQ(base::lower(L"DOOR-80 \u00c4\u0416\u0394 \u05d3\u05dc\u05ea"),
              L"door-80 \u00e4\u0436\u03b4 \u05d3\u05dc\u05ea");
}

TEST(CaseFolding, OrdersWithoutRegardToCase) {
    for (const auto& row :
         test_support::rows_of(L"==0|Door=DOOR=0|a=B=-1|B=a=1|door=doo=1|doo=door=-1|\u0416=\u0436=0|Z=_=1")) {
        EXPECT_EQ(std::to_wstring(base::compare_ignoring_case(row[0], row[1])), row[2]);
    }
}

TEST(CodePage, HebrewIsTheWindowsCodePage) {
    EXPECT_EQ(base::wide_from_bytes("\xe3\xec\xfa 80", 1255), L"\u05d3\u05dc\u05ea 80");
    EXPECT_EQ(base::bytes_from_wide(L"\u05d0\u05ea \u20aa", 1255), "\xe0\xfa \xa4");
    EXPECT_EQ(base::bytes_from_wide(L"\ubb38", 1255), std::nullopt);
    EXPECT_EQ(base::bytes_from_wide(L"\u0100", 1255), std::nullopt) << "no best fit";
}

TEST(CodePage, EveryByteComesBack) {
    std::string bytes;
    for (int i = 0; i < 256; ++i) {
        bytes.push_back(static_cast<char>(i));
    }
    for (const unsigned code_page : {1250U, 1251U, 1252U, 1253U, 1255U, 1256U, 874U}) {
        EXPECT_EQ(base::bytes_from_wide(base::wide_from_bytes(bytes, code_page), code_page), bytes) << code_page;
    }
}

TEST(CodePage, TwoByteCodePagesReplaceOnlyBadBytes) {
    EXPECT_EQ(base::wide_from_bytes("a\xb9\xae", 949), L"a\ubb38");
    EXPECT_EQ(base::wide_from_bytes("a\xff\xb9\xae", 949), L"a\ufffd\ubb38");
    EXPECT_EQ(base::bytes_from_wide(L"a\ubb38", 949), "a\xb9\xae");
    EXPECT_FALSE(base::code_page_known(4711));
    EXPECT_EQ(base::wide_from_bytes("\xe0", 4711), L"\u00e0");
}

TEST(Utf8, RoundTripsAndRefusesMalformedSequences) {
    const std::string text = "A\xd7\x90\xeb\xac\xb8\xf0\x9f\x9a\xaa";
    EXPECT_EQ(base::utf8_from_wide(base::wide_from_utf8(text)), text);
    EXPECT_TRUE(base::valid_utf8(text));
    for (const char* bad :
         {"\x80", "\xc0\xaf", "\xe0\x80\x80", "\xed\xa0\x80", "\xf5\x80\x80\x80", "\xd7", "\xd7\x41"}) {
        EXPECT_FALSE(base::valid_utf8(bad));
        EXPECT_EQ(base::wide_from_utf8(bad).front(), L'\xfffd');
    }
    EXPECT_EQ(base::utf8_from_wide(std::wstring(1, static_cast<wchar_t>(0xD800))), "\xef\xbf\xbd");
    // Bytes are looked at eight at a time.
    for (size_t place = 0; place < 20; ++place) {
        std::string bytes(20, 'a');
        EXPECT_TRUE(base::is_ascii(bytes));
        bytes[place] = '\x80';
        EXPECT_FALSE(base::is_ascii(bytes) || base::valid_utf8(bytes)) << place;
    }
}

TEST(Utf16, RoundTripsInBothOrders) {
    const std::wstring text = base::wide_from_utf8("A\xd7\x90\xf0\x9f\x9a\xaa");
    const std::string little("A\0\xd0\x05\x3d\xd8\xaa\xde", 8);
    const std::string big("\0A\x05\xd0\xd8\x3d\xde\xaa", 8);
    EXPECT_EQ(base::utf16_from_wide(text, base::ByteOrder::little_endian), little);
    EXPECT_EQ(base::utf16_from_wide(text, base::ByteOrder::big_endian), big);
    EXPECT_EQ(base::wide_from_utf16(little, base::ByteOrder::little_endian), text);
    EXPECT_EQ(base::wide_from_utf16(big, base::ByteOrder::big_endian), text);
    EXPECT_EQ(base::wide_from_utf16(big.substr(0, 7), base::ByteOrder::big_endian), L"A\u05d0\ufffd\ufffd");
}

}  // namespace
