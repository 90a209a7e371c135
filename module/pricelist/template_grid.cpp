#include "pricelist/template_grid.h"

#include "bidi/reordering.h"

using namespace corvanes;

namespace {

const std::vector<GridColumn> columns = {{L"Block name", false}, {L"Price", true}, {L"Description", false}};

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
    // The next button or key acts on the current row: it must be seen.
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
    // A cancelled edit brings no new name: a list that was read with a name twice can be left as it is.
    const bool may_be_twice = column != name_column || new_text[0] == L'\0' || cancelled != 0;
    if (may_be_twice || IsNameUnique(new_text, row) == 1) {
        if (status_cell_ == std::pair(column, row)) {
            clear_status();
        }
        warn_of_loss(column, row, new_text);
        return 1;
    }
    const std::wstring message = std::wstring(L"Block name ") + new_text + L" is not unique";
    AfxMessageBox(message.c_str(), MB_OK);
    GotoCell(column, row);
    sorting_allowed_ = false;
    return 0;
}
