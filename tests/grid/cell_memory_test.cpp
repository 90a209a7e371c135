#include "grid/cell_memory.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <random>
#include <string>
#include <vector>

using namespace corvanes;

namespace {

// A line for each row, the heading first: texts in brackets, a dot for a cell without a text, and then what else is
// set.
std::wstring picture(CUGMem& store, int columns) {
    std::wstring lines;
    for (int row = -1; row < store.GetRowCount(); ++row) {
        for (int column = 0; column < columns; ++column) {
            CUGCell cell;
            EXPECT_EQ(store.GetCell(column, row, &cell), 0);
            lines += cell.GetText() != nullptr ? L"[" + std::wstring(cell.GetText()) + L"]" : L".";
            if (cell.IsPropertySet(cell_label)) {
                lines += L"label=" + std::wstring(cell.GetLabelText());
            }
            if (cell.IsPropertySet(cell_type_index)) {
                lines += L"type=" + std::to_wstring(cell.GetCellType());
            }
            if (cell.IsPropertySet(cell_type_options)) {
                lines += L"options=" + std::to_wstring(cell.GetCellTypeOptions());
            }
            if (cell.GetDataType() != data_text) {
                lines += L"data=" + std::to_wstring(cell.GetDataType());
            }
        }
        lines += L'\n';
    }
    return lines;
}

int by_text(CUGCell* a, CUGCell* b) {
    if (a == nullptr || b == nullptr) {
        return static_cast<int>(a != nullptr) - static_cast<int>(b != nullptr);
    }
    return std::wcscmp(a->GetText(), b->GetText());
}

// by_text with keys.
class TextOrder final : public corvanes::KeyedOrder {
  public:
    corvanes::SortKey read(const CUGCell* cell) const override {
        corvanes::SortKey key;
        key.text = cell != nullptr ? cell->GetText() : nullptr;
        return key;
    }
    int compare(const corvanes::SortKey& first, const corvanes::SortKey& second) const override {
        return std::wcscmp(first.text != nullptr ? first.text : L"", second.text != nullptr ? second.text : L"");
    }
};

TEST(Cell, PropertiesFollowWhatIsSet) {
    CUGCell cell;
    EXPECT_EQ(cell.GetPropertyFlags(), 0u);
    EXPECT_EQ(cell.GetText(), nullptr);
    EXPECT_EQ(cell.GetNumber(), 0);
    cell.SetDataType(data_currency);
    cell.SetText(L"12.5 pieces");
    EXPECT_EQ(cell.GetPropertyFlags(), 1u | 8u);
    EXPECT_EQ(cell.GetDataType(), data_text);
    EXPECT_EQ(cell.GetNumber(), 12.5);
    cell.SetText(L"-3");
    EXPECT_EQ(cell.GetNumber(), -3);
    cell.SetLabelText(L"a\nb");
    cell.SetCellType(7);
    cell.SetCellTypeOptions(32);
    EXPECT_EQ(cell.GetPropertyFlags(), 1u | 4u | 8u | 32u | 64u);

    std::wstring passing = L"passing";
    CUGCell borrower;
    borrower.BorrowText(passing.c_str());
    const CUGCell copy = borrower;
    passing.assign(L"changed");
    EXPECT_STREQ(copy.GetText(), L"passing");
}

TEST(CellMemory, KeepsEveryPropertyOfEveryCell) {
    CUGMem store;
    ASSERT_EQ(store.SetColumnCount(3), 0);
    ASSERT_EQ(store.SetRowCount(2), 0);
    store.SetCellText(0, -1, L"Heading");
    CUGCell cell;
    cell.SetLabelText(L"one\ntwo");
    cell.SetCellType(1);
    store.SetCell(0, 0, &cell);
    store.SetCellText(0, 0, L"");
    store.GetCell(0, 0, &cell);
    cell.SetDataType(data_number);
    cell.SetCellTypeOptions(16);
    store.SetCell(2, 1, &cell);
    EXPECT_EQ(picture(store, 3),
              L"[Heading]..\n"
              L"[]label=one\ntwotype=1..\n"
              L"..[]label=one\ntwotype=1options=16data=2\n");

    // A cell that is overwritten with an empty record keeps nothing, not even its text.
    const CUGCell nothing;
    store.SetCell(0, 0, &nothing);
    store.SetColumnCount(2);
    store.SetColumnCount(3);
    EXPECT_EQ(picture(store, 3), L"[Heading]..\n...\n...\n");
    store.SetCellText(1, 1, L"gone");
    store.SetRowCount(1);
    store.SetRowCount(2);
    EXPECT_EQ(picture(store, 3), L"[Heading]..\n...\n...\n");
}

TEST(CellMemory, RefusesCellsThatItDoesNotHave) {
    CUGMem store;
    store.SetColumnCount(2);
    store.SetRowCount(2);
    store.SetCellText(0, 0, L"kept");
    // The grid's own test checks the refusals of the grid.
    const std::vector<int> results{store.SetRowCount(-1),           store.SetCellText(-2, 0, L"x"),
                                   store.SetCellText(0, -2, L"x"),  store.GetCell(0, 0, nullptr),
                                   store.SortBy(-1, by_text),       store.SortBy(0, CUGDataSource::Comparison()),
                                   store.SortByKeys(2, TextOrder())};
    EXPECT_EQ(results, std::vector<int>(results.size(), 1));
    EXPECT_EQ(store.GetCellText(0, 5), nullptr);
    EXPECT_EQ(picture(store, 2), L"..\n[kept].\n..\n");
}

TEST(CellMemory, TextsStayWhereTheyAreUntilTheirCellChanges) {
    CUGMem store;
    store.SetColumnCount(2);
    store.SetCellText(0, -1, L"heading");
    store.AppendRow();
    store.SetCellText(0, 0, L"first");
    const wchar_t* first = store.GetCellText(0, 0);
    for (int row = 1; row < 20000; ++row) {
        store.AppendRow();
        store.SetCellText(row % 2, row, std::to_wstring(row).c_str());
        store.SetCellText(1, 0, L"widens the row");
    }
    store.InsertRow(0);
    EXPECT_EQ(store.GetCellText(0, 1), first);
    EXPECT_STREQ(first, L"first");
    // A part of the cell's own text may be the argument.
    store.SetCellText(0, 1, first + 2);
    EXPECT_STREQ(store.GetCellText(0, 1), L"rst");
}

// Compares the store with the plainest possible one through thousands of random operations.
TEST(CellMemory, BehavesAsATableOfStrings) {
    std::mt19937 random(20);
    const auto below = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    constexpr int columns = 4;
    CUGMem store;
    store.SetColumnCount(columns);
    std::vector<std::vector<std::wstring>> table;  // an empty string: no text
    for (int step = 0; step < 6000; ++step) {
        const int rows = static_cast<int>(table.size());
        const int what = below(10);
        if (what == 0 || rows == 0) {
            const int row = below(rows + 1);
            ASSERT_EQ(store.InsertRow(row), 0);
            table.insert(table.begin() + row, std::vector<std::wstring>(columns));
        } else if (what == 1) {
            const int row = below(rows);
            ASSERT_EQ(store.DeleteRow(row), 0);
            table.erase(table.begin() + row);
        } else if (what == 2 && step % 50 == 0) {
            ASSERT_EQ(step % 100 == 0 ? store.SortBy(1, by_text) : store.SortByKeys(1, TextOrder()), 0);
            std::stable_sort(table.begin(), table.end(), [](const auto& a, const auto& b) { return a[1] < b[1]; });
        } else {
            const int column = below(columns);
            const int row = below(rows);
            const int length = below(20) == 0 ? 3000 + below(3000) : 1 + below(12);
            const std::wstring text(static_cast<std::size_t>(length), static_cast<wchar_t>(L'a' + below(26)));
            ASSERT_EQ(store.SetCellText(column, row, text.c_str()), 0);
            table[row][column] = text;
        }
    }
    std::wstring expected = L"....\n";
    for (const auto& row : table) {
        for (const std::wstring& text : row) {
            expected += text.empty() ? L"." : L"[" + text + L"]";
        }
        expected += L'\n';
    }
    EXPECT_EQ(picture(store, columns), expected);
    store.SetRowCount(0);
    EXPECT_LT(store.GetMemoryUsed(), 16u << 20) << "released blocks are not used again";
}

TEST(CellMemory, SortsRowsNobodyWroteToAndRefusesChangesMeanwhile) {
    CUGMem store;
    store.SetColumnCount(2);
    store.SetRowCount(4);
    store.SetCellText(0, 0, L"b");
    store.SetCellText(1, 0, L"with b");
    store.SetCellText(0, 2, L"a");
    int refused = 1;
    ASSERT_EQ(store.SortBy(0,
                           [&](CUGCell* a, CUGCell* b) {
                               refused &= store.SetCellText(0, 0, L"x") & store.DeleteRow(0) & store.AppendRow() &
                                          store.SetRowCount(0) & store.SetColumnCount(1) & store.SortBy(0, by_text);
                               return by_text(a, b);
                           }),
              0);
    EXPECT_EQ(refused, 1);
    EXPECT_EQ(picture(store, 2), L"..\n..\n..\n[a].\n[b][with b]\n");
    const auto fails = [](CUGCell*, CUGCell*) -> int { throw 1; };
    EXPECT_THROW(store.SortBy(0, fails), int);
    EXPECT_EQ(picture(store, 2), L"..\n..\n..\n[a].\n[b][with b]\n");
    EXPECT_EQ(store.AppendRow(), 0) << "changes are allowed again";
}

}  // namespace
