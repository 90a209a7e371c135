// The host's own commands.
#pragma once

namespace host {

class Editor;

/// APPLOAD, ARX, INSERT, SETVAR.
void add_built_in_commands(Editor& editor);

}  // namespace host
