// The host's own commands.
#pragma once

namespace host {

class Editor;

/// APPLOAD, ARX, INSERT, OPEN, QSAVE, QUIT, SAVEAS, SETVAR.
void add_built_in_commands(Editor& editor);

/// Asks whether changes of the open drawing may be lost; true without a question when there are none.
bool may_discard_changes(Editor& editor);

}  // namespace host
