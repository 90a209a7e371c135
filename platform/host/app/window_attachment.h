// WindowAttachment, which makes the main window and the editor known to each other.
#pragma once

#include <afxwin.h>

#include "acdocman.h"
#include "platform/host/editor/main_window.h"

namespace host {

/// What the main window asks of the editor.
WindowProgram program_of_editor();

/// The editor, and the framework of the modules, know the window for as long as this lives, and its title follows the
/// drawing.
class WindowAttachment final : public AcApDocManagerReactor {
  public:
    explicit WindowAttachment(MainWindow& window);
    ~WindowAttachment() override;
    WindowAttachment(const WindowAttachment&) = delete;
    WindowAttachment& operator=(const WindowAttachment&) = delete;

    void documentActivated(AcApDocument*) override;
    void documentTitleUpdated(AcApDocument*) override { window_.update_title(); }

  private:
    MainWindow& window_;
    CWinApp program_;
    CWnd main_;
};

}  // namespace host
