#include "platform/host/editor/main_window.h"

#include "platform/host/editor/system_variables.h"
#include "platform/host/view/window_class.h"

namespace host {
namespace {

constexpr wchar_t class_name[] = L"DrawingHost";
constexpr int history_height = 96;
constexpr int line_height = 22;
constexpr POINT smallest_size{400, 300};
constexpr int history_limit = 60000;  ///< characters; the older half goes when there are more

std::wstring with_carriage_returns(std::wstring_view text) {
    std::wstring converted;
    for (const wchar_t character : text) {
        converted += character == L'\n' ? L"\r\n" : std::wstring(1, character);
    }
    return converted;
}

}  // namespace

MainWindow::MainWindow(DrawingPane::Content content, DrawingName drawing_name)
    : drawing_name_(std::move(drawing_name)) {
    register_window_class(class_name, &MainWindow::procedure, COLOR_BTNFACE);
    window_ = CreateWindowExW(0, class_name, program_name, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
                              CW_USEDEFAULT, 1000, 700, nullptr, nullptr, host_instance(), nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    pane_ = std::make_unique<DrawingPane>(window_, std::move(content),
                                          [this](const PaneEvent& event) { take_pane_event(event); });
    create_children();
    place_children();
}

MainWindow::~MainWindow() {
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    pane_.reset();
    DestroyWindow(window_);
}

void MainWindow::create_children() {
    const auto child = [this](const wchar_t* kind, DWORD extended_style, DWORD style) {
        const HWND made = CreateWindowExW(extended_style, kind, L"", WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, window_,
                                          nullptr, host_instance(), nullptr);
        SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
        return made;
    };
    history_ = child(L"EDIT", WS_EX_CLIENTEDGE, WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL);
    SendMessageW(history_, EM_SETLIMITTEXT, 0, 0);  // append_history keeps its own limit
    prompt_ = child(L"STATIC", 0, SS_LEFTNOWORDWRAP | SS_NOPREFIX | SS_CENTERIMAGE);
    line_ = child(L"EDIT", WS_EX_CLIENTEDGE, ES_AUTOHSCROLL);
}

void MainWindow::place_children() const {
    RECT client;
    GetClientRect(window_, &client);
    const int width = client.right;
    const int line_top = static_cast<int>(client.bottom) - line_height;
    const int history_top = line_top - history_height;
    const int prompt_width = width / 3;
    MoveWindow(pane_->window(), 0, 0, width, history_top, TRUE);
    MoveWindow(history_, 0, history_top, width, history_height, TRUE);
    MoveWindow(prompt_, 0, line_top, prompt_width, line_height, TRUE);
    MoveWindow(line_, prompt_width, line_top, width - prompt_width, line_height, TRUE);
}

void MainWindow::show() {
    ShowWindow(window_, SW_SHOW);
    UpdateWindow(window_);
}

void MainWindow::update_title() {
    const std::wstring name = drawing_name_();
    const std::wstring title = name.empty() ? program_name : name + L" - " + program_name;
    if (title != window_text(window_)) {
        SetWindowTextW(window_, title.c_str());
    }
}

void MainWindow::append_history(std::wstring_view text) {
    const size_t last_break = text.find_last_of(L'\n');
    if (last_break == std::wstring_view::npos) {
        last_line_ += text;
    } else {
        last_line_ = text.substr(last_break + 1);
    }
    if (GetWindowTextLengthW(history_) > history_limit) {
        SendMessageW(history_, EM_SETSEL, 0, history_limit / 2);
        SendMessageW(history_, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L""));
    }
    const int end = GetWindowTextLengthW(history_);
    SendMessageW(history_, EM_SETSEL, static_cast<WPARAM>(end), end);
    SendMessageW(history_, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(with_carriage_returns(text).c_str()));
}

Answer MainWindow::wait_for_answer(std::wstring_view prompt, const PointerGuide& guide) {
    const size_t last_line = prompt.find_last_of(L'\n');
    const std::wstring shown(last_line == std::wstring_view::npos ? prompt : prompt.substr(last_line + 1));
    SetWindowTextW(prompt_, shown.c_str());
    answer_.reset();
    run_messages(guide, [this] { return answer_.has_value(); });
    SetWindowTextW(prompt_, L"");
    return answer_.value_or(Answer{});
}

std::optional<InputEvent> MainWindow::wait_for_event() {
    waiting_for_event_ = true;
    event_cancelled_ = false;
    event_.reset();
    SetWindowTextW(prompt_, last_line_.c_str());
    run_messages({PointerGuide::Kind::follow, {}}, [this] { return event_.has_value() || event_cancelled_; });
    waiting_for_event_ = false;
    SetWindowTextW(prompt_, L"");
    return event_cancelled_ ? std::nullopt : event_;
}

void MainWindow::run_messages(const PointerGuide& guide, const std::function<bool()>& done) {
    update_title();
    pane_->update(guide);
    while (!done() && !close_requested_) {
        MSG message;
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
            close_requested_ = true;
            continue;
        }
        redirect_typing(message);
        if (!take_message(message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

/// A person who has clicked into the history still types into the line.
void MainWindow::redirect_typing(MSG& message) const {
    constexpr WPARAM first_printable = 0x20;
    const bool ends = message.message == WM_KEYDOWN && (message.wParam == VK_RETURN || message.wParam == VK_ESCAPE);
    const bool types = message.message == WM_CHAR && message.wParam >= first_printable;
    if (message.hwnd == history_ && (ends || types)) {
        SetFocus(line_);
        message.hwnd = line_;
    }
}

bool MainWindow::take_message(const MSG& message) {
    if (message.message == WM_MOUSEWHEEL) {
        return redirect_wheel(message);
    }
    if (message.message == WM_MOUSEMOVE && message.hwnd != pane_->window()) {
        pane_->hide_pointer();
    }
    return waiting_for_event_ ? take_event_key(message) : take_key(message);
}

/// The wheel turns where the pointer is, not where the keys go.
bool MainWindow::redirect_wheel(const MSG& message) const {
    if (message.hwnd == pane_->window() || WindowFromPoint(message.pt) != pane_->window()) {
        return false;
    }
    SendMessageW(pane_->window(), message.message, message.wParam, message.lParam);
    return true;
}

/// Keys are events of their own then, and reach no window.
bool MainWindow::take_event_key(const MSG& message) {
    if (message.message == WM_KEYDOWN) {
        if (message.wParam == VK_ESCAPE) {
            event_cancelled_ = true;  // and no character, which the next to wait would take for a key
        } else {
            TranslateMessage(&message);
        }
        return true;
    }
    if (message.message == WM_CHAR) {
        event_ = InputEvent{InputEvent::key, {}, static_cast<wchar_t>(message.wParam)};
        return true;
    }
    return false;
}

bool MainWindow::take_key(const MSG& message) {
    if (message.hwnd != line_ || message.message != WM_KEYDOWN) {
        return false;
    }
    if (message.wParam == VK_ESCAPE) {
        answer_ = Answer{};
        SetWindowTextW(line_, L"");
        return true;
    }
    if (message.wParam == VK_RETURN) {
        take_typed_line();
        return true;
    }
    return false;
}

void MainWindow::take_typed_line() {
    const std::wstring typed = window_text(line_);
    answer_ = Answer{typed.empty() ? Answer::return_only : Answer::line, typed};
    SetWindowTextW(line_, L"");
}

void MainWindow::take_pane_event(const PaneEvent& event) {
    const Vec2 at = pane_->view().rounded(event.point);
    const Point point{at.x, at.y, 0};
    if (waiting_for_event_) {
        if (event.kind == PaneEvent::Kind::finish) {
            event_ = InputEvent{InputEvent::key, {}, L'\r'};
        } else if (!event_ || event_->kind == InputEvent::move) {
            event_ = InputEvent{event.kind == PaneEvent::Kind::pick ? InputEvent::pick : InputEvent::move, point, 0};
        }
    } else if (event.kind == PaneEvent::Kind::finish) {
        take_typed_line();
    } else if (event.kind == PaneEvent::Kind::pick && pane_->guide().kind != PointerGuide::Kind::idle) {
        const double reach = PointerShape::pick_box / pane_->view().pixels_per_unit();
        answer_ = Answer{Answer::line, format_point(point), event.with_shift, reach};
    }
}

std::optional<LRESULT> MainWindow::handle(UINT message, LPARAM lparam) {
    switch (message) {
        case WM_GETMINMAXINFO:
            reinterpret_cast<MINMAXINFO*>(lparam)->ptMinTrackSize = smallest_size;
            return 0;
        case WM_SIZE:
            place_children();
            return 0;
        case WM_SETFOCUS:
            SetFocus(line_);
            return 0;
        case WM_QUERYENDSESSION:
            return !may_end_session_ || may_end_session_() ? TRUE : FALSE;
        case WM_CLOSE:
            close_requested_ = true;
            return 0;
        default:
            return std::nullopt;
    }
}

LRESULT CALLBACK MainWindow::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* self = reinterpret_cast<MainWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    const std::optional<LRESULT> handled = self != nullptr ? self->handle(message, lparam) : std::nullopt;
    return handled ? *handled : DefWindowProcW(window, message, wparam, lparam);
}

}  // namespace host
