// Plays a script's "@" lines on the dialogs that come up, as a person would.
#pragma once

#include <windows.h>

#include <string>

#include "platform/host/editor/main_window.h"
#include "platform/host/editor/modal_dialog.h"
#include "platform/host/editor/posted_input.h"
#include "platform/host/editor/script.h"

namespace host {

/// Works when a dialog tells the main window, its owner, that it waits with all messages handled. So each line finds
/// the dialog as the line before has left it. A dialog with another owner or none does not tell; for it there is a
/// timer, which the system serves in every modal loop once all other messages are handled. At most one object exists at
/// a time; it borrows the run and the window.
class DialogDriver {
  public:
    DialogDriver(ScriptRun& run, MainWindow& window);
    ~DialogDriver();
    DialogDriver(const DialogDriver&) = delete;
    DialogDriver& operator=(const DialogDriver&) = delete;

  private:
    static void CALLBACK on_timer(HWND window, UINT message, UINT_PTR timer, DWORD time) noexcept;
    void work() noexcept;
    void step();
    void drive(const ModalDialog& dialog);
    /// After a failure: closes what is open, so that the command comes to its end.
    void close(const ModalDialog& dialog);

    // Each of these performs one kind of action; the reason of a failure goes into the script's.
    base::Outcome<> answer_message_box(const ModalDialog& box, const DialogAction& action);
    base::Outcome<> perform(const ModalDialog& dialog, const DialogAction& action);
    base::Outcome<> press(const ModalDialog& dialog, const DialogAction& action);
    base::Outcome<> tick(const ModalDialog& dialog, const DialogAction& action);
    base::Outcome<> point_at_cell(const ModalDialog& dialog, const DialogAction& action);
    static base::Outcome<> print(const ModalDialog& dialog, const DialogAction& action);
    base::Outcome<> expect_text(const ModalDialog& dialog, const DialogAction& action);
    base::Outcome<> expect_enabled(const ModalDialog& dialog, const DialogAction& action);

    ScriptRun& run_;
    MainWindow& window_;
    TypedKeys keys_;
    UINT_PTR timer_ = 0;
    int close_attempts_ = 0;
};

}  // namespace host
