#include "platform/host/editor/dialog_driver.h"

#include <exception>

#include "base/code_page.h"
#include "platform/host/editor/script_words.h"
#include "platform/host/view/window_class.h"
#include "platform/host/view/png_file.h"

namespace host {
namespace {

constexpr UINT pause = 10;  ///< milliseconds; the shortest that the system has for a timer

/// Timers without a window carry nothing of their own, so the driver that is at work is kept here.
DialogDriver* working_driver = nullptr;

std::wstring target_name(const DialogAction& action) {
    return action.id ? L"control " + std::to_wstring(*action.id) : L"button \"" + action.text + L"\"";
}

HWND find_target(const ModalDialog& dialog, const DialogAction& action) {
    return action.id ? dialog.control(*action.id) : dialog.button(action.text);
}

int button_id(const std::wstring& name) {
    constexpr const wchar_t* names[] = {L"OK", L"CANCEL", L"ABORT", L"RETRY", L"IGNORE", L"YES", L"NO"};
    int id = IDOK;
    for (const wchar_t* known : names) {
        if (name == known) {
            break;
        }
        ++id;
    }
    return id;
}

/// The window that keys are sent to: the one with the focus when it is in the dialog, else the dialog.
HWND keyboard_target(const ModalDialog& dialog) {
    const HWND focus = GetFocus();
    return focus != nullptr && IsChild(dialog.window(), focus) != 0 ? focus : dialog.window();
}

}  // namespace

DialogDriver::DialogDriver(ScriptRun& run, MainWindow& window) : run_(run), window_(window) {
    working_driver = this;
    window.when_dialog_waits([this] { work(); });
    timer_ = SetTimer(nullptr, 0, pause, reinterpret_cast<TIMERPROC>(&DialogDriver::on_timer));
}

DialogDriver::~DialogDriver() {
    window_.when_dialog_waits({});
    KillTimer(nullptr, timer_);
    working_driver = nullptr;
}

void CALLBACK DialogDriver::on_timer(HWND, UINT, UINT_PTR, DWORD) noexcept {
    if (working_driver != nullptr) {
        working_driver->work();
    }
}

void DialogDriver::work() noexcept {
    try {
        step();
    } catch (const std::exception& exception) {
        run_.fail(base::wide_from_utf8(exception.what()));
    }
}

void DialogDriver::step() {
    keys_.release_modifiers();
    const std::optional<ModalDialog> dialog = ModalDialog::find();
    if (!dialog) {
        return;
    }
    if (run_.failed()) {
        close(*dialog);
        return;
    }
    if (!keys_.empty()) {
        keys_.post_next(keyboard_target(*dialog));
    } else {
        drive(*dialog);
    }
    // An action may leave no message behind; with this one the dialog comes to wait again.
    PostMessageW(dialog->window(), WM_NULL, 0, 0);
}

void DialogDriver::drive(const ModalDialog& dialog) {
    const DialogAction* const next = run_.action(dialog.name());
    if (next == nullptr) {
        return;
    }
    const DialogAction action = *next;
    run_.take_action();
    const bool answers_box = dialog.is_message_box() && action.kind != DialogAction::picture;
    const base::Outcome<> done = answers_box ? answer_message_box(dialog, action) : perform(dialog, action);
    if (!done) {
        run_.fail(done.reason());
    }
}

base::Outcome<> DialogDriver::answer_message_box(const ModalDialog& box, const DialogAction& action) {
    const std::wstring message = box.message();
    if (action.kind != DialogAction::alert) {
        return base::Failure{L"an alert waits for an answer: \"" + message + L"\""};
    }
    if (!matches_wildcard(action.text, message)) {
        return base::Failure{L"the alert says \"" + message + L"\""};
    }
    const HWND button = action.button.empty() ? box.default_button() : box.control(button_id(action.button));
    if (button == nullptr) {
        return base::Failure{L"the alert has no " +
                             (action.button.empty() ? L"default button" : L"button " + action.button)};
    }
    post_press(button);
    return {};
}

base::Outcome<> DialogDriver::perform(const ModalDialog& dialog, const DialogAction& action) {
    switch (action.kind) {
        case DialogAction::press:
            return press(dialog, action);
        case DialogAction::tick:
            return tick(dialog, action);
        case DialogAction::click_cell:
        case DialogAction::double_click_cell:
        case DialogAction::click_heading:
        case DialogAction::drag_border:
            return point_at_cell(dialog, action);
        case DialogAction::type:
            keys_.add_text(action.text);
            return {};
        case DialogAction::key:
            keys_.add_key(action.virtual_key, action.modifiers);
            return {};
        case DialogAction::picture:
            // Without a visible main window the dialog does not look active, though it has the focus.
            SendMessageW(dialog.window(), WM_NCACTIVATE, TRUE, 0);
            return save_window_png(dialog.window(), action.text);
        case DialogAction::print:
            return print(dialog, action);
        case DialogAction::expect_text:
            return expect_text(dialog, action);
        case DialogAction::expect_enabled:
            return expect_enabled(dialog, action);
        case DialogAction::close:
            PostMessageW(dialog.window(), WM_SYSCOMMAND, SC_CLOSE, 0);
            return {};
        case DialogAction::alert:
            return base::Failure{L"no alert is up, but the dialog \"" + dialog.title() + L"\""};
    }
    return {};
}

base::Outcome<> DialogDriver::press(const ModalDialog& dialog, const DialogAction& action) {
    const HWND target = find_target(dialog, action);
    if (target == nullptr) {
        return base::Failure{L"the dialog \"" + dialog.title() + L"\" shows no " + target_name(action)};
    }
    if (IsWindowEnabled(target) == 0) {
        return base::Failure{L"the " + target_name(action) + L" is disabled"};
    }
    post_press(target);
    return {};
}

base::Outcome<> DialogDriver::tick(const ModalDialog& dialog, const DialogAction& action) {
    const HWND target = find_target(dialog, action);
    const bool ticked = target != nullptr && SendMessageW(target, BM_GETCHECK, 0, 0) == BST_CHECKED;
    return target != nullptr && ticked == action.on ? base::Outcome<>() : press(dialog, action);
}

base::Outcome<> DialogDriver::point_at_cell(const ModalDialog& dialog, const DialogAction& action) {
    constexpr int heading_row = -1;
    const bool heading = action.kind == DialogAction::click_heading || action.kind == DialogAction::drag_border;
    const int row = heading ? heading_row : action.row;
    const CellPlace place = action.kind == DialogAction::drag_border ? CellPlace::right_border : CellPlace::middle;
    const std::optional<WindowPoint> at = dialog.cell(action.column, row, place);
    if (!at) {
        return base::Failure{L"the dialog \"" + dialog.title() + L"\" shows no cell in column " +
                             std::to_wstring(action.column) +
                             (heading ? L" of the heading" : L", row " + std::to_wstring(row))};
    }
    if (action.kind == DialogAction::drag_border) {
        post_drag(at->window, at->point, {at->point.x + action.pixels, at->point.y});
    } else if (action.kind == DialogAction::double_click_cell) {
        post_double_click(at->window, at->point);
    } else {
        post_click(at->window, at->point);
    }
    return {};
}

base::Outcome<> DialogDriver::print(const ModalDialog& dialog, const DialogAction& action) {
    // The pixels of an upright A4 page.
    constexpr int dots_per_inch = 150;
    constexpr int width = 1240;
    constexpr int height = 1754;
    int pages = 1;
    for (int page = 0; page < pages; ++page) {
        std::filesystem::path file = action.text;
        if (page > 0) {
            file.replace_filename(file.stem().wstring() + L"-" + std::to_wstring(page + 1) +
                                  file.extension().wstring());
        }
        const auto paint = [&](HDC context) -> base::Outcome<> {
            pages = dialog.print({context, width, height, dots_per_inch, page});
            return pages > 0 ? base::Outcome<>()
                             : base::Failure{L"the dialog \"" + dialog.title() + L"\" has nothing to print"};
        };
        if (base::Outcome<> saved = save_painted_png(width, height, paint, file); !saved) {
            return saved;
        }
    }
    return {};
}

base::Outcome<> DialogDriver::expect_text(const ModalDialog& dialog, const DialogAction& action) {
    const HWND target = dialog.control(action.id.value_or(0));
    if (target == nullptr) {
        return base::Failure{L"the dialog \"" + dialog.title() + L"\" shows no " + target_name(action)};
    }
    const std::wstring text = window_text(target);
    if (text != action.text) {
        return base::Failure{L"the " + target_name(action) + L" has the text \"" + text + L"\""};
    }
    return {};
}

base::Outcome<> DialogDriver::expect_enabled(const ModalDialog& dialog, const DialogAction& action) {
    const HWND target = find_target(dialog, action);
    if (target == nullptr) {
        return base::Failure{L"the dialog \"" + dialog.title() + L"\" shows no " + target_name(action)};
    }
    const bool enabled = IsWindowEnabled(target) != 0;
    if (enabled != action.on) {
        return base::Failure{L"the " + target_name(action) + (enabled ? L" is enabled" : L" is disabled")};
    }
    return {};
}

void DialogDriver::close(const ModalDialog& dialog) {
    // A dialog that asks a question before it closes would ask for ever. So it is told to close a few times; after
    // that its question is answered with No, and the dialog is cancelled.
    constexpr int politely = 4;
    const bool patient = ++close_attempts_ <= politely;
    if (!dialog.is_message_box()) {
        if (patient) {
            PostMessageW(dialog.window(), WM_CLOSE, 0, 0);
        } else {
            PostMessageW(dialog.window(), WM_COMMAND, IDCANCEL, 0);
        }
        return;
    }
    for (const int id : {patient ? IDCANCEL : IDNO, IDCANCEL, IDNO, IDABORT, IDOK}) {
        if (GetDlgItem(dialog.window(), id) != nullptr) {
            PostMessageW(dialog.window(), WM_COMMAND, static_cast<WPARAM>(id), 0);
            return;
        }
    }
}

}  // namespace host
