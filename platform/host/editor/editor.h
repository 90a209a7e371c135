// The parts of the running host that the interface functions reach: one of each in a process.
#pragma once

#include <windows.h>

#include "platform/host/editor/command_processor.h"
#include "platform/host/editor/command_stack.h"
#include "platform/host/editor/document_manager.h"
#include "platform/host/editor/drawing_variables.h"
#include "platform/host/editor/implied_selection.h"
#include "platform/host/editor/module_loader.h"
#include "platform/host/editor/system_variables.h"
#include "platform/host/editor/user_settings.h"

namespace host {

class DrawingPane;
class MainWindow;
struct DisplayList;

class Editor {
  public:
    Editor();

    SystemVariables variables;
    DrawingVariables drawing_variables{variables};
    DocumentManager documents;
    ImpliedSelection selection{documents};
    UserSettings settings;
    CommandStack commands;
    CommandProcessor processor{commands, documents};
    ModuleLoader modules{commands, processor, documents};

    /// The main window; null without one. Whoever sets it owns it and keeps it alive.
    MainWindow* window = nullptr;
    /// QUIT was run: no command is asked for any more.
    bool quit_requested = false;

    /// The main window's handle and the view of the drawing in it; both are null without a window.
    HWND main_window() const;
    DrawingPane* view() const;

    /// Shows a message box over the dialog that is up, or the main window. `kind` and the result are MessageBox's.
    int message_box(const wchar_t* text, UINT kind) const;

    /// Adds a command of the host. The name is in capitals. A transparent one may run while another command waits.
    void add_command(std::wstring name, void (*body)(Editor&), bool transparent = false);

    /// To be called when a user or a module has set a variable. The drawing's variables are written into it when the
    /// running command ends, so that a value which is held only during the command is no change. Those that the
    /// database needs are written at once.
    void variable_was_set();
    /// Says, once for a drawing, which of its entities the list does not show, or leaves out.
    void say_left_out(const dxf::Drawing& drawing, const DisplayList& list);
    /// Remembers the folder of a file that the user chose, and with `is_drawing` also the file among the recent ones.
    void remember_file(const std::filesystem::path& file, bool is_drawing);
    /// Writes all variables that belong to the drawing into it. To be called before it is saved or left.
    void store_variables();

  private:
    void opened(Document& document);
    void settle_added_colour(const Document& document) const;

    uint64_t said_left_out_of_ = 0;  ///< Drawing::serial()
};

/// The one editor of the process, made on the first call (a module's static objects may be the first to call).
Editor& editor();

}  // namespace host
