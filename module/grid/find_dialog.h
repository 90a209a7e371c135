// FindDialog, the window in which a person looks for a text in a grid, and replaces it where cells may change.
#pragma once

#include <string>
#include <vector>

#include "grid/cell_search.h"
#include "grid/find_field.h"
#include "grid/memory_dialog.h"

namespace corvanes {

class CellGrid;

// Stays open beside the grid's dialog, which can be used meanwhile. What was looked for is remembered while the
// grid lives. Only columns that are shown are looked at. A cell that is found becomes the current one and is selected.
class FindDialog : public MemoryDialog {
  public:
    explicit FindDialog(CellGrid& grid) : grid_(grid) {}

    // Opens the window, or brings it forward; `replacing` needs a grid whose cells may change.
    void Open(bool replacing);
    // Goes to the next cell with what was looked for last; opens the window when nothing was looked for yet.
    void FindNext();
    // Closes the window and gives the keyboard back to the grid.
    void Close();

    BOOL PreTranslateMessage(MSG* message) override;

  protected:
    BOOL OnInitDialog() override;
    HWND MakeControl(const DialogControl& control, const RECT& place) override;
    void OnOK() override { FindNext(); }
    void OnCancel() override { Close(); }
    void OnClose() { Close(); }
    void OnReplace();
    void OnReplaceAll();
    void OnTextChange();
    DECLARE_MESSAGE_MAP()

  private:
    // Reads the fields, if the window is there. False when nothing can be looked for now: the text is empty, an edit
    // does not end, or another question is open.
    bool Prepare();
    SearchSpace Space() const;
    CellSearch Search() const { return CellSearch(text_, options_); }
    void Show(CellAddress cell);
    // The window that the grid is in.
    HWND Below() const;
    // Moves this window away when it covers the cell.
    void Uncover(CellAddress cell);
    // Shows a message over this window, or over the grid's, and disables the dialog below meanwhile.
    int Say(const std::wstring& text, const wchar_t* caption, UINT kind);

    CellGrid& grid_;
    FindField text_field_;
    FindField replacement_field_;
    bool replacing_ = false;
    std::wstring text_;
    std::wstring replacement_;
    SearchOptions options_;
    bool one_column_ = false;
    bool up_ = false;
};

}  // namespace corvanes
