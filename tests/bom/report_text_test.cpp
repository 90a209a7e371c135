#include "bom/report_text.h"

#include <gtest/gtest.h>

#include "tests/support/rows.h"

namespace {

TEST(ReportText, ProposesANameBesideThePriceList) {
    for (const auto& row : test_support::rows_of(
             L"C:\\Lists\\parts.prc=House.dwg=C:\\Lists\\parts-House.txt|=House.dwg=House.txt|prc=a.b=.txt|==.txt")) {
        EXPECT_EQ(corvanes::default_report_name(row[0], row[1]), row[2]);
    }
}

}  // namespace
