// The host's own commands, for the program to add to its editor.
#pragma once

namespace host {

class Document;
class Editor;

/// APPLOAD, ARX, SETVAR.
void add_session_commands(Editor& editor);
/// OPEN, QSAVE, QUIT, SAVE, SAVEAS.
void add_file_commands(Editor& editor);
/// AI_SELALL and ERASE, which work on what is selected while no command runs; INSERT, which adds a reference to a block
/// of the drawing in the current space; U and UNDO, which take back what the last command that changed the drawing has
/// done to it.
void add_drawing_commands(Editor& editor);
/// ABOUT, HELP, TEXTSCR, all transparent.
void add_help_commands(Editor& editor);
/// BACKGROUND, PAN, PNGOUT, REDRAW, REGEN, ZOOM; all but PNGOUT are transparent.
void add_view_commands(Editor& editor);

/// The open drawing, which belongs to the editor; null, after a report to the person, when none is open.
Document* open_document(const Editor& editor);

/// What has to happen before the open drawing goes: a person is asked whether its changes are to be saved, a script
/// whether they may be lost. True when it may go, without a question when it has no changes.
bool may_leave_drawing(Editor& editor);
/// The same for the end of the Windows session, which comes at any time. While a command runs or a dialog is up nothing
/// is asked, and a changed drawing is kept.
bool may_end_session(Editor& editor);

}  // namespace host
