#include "afxstr.h"

#include <gtest/gtest.h>

namespace {

TEST(CString, ChangesAndCompares) {
    CString text(L"one");
    text += text;
    text += L"\x0416";
    EXPECT_EQ(L"<" + text + L">" + CString(L"cut here", 3), L"<oneone\x0416>cut");
    EXPECT_EQ(text.MakeLower(), L"oneone\x0436");
    text = text.GetString() + 3;
    EXPECT_EQ(text, CString(L"one\x0436"));
    EXPECT_NE(text, L"ONE\x0436");
    EXPECT_TRUE(CString() == L"" && CString(L"a").Compare(L"b") < 0);
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
