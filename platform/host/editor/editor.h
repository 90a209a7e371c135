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

    /// Null without one. Who sets it keeps it alive.
    MainWindow* window = nullptr;
    /// QUIT was run: no command is asked for any more.
    bool quit_requested = false;

    /// Null without a window, as is the view of the drawing in it.
    HWND main_window() const;
    DrawingPane* view() const;

    /// A message box over the dialog that is up, or the main window. `kind` and the result are MessageBox's.
    int message_box(const wchar_t* text, UINT kind) const;

    /// Adds a command of the host. The name is in capitals. A transparent one may run while another command waits.
    void add_command(std::wstring name, void (*body)(Editor&), bool transparent = false);

    /// To be called when a user or a module has set a variable. Those of the drawing reach it when the command that is
    /// running ends, so that one that is held at a value meanwhile is no change; what the database needs does at once.
    void variable_was_set();
    /// Says, once for a drawing, which of its entities the list does not show, or leaves out.
    void say_left_out(const dxf::Drawing& drawing, const DisplayList& list);
    /// Remembers a file that the user chose, and a drawing that was opened or saved too.
    void remember_file(const std::filesystem::path& file, bool is_drawing);
    /// To be called before the drawing is saved or left: all variables are in it then.
    void store_variables();

  private:
    void opened(Document& document);
    void settle_added_colour(const Document& document) const;

    uint64_t said_left_out_of_ = 0;  ///< Drawing::serial()
};

/// Made when it is first asked for (a module's static objects may be the first to ask).
Editor& editor();

}  // namespace host
