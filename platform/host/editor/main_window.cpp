#include "platform/host/editor/main_window.h"

#include <shellapi.h>

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "platform/host/editor/system_variables.h"
#include "platform/host/view/hit_test.h"
#include "platform/host/view/window_class.h"

namespace host {
namespace {

constexpr wchar_t class_name[] = L"DrawingHost";
constexpr POINT smallest_size{400, 300};
constexpr UINT_PTR pause_timer = 1;
constexpr UINT pause = 120;  ///< milliseconds that the pointer rests before the entity under it is looked for

/// The system's font for messages, at the display's resolution.
HFONT message_font() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
    return CreateFontIndirectW(&metrics.lfMessageFont);
}

/// As many pixels of this display as give the size that `pixels` have on a usual one.
int at_resolution(int pixels) {
    const WindowContext screen(nullptr);
    return MulDiv(pixels, GetDeviceCaps(screen.get(), LOGPIXELSY), USER_DEFAULT_SCREEN_DPI);
}

WindowPlace place_of(const RECT& area) {
    return {static_cast<int>(area.left), static_cast<int>(area.top), static_cast<int>(area.right - area.left),
            static_cast<int>(area.bottom - area.top)};
}

/// The place moved into the screen that shows most of it.
WindowPlace fitted_to_screen(const WindowPlace& place) {
    const RECT area{place.left, place.top, place.left + place.width, place.top + place.height};
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    return GetMonitorInfoW(MonitorFromRect(&area, MONITOR_DEFAULTTONEAREST), &screen) != 0
               ? place.within(place_of(screen.rcWork))
               : place;
}

}  // namespace

MainWindow::MainWindow(WindowProgram program) : program_(std::move(program)), font_(message_font()) {
    register_window_class(class_name, &MainWindow::procedure, COLOR_BTNFACE);
    window_ = CreateWindowExW(0, class_name, program_name, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
                              CW_USEDEFAULT, at_resolution(1000), at_resolution(700), nullptr, nullptr, host_instance(),
                              nullptr);
    if (window_ == nullptr) {
        throw std::runtime_error("the main window cannot be made; there may be no display");
    }
    const auto font = static_cast<HFONT>(font_.get());
    menu_ = std::make_unique<MenuBar>(window_);
    pane_ = std::make_unique<DrawingPane>(
        window_, program_.content ? program_.content : [] { return PaneContent(); },
        [this](const PaneEvent& event) { take_pane_event(event); });
    pane_->watch_lists([this](double part) { return show_progress(L"Preparing the view", part); });
    line_ = std::make_unique<CommandLine>(window_, font, [this](std::wstring option) {
        if (waiting_ == Waiting::answer) {
            answer_ = Answer{Answer::line, std::move(option)};
        }
    });
    line_->complete_with(program_.command_names);
    status_ = std::make_unique<StatusLine>(window_, font);
    DragAcceptFiles(window_, TRUE);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    place_children();
}

MainWindow::~MainWindow() {
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    line_.reset();
    pane_.reset();
    DestroyWindow(window_);
}

bool MainWindow::show_progress(std::wstring_view action, double part) {
    constexpr ULONGLONG between_looks = 40;  // milliseconds
    const bool ended = part >= 1;
    const ULONGLONG now = GetTickCount64();
    if (!ended && now - progress_shown_ < between_looks) {
        return true;
    }
    progress_shown_ = ended ? 0 : now;
    const std::wstring percent = std::to_wstring(static_cast<int>(part * 100));
    status_->set(StatusLine::under_pointer,
                 ended ? L"" : std::wstring(action) + L": " + percent + L" %. Escape ends it.");
    line_->update_history();
    UpdateWindow(status_->window());
    const bool escape = GetAsyncKeyState(VK_ESCAPE) < 0 && GetForegroundWindow() == window_;
    return ended || !escape;
}

void MainWindow::place_children() {
    RECT client;
    GetClientRect(window_, &client);
    status_->place();
    const int bottom = static_cast<int>(client.bottom) - status_->height();
    const int line_top = bottom - line_->wanted_height(bottom);
    MoveWindow(pane_->window(), 0, 0, client.right, line_top, TRUE);
    line_->place({0, line_top, client.right, bottom});
}

WindowPlace MainWindow::place() const {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    GetWindowPlacement(window_, &placement);
    WindowPlace place = place_of(placement.rcNormalPosition);
    place.maximised = placement.showCmd == SW_SHOWMAXIMIZED ||
                      (placement.showCmd == SW_SHOWMINIMIZED && (placement.flags & WPF_RESTORETOMAXIMIZED) != 0);
    return place;
}

void MainWindow::show(const std::optional<WindowPlace>& wanted) {
    const WindowPlace before = place();
    const WindowPlace fitting = fitted_to_screen(wanted.value_or(before));
    if (!(fitting == before)) {
        MoveWindow(window_, fitting.left, fitting.top, fitting.width, fitting.height, FALSE);
    }
    ShowWindow(window_, fitting.maximised ? SW_SHOWMAXIMIZED : SW_SHOW);
    line_->update_history();
    UpdateWindow(window_);
}

void MainWindow::update_title() {
    const std::wstring name = program_.drawing_name ? program_.drawing_name() : std::wstring();
    const std::wstring title = name.empty() ? program_name : name + L" - " + program_name;
    if (title != window_text(window_)) {
        SetWindowTextW(window_, title.c_str());
    }
}

void MainWindow::show_large_history(bool large) {
    line_->show_large_history(large);
    place_children();
}

void MainWindow::show_selected(const std::vector<dxf::RecordId>& entities) {
    if (entities.empty() && selected_ == 0) {
        return;
    }
    selected_ = entities.size();
    pane_->show_selected(entities);
    status_->set(StatusLine::selected, selected_text(entities.size()));
}

void MainWindow::type(std::wstring_view command) {
    typed_ahead_.add(command);
    if (waiting_ == Waiting::answer && !answer_) {
        answer_ = typed_ahead_.next(is_busy());
    } else if (waiting_ == Waiting::event) {
        event_cancelled_ = true;
    }
}

Answer MainWindow::wait_for_answer(std::wstring_view prompt, const PointerGuide& guide) {
    answer_ = typed_ahead_.next(is_busy());
    if (!answer_) {
        line_->set_prompt(prompt);
        waiting_ = Waiting::answer;
        run_messages(guide, [this] { return answer_.has_value(); });
        waiting_ = Waiting::nothing;
        line_->set_prompt(L"");
    }
    return answer_.value_or(Answer{});
}

std::optional<InputEvent> MainWindow::wait_for_event() {
    waiting_ = Waiting::event;
    event_cancelled_ = has_typed_ahead();
    event_.reset();
    line_->set_prompt(line_->last_line());
    run_messages({PointerGuide::Kind::follow, {}}, [this] { return event_.has_value() || event_cancelled_; });
    waiting_ = Waiting::nothing;
    line_->set_prompt(L"");
    return event_cancelled_ ? std::nullopt : event_;
}

void MainWindow::run_messages(const PointerGuide& guide, const std::function<bool()>& done) {
    update_title();
    if (program_.menu) {
        menu_->update(program_.menu());
    }
    pane_->update(guide);
    while (!done() && !close_requested_) {
        line_->update_history();
        MSG message;
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
            close_requested_ = true;
            continue;
        }
        line_->redirect_typing(message);
        if (!take_message(message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

bool MainWindow::take_message(const MSG& message) {
    if (message.message == WM_MOUSEWHEEL) {
        return redirect_wheel(message);
    }
    if (message.message == WM_MOUSEMOVE && message.hwnd != pane_->window()) {
        pane_->hide_pointer();
        status_->set(StatusLine::coordinates, L"");
        status_->set(StatusLine::under_pointer, L"");
    }
    if (const std::optional<UINT> line = MenuBar::line_of_key(message, line_->edits_text(message))) {
        SendMessageW(window_, WM_COMMAND, *line, 0);
        return true;
    }
    return waiting_ == Waiting::event ? take_event_key(message) : take_key(message);
}

/// Sends a turn of the wheel to the view when the pointer is there, wherever the focus is.
bool MainWindow::redirect_wheel(const MSG& message) const {
    if (message.hwnd == pane_->window() || WindowFromPoint(message.pt) != pane_->window()) {
        return false;
    }
    SendMessageW(pane_->window(), message.message, message.wParam, message.lParam);
    return true;
}

/// Takes a key as an event while a command waits for one, so that it reaches no window.
bool MainWindow::take_event_key(const MSG& message) {
    if (message.message == WM_KEYDOWN) {
        if (message.wParam == VK_ESCAPE) {
            event_cancelled_ = true;  // Escape is not translated: its character would be the next event
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
    if (!line_->is_line(message.hwnd) || message.message != WM_KEYDOWN) {
        return false;
    }
    if (message.wParam == VK_ESCAPE) {
        answer_ = Answer{};
        line_->clear_typed();
        return true;
    }
    if (message.wParam == VK_RETURN) {
        take_typed_line();
        return true;
    }
    return line_->take_key(message);
}

void MainWindow::take_typed_line() {
    const std::wstring typed = line_->take_typed();
    answer_ = Answer{typed.empty() ? Answer::return_only : Answer::line, typed};
}

/// Types a command for each dropped file. Drawings come first, whatever the order of the files, because a price list is
/// for the drawing that is open then. While a dialog is up nothing is taken, because it would be done only later.
void MainWindow::take_dropped(WPARAM drop) {
    auto* const files = reinterpret_cast<HDROP>(drop);
    std::vector<std::wstring> typed;
    for (UINT file = 0; file < DragQueryFileW(files, UINT_MAX, nullptr, 0); ++file) {
        std::wstring path(DragQueryFileW(files, file, nullptr, 0), L'\0');
        DragQueryFileW(files, file, path.data(), static_cast<UINT>(path.size() + 1));
        typed.push_back(menu_->typed_by_file(path));
    }
    DragFinish(files);
    if (IsWindowEnabled(window_) == 0) {
        MessageBeep(MB_OK);
        return;
    }
    std::stable_partition(typed.begin(), typed.end(),
                          [](const std::wstring& line) { return line.starts_with(L"OPEN\n"); });
    for (const std::wstring& line : typed) {
        type(line);
    }
    SetForegroundWindow(window_);
}

void MainWindow::take_pane_event(const PaneEvent& event) {
    const Vec2 at = pane_->view().rounded(event.point);
    const Point point{at.x, at.y, 0};
    if (event.kind == PaneEvent::Kind::move) {
        status_->set(StatusLine::coordinates, format_real(at.x) + L", " + format_real(at.y));
        describe_later(event.point);
    }
    if (waiting_ == Waiting::event) {
        if (event.kind == PaneEvent::Kind::finish) {
            event_ = InputEvent{InputEvent::key, {}, L'\r'};
        } else if (!event_ || event_->kind == InputEvent::move) {
            event_ = InputEvent{event.kind == PaneEvent::Kind::pick ? InputEvent::pick : InputEvent::move, point, 0};
        }
    } else if (event.kind == PaneEvent::Kind::finish) {
        take_typed_line();
    } else if (event.kind == PaneEvent::Kind::pick && waiting_ == Waiting::answer && !answer_) {
        take_pick(event, point);
    }
}

void MainWindow::take_pick(const PaneEvent& event, const Point& point) {
    const double reach = PointerShape::pick_box / pane_->view().pixels_per_unit();
    if (!is_busy() && program_.picked) {
        pane_->update(program_.picked(point, reach, event.with_shift));
    } else if (pane_->guide().kind != PointerGuide::Kind::idle) {
        answer_ = Answer{Answer::line, format_point(point), event.with_shift, reach};
    }
}

void MainWindow::describe_later(Vec2 at) {
    pointed_at_ = at;
    SetTimer(window_, pause_timer, pause, nullptr);
}

void MainWindow::describe() {
    KillTimer(window_, pause_timer);
    if (!pointed_at_ || !program_.describe || pane_->drawing() == nullptr) {
        return;
    }
    const double reach = PointerShape::pick_box / pane_->view().pixels_per_unit();
    const Vec2 corner{reach, reach};
    const dxf::RecordId found =
        HitTest(pane_->list()).pick(Box2::between(*pointed_at_ - corner, *pointed_at_ + corner));
    status_->set(StatusLine::under_pointer, program_.describe(found));
}

std::optional<LRESULT> MainWindow::handle(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_GETMINMAXINFO:
            reinterpret_cast<MINMAXINFO*>(lparam)->ptMinTrackSize = smallest_size;
            return 0;
        case WM_SIZE:
            if (wparam != SIZE_MINIMIZED) {
                place_children();
            }
            return 0;
        case WM_SETFOCUS:
            line_->focus();
            return 0;
        case WM_COMMAND:
            if (const std::wstring typed = lparam == 0 ? menu_->typed_by(LOWORD(wparam)) : L""; !typed.empty()) {
                type(typed);
                return 0;
            }
            return std::nullopt;
        case WM_DROPFILES:
            take_dropped(wparam);
            return 0;
        case WM_ENTERIDLE:
            line_->update_history();
            if (wparam == MSGF_DIALOGBOX && dialog_waits_) {
                dialog_waits_();
            }
            return 0;
        case WM_TIMER:
            describe();
            return 0;
        case WM_QUERYENDSESSION:
            return !program_.may_end_session || program_.may_end_session() ? TRUE : FALSE;
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
