#include "afxstr.h"
#include "afxtempl.h"

#include <chrono>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

std::vector<int> elements(const CArray<int, int>& array) {
    return {array.GetData(), array.GetData() + array.GetSize()};
}

TEST(CArray, GrowsAndShrinks) {
    CArray<int, int> array;
    array.SetSize(2, 100);
    EXPECT_EQ(array.Add(7), 2);
    for (int i = 0; i < 100; ++i) {
        array.Add(array[2]);  // one of its own, while it grows
    }
    array.SetSize(5);
    EXPECT_EQ(elements(array), (std::vector<int>{0, 0, 7, 7, 7}));
    EXPECT_THROW(array[5], std::out_of_range);
    EXPECT_THROW(array.SetSize(-1), std::invalid_argument);
    array.RemoveAll();
    EXPECT_EQ(array.GetSize(), 0);
}

using NameIndex = CMap<CString, const wchar_t*, int, int>;

TEST(CMap, FindsAndEmpties) {
    NameIndex index(10);
    int value = -1;
    EXPECT_FALSE(index.Lookup(L"a", value));
    index.InitHashTable(500);
    int& first = index[L"a"];
    for (int i = 0; i < 600; ++i) {
        index[std::to_wstring(i).c_str()] = i;
    }
    first = 5;  // a value stays where it is while the map grows
    index[L"a"] += 1;
    EXPECT_TRUE(index.Lookup(L"a", value));
    EXPECT_EQ(value, 6);
    EXPECT_THROW(index.InitHashTable(10), std::logic_error);
    index.RemoveAll();
    EXPECT_TRUE(index.IsEmpty());
    EXPECT_FALSE(index.Lookup(L"a", value));
    index.InitHashTable(10);
    EXPECT_EQ(index[L"again"], 0);
}

/// With a fixed number of buckets, 500 for a million keys, the long chains would take minutes.
TEST(CMap, StaysQuickBeyondItsBuckets) {
    constexpr int kKeys = 1000000;
    const auto start = std::chrono::steady_clock::now();
    NameIndex index(10);
    index.InitHashTable(500);
    for (int i = 0; i < kKeys; ++i) {
        index[std::to_wstring(i).c_str()] = i;
    }
    int wrong = 0;
    for (int i = 0; i < kKeys; ++i) {
        int value = -1;
        if (!index.Lookup(std::to_wstring(i).c_str(), value) || value != i) {
            ++wrong;
        }
    }
    EXPECT_EQ(wrong, 0);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
}

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
