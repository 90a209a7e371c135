// The host's commands for looking at the drawing.
#pragma once

namespace host {

class Editor;

/// BACKGROUND, PAN, PNGOUT, REDRAW, REGEN, ZOOM; all but PNGOUT are transparent.
void add_view_commands(Editor& editor);

}  // namespace host
