#include "afxtempl.h"

#include <chrono>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

std::vector<int> elements(const CArray<int, int>& array) {
    return {array.GetData(), array.GetData() + array.GetSize()};
}

TEST(CArray, GrowsInsertsAndRemoves) {
    CArray<int, int> array;
    array.SetSize(2, 100);
    EXPECT_EQ(array.Add(7), 2);
    array.InsertAt(1, array[2], 2);
    array.SetAtGrow(7, 9);
    EXPECT_EQ(elements(array), (std::vector<int>{0, 7, 7, 0, 7, 0, 0, 9}));
    array.RemoveAt(3, 4);
    array.FreeExtra();
    array.InsertAt(5, 1);
    EXPECT_EQ(elements(array), (std::vector<int>{0, 7, 7, 9, 0, 1}));
    EXPECT_EQ(array.Append(array), 6);
    EXPECT_EQ(array.GetUpperBound(), 11);
    EXPECT_THROW(array.RemoveAt(11, 2), std::out_of_range);
    EXPECT_THROW(array[12], std::out_of_range);
    array.RemoveAll();
    EXPECT_TRUE(array.IsEmpty());
}

struct Row {
    std::wstring name;
};

TEST(CArray, KeepsObjectsThatArePassedByReference) {
    CArray<Row, Row&> rows;
    Row row{L"first"};
    for (int i = 0; i < 3; ++i) {
        rows.Add(row);
    }
    row.name = L"changed";
    rows.SetAt(1, row);
    EXPECT_EQ(rows[0].name + rows[1].name + rows[2].name, L"firstchangedfirst");
}

using NameIndex = CMap<CString, const wchar_t*, int, int>;

std::map<std::wstring, int> associations(const NameIndex& index) {
    std::map<std::wstring, int> result;
    for (POSITION position = index.GetStartPosition(); position;) {
        CString key;
        int value = 0;
        index.GetNextAssoc(position, key, value);
        result.emplace(key.GetString(), value);
    }
    return result;
}

TEST(CMap, FindsSetsRemovesAndWalks) {
    NameIndex index(10);
    int value = -1;
    EXPECT_FALSE(index.Lookup(L"a", value));
    EXPECT_FALSE(index.RemoveKey(L"a"));
    index.InitHashTable(500);
    int& first = index[L"a"];
    for (int i = 0; i < 600; ++i) {
        index.SetAt(std::to_wstring(i).c_str(), i);
    }
    first = 5;  // a value stays where it is while the map grows
    for (int i = 2; i < 600; ++i) {
        EXPECT_TRUE(index.RemoveKey(std::to_wstring(i).c_str()));
    }
    index[L"a"] += 1;
    EXPECT_EQ(associations(index), (std::map<std::wstring, int>{{L"a", 6}, {L"0", 0}, {L"1", 1}}));
    EXPECT_EQ(index.GetHashTableSize(), 500u);
    EXPECT_THROW(index.InitHashTable(10), std::logic_error);
    index.RemoveAll();
    EXPECT_TRUE(associations(index).empty());
    index.InitHashTable(10, FALSE);
    index[L"again"] = 1;
    EXPECT_TRUE(index.Lookup(L"again", value));
    EXPECT_EQ(value, 1);
}

TEST(CMap, TakesIntegersAndPointersAsKeys) {
    CMap<int, int, CString, const CString&> names;
    names[3] = L"three";
    CString name;
    EXPECT_TRUE(names.Lookup(3, name));
    EXPECT_EQ(name, L"three");
    CMap<void*, void*, int, int> pointers;
    pointers[&name] = 1;
    EXPECT_EQ(pointers[&name] + pointers[nullptr], 1);
}

/// A few long chains would make a million lookups in 500 buckets take minutes.
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
    EXPECT_EQ(index.GetCount(), kKeys);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
}

}  // namespace
