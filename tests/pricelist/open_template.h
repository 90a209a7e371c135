// A fixture: the real BOM Template dialog over a drawing, in this process, with real messages; tests look at its grid.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "pricelist/template_dialog.h"
#include "tests/support/temporary_folder.h"

namespace test_support {

/// Opens the dialog without a modal loop. Its files, settings files included, are in a folder that lives as long as
/// this object. Only one such object may exist at a time.
class OpenTemplate {
  public:
    /// `blocks` are the drawing's block names, in code page 1255.
    explicit OpenTemplate(const std::vector<std::string>& blocks);
    ~OpenTemplate();
    OpenTemplate(const OpenTemplate&) = delete;
    OpenTemplate& operator=(const OpenTemplate&) = delete;

    /// Presses a button as a click does, and handles all that follows. `file` answers a file question; empty cancels
    /// it.
    void press(int id, const std::wstring& file = L"");
    void open(const wchar_t* name) { press(203, path(name).wstring()); }
    /// Sends a key to the control with the focus, with `held` keys held down, through its dialog's translation.
    void key(UINT code, std::initializer_list<int> held = {});
    /// Sends characters to the control with the focus.
    void type(const wchar_t* text);
    /// Clicks on a cell; `from_right` counts pixels from its right edge.
    void click(int column, int row, int from_right = 40);
    void click_heading(int column);
    /// Replaces a cell's text by one from the clipboard.
    void paste(int column, int row, const std::wstring& text);
    /// Handles the messages that are waiting.
    void pump();

    /// The answers to the message boxes from now on, one after another; IDCANCEL when there are no more.
    void answer_boxes(std::vector<int> answers);
    /// The texts of the boxes that came up since the last call.
    std::vector<std::wstring> boxes();

    MyCug& grid() const;
    BlockPriceDialog& dialog() { return *dialog_; }
    HWND control(int id) const { return ::GetDlgItem(dialog_->m_hWnd, id); }
    /// Which of Save, Save As, Insert Row, Delete Row, Move Up and Move Down are enabled: a letter each.
    std::string buttons() const;
    std::wstring text_of(int id) const;
    /// Whether the dialog has not been ended.
    bool is_open() const { return ::IsWindowVisible(dialog_->m_hWnd) != 0; }
    /// The rows as a price list shows them: "name|price|description" and a line feed each.
    std::wstring rows() const;

    std::filesystem::path path(const std::wstring& name) const { return folder_ / name; }
    void write(const std::wstring& name, const std::string& bytes) const { folder_.write(name, bytes); }
    std::string read(const std::wstring& name) const { return folder_.read(name); }

  private:
    class Answers;

    TemporaryFolder folder_;
    std::unique_ptr<Answers> answers_;
    CWnd main_window_;
    std::unique_ptr<BlockPriceDialog> dialog_;
};

}  // namespace test_support
