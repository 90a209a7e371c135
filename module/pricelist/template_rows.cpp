// MyCug's rows: how they are made, moved, checked, read and written.
#include <vector>

#include "base/case_folding.h"
#include "common/price_text.h"
#include "pricelist/price_list_file.h"
#include "pricelist/status_label.h"
#include "pricelist/template_grid.h"

using namespace corvanes;

namespace {

/// How long a notice is shown that nobody has to answer.
constexpr int notice_milliseconds = 10000;

/// The words that name a row; rows count from 1 in them.
std::wstring row_words(long row) {
    return L"Row " + std::to_wstring(row + 1) + L": ";
}

/// Tells how a price will be read of which only a part is a number; empty for any other price.
std::wstring words_of_price(std::wstring_view price, long row) {
    constexpr size_t longest_shown = 20;
    const auto read = price.empty() ? std::nullopt : partly_read_number(price);
    if (!read) {
        return {};
    }
    const std::wstring shown =
        price.size() <= longest_shown ? std::wstring(price) : std::wstring(price.substr(0, longest_shown)) + L"\x2026";
    return row_words(row) + L"the price \"" + shown + L"\" is read as " + amount_text(*read);
}

std::wstring words_of(EntryLoss loss, long row) {
    const wchar_t* const what = loss == EntryLoss::separator  ? L"a vertical bar ends a field"
                                : loss == EntryLoss::line_end ? L"a line break ends the row"
                                                              : L"the text is too long and is cut";
    return row_words(row) + what;
}

}  // namespace

std::wstring MyCug::text(int column, long row) {
    const wchar_t* cell = GetCellText(column, row);
    return cell == nullptr ? L"" : cell;
}

void MyCug::ClearAll() {
    modified_ = false;
    encoding_ = {};
    dialog_.enable_save(false);
    clear_status();
    SetRowCount(0, TRUE);
}

void MyCug::AddNewRow() {
    AppendRow();
    const long row = GetRowCount() - 1;
    InitRow(row);
    GotoCell(name_column, row);
}

void MyCug::InsertRowAfter(long row) {
    clear_status();
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

PriceListEntry MyCug::entry(long row) {
    const auto view = [this, row](int column) {
        const wchar_t* cell = GetCellText(column, row);
        return cell == nullptr ? std::wstring_view() : std::wstring_view(cell);
    };
    return {view(name_column), view(price_column), view(description_column)};
}

int MyCug::SaveToFile(const wchar_t* path) {
    std::vector<PriceListEntry> rows(static_cast<size_t>(GetRowCount()));
    for (size_t row = 0; row < rows.size(); ++row) {
        rows[row] = entry(static_cast<long>(row));
    }
    return SavePriceList(path, rows, encoding_);
}

int MyCug::LoadFromFile(const wchar_t* path) {
    return LoadPriceList(
        path, L"r",
        [this](TextEncoding encoding) {
            ClearAll();
            encoding_ = encoding;
        },
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
    clear_status();
    return 1;
}

void MyCug::tell_misread_prices() {
    for (long row = 0; row < GetRowCount(); ++row) {
        if (const std::wstring words = words_of_price(entry(row).price, row); !words.empty()) {
            return show_status(words, price_column, row, notice_milliseconds);
        }
    }
}

bool MyCug::may_save_losses() {
    for (long row = 0; row < GetRowCount(); ++row) {
        const EntryLoss loss = loss_on_reading(entry(row));
        if (loss == EntryLoss::nothing) {
            continue;
        }
        GotoCell(name_column, row);
        dialog_.go_on_in_grid();
        const std::wstring question = words_of(loss, row) + L" when the list is read again.\nSave it all the same?";
        return AfxMessageBox(question.c_str(), MB_OKCANCEL | MB_DEFBUTTON2) == IDOK;
    }
    return true;
}

bool MyCug::warn_of_loss(int column, long row, const wchar_t* new_text) {
    PriceListEntry changed = entry(row);
    (column == name_column ? changed.name : column == price_column ? changed.price : changed.description) = new_text;
    const EntryLoss loss = loss_on_reading(changed);
    const std::wstring words = loss != EntryLoss::nothing ? words_of(loss, row)
                               : column == price_column   ? words_of_price(changed.price, row)
                                                          : std::wstring();
    if (!words.empty()) {
        show_status(words, column, row, notice_milliseconds);
    }
    return !words.empty();
}

void MyCug::show_status(const std::wstring& message, int column, long row, int milliseconds) {
    constexpr int blink_milliseconds = 200;
    clear_status();
    status_cell_ = {column, row};
    dialog_.status().ShowMessage(milliseconds, blink_milliseconds, message.c_str());
    Beep(1000, 50);
}

void MyCug::clear_status() {
    dialog_.status().Clear();
    if (status_cell_ && IsSelected(status_cell_->first, static_cast<int>(status_cell_->second))) {
        ClearSelection();
    }
    status_cell_.reset();
}

int MyCug::complain(const wchar_t* message, int column, long row) {
    constexpr int without_end = 0;
    show_status(message, column, row, without_end);
    ClearSelection();
    SelectCell(column, row);
    GotoCell(column, row);
    dialog_.go_on_in_grid();
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

int MyCug::SwapRows(long row_a, long row_b) {
    const long rows = GetRowCount();
    if (row_a < 0 || row_b < 0 || row_a >= rows || row_b >= rows) {
        return 0;
    }
    clear_status();
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
