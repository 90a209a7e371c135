// The commands that open, save and leave drawings.
#pragma once

namespace host {

class Editor;

/// OPEN, QSAVE, QUIT, SAVE, SAVEAS.
void add_file_commands(Editor& editor);

/// What has to happen before the open drawing goes: a person is asked whether its changes are to be saved, a script
/// whether they may be lost. True when it may go, without a question when it has no changes.
bool may_leave_drawing(Editor& editor);
/// The same for the end of the Windows session, which comes at any time. While a command runs or a dialog is up nothing
/// is asked, and a changed drawing is kept.
bool may_end_session(Editor& editor);

}  // namespace host
