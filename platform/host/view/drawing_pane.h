// The child window that shows a drawing: painting, zooming, panning, the pointer.
#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <memory>
#include <optional>

#include "platform/host/view/drawing_frame.h"
#include "platform/host/view/drawing_overlay.h"

namespace host {

/// What a person does with the mouse.
struct PaneEvent {
    enum class Kind {
        move,
        pick,    ///< the left button went down, or up at the other corner of a selection that it began
        finish,  ///< the right button: the same as Return
    };
    Kind kind;
    Vec2 point;  ///< world coordinates
    bool with_shift = false;
};

/// What a pane is to show. The drawing may be null.
struct PaneContent {
    const dxf::Drawing* drawing = nullptr;
    uint64_t edits = 0;  ///< Drawing::edits_made()
    DisplayList::Space space = DisplayList::Space::model;
    bool operator==(const PaneContent&) const = default;
};

/// The content is asked for when it is needed, so that a pane that is not seen costs
/// nothing, and what has changed meanwhile is shown at the next look.
class DrawingPane final {
  public:
    using Content = std::function<PaneContent()>;
    using Listener = std::function<void(const PaneEvent&)>;
    using ListListener = std::function<void(const dxf::Drawing&, const DisplayList&)>;

    /// The window fills nothing until its parent places it. The parent destroys it, after the pane.
    DrawingPane(HWND parent, Content content, Listener listener);
    ~DrawingPane();
    DrawingPane(const DrawingPane&) = delete;
    DrawingPane& operator=(const DrawingPane&) = delete;

    HWND window() const { return window_; }
    /// `listener` is told of each list of a drawing that the pane begins to show.
    void on_new_list(ListListener listener) { list_listener_ = std::move(listener); }
    /// `watch` is told how far a list is while it is made; see base::ProgressWatch.
    void watch_lists(std::function<bool(double part)> watch) { list_watch_ = std::move(watch); }
    /// Another drawing was opened: it will be seen whole.
    void drawing_opened();
    /// Looks whether the content or the pointer's guide has changed. To be called before waiting for a person.
    void update(const PointerGuide& guide = {});
    const PointerGuide& guide() const { return guide_; }
    /// Removes temporary vectors and paints everything anew.
    void redraw();

    const ViewTransform& view() const { return frame_.view(); }
    /// What is to be shown; null when nothing is open.
    const dxf::Drawing* drawing() const { return content_().drawing; }
    const DisplayList& list();
    void set_view(const ViewTransform& view);
    void zoom_extents();
    /// Keeps the view as it is, for restore_view(); the last ten are kept.
    void remember_view();
    /// False when none is left.
    bool restore_view();
    void set_background(uint32_t colour);
    /// The mouse is elsewhere. Windows says so too, but under Wine only after a while.
    void hide_pointer();

    /// A temporary vector, drawn at once. Colours as in VectorOverlay.
    void draw_vector(const VectorOverlay::Vector& vector);
    void show_selected(const std::vector<dxf::RecordId>& entities);

  private:
    struct Click {
        POINT at;
        LONG time;  ///< milliseconds, as messages have it
        bool doubles(const Click& first) const;
    };
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    /// The result of a message, or nothing for one that is the window's own.
    std::optional<LRESULT> handle(UINT message, WPARAM wparam, LPARAM lparam);
    void paint();
    void refresh_list();
    void resize(int width, int height);
    std::optional<LRESULT> handle_mouse(UINT message, WPARAM keys, POINT at);
    void move_pointer(POINT at);
    void press(POINT at, bool with_shift);
    void let_go(POINT at, bool with_shift);
    void start_panning(POINT at);
    void tell(PaneEvent::Kind kind, POINT at, bool with_shift = false) const;
    void invalidate() const { InvalidateRect(window_, nullptr, FALSE); }

    HWND window_ = nullptr;
    Content content_;
    Listener listener_;
    ListListener list_listener_;
    std::function<bool(double)> list_watch_;
    DrawingFrame frame_{DrawingFrame::texts_in_motion};
    PaneContent shown_;
    bool fit_ = true;    ///< to be seen whole at the next painting
    bool fits_ = false;  ///< is seen whole, and stays so in a window of another size
    std::deque<ViewTransform> earlier_;
    VectorOverlay vectors_;
    PointerGuide guide_;
    std::optional<POINT> pointer_;       ///< while the mouse is over the window
    std::optional<PointerShape> drawn_;  ///< the pointer as it stands on the screen
    std::optional<POINT> pressed_at_;    ///< while the left button is down
    std::optional<POINT> panned_from_;   ///< while the middle button is down
    std::optional<Click> last_middle_click_;
};

}  // namespace host
