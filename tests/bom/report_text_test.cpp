#include "bom/report_text.h"

#include <gtest/gtest.h>

namespace {

using corvanes::ReportCells;

const std::vector<ReportCells> rows = {
    {L"door 80", L"1250.00", L"3", L"\u05d3\u05dc\u05ea", L"3750.00"},
    {L"window of 12", L"99.90", L"10", L"a description of 25 chars", L"999.00"},
    {L"Summary:", L"", L"", L"", L"4749.00"},
};

TEST(ReportText, LaysOutEveryLineWithPrices) {
    EXPECT_EQ(corvanes::report_text(rows, true),
              L"Block name Item Price   Quantity          Description      Total\r\n"
              L"   door 80    1250.00          3                  \u05d3\u05dc\u05ea    3750.00\r\n"
              L"window of 12      99.90         10 a description of 25 chars     999.00\r\n"
              L"  Summary:                                               4749.00\r\n");
    EXPECT_EQ(corvanes::report_text({}, true), L"Block name Item Price   Quantity          Description      Total\r\n");
}

TEST(ReportText, LeavesOutMoneyWithoutPrices) {
    std::vector<ReportCells> with_a_block_named_like_the_summary = rows;
    with_a_block_named_like_the_summary.push_back({L"summary:", L"1.00", L"1", L"", L"1.00"});
    EXPECT_EQ(corvanes::report_text(with_a_block_named_like_the_summary, false),
              L"Block name   Quantity          Description\r\n"
              L"   door 80          3                  \u05d3\u05dc\u05ea\r\n"
              L"window of 12         10 a description of 25 chars\r\n"
              L"  summary:          1                     \r\n");
}

TEST(ReportText, ProposesANameBesideThePriceList) {
    const struct {
        const wchar_t *prices, *drawing, *name;
    } cases[] = {
        {L"C:\\Lists\\parts.prc", L"House.dwg", L"C:\\Lists\\parts-House.txt"},
        {L"", L"House.dwg", L"House.txt"},
        {L"prc", L"a.b", L".txt"},
        {L"", L"", L".txt"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(corvanes::default_report_name(c.prices, c.drawing), c.name);
    }
}

}  // namespace
