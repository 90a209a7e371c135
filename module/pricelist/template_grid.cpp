#include "pricelist/template_grid.h"

#include <algorithm>
#include <map>
#include <unordered_map>

#include "base/case_folding.h"
#include "bidi/reordering.h"

using namespace corvanes;

namespace {

const std::vector<GridColumn> columns = {{L"Block name", false}, {L"Price", true}, {L"Description", false}};

std::wstring words_of_double_name(std::wstring_view name) {
    return L"Block name " + std::wstring(name) + L" is not unique";
}

}  // namespace

MyCug::MyCug(TemplateGridOwner& dialog) : SortingGrid(columns, &dialog), dialog_(dialog) {}

void MyCug::OnGridSetup() {
    constexpr UINT editor_id = 125;
    sorting_allowed_ = true;
    modified_ = false;
    dialog_.enable_save(false);
    SetUpRows();
    editor_.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 0, 0), this, editor_id);
    CRect client;
    GetClientRect(&client);
    const int unit = (client.Width() - GetSystemMetrics(SM_CXVSCROLL)) / 8;
    SetUpColumns({3 * unit, unit, 4 * unit});
    block_names_.Fill();
    block_names_.Sort();
    block_names_.GetList(drop_list_);
}

void MyCug::OnGridRowChange(long, long new_row) {
    dialog_.enable_moves(new_row > 0, !(new_row > 0 && new_row == GetRowCount() - 1));
}

void MyCug::OnGridCellChange(int, int, long, long) {
    RedrawAll();
}

void MyCug::OnGridLeftClick(int column, long row, int updn, RECT* rect, POINT* point, int) {
    clear_status();
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
    clear_status();
    SortByHeading(column);
    // The current row is scrolled into view, because the next button or key acts on it.
    EnsureVisible(GetCurrentColumn(), GetCurrentRow());
    RedrawAll();
}

void MyCug::OnGridKeyDown(UINT* key, BOOL processed) {
    if (*key == VK_F2) {
        StartEdit();
    }
    SortingGrid::OnGridKeyDown(key, processed);
}

void MyCug::OnGridCharDown(UINT* character, BOOL) {
    if (GetCurrentColumn() == name_column) {
        StartEdit(*character);
    }
}

int MyCug::OnGridEditStart(int column, long row, CWnd** edit) {
    editor_.SetDirectionWhenEmpty(column == description_column ? direction_of_descriptions(row) : std::nullopt);
    *edit = &editor_;
    return 1;
}

std::optional<ParagraphDirection> MyCug::direction_of_descriptions(long row) {
    for (long away = 1; away < GetRowCount(); ++away) {
        for (const long other : {row - away, row + away}) {
            const wchar_t* const text = other >= 0 ? GetCellText(description_column, other) : nullptr;
            if (text != nullptr && text[0] != L'\0') {
                return contains_right_to_left(text) ? ParagraphDirection::right_to_left
                                                    : ParagraphDirection::left_to_right;
            }
        }
    }
    return std::nullopt;
}

int MyCug::OnGridEditFinish(int column, long row, CWnd*, LPCWSTR new_text, BOOL cancelled) {
    sorting_allowed_ = true;
    modified_ = true;
    dialog_.enable_save(true);
    // A cancelled edit brings no new name, so a name that the list already held twice is not refused here.
    const bool may_be_twice = column != name_column || new_text[0] == L'\0' || cancelled != 0;
    if (may_be_twice || IsNameUnique(new_text, row) == 1) {
        if (status_cell_ == std::pair(column, row)) {
            clear_status();
        }
        warn_of_loss(column, row, new_text);
        return 1;
    }
    AfxMessageBox(words_of_double_name(new_text).c_str(), MB_OK);
    GotoCell(column, row);
    sorting_allowed_ = false;
    return 0;
}

std::optional<std::wstring> MyCug::name_made_twice(const std::vector<CellChange>& changes) {
    std::map<int, std::wstring_view> changed;
    for (const CellChange& change : changes) {
        if (change.cell.column == name_column) {
            changed[change.cell.row] = change.text;
        }
    }
    std::unordered_map<std::wstring, int> rows_of;
    for (int row = 0; row < GetRowCount() && !changed.empty(); ++row) {
        if (!changed.contains(row)) {
            const wchar_t* const name = GetCellText(name_column, row);
            ++rows_of[base::lower(name == nullptr ? L"" : name)];
        }
    }
    for (const auto& [row, name] : changed) {
        ++rows_of[base::lower(name)];
    }
    const auto twice = std::find_if(changed.begin(), changed.end(), [&rows_of](const auto& row_and_name) {
        return !row_and_name.second.empty() && rows_of[base::lower(row_and_name.second)] > 1;
    });
    return twice == changed.end() ? std::nullopt : std::optional(std::wstring(twice->second));
}

std::wstring MyCug::OnGridCellsChange(const std::vector<CellChange>& changes) {
    if (const auto name = name_made_twice(changes)) {
        return words_of_double_name(*name);
    }
    sorting_allowed_ = true;
    modified_ = true;
    dialog_.enable_save(true);
    clear_status();
    std::any_of(changes.begin(), changes.end(), [this](const CellChange& change) {
        return warn_of_loss(change.cell.column, change.cell.row, change.text.c_str());
    });
    return {};
}

void MyCug::OnGridRowsAppend(long first, long count) {
    for (long row = first; row < first + count; ++row) {
        SetCellTypeIndex(name_column, row, type_drop_list);
        SetCellText(name_column, row, L"");
        SetCellText(price_column, row, L"0");
        SetCellText(description_column, row, L"");
    }
    OnGridRowChange(GetCurrentRow(), GetCurrentRow());
}
