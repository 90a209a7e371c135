// HintWindow, the small window that shows the whole text of a cell that is too narrow for it.
#pragma once

#include <afxwin.h>

namespace corvanes {

class HintWindow : public CWnd {
  public:
    // Shows `text` below a cell (above it, where there is no room), both in screen coordinates, in the given font.
    // The window belongs to the owner's top-level window and never takes the focus.
    void Show(CWnd& owner, const RECT& cell, const wchar_t* text, HFONT font);
    void Hide();
    bool shown() const { return m_hWnd != nullptr && ::IsWindowVisible(m_hWnd) != 0; }

  protected:
    void OnPaint();
    BOOL OnEraseBkgnd(CDC* dc);
    LRESULT OnHitTest(WPARAM unused, LPARAM point);
    DECLARE_MESSAGE_MAP()

  private:
    CString text_;
    HFONT font_ = nullptr;  // the grid's font, not owned
};

}  // namespace corvanes
