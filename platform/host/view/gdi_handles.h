// Owners for GDI handles.
#pragma once

#include <windows.h>

#include <memory>

namespace host {

struct DeleteGdiObject {
    using pointer = HGDIOBJ;
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
/// A pen, brush, font or bitmap that is not selected anywhere when it goes.
using GdiObject = std::unique_ptr<void, DeleteGdiObject>;

struct DeleteMemoryContext {
    using pointer = HDC;
    void operator()(HDC context) const { DeleteDC(context); }
};
using MemoryContext = std::unique_ptr<HDC, DeleteMemoryContext>;

/// A window's device context for as long as the object lives: of its client area, or of all of it.
class WindowContext {
  public:
    explicit WindowContext(HWND window, bool with_frame = false)
        : window_(window), context_(with_frame ? GetWindowDC(window) : GetDC(window)) {}
    ~WindowContext() { ReleaseDC(window_, context_); }
    WindowContext(const WindowContext&) = delete;
    WindowContext& operator=(const WindowContext&) = delete;
    HDC get() const { return context_; }

  private:
    HWND window_;
    HDC context_;
};

/// Puts back what a context was like, whatever was selected or set meanwhile.
class SavedContext {
  public:
    explicit SavedContext(HDC context) : context_(context), state_(SaveDC(context)) {}
    ~SavedContext() { RestoreDC(context_, state_); }
    SavedContext(const SavedContext&) = delete;
    SavedContext& operator=(const SavedContext&) = delete;

  private:
    HDC context_;
    int state_;
};

}  // namespace host
