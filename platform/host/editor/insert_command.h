// INSERT: a reference to a block of the drawing, in the current space.
#pragma once

namespace host {

class Editor;

/// Asks for the block, the insertion point, the scales and the rotation in degrees, and inserts the block. Its
/// attributes take their defaults. An empty or unknown name is refused in words.
void insert_command(Editor& editor);

}  // namespace host
