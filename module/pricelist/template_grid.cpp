#include "pricelist/template_grid.h"

#include "bidi/reordering.h"
#include "common/cell_comparison.h"
#include "pricelist/template_dialog.h"

using namespace corvanes;

namespace {

constexpr int heading_row = -1;
constexpr std::array<const wchar_t*, MyCug::column_count> headings = {L"Block name", L"Price", L"Description"};
constexpr int arrow_when_ascending = 32;
constexpr int arrow_when_descending = 16;

}  // namespace

BlockPriceDialog& MyCug::dialog() {
    return *BlockPriceDialog::open_dialog();
}

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
    take_widths();
    editor_.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 0, 0), this, editor_id);
    SetDisplayFlag(1);
    SetColumnCount(column_count, FALSE);
    for (int column = 0; column < column_count; ++column) {
        SetColumnWidth(column, widths_[static_cast<size_t>(column)]);
        SetCellText(column, heading_row, headings[static_cast<size_t>(column)]);
    }
    AlignColumnRight(price_column, TRUE);
    sort_arrow_index_ = AddCellType(&sort_arrow_);
    show_sort_arrow();
    block_names_.Fill();
    block_names_.Sort();
    block_names_.GetList(drop_list_);
}

void MyCug::take_widths() {
    CRect client;
    GetClientRect(&client);
    const int unit = (client.Width() - GetSystemMetrics(SM_CXVSCROLL)) / 8;
    const Widths computed = {3 * unit, unit, 4 * unit};
    if (widths_[0] == -1) {
        widths_ = computed;
    }
    mend_widths(widths_.data(), computed.data(), column_count);
}

void MyCug::show_sort_arrow() {
    SetCellTypeIndex(sort_column_, heading_row, sort_arrow_index_);
    SetCellTypeOptions(sort_column_, heading_row, ascending_ ? arrow_when_ascending : arrow_when_descending);
}

void MyCug::OnGridRowChange(long, long new_row) {
    dialog().enable_moves(new_row > 0, !(new_row > 0 && new_row == GetRowCount() - 1));
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
    SetCellTypeIndex(sort_column_, heading_row, type_normal);
    ascending_ = column == sort_column_ ? !ascending_ : true;
    sort_column_ = column;
    SortBy(column, ascending_ ? sort_ascending : sort_descending);
    show_sort_arrow();
    // The next button or key acts on the current row: it must be seen.
    EnsureVisible(GetCurrentColumn(), GetCurrentRow());
    RedrawAll();
}

void MyCug::OnGridKeyDown(UINT* key, BOOL) {
    if (*key == VK_ESCAPE) {
        dialog().Close();
    } else if (*key == VK_F2) {
        StartEdit();
    }
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
    dialog().enable_save(true);
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

int MyCug::OnGridSortCompare(CUGCell* first, CUGCell* second, int flags) {
    return compare_empty_last(first, second, flags, sort_column_ == price_column);
}

std::unique_ptr<KeyedOrder> MyCug::OnGridSortOrder(int flags) {
    return std::make_unique<EmptyLastOrder>(flags, sort_column_ == price_column);
}
