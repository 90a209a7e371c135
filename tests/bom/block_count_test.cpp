#include "bom/block_count.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace {

ResultString priced(const wchar_t* name, double price, const wchar_t* description) {
    ResultString row;
    row.Set(name, price, description);
    return row;
}

/// The rows after counting `references` over `list`, a line each: name|price|quantity|description|total.
std::wstring counted(std::vector<ResultString> list, const std::vector<const wchar_t*>& references, bool attached) {
    RowList rows;
    for (ResultString& row : list) {
        rows.Add(row);
    }
    NameIndex index(10);
    corvanes::index_rows(rows, index);
    for (const wchar_t* name : references) {
        corvanes::count_reference(rows, index, name, attached);
    }
    std::wostringstream text;
    for (int i = 0; i < static_cast<int>(rows.GetSize()); ++i) {
        const ResultString& row = rows[i];
        text << static_cast<const wchar_t*>(row.name) << L'|' << row.price << L'|' << row.quantity << L'|'
             << static_cast<const wchar_t*>(row.description) << L'|' << row.total << L'\n';
    }
    return text.str();
}

TEST(BlockCount, JoinsReferencesWithTheAttachedPriceList) {
    EXPECT_EQ(
        counted({priced(L"Bolt", 2.5, L"steel"), priced(L"Nut", 1, L"")}, {L"bolt", L"bolt", L"other", L"bolt"}, true),
        L"bolt|2.5|3|steel|7.5\nnut|1|0||0\n");
    EXPECT_EQ(counted({priced(L"DOOR", 1, L"early"), priced(L"door", 2, L"late")}, {L"door"}, true),
              L"door|1|0|early|0\ndoor|2|1|late|2\n")
        << "of two lines with one name the later is counted";
    EXPECT_EQ(counted({}, {L"door"}, true), L"");
}

TEST(BlockCount, ReportsEveryBlockWithoutAPriceList) {
    EXPECT_EQ(counted({}, {L"a", L"b", L"a", L"*u12"}, false), L"a|0|2||0\nb|0|1||0\n*u12|0|1||0\n");
}

TEST(BlockCount, AddsThePriceOncePerReference) {
    std::vector<const wchar_t*> references(10, L"a");
    double sum = 0;
    for (int i = 0; i < 10; ++i) {
        sum += 0.1;
    }
    ASSERT_NE(sum, 10 * 0.1) << "the case would show nothing";
    RowList rows;
    ResultString row = priced(L"a", 0.1, L"");
    rows.Add(row);
    NameIndex index(10);
    corvanes::index_rows(rows, index);
    for (const wchar_t* name : references) {
        corvanes::count_reference(rows, index, name, true);
    }
    EXPECT_EQ(rows[0].total, sum);
}

TEST(BlockCount, AnotherCountBeginsWithAFreshIndex) {
    RowList rows;
    NameIndex index(10);
    corvanes::index_rows(rows, index);
    corvanes::count_reference(rows, index, L"old", false);
    rows.RemoveAll();
    corvanes::index_rows(rows, index);
    corvanes::count_reference(rows, index, L"new", false);
    corvanes::count_reference(rows, index, L"old", false);
    ASSERT_EQ(rows.GetSize(), 2);
    EXPECT_EQ(rows[0].name, L"new");
    EXPECT_EQ(rows[1].name, L"old");
}

}  // namespace
