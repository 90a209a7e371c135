#include "platform/host/editor/drawing_view.h"

#include "platform/host/editor/window_class.h"

namespace host {
namespace {

constexpr wchar_t class_name[] = L"DrawingView";

}  // namespace

DrawingView::DrawingView(HWND parent) {
    register_window_class(class_name, &DrawingView::procedure, COLOR_WINDOW);
    window_ = CreateWindowExW(0, class_name, L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, 0, 0, 0, 0, parent, nullptr,
                              host_instance(), nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

void DrawingView::show_message(std::wstring message) {
    message_ = std::move(message);
    InvalidateRect(window_, nullptr, TRUE);
}

LRESULT CALLBACK DrawingView::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    const auto* view = reinterpret_cast<const DrawingView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (view != nullptr && message == WM_PAINT) {
        view->paint();
        return 0;
    }
    return DefWindowProcW(window, message, wparam, lparam);
}

void DrawingView::paint() const {
    PAINTSTRUCT painting;
    const HDC context = BeginPaint(window_, &painting);
    RECT client;
    GetClientRect(window_, &client);
    SetBkMode(context, TRANSPARENT);
    DrawTextW(context, message_.c_str(), static_cast<int>(message_.size()), &client,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    EndPaint(window_, &painting);
}

}  // namespace host
