// The part of the main window that the drawing appears in.
#pragma once

#include <windows.h>

#include <optional>

#include "platform/host/editor/input_events.h"
#include "platform/host/view/drawing_pane.h"

namespace host {

class DrawingView final : public VectorDisplay {
  public:
    /// A child window that fills nothing until its parent places it. The parent destroys it.
    DrawingView(HWND parent, DrawingPane::Content content, DrawingPane::Listener listener);
    ~DrawingView() override;
    DrawingView(const DrawingView&) = delete;
    DrawingView& operator=(const DrawingView&) = delete;

    HWND window() const { return window_; }
    DrawingPane& pane() { return *pane_; }
    void draw_vector(const Point& from, const Point& to, int colour, bool highlight) override;

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

    HWND window_ = nullptr;
    std::optional<DrawingPane> pane_;
};

}  // namespace host
