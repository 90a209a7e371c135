// RunLayout, the layout of a text with several fonts: where each of its pieces is painted, and in which font.
#pragma once

#include <afxwin.h>

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "grid/control_layout.h"
#include "grid/text_runs.h"

namespace corvanes {

// A part of one line in one font.
struct RunPiece {
    std::wstring text;  // as it is painted, from left to right
    std::size_t run;
    Box box;
    int baseline;
};

// Lines are laid out from the middle of the cell; one with Hebrew goes from right to left, character by character, as
// texts in one font do.
class RunLayout {
  public:
    // Lays out the text with the styles that the label gives, in fonts derived from the one that `dc` has selected.
    RunLayout(CDC& dc, std::wstring_view text, std::wstring_view label);

    // The size of the text in pixels, without margins.
    SIZE size() const { return size_; }
    // The pieces, with the lines at the left or right edge of `box`.
    std::vector<RunPiece> place(const Box& box, bool from_right) const;
    const std::vector<TextRun>& runs() const { return runs_; }
    HFONT font(std::size_t run) const { return fonts_[run]; }

  private:
    struct Line {
        std::vector<RunPiece> pieces;  // the boxes begin at 0
        int width = 0;
        int ascent = 0;
        int descent = 0;
    };

    void make_fonts(CDC& dc);
    std::size_t run_at(std::size_t character) const;
    void add_line(CDC& dc, std::wstring_view text, std::size_t start, std::size_t length);
    void add_left_to_right(CDC& dc, Line& line, std::wstring_view text, std::size_t start);
    void add_right_to_left(CDC& dc, Line& line, std::wstring_view text, std::size_t start);
    void add_piece(CDC& dc, Line& line, std::wstring text, std::size_t run);

    std::vector<TextRun> runs_;
    std::deque<CFont> fonts_;
    std::vector<Line> lines_;
    SIZE size_{0, 0};
};

}  // namespace corvanes
