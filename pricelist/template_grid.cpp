#include "pricelist/template_grid.h"

#include <utility>
#include <vector>

#include "base/case_folding.h"
#include "pricelist/cell_comparison.h"
#include "pricelist/price_list_file.h"
#include "pricelist/template_dialog.h"

using namespace corvanes;

namespace {

enum Column { name_column, price_column, description_column };
constexpr int heading_row = -1;
constexpr std::array<const wchar_t*, MyCug::column_count> headings = {L"Block name", L"Price", L"Description"};
constexpr int arrow_when_ascending = 32;
constexpr int arrow_when_descending = 16;

BlockPriceDialog& dialog() {
    return *BlockPriceDialog::open_dialog();
}

}  // namespace

void MyCug::OnGridSetup() {
    constexpr int leading = 3;
    constexpr UINT editor_id = 125;
    sorting_allowed_ = true;
    modified_ = false;
    dialog().enable_save(false);
    TEXTMETRIC metrics{};
    {
        CClientDC context(this);
        background_ = GetSysColor(COLOR_WINDOW);
        context.SetBkColor(background_);
        CFont* const previous = context.SelectObject(GetFont());
        context.GetTextMetrics(&metrics);
        context.SelectObject(previous);
    }
    SetSideHeadingWidth(0);
    SetDefaultRowHeight(metrics.tmHeight + leading);
    if (widths_[0] == -1) {
        set_default_widths();
    }
    editor_.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 0, 0), this, editor_id);
    SetDisplayFlag(1);
    SetColumnCount(column_count, FALSE);
    for (int column = 0; column < column_count; ++column) {
        SetColumnWidth(column, widths_[static_cast<size_t>(column)]);
        SetCellText(column, heading_row, headings[static_cast<size_t>(column)]);
    }
    sort_arrow_index_ = AddCellType(&sort_arrow_);
    show_sort_arrow();
    block_names_.Fill();
    block_names_.Sort();
    block_names_.GetList(drop_list_);
}

void MyCug::set_default_widths() {
    CRect client;
    GetClientRect(&client);
    const int unit = (client.Width() - GetSystemMetrics(SM_CXVSCROLL)) / 8;
    widths_ = {3 * unit, unit, 4 * unit};
}

void MyCug::show_sort_arrow() {
    SetCellTypeIndex(sort_column_, heading_row, sort_arrow_index_);
    SetCellTypeOptions(sort_column_, heading_row, ascending_ ? arrow_when_ascending : arrow_when_descending);
}

std::wstring MyCug::text(int column, long row) {
    const wchar_t* cell = GetCellText(column, row);
    return cell == nullptr ? L"" : cell;
}

void MyCug::ClearAll() {
    modified_ = false;
    dialog().enable_save(false);
    SetRowCount(0, TRUE);
}

void MyCug::AddNewRow() {
    AppendRow();
    const long row = GetRowCount() - 1;
    InitRow(row);
    GotoCell(name_column, row);
}

void MyCug::InsertRowAfter(long row) {
    if (row != -1 && row != GetRowCount() - 1) {
        InsertRow(row + 1);
        InitRow(row + 1);
        GotoCell(name_column, row + 1);
    } else {
        AddNewRow();
    }
    RedrawAll();
}

void MyCug::InitRow(long row) {
    SetCellTypeIndex(name_column, row, type_drop_list);
    SetCellText(name_column, row, L"");
    RefreshNameList();
    SetCellLabel(name_column, row, drop_list_);
    SetCellText(price_column, row, L"0");
    SetCellText(description_column, row, L"");
    SetDisplayFlag(1);
}

void MyCug::RefreshNameList() {
    block_names_.ResetUsed();
    for (long row = 0; row < GetRowCount(); ++row) {
        block_names_.MarkUsed(text(name_column, row).c_str(), 1);
    }
    block_names_.GetList(drop_list_);
}

void MyCug::AddRowWithData(const wchar_t* name, const wchar_t* price, const wchar_t* description) {
    AppendRow();
    const long row = GetRowCount() - 1;
    SetCellTypeIndex(name_column, row, type_drop_list);
    SetCellText(name_column, row, name);
    SetCellText(price_column, row, price);
    SetCellText(description_column, row, description);
    RedrawRow(row);
}

int MyCug::SaveToFile(const wchar_t* path) {
    std::vector<PriceListEntry> rows(static_cast<size_t>(GetRowCount()));
    const auto view = [this](int column, size_t row) {
        const wchar_t* cell = GetCellText(column, static_cast<long>(row));
        return cell == nullptr ? std::wstring_view() : std::wstring_view(cell);
    };
    for (size_t row = 0; row < rows.size(); ++row) {
        rows[row] = {view(name_column, row), view(price_column, row), view(description_column, row)};
    }
    return SavePriceList(path, rows);
}

int MyCug::LoadFromFile(const wchar_t* path) {
    return LoadPriceList(
        path, L"r", [this] { ClearAll(); },
        [this](const PriceListEntry& entry) {
            AddRowWithData(std::wstring(entry.name).c_str(), std::wstring(entry.price).c_str(),
                           std::wstring(entry.description).c_str());
        });
}

int MyCug::CheckBeforeSave() {
    for (long row = 0; row < GetRowCount(); ++row) {
        const bool named = !text(name_column, row).empty();
        const bool priced = !text(price_column, row).empty();
        if (named == priced) {
            continue;
        }
        return named ? complain(L"Price is absent", price_column, row)
                     : complain(L"Block name is absent", name_column, row);
    }
    return 1;
}

int MyCug::complain(const wchar_t* message, int column, long row) {
    constexpr int without_end = 0;
    constexpr int blink_milliseconds = 200;
    dialog().status().ShowMessage(without_end, blink_milliseconds, message);
    Beep(1000, 50);
    SelectCell(column, row);
    GotoCell(column, row);
    return 0;
}

int MyCug::IsNameUnique(const wchar_t* name, long except_row) {
    for (long row = 0; row < GetRowCount(); ++row) {
        const wchar_t* other = GetCellText(name_column, row);
        if (row != except_row && base::compare_ignoring_case(other == nullptr ? L"" : other, name) == 0) {
            return 0;
        }
    }
    return 1;
}

void MyCug::StoreColumnWidths() {
    for (int column = 0; column < column_count; ++column) {
        widths_[static_cast<size_t>(column)] = GetColumnWidth(column);
    }
}

int MyCug::SwapRows(long row_a, long row_b) {
    const long rows = GetRowCount();
    if (row_a < 0 || row_b < 0 || row_a >= rows || row_b >= rows) {
        return 0;
    }
    for (int column = 0; column < column_count; ++column) {
        const std::wstring kept = text(column, row_a);
        SetCellText(column, row_a, text(column, row_b).c_str());
        SetCellText(column, row_b, kept.c_str());
    }
    RedrawAll();
    return 1;
}

void MyCug::MoveRowUp() {
    constexpr int one_up = 0;
    if (SwapRows(GetCurrentRow(), GetCurrentRow() - 1) == 1) {
        MoveCurrentRow(one_up);
        GotoCell(GetCurrentColumn(), GetCurrentRow());
        RedrawAll();
    }
}

void MyCug::MoveRowDown() {
    constexpr int one_down = 1;
    if (SwapRows(GetCurrentRow(), GetCurrentRow() + 1) == 1) {
        MoveCurrentRow(one_down);
        GotoCell(GetCurrentColumn(), GetCurrentRow());
        RedrawAll();
    }
}

void MyCug::OnGridRowChange(long, long new_row) {
    dialog().enable_moves(new_row > 0, !(new_row > 0 && new_row == GetRowCount() - 1));
}

void MyCug::OnGridCellChange(int, int, long, long) {
    RedrawAll();
}

void MyCug::OnGridLeftClick(int column, long row, int updn, RECT* rect, POINT* point, int) {
    dialog().status().Clear();
    if (column == -1 || row == -1 || updn == 0 || (column == name_column && name_column_locked_)) {
        return;
    }
    CRect beside_button(*rect);
    beside_button.right -= CUGDropListType::button_strip;
    if (beside_button.PtInRect(*point)) {
        StartEdit();
    }
    RedrawAll();
}

void MyCug::OnGridHeadingClick(int column, long, int updn, RECT*, POINT*, int) {
    if (!sorting_allowed_ || updn == 0) {
        return;
    }
    SetCellTypeIndex(sort_column_, heading_row, type_normal);
    ascending_ = column == sort_column_ ? !ascending_ : true;
    sort_column_ = column;
    SortBy(column, ascending_ ? sort_ascending : sort_descending);
    show_sort_arrow();
    RedrawAll();
}

void MyCug::OnGridKeyDown(UINT* key, BOOL) {
    if (*key == VK_ESCAPE) {
        dialog().Close();
    }
}

void MyCug::OnGridCharDown(UINT* character, BOOL) {
    if (GetCurrentColumn() == name_column) {
        StartEdit(*character);
    }
}

int MyCug::OnGridEditStart(int, long, CWnd** edit) {
    *edit = &editor_;
    return 1;
}

int MyCug::OnGridEditFinish(int column, long row, CWnd*, LPCWSTR new_text, BOOL) {
    sorting_allowed_ = true;
    modified_ = true;
    dialog().enable_save(true);
    if (column != name_column || new_text[0] == L'\0' || IsNameUnique(new_text, row) == 1) {
        return 1;
    }
    const std::wstring message = std::wstring(L"Block name ") + new_text + L" is not unique";
    AfxMessageBox(message.c_str(), MB_OK);
    GotoCell(column, row);
    sorting_allowed_ = false;
    return 0;
}

int MyCug::OnGridSortCompare(CUGCell* first, CUGCell* second, int flags) {
    return compare_empty_last(first, second, flags, sort_column_ == price_column);
}
