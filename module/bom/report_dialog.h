// CalcPriceDialog, the modal "BOM Report": the priced rows in a grid, saved as text or inserted as a table.
#pragma once

#include <afxwin.h>

#include <functional>
#include <string>

#include "bom/block_selection.h"
#include "bom/report_grid.h"
#include "bom/report_wishes.h"

class CalcPriceDialog : public CDialog, private corvanes::GridOwner {
  public:
    /// Builds the table from the open dialog and ends the dialog, with IDOK when the table block is there.
    using InsertHandler = std::function<void(CalcPriceDialog&)>;

    CalcPriceDialog(CWnd* parent, const corvanes::ReportWishes& wishes, InsertHandler insert);
    ~CalcPriceDialog() override;

    /// The dialog that is open; null when there is none.
    static CalcPriceDialog* open_dialog();

    /// Reads the column widths and the last price list from the files beside the module.
    void LoadReportSettings();
    /// Stores the settings and ends the dialog with the cancel result.
    void SaveReportSettingsAndClose();

    /// Empties the grid and the rows and reads the price list that the next count joins its rows with. False, with
    /// everything as it was, after an alert when the file cannot be opened.
    bool LoadPriceRows(const wchar_t* path);
    /// Has the user select, and counts, as corvanes::CountSelectedBlocks does.
    bool CountSelectedBlocks();

    MyCug2& grid() { return grid_; }
    corvanes::BlockCount& count() { return count_; }

    /// What the table builder leaves for the placement: the block's name and its size at scale 1, in drawing units.
    struct TableBlock {
        std::wstring name;
        double width = 0;
        double height = 0;
    };
    TableBlock& table() { return table_; }

  protected:
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL PreTranslateMessage(MSG* message) override;
    BOOL OnInitDialog() override;

    DECLARE_MESSAGE_MAP()

  private:
    void Close() override { SaveReportSettingsAndClose(); }
    void OnClose() { Close(); }
    void OnAttachNew();
    void OnSaveToFile();
    void OnInsert();
    void OnShowPrice();
    void OnLButtonDown(UINT flags, CPoint point);

    InsertHandler insert_;
    CalcPriceDialog* outer_;  ///< the dialog that was open before, when the command runs within another; else null
    MyCug2 grid_{this};
    std::wstring price_list_;  ///< the text that the next count is joined with
    corvanes::ReportWishes wishes_;
    corvanes::BlockCount count_;
    CStatic current_file_;
    int show_price_ = 1;
    TableBlock table_;
};
