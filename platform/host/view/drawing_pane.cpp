#include "platform/host/view/drawing_pane.h"

#include <windowsx.h>

#include <cstdlib>
#include <utility>

#include "base/progress.h"
#include "platform/host/view/window_class.h"

namespace host {

namespace {

constexpr double margin = 0.02;     // around a drawing that is seen whole, as a part of it
constexpr double wheel_step = 1.2;  // for one notch

class WindowPainting {
  public:
    explicit WindowPainting(HWND window) : window_(window), context_(BeginPaint(window, &painting_)) {}
    ~WindowPainting() { EndPaint(window_, &painting_); }
    WindowPainting(const WindowPainting&) = delete;
    WindowPainting& operator=(const WindowPainting&) = delete;
    HDC context() const { return context_; }
    const RECT& area() const { return painting_.rcPaint; }

  private:
    HWND window_;
    PAINTSTRUCT painting_{};
    HDC context_;
};

bool within(LONG a, LONG b, int distance) {
    return std::abs(a - b) <= distance;
}

/// The middle of a pixel.
Vec2 pixel(POINT at) {
    return {at.x + 0.5, at.y + 0.5};
}

}  // namespace

bool DrawingPane::Click::doubles(const Click& first) const {
    return time - first.time < static_cast<LONG>(GetDoubleClickTime()) &&
           within(at.x, first.at.x, GetSystemMetrics(SM_CXDOUBLECLK)) &&
           within(at.y, first.at.y, GetSystemMetrics(SM_CYDOUBLECLK));
}

DrawingPane::DrawingPane(HWND parent, Content content, Listener listener)
    : content_(std::move(content)), listener_(std::move(listener)) {
    constexpr wchar_t class_name[] = L"DrawingView";
    register_window_class(class_name, &DrawingPane::procedure, COLOR_WINDOW);
    window_ = CreateWindowExW(0, class_name, L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, 0, 0, 0, 0, parent, nullptr,
                              host_instance(), nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    resize(0, 0);
}

DrawingPane::~DrawingPane() {
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
}

LRESULT CALLBACK DrawingPane::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* const pane = reinterpret_cast<DrawingPane*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    const std::optional<LRESULT> handled = pane != nullptr ? pane->handle(message, wparam, lparam) : std::nullopt;
    return handled ? *handled : DefWindowProcW(window, message, wparam, lparam);
}

std::optional<LRESULT> DrawingPane::handle(UINT message, WPARAM wparam, LPARAM lparam) {
    const POINT at{GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
    switch (message) {
        case WM_PAINT:
            paint();
            return 0;
        case WM_ERASEBKGND:
            return 1;  // painting covers everything
        case WM_SIZE:
            resize(LOWORD(lparam), HIWORD(lparam));
            return 0;
        case WM_SETCURSOR:
            if (LOWORD(lparam) != HTCLIENT) {
                return std::nullopt;
            }
            SetCursor(nullptr);  // the pointer is drawn
            return TRUE;
        case WM_MOUSELEAVE:
            hide_pointer();
            return 0;
        case WM_MOUSEWHEEL: {
            POINT client = at;
            ScreenToClient(window_, &client);
            ViewTransform closer = view();
            closer.zoom_about(pixel(client),
                              std::pow(wheel_step, GET_WHEEL_DELTA_WPARAM(wparam) / double{WHEEL_DELTA}));
            set_view(closer);
            return 0;
        }
        default:
            return handle_mouse(message, wparam, at);
    }
}

std::optional<LRESULT> DrawingPane::handle_mouse(UINT message, WPARAM keys, POINT at) {
    const bool with_shift = (keys & MK_SHIFT) != 0;
    switch (message) {
        case WM_MOUSEMOVE:
            move_pointer(at);
            return 0;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            press(at, with_shift);
            return 0;
        case WM_LBUTTONUP:
            let_go(at, with_shift);
            return 0;
        case WM_RBUTTONDOWN:
            tell(PaneEvent::Kind::finish, at);
            return 0;
        case WM_MBUTTONDOWN:
        case WM_MBUTTONDBLCLK:
            start_panning(at);
            return 0;
        case WM_MBUTTONUP:
            panned_from_.reset();
            ReleaseCapture();
            return 0;
        case WM_CAPTURECHANGED:
            pressed_at_.reset();
            panned_from_.reset();
            return 0;
        default:
            return std::nullopt;
    }
}

void DrawingPane::tell(PaneEvent::Kind kind, POINT at, bool with_shift) const {
    if (listener_) {
        listener_({kind, view().to_world(pixel(at)), with_shift});
    }
}

void DrawingPane::resize(int width, int height) {
    frame_.resize(width, height);
    fit_ = fit_ || fits_;
    drawn_.reset();
    invalidate();
}

void DrawingPane::drawing_opened() {
    shown_ = PaneContent();
    fit_ = true;
    vectors_.clear();
    frame_.set_highlighted({});
    invalidate();
}

void DrawingPane::update(const PointerGuide& guide) {
    guide_ = guide;
    if (!(content_() == shown_)) {
        invalidate();
    }
    if (pointer_) {
        move_pointer(*pointer_);
    }
}

void DrawingPane::redraw() {
    vectors_.clear();
    shown_ = PaneContent();
    invalidate();
}

void DrawingPane::refresh_list() {
    const PaneContent content = content_();
    if (!(content == shown_)) {
        shown_ = content;
        std::shared_ptr<const DisplayList> former = frame_.take_list();
        if (content.drawing != nullptr) {
            const base::ProgressWatch watch(list_watch_);
            frame_.set_list(DisplayList::shared(*content.drawing, content.space, std::move(former)));
            if (list_watch_) {
                list_watch_(1);
            }
            if (list_listener_) {
                list_listener_(*content.drawing, frame_.list());
            }
        }
    }
    if (fit_ && content.drawing != nullptr) {
        fit_ = false;
        zoom_extents();
    }
}

const DisplayList& DrawingPane::list() {
    refresh_list();
    return frame_.list();
}

void DrawingPane::set_view(const ViewTransform& view) {
    frame_.set_view(view);
    fit_ = false;
    fits_ = false;
    if (pointer_) {
        drawn_.emplace(*pointer_, guide_, view);  // as the coming painting will draw it
    }
    invalidate();
}

void DrawingPane::zoom_extents() {
    ViewTransform whole = view();
    whole.show(list().extents(), margin);
    set_view(whole);
    fits_ = true;
}

void DrawingPane::remember_view() {
    constexpr size_t most = 10;
    earlier_.push_back(view());
    if (earlier_.size() > most) {
        earlier_.pop_front();
    }
}

bool DrawingPane::restore_view() {
    if (earlier_.empty()) {
        return false;
    }
    ViewTransform earlier = earlier_.back();
    earlier_.pop_back();
    earlier.resize(view().width(), view().height());
    set_view(earlier);
    return true;
}

void DrawingPane::set_background(uint32_t colour) {
    frame_.set_background(colour);
    invalidate();
}

void DrawingPane::show_selected(const std::vector<dxf::RecordId>& entities) {
    frame_.set_highlighted(EntitySet(entities));
    invalidate();
}

void DrawingPane::draw_vector(const VectorOverlay::Vector& vector) {
    if (GetUpdateRect(window_, nullptr, FALSE) != 0) {
        UpdateWindow(window_);  // so that the vector meets what it will be taken away from
    }
    const WindowContext context(window_);
    vectors_.add(vector, context.get(), view(), frame_.colours());
}

void DrawingPane::paint() {
    refresh_list();
    const WindowPainting painting(window_);
    const FrameBitmap* const picture = frame_.picture();
    if (picture == nullptr) {
        return;
    }
    const RECT& area = painting.area();
    BitBlt(painting.context(), area.left, area.top, area.right - area.left, area.bottom - area.top, picture->context(),
           area.left, area.top, SRCCOPY);
    vectors_.draw(painting.context(), view(), frame_.colours());
    if (drawn_) {
        drawn_->draw(painting.context());
    }
}

void DrawingPane::move_pointer(POINT at) {
    if (panned_from_) {
        ViewTransform moved = view();
        moved.pan({static_cast<double>(at.x - panned_from_->x), static_cast<double>(at.y - panned_from_->y)});
        panned_from_ = at;
        set_view(moved);
    }
    if (!pointer_) {
        TRACKMOUSEEVENT leaving{sizeof leaving, TME_LEAVE, window_, 0};
        TrackMouseEvent(&leaving);
    }
    const WindowContext context(window_);
    if (drawn_) {
        drawn_->draw(context.get());
    }
    const bool moved = !pointer_ || pointer_->x != at.x || pointer_->y != at.y;
    pointer_ = at;
    drawn_.emplace(at, guide_, view());
    drawn_->draw(context.get());
    if (moved && !panned_from_) {
        tell(PaneEvent::Kind::move, at);
    }
}

void DrawingPane::hide_pointer() {
    if (drawn_) {
        const WindowContext context(window_);
        drawn_->draw(context.get());
    }
    drawn_.reset();
    pointer_.reset();
}

void DrawingPane::press(POINT at, bool with_shift) {
    move_pointer(at);
    pressed_at_ = at;
    SetCapture(window_);
    tell(PaneEvent::Kind::pick, at, with_shift);
}

/// A button that goes down at one corner of a selection and up at another place picks both corners.
void DrawingPane::let_go(POINT at, bool with_shift) {
    const std::optional<POINT> from = std::exchange(pressed_at_, std::nullopt);
    if (!panned_from_) {
        ReleaseCapture();
    }
    const bool dragged = from && !(within(at.x, from->x, GetSystemMetrics(SM_CXDRAG)) &&
                                   within(at.y, from->y, GetSystemMetrics(SM_CYDRAG)));
    if (dragged && guide_.selects()) {
        move_pointer(at);
        tell(PaneEvent::Kind::pick, at, with_shift);
    }
}

/// A second click soon after, at the same place, shows the whole drawing.
void DrawingPane::start_panning(POINT at) {
    const Click click{at, GetMessageTime()};
    if (last_middle_click_ && click.doubles(*last_middle_click_)) {
        zoom_extents();
    }
    last_middle_click_ = click;
    panned_from_ = at;
    SetCapture(window_);
}

}  // namespace host
