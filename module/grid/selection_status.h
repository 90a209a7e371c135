// SelectionStatus, the line below a grid that shows the count and the sum of the selected numbers.
#pragma once

#include <afxwin.h>

#include <string>

namespace corvanes {

// The line is a child of the grid's parent, in the room between the grid and what is below it; without room it is not
// shown.
class SelectionStatus {
  public:
    // Shows the text; an empty one removes the line.
    void Show(CWnd& grid, HFONT font, const std::wstring& text);
    void Hide();
    bool shown() const { return line_.m_hWnd != nullptr && line_.IsWindowVisible() != 0; }
    void Destroy() { line_.DestroyWindow(); }

  private:
    CStatic line_;
};

}  // namespace corvanes
