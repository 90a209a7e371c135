#include "platform/host/editor/drawing_view.h"

#include "platform/host/editor/window_class.h"

namespace host {
namespace {

constexpr wchar_t class_name[] = L"DrawingView";

}  // namespace

DrawingView::DrawingView(HWND parent, DrawingPane::Content content, DrawingPane::Listener listener) {
    register_window_class(class_name, &DrawingView::procedure, COLOR_WINDOW);
    window_ = CreateWindowExW(0, class_name, L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, 0, 0, 0, 0, parent, nullptr,
                              host_instance(), nullptr);
    pane_.emplace(window_, std::move(content), std::move(listener));
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

DrawingView::~DrawingView() {
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
}

void DrawingView::draw_vector(const Point& from, const Point& to, int colour, bool highlight) {
    pane_->draw_vector({{from.x, from.y}, {to.x, to.y}, colour, highlight});
}

LRESULT CALLBACK DrawingView::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* const view = reinterpret_cast<DrawingView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    const std::optional<LRESULT> handled =
        view != nullptr ? view->pane_->handle(message, wparam, lparam) : std::nullopt;
    return handled ? *handled : DefWindowProcW(window, message, wparam, lparam);
}

}  // namespace host
