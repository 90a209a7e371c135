// A bitmap whose pixels both GDI and the raster draw into.
#pragma once

#include <windows.h>

#include <cstdint>

#include "platform/host/view/gdi_handles.h"
#include "platform/host/view/raster.h"

namespace host {

class FrameBitmap {
  public:
    FrameBitmap(int width, int height);
    FrameBitmap(const FrameBitmap&) = delete;
    FrameBitmap& operator=(const FrameBitmap&) = delete;
    ~FrameBitmap();

    int width() const { return width_; }
    int height() const { return height_; }
    /// False when there was no memory for the pixels; nothing can be drawn then.
    explicit operator bool() const { return pixels_ != nullptr; }

    /// A context that draws into the bitmap. Lives as long as this object.
    HDC context() const { return context_.get(); }
    /// For drawing into the pixels directly; what GDI has to draw is drawn before.
    Raster raster() const;
    /// Gives the bitmap away, selected nowhere; nothing can be drawn afterwards.
    GdiObject take_bitmap();

  private:
    int width_;
    int height_;
    uint32_t* pixels_ = nullptr;
    MemoryContext context_;
    GdiObject bitmap_;
    HGDIOBJ previous_ = nullptr;
};

}  // namespace host
