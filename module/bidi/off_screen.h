// A picture in memory to paint into before it goes to the screen.
#pragma once

#include <afxwin.h>

namespace corvanes {

class OffScreen {
  public:
    /// The picture suits the context `screen` and is filled with one colour. When the system has no room for it,
    /// painting into it does nothing.
    OffScreen(CDC& screen, int width, int height, COLORREF color) {
        dc_.CreateCompatibleDC(&screen);
        bitmap_.CreateCompatibleBitmap(&screen, width, height);
        former_ = ::SelectObject(dc_.m_hDC, bitmap_.GetSafeHandle());
        dc_.FillSolidRect(CRect(0, 0, width, height), color);
    }
    ~OffScreen() { ::SelectObject(dc_.m_hDC, former_); }
    OffScreen(const OffScreen&) = delete;
    OffScreen& operator=(const OffScreen&) = delete;

    CDC& dc() { return dc_; }

  private:
    CBitmap bitmap_;
    CDC dc_;
    HGDIOBJ former_ = nullptr;
};

}  // namespace corvanes
