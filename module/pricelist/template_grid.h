// MyCug, the grid of the BOM Template dialog: block names, prices and descriptions, kept unique, sorted and checked.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "common/sorting_grid.h"
#include "common/text_conversion.h"
#include "pricelist/block_names.h"
#include "pricelist/price_list_lines.h"

class CStaticEx;

/// The BOM Template dialog, as its grid sees it.
class TemplateGridOwner : public corvanes::GridOwner {
  public:
    virtual void enable_save(bool on) = 0;
    virtual void enable_moves(bool up, bool down) = 0;
    /// Gives the keyboard back to the grid. On a button, typed letters would press other buttons.
    virtual void go_on_in_grid() = 0;
    /// The label that messages are shown in.
    virtual CStaticEx& status() = 0;

  protected:
    ~TemplateGridOwner() = default;
};

class MyCug : public SortingGrid {
  public:
    static constexpr int column_count = 3;

    explicit MyCug(TemplateGridOwner& dialog);

    /// Removes every row; afterwards the grid counts as not modified.
    void ClearAll();
    /// Appends an empty row with the price 0 and makes its name current.
    void AddNewRow();
    /// Inserts such a row behind `row`, or at the end when there is no such row.
    void InsertRowAfter(long row);
    void AddRowWithData(const wchar_t* name, const wchar_t* price, const wchar_t* description);

    /// Writes the rows to a price list. Returns 1, or 0 after an alert.
    int SaveToFile(const wchar_t* path);
    /// Replaces the rows by those of a price list. Returns 1; or 0, after an alert and with the rows as they were, when
    /// the file cannot be opened.
    int LoadFromFile(const wchar_t* path);

    /// Returns 1 when every row that has a name or a price has both. Otherwise shows what is missing, makes that cell
    /// current and returns 0.
    int CheckBeforeSave();
    /// True when reading the list again gives every row back whole, or the user agrees to save it all the same. When
    /// the user does not, the row in question is made current.
    bool may_save_losses();
    /// Shows in the status label the first price of which only a part will be read; it refuses no price.
    void tell_misread_prices();
    /// Clears the message and the selection that came with it.
    void clear_status();
    /// Returns 1 when no row but `except_row` has this name, whatever its case; else 0.
    int IsNameUnique(const wchar_t* name, long except_row);

    /// These two exchange the current row with its neighbour, and do nothing at the ends.
    void MoveRowUp();
    void MoveRowDown();

    bool modified() const { return modified_; }
    void set_modified(bool modified) { modified_ = modified; }

    void OnGridSetup() override;
    void OnGridRowChange(long old_row, long new_row) override;
    void OnGridCellChange(int old_column, int new_column, long old_row, long new_row) override;
    void OnGridLeftClick(int column, long row, int updn, RECT* rect, POINT* point, int processed) override;
    void OnGridHeadingClick(int column, long row, int updn, RECT* rect, POINT* point, int processed) override;
    void OnGridKeyDown(UINT* key, BOOL processed) override;
    void OnGridCharDown(UINT* character, BOOL processed) override;
    int OnGridEditStart(int column, long row, CWnd** edit) override;
    int OnGridEditFinish(int column, long row, CWnd* edit, LPCWSTR text, BOOL cancelled) override;
    /// Checks, as an edit does, the names as they will be after all changes. Shows the first price or text of which a
    /// part will be lost.
    std::wstring OnGridCellsChange(const std::vector<corvanes::CellChange>& changes) override;
    void OnGridRowsAppend(long first, long count) override;
    bool AllowsChanges() const override { return true; }

  private:
    enum Column { name_column, price_column, description_column };

    /// The direction of the nearest row that has a description; nothing when no row has one.
    std::optional<corvanes::ParagraphDirection> direction_of_descriptions(long row);
    void InitRow(long row);
    void RefreshNameList();
    int SwapRows(long row_a, long row_b);
    std::wstring text(int column, long row);
    corvanes::PriceListEntry entry(long row);
    /// The first of the changed names that more than one row would have after these changes.
    std::optional<std::wstring> name_made_twice(const std::vector<corvanes::CellChange>& changes);
    /// True when a message was shown.
    bool warn_of_loss(int column, long row, const wchar_t* new_text);
    /// Shows a message about a cell, blinking and beeping, until clear_status or for a time, if one is given.
    void show_status(const std::wstring& message, int column, long row, int milliseconds);
    int complain(const wchar_t* message, int column, long row);

    TemplateGridOwner& dialog_;
    std::optional<std::pair<int, long>> status_cell_;  ///< the column and row that the message is about
    BlockNamesCont block_names_;
    CString drop_list_;
    bool sorting_allowed_ = true;
    bool name_column_locked_ = false;
    bool modified_ = false;
    corvanes::TextEncoding encoding_{};  ///< the encoding of the list that was read, in which it is saved again
    CUGMaskedEdit editor_;
};
