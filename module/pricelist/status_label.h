// CStaticEx, the status label that shows an error blinking until it is cleared or its time runs out.
#pragma once

#include <afxwin.h>

class CStaticEx : public CStatic {
  public:
    /// Shows `text`, alternating between enabled and greyed every `interval` milliseconds, with a low beep each time it
    /// becomes enabled. When `duration` is 1 or more, it ends by itself after that many milliseconds.
    void ShowMessage(int duration, int interval, const wchar_t* text);
    /// Removes the message and leaves the label enabled.
    void Clear();

  protected:
    afx_msg void OnTimer(UINT_PTR id);
    DECLARE_MESSAGE_MAP()

  private:
    int blink_state_ = 1;  ///< 1: the next tick enables the label, 0: it greys it
};
