// BlockPriceDialog, the modal dialog "BOM Template", in which price lists are made, opened, edited and saved.
#pragma once

#include <afxwin.h>

#include <string>

#include "pricelist/status_label.h"
#include "pricelist/template_grid.h"

class BlockPriceDialog : public CDialog, public TemplateGridOwner {
  public:
    explicit BlockPriceDialog(CWnd* parent);
    ~BlockPriceDialog() override;

    /// The dialog that is open; null when there is none.
    static BlockPriceDialog* open_dialog();

    /// Asks whether to save, stores the settings and ends the dialog; the user may keep it open.
    void Close() override;

    void enable_save(bool on) override { enable(save_, on); }
    void enable_moves(bool up, bool down) override;
    void go_on_in_grid() override;
    CStaticEx& status() override { return status_; }

  protected:
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL PreTranslateMessage(MSG* message) override;
    BOOL OnInitDialog() override;
    void OnSetFont(CFont* font) override;

    DECLARE_MESSAGE_MAP()

  private:
    void OnNew();
    void OnOpen();
    void OnSave();
    void OnSaveAs();
    void OnInsertRow();
    void OnDeleteRow();
    void OnMoveUp();
    void OnMoveDown();
    void OnClose() { Close(); }
    HBRUSH OnCtlColor(CDC* context, CWnd* control, UINT kind);

    /// Enables or disables a button. A disabled one hands the focus on to the grid, since its keys would go nowhere.
    void enable(CButton& button, bool on);
    /// Ends an open edit, so that what was typed is stored. False when the grid refuses that and the edit goes on.
    bool edit_is_over();
    /// Asks about unsaved work. False when the user cancelled or saving failed.
    bool may_lose_changes(bool check_first);
    void attach_grid();
    void show_current_file();
    void mark_saved();

    MyCug grid_{*this};
    CButton move_down_;
    CButton move_up_;
    CButton delete_row_;
    CButton insert_row_;
    CButton save_as_;
    CButton save_;
    CStatic current_file_;
    CStaticEx status_;
    CFont font_;
    bool grid_attached_ = false;
    bool template_active_ = false;
    bool asking_ = false;
};
