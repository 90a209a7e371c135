// MemoryDialog, a modeless dialog whose controls a table in the program describes: it needs no resources.
#pragma once

#include <afxwin.h>

#include <vector>

namespace corvanes {

// A control of the dialog. Its place and size are in dialog units, from the client area's upper left corner.
struct DialogControl {
    const wchar_t* window_class;
    const wchar_t* caption;
    DWORD style;  // besides WS_CHILD and WS_VISIBLE
    int id;
    short x, y, width, height;
};

class MemoryDialog : public CDialog {
  protected:
    // Creates the dialog, still hidden, over the window that `owner` is in; false when the system refuses. A null class
    // in the table stands for a control that MakeControl makes. The order of the table is that of Tab.
    bool CreateOver(CWnd& owner, const wchar_t* caption, CSize size, std::vector<DialogControl> controls);
    virtual HWND MakeControl(const DialogControl& /*control*/, const RECT& /*place*/) { return nullptr; }
    BOOL OnInitDialog() override;

  private:
    std::vector<DialogControl> controls_;
};

}  // namespace corvanes
