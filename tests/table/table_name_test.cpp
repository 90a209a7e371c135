#include "table/table_name.h"

#include <gtest/gtest.h>

namespace {

TEST(TableName, CountsOnFromTheHighestTable) {
    using Names = std::vector<std::wstring>;
    EXPECT_EQ(corvanes::next_table_name({}), L"KVO0001");
    EXPECT_EQ(corvanes::next_table_name(Names{L"KVO0007", L"kvo0012", L"KVO12", L"KVOTABLE", L"KVO00999"}), L"KVO0013");
    EXPECT_EQ(corvanes::next_table_name(Names{L"KVOABCD", L"KVO12AB", L"KVO-005", L"KVO1e3x"}), L"KVO0013");
    EXPECT_EQ(corvanes::next_table_name(Names{L"KVO9998"}), L"KVO9999");
    EXPECT_EQ(corvanes::next_table_name(Names{L"KVO9999"}), std::nullopt);
}

}  // namespace
