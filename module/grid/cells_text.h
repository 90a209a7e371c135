// The texts in which spreadsheets put cells on the clipboard and take them from there. Pure.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace corvanes {

// Lines of cells with tabs between them, in typed order. A cell that holds a tab, a line break or a quotation mark at
// its front is quoted, its own quotation marks doubled. Lines end in CR LF.
class TabSeparatedText {
  public:
    void add(std::wstring_view cell);
    void end_row();
    std::wstring take() { return std::move(text_); }

  private:
    std::wstring text_;
    bool in_row_ = false;
};

// A table in the clipboard's "HTML Format": UTF-8 behind a header of byte offsets. A cell that is no plain number is
// marked as a text, so that 007 stays what it is, and one with Hebrew as running from right to left.
class HtmlTable {
  public:
    enum class Kind { heading, text, number };

    void add(std::wstring_view cell, Kind kind);
    void end_row();
    // Takes the whole text, its header included, and leaves the table empty.
    std::string take();
    std::size_t size() const { return rows_.size(); }

  private:
    std::string rows_;
    bool in_row_ = false;
};

// Reads the cells of a text from another program, row by row; rows may differ in length. Rows end in CR LF, LF or CR;
// the last one need not. A quoted cell may hold tabs and line breaks, which become LF; where the closing mark is
// missing or more text follows it, the marks are characters like others.
std::vector<std::vector<std::wstring>> cells_of_text(std::wstring_view text);

}  // namespace corvanes
