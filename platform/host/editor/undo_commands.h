// Taking commands back.
#pragma once

namespace host {

class Editor;

/// U and UNDO: take back what the last command that changed the drawing has done to it.
void add_undo_commands(Editor& editor);

}  // namespace host
