#include "common/price_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "tests/support/rows.h"

using corvanes::number_from_text;
using corvanes::take_integer;

namespace {

TEST(PriceText, ReadsTheNumberAtTheFront) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const auto& row : test_support::rows_of(
             L"=0|12.5=12.5|  \t7=7|\u00a07=7|-3.25=-3.25|+4=4|.5=0.5|5.=5|.=0|abc=0|12abc=12|1,234.5=1|1e3=1000|1e=1|"
             L"1e+=1|2.5E-1x=0.25|- 5=0|--5=0|-x=0|-0=-0|0x10=0|inf=0|nan=0|1e999=inf|1e-999=0|-1e999=-inf|"
             L"\u0661\u0662=0|12.5\u20aa=12.5")) {
        const double number = number_from_text(row[0]);
        EXPECT_EQ(number, std::stod(row[1])) << row[0];
        EXPECT_EQ(std::signbit(number), row[1][0] == L'-') << row[0] << ": a report would show -0.00";
    }
    const std::wstring zeros(400, L'0');
    EXPECT_EQ(number_from_text(L"0." + zeros.substr(0, 200) + L"1"), 1e-201) << "longer than the small buffer";
    EXPECT_EQ(number_from_text(L"0." + zeros + L"1"), 0);
    EXPECT_EQ(number_from_text(L"0." + zeros + L"1e800"), infinity);
    EXPECT_EQ(number_from_text(L"1" + zeros + L"e-20"), infinity);
    EXPECT_EQ(number_from_text(L"1" + zeros + L".5e-800"), 0);
    EXPECT_EQ(number_from_text(L"1e-99999999999999999999"), 0);
}

TEST(PriceText, TakesIntegersOneAfterAnother) {
    std::wstring_view rest = L" 150 0x1F -010 +7 99999999999 0 08 x";
    int value = -1;
    std::string taken;
    while (take_integer(rest, value)) {
        taken += std::to_string(value) + ' ';
    }
    EXPECT_EQ(taken, "150 31 -8 7 2147483647 0 0 8 ") << "a leading zero makes 08 an octal 0 and then an 8";
    EXPECT_EQ(rest, L"x");
    rest = L"-99999999999";
    EXPECT_TRUE(take_integer(rest, value));
    EXPECT_EQ(value, std::numeric_limits<int>::min());
    rest = L"-";
    EXPECT_FALSE(take_integer(rest, value));
    EXPECT_EQ(corvanes::take_word(rest = L" c:\\my files"), L"c:\\my");
    EXPECT_EQ(corvanes::take_word(rest = L" \r\n"), L"");
}

TEST(PriceText, RoundsAmountsCorrectly) {
    for (const auto& row : test_support::rows_of(
             L"0=0.00|2.5=2.50|7.5=7.50|1.005=1.00|0.125=0.12|0.375=0.38|-3.456=-3.46|1234567.891=1234567.89|"
             L"-0.001=-0.00|1e15=1000000000000000.00")) {
        EXPECT_EQ(corvanes::amount_text(std::stod(row[0])), row[1]);
    }
    EXPECT_EQ(corvanes::amount_text(1.7976931348623157e308).size(), 312U);
}

TEST(PriceText, KnowsWhatIsReadOnlyInPart) {
    for (const wchar_t* whole : {L"12.5", L" 12 ", L"-1e3", L".5"}) {
        EXPECT_EQ(corvanes::partly_read_number(whole), std::nullopt) << whole;
    }
    for (const auto& row : test_support::rows_of(L"12,50=12|1,000=1|abc=0|3 for 2=3|12.5.1=12.5|-=0|\x20AA 5=0")) {
        EXPECT_EQ(corvanes::partly_read_number(row[0]), std::stod(row[1])) << row[0];
    }
}

}  // namespace
