// A drawing painted for a window: the display list, what part of it is seen, and the finished picture.
#pragma once

#include <windows.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include "platform/host/view/gdi_handles.h"
#include "platform/host/view/list_painter.h"
#include "platform/host/view/raster.h"
#include "platform/host/view/system_typesetter.h"

namespace host {

/// A bitmap whose pixels both GDI and the raster draw into. Belongs to the thread of the windows.
class FrameBitmap {
  public:
    /// What is in it at first is not defined: the last ones' memory is used again, which is many times as quick as
    /// the system's.
    FrameBitmap(int width, int height);
    FrameBitmap(const FrameBitmap&) = delete;
    FrameBitmap& operator=(const FrameBitmap&) = delete;
    ~FrameBitmap();

    int width() const;
    int height() const;
    /// False when there was no memory for the pixels; nothing can be drawn then.
    explicit operator bool() const;

    /// A context that draws into the bitmap. Lives as long as this object.
    HDC context() const;
    /// For drawing into the pixels directly; what GDI has to draw is drawn before.
    Raster raster() const;

  private:
    class Canvas;
    using CanvasPointer = std::unique_ptr<Canvas>;

    /// Those that were used last and may be used again, the last one first.
    static std::vector<CanvasPointer>& kept();
    static CanvasPointer take(int width, int height);

    CanvasPointer canvas_;
};

/// Paints only when something has changed since the last picture.
class DrawingFrame {
  public:
    /// The most small texts that there is time for in a frame that follows a person's hand. A text costs ten times as
    /// much as a line.
    static constexpr size_t texts_in_motion = 1000;

    /// For more small texts see ListPainter::paint.
    explicit DrawingFrame(size_t most_small_texts = std::numeric_limits<size_t>::max());

    const DisplayList& list() const { return *list_; }
    void set_list(std::shared_ptr<const DisplayList> list);
    /// An empty one takes its place.
    std::shared_ptr<const DisplayList> take_list();
    void set_background(uint32_t colour);
    /// Shows line weights whether or not the drawing wants them on the screen.
    void show_weights() { weights_ = true; }
    const PaintColours& colours() const { return colours_; }
    void set_highlighted(EntitySet entities);
    const EntitySet& highlighted() const { return highlighted_; }

    const ViewTransform& view() const { return view_; }
    void set_view(const ViewTransform& view);
    void resize(int width, int height);

    /// The picture of what is seen now; null when there is no memory for it. Belongs to the frame, and stays until
    /// something changes.
    FrameBitmap* picture();

  private:
    std::shared_ptr<const DisplayList> list_;
    ViewTransform view_;
    PaintColours colours_;
    EntitySet highlighted_;
    SystemTypesetter typesetter_;
    std::unique_ptr<FrameBitmap> picture_;
    size_t most_small_texts_;
    bool weights_ = false;
    bool stale_ = true;
};

}  // namespace host
