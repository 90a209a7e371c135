// The line at the bottom of the main window and its texts: where the pointer is, what is selected, what it is over.
#pragma once

#include <windows.h>

#include <string>

#include "platform/host/dxf/drawing.h"

namespace host {

class StatusLine {
  public:
    enum Part { coordinates, selected, under_pointer, part_count };

    /// The parent destroys the window.
    StatusLine(HWND parent, HFONT font);

    HWND window() const { return window_; }
    int height() const;
    /// Moves the line to the bottom of the parent.
    void place();
    void set(Part part, const std::wstring& text);

  private:
    HWND window_;
    int letter_width_ = 0;  ///< pixels, on average
    std::wstring texts_[part_count];
};

/// "3 selected"; empty for none.
std::wstring selected_text(size_t count);

/// What an entity is: its type, its layer, of a block reference its block and how many references to it there are
/// beside it in the same space; empty for no_record.
std::wstring entity_text(const dxf::Drawing& drawing, dxf::RecordId entity);

}  // namespace host
