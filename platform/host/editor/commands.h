// The host's own commands, for the program to add to its editor.
#pragma once

namespace host {

class Document;
class Editor;

/// APPLOAD, ARX, SETENV, SETVAR.
void add_session_commands(Editor& editor);
/// CLOSE, OPEN, QSAVE, QUIT, SAVE, SAVEAS.
void add_file_commands(Editor& editor);
/// AI_SELALL and ERASE, which work on what is selected while no command runs; INSERT, which adds a reference to a block
/// of the drawing in the current space; U and UNDO, which take back what the last command that changed the drawing has
/// done to it.
void add_drawing_commands(Editor& editor);
/// ABOUT, HELP, TEXTSCR, all transparent.
void add_help_commands(Editor& editor);
/// BACKGROUND, PAN, REDRAW, REGEN, ZOOM, all transparent; PNGDETAIL, PNGOUT, SVGOUT.
void add_view_commands(Editor& editor);

/// The open drawing, which belongs to the editor; null, after a report to the person, when none is open.
Document* open_document(const Editor& editor);

/// To be called before the open drawing is left. A person is asked whether its changes are to be saved, a script
/// whether they may be lost; nobody is asked about a drawing without changes. True when it may be left.
bool may_leave_drawing(Editor& editor);
/// As may_leave_drawing, for the end of the Windows session, which comes at any time. While a command runs or a dialog
/// is up nobody is asked, and the answer is false for a drawing with changes.
bool may_end_session(Editor& editor);

}  // namespace host
