#include "platform/host/editor/main_window.h"

#include "platform/host/editor/window_class.h"

namespace host {
namespace {

constexpr wchar_t class_name[] = L"DrawingHost";
constexpr wchar_t program_name[] = L"Drawing Host";
constexpr int history_height = 96;
constexpr int line_height = 22;
constexpr int history_limit = 60000;  ///< characters; the older half goes when there are more

std::wstring with_carriage_returns(std::wstring_view text) {
    std::wstring converted;
    for (const wchar_t character : text) {
        converted += character == L'\n' ? L"\r\n" : std::wstring(1, character);
    }
    return converted;
}

}  // namespace

MainWindow::MainWindow() {
    register_window_class(class_name, &MainWindow::procedure, COLOR_BTNFACE);
    window_ = CreateWindowExW(0, class_name, program_name, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
                              CW_USEDEFAULT, 1000, 700, nullptr, nullptr, host_instance(), nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    create_children();
    place_children();
}

MainWindow::~MainWindow() {
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

void MainWindow::create_children() {
    view_ = std::make_unique<DrawingView>(window_);
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
    MoveWindow(view_->window(), 0, 0, width, history_top, TRUE);
    MoveWindow(history_, 0, history_top, width, history_height, TRUE);
    MoveWindow(prompt_, 0, line_top, prompt_width, line_height, TRUE);
    MoveWindow(line_, prompt_width, line_top, width - prompt_width, line_height, TRUE);
}

void MainWindow::show() {
    ShowWindow(window_, SW_SHOW);
    UpdateWindow(window_);
}

void MainWindow::set_title(const std::wstring& drawing_name) {
    SetWindowTextW(window_, drawing_name.empty() ? program_name : (drawing_name + L" - " + program_name).c_str());
}

void MainWindow::append_history(std::wstring_view text) {
    if (GetWindowTextLengthW(history_) > history_limit) {
        SendMessageW(history_, EM_SETSEL, 0, history_limit / 2);
        SendMessageW(history_, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L""));
    }
    const int end = GetWindowTextLengthW(history_);
    SendMessageW(history_, EM_SETSEL, static_cast<WPARAM>(end), end);
    SendMessageW(history_, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(with_carriage_returns(text).c_str()));
}

Answer MainWindow::wait_for_answer(std::wstring_view prompt) {
    const size_t last_line = prompt.find_last_of(L'\n');
    const std::wstring shown(last_line == std::wstring_view::npos ? prompt : prompt.substr(last_line + 1));
    SetWindowTextW(prompt_, shown.c_str());
    answer_.reset();
    while (!answer_ && !close_requested_) {
        MSG message;
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
            close_requested_ = true;
        } else if (!take_key(message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return answer_.value_or(Answer{});
}

bool MainWindow::take_key(const MSG& message) {
    if (message.hwnd != line_ || message.message != WM_KEYDOWN) {
        return false;
    }
    if (message.wParam == VK_ESCAPE) {
        answer_ = Answer{};
    } else if (message.wParam == VK_RETURN) {
        const std::wstring typed = window_text(line_);
        answer_ = Answer{typed.empty() ? Answer::return_only : Answer::line, typed};
    } else {
        return false;
    }
    SetWindowTextW(line_, L"");
    return true;
}

std::optional<LRESULT> MainWindow::handle(UINT message, WPARAM, LPARAM) {
    switch (message) {
        case WM_SIZE:
            place_children();
            return 0;
        case WM_SETFOCUS:
            SetFocus(line_);
            return 0;
        case WM_CLOSE:
            close_requested_ = true;
            return 0;
        default:
            return std::nullopt;
    }
}

LRESULT CALLBACK MainWindow::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* self = reinterpret_cast<MainWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    const std::optional<LRESULT> handled = self != nullptr ? self->handle(message, wparam, lparam) : std::nullopt;
    return handled ? *handled : DefWindowProcW(window, message, wparam, lparam);
}

}  // namespace host
