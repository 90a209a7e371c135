#include "afxstr.h"

#include <gtest/gtest.h>

namespace {

template <typename... Values>
std::wstring formatted(const wchar_t* format, Values... values) {
    CString text;
    text.Format(format, values...);
    return text.GetString();
}

TEST(CString, FormatsAsWindowsWideFunctionsDo) {
    EXPECT_EQ(formatted(L"%s|%S|%hs|%ls", L"\x05d0", "narrow", "h", L"l"), L"\x05d0|narrow|h|l");
    EXPECT_EQ(formatted(L"[%-6s][%6s][%.2s][%c]", L"ab", L"ab", L"abc", L'\x05d0'), L"[ab    ][    ab][ab][\x05d0]");
    EXPECT_EQ(formatted(L"%i %d %u %04i %+d %x %X %#x", -3, 7, 4000000000u, 42, 5, 0xfe, 0xfe, 10),
              L"-3 7 4000000000 0042 +5 fe FE 0xa");
    EXPECT_EQ(formatted(L"%.2f %8.3f %-8.1f| %g", 1.005, -2.5, 3.25, 0.5), L"1.00   -2.500 3.2     | 0.5");
    EXPECT_EQ(formatted(L"%I64d %lld %zu %hd", -5000000000ll, 6000000000ll, size_t{9}, 65537),
              L"-5000000000 6000000000 9 1");
    EXPECT_EQ(formatted(L"%*d|%-*d|%.*f|%%|%q", 4, 1, 4, 2, 1, 0.25), L"   1|2   |0.2|%|%q");
    EXPECT_EQ(formatted(L"%s|%p", static_cast<const wchar_t*>(nullptr), reinterpret_cast<void*>(0xab)),
              L"(null)|00000000000000AB");
    EXPECT_EQ(formatted(L"%.300f", 1.0).size(), 302u);

    CString text(L"7");
    text.Format(L"<%s>", text.GetString());
    text.AppendFormat(L"%d", 1);
    EXPECT_STREQ(text, L"<7>1");
}

TEST(CString, CutsAndSearches) {
    const CString text(L"one two one");
    EXPECT_EQ(text.Mid(4, 3), L"two");
    EXPECT_EQ(text.Mid(8) + text.Left(1) + text.Right(2), L"oneone");
    EXPECT_EQ(text.Mid(-5, 3) + text.Mid(99) + text.Right(-1) + text.Left(99), L"oneone two one");
    EXPECT_EQ(text.Find(L'o', 1), 6);
    EXPECT_EQ(text.Find(L"one", 1), 8);
    EXPECT_EQ(text.Find(L"three"), -1);
    EXPECT_EQ(text.FindOneOf(L"xw"), 5);
    EXPECT_EQ(text.ReverseFind(L'o'), 8);
    EXPECT_EQ(text.ReverseFind(L'x'), -1);
}

TEST(CString, ChangesInPlace) {
    CString text(L"aaa.b");
    EXPECT_EQ(text.Replace(L"aa", L"a"), 1);
    EXPECT_EQ(text.Replace(L'b', L'B'), 1);
    EXPECT_EQ(text.Replace(L"", L"x"), 0);
    EXPECT_EQ(text, L"aa.B");
    EXPECT_EQ(text.Insert(99, L"end"), 7);
    EXPECT_EQ(text.Delete(2, 2), 5);
    EXPECT_EQ(text.Remove(L'a'), 2);
    EXPECT_EQ(text, L"end");
    text = text.GetString() + 1;
    EXPECT_EQ(text, L"nd");

    CString blanks(L" \t x y \n");
    EXPECT_EQ(blanks.Trim(), L"x y");
    EXPECT_EQ(CString(L"   ").Trim(), L"");
    EXPECT_EQ(CString(L"--x-").TrimLeft(L'-'), L"x-");
    EXPECT_EQ(CString(L"x.;").TrimRight(L";."), L"x");
    EXPECT_EQ(CString(L"abc").MakeReverse().MakeUpper(), L"CBA");
}

TEST(CString, ComparesWithAndWithoutCase) {
    const CString lower(L"\x0436sofa"), upper(L"\x0416SOFA");
    EXPECT_NE(lower, upper);
    EXPECT_EQ(lower.CompareNoCase(upper), 0);
    EXPECT_LT(CString(L"a").CompareNoCase(L"B"), 0);
    EXPECT_EQ(CString(upper).MakeLower(), lower);
    EXPECT_TRUE(L"a" < CString(L"b") && CString(L"b") >= L"b" && CString() == L"");
}

TEST(CString, LendsItsBuffer) {
    CString text(L"abc");
    wchar_t* buffer = text.GetBuffer(8);
    std::wcscpy(buffer + 3, L"de");
    text.ReleaseBuffer();
    EXPECT_EQ(text, L"abcde");
    std::wcscpy(text.GetBuffer(20), L"xyz123");
    text.ReleaseBuffer(3);
    EXPECT_EQ(text.GetLength(), 3);
    EXPECT_EQ(text, L"xyz");
}

}  // namespace
