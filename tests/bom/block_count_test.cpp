#include "bom/block_count.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

/// Counts `references` and joins them with a price list. Returns a line for each row of the report:
/// name|price|quantity|description|total.
std::wstring joined(const std::vector<const wchar_t*>& references, std::wstring_view price_list, bool attached) {
    RowList rows;
    NameIndex index(10);
    corvanes::begin_count(rows, index);
    for (const wchar_t* name : references) {
        rows[corvanes::row_of_block(rows, index, name)].quantity += 1;
    }
    corvanes::join_prices(rows, index, price_list, attached);
    EXPECT_TRUE(index.IsEmpty());
    std::wostringstream text;
    for (int i = 0; i < static_cast<int>(rows.GetSize()); ++i) {
        const ResultString& row = rows[i];
        text << static_cast<const wchar_t*>(row.name) << L'|' << row.price << L'|' << row.quantity << L'|'
             << static_cast<const wchar_t*>(row.description) << L'|' << row.total << L'\n';
    }
    return text.str();
}

TEST(BlockCount, JoinsReferencesWithTheAttachedPriceList) {
    EXPECT_EQ(joined({L"bolt", L"bolt", L"other", L"nut", L"bolt"}, L"Nut|1|\nunused|9|\nBolt|2.5|Steel\n", true),
              L"nut|1|1||1\nbolt|2.5|3|Steel|7.5\n")
        << "in the order of the price list";
    EXPECT_EQ(joined({L"door", L"a"}, L"DOOR|1|early\nA|3|\ndoor|2|late\n", true), L"a|3|1||3\ndoor|2|1|late|2\n")
        << "of two lines with one name the later is counted, in its own place";
    EXPECT_EQ(joined({L"door"}, L"", true), L"");
    EXPECT_EQ(joined({L"\u05d3\u05dc\u05ea", L"\u03c3"}, L"\u05d3\u05dc\u05ea|1|\n\u03a3|2|\n\u03c2|3|\n", true),
              L"\u05d3\u05dc\u05ea|1|1||1\n\u03c3|2|1||2\n");
}

TEST(BlockCount, ReportsEveryBlockWithoutAPriceList) {
    EXPECT_EQ(joined({L"a", L"b", L"a", L"*u12"}, L"", false), L"a|0|2||0\nb|0|1||0\n*u12|0|1||0\n");
    EXPECT_EQ(joined({L"b", L"a", L"c"}, L"X|1|x\nA|2|early\na|3|late\n", false),
              L"x|1|0|x|0\na|2|0|early|0\na|3|1|late|3\nb|0|1||0\nc|0|1||0\n")
        << "a list that is not attached shows all of its lines, then the blocks without one";
}

TEST(BlockCount, AddsThePriceOncePerReference) {
    double sum = 0;
    for (int i = 0; i < 10; ++i) {
        sum += 0.1;
    }
    ASSERT_NE(sum, 10 * 0.1) << "the case would show nothing";
    RowList rows;
    NameIndex index(10);
    corvanes::begin_count(rows, index);
    rows[corvanes::row_of_block(rows, index, L"a")].quantity = 10;
    corvanes::join_prices(rows, index, L"a|0.1\n", true);
    ASSERT_EQ(rows.GetSize(), 1);
    EXPECT_EQ(rows[0].total, sum);
}

}  // namespace
