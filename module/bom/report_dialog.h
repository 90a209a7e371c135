// CalcPriceDialog, the modal "BOM Report": the priced rows in a grid, saved as text or inserted as a table.
#pragma once

#include <afxwin.h>

#include <functional>
#include <string>

#include "bom/bill_notes.h"
#include "bom/report_grid.h"
#include "bom/report_wishes.h"
#include "bom/result_string.h"

class CalcPriceDialog : public CDialog {
  public:
    /// Builds the table from the open dialog and ends the dialog: with IDOK when the table block is there.
    using InsertHandler = std::function<void(CalcPriceDialog&)>;

    CalcPriceDialog(CWnd* parent, InsertHandler insert);
    ~CalcPriceDialog() override;

    /// The dialog that is open, through which its grid reaches it; null when there is none.
    static CalcPriceDialog* open_dialog();

    /// Column widths and the last price list, from the files beside the module.
    void LoadReportSettings();
    /// Stores the settings and ends the dialog with the cancel result.
    void SaveReportSettingsAndClose();

    MyCug2& grid() { return grid_; }
    RowList& rows() { return rows_; }
    NameIndex& index() { return index_; }
    /// The text of the price list that waits for a count; empty without one.
    std::wstring& price_list() { return price_list_; }

    /// What is wanted beside the dialog, and what counting found for it.
    corvanes::ReportWishes& wishes() { return wishes_; }
    std::vector<corvanes::Note>& notes() { return notes_; }
    std::vector<corvanes::BlockReferences>& counted() { return counted_; }

    /// What the table builder leaves for the placement: the block's name and its size at scale 1, in drawing units.
    struct TableBlock {
        std::wstring name;
        double width = 0;
        double height = 0;
    };
    TableBlock& table() { return table_; }

  protected:
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;

    DECLARE_MESSAGE_MAP()

  private:
    void OnClose();
    void OnAttachNew();
    void OnSaveToFile();
    void OnInsert();
    void OnShowPrice();
    void OnLButtonDown(UINT flags, CPoint point);

    InsertHandler insert_;
    CalcPriceDialog* outer_;  ///< open while this one is: the command runs within the prompts of another
    MyCug2 grid_;
    RowList rows_;
    NameIndex index_{10};
    std::wstring price_list_;
    corvanes::ReportWishes wishes_;
    std::vector<corvanes::Note> notes_;
    std::vector<corvanes::BlockReferences> counted_;
    CStatic current_file_;
    int show_price_ = 1;
    TableBlock table_;
};
