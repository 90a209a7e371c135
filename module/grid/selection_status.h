// SelectionStatus, the line below a grid that tells how many numbers are selected and what they come to.
#pragma once

#include <afxwin.h>

#include <string>

namespace corvanes {

// Stands in the grid's parent, where that has room between the grid and whatever is below; elsewhere nothing is shown.
class SelectionStatus {
  public:
    // An empty text takes the line away.
    void Show(CWnd& grid, HFONT font, const std::wstring& text);
    void Hide();
    bool shown() const { return line_.m_hWnd != nullptr && line_.IsWindowVisible() != 0; }
    void Destroy() { line_.DestroyWindow(); }

  private:
    CStatic line_;
};

}  // namespace corvanes
