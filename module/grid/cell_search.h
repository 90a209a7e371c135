// The search for a text in the cells of a grid. Pure.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "grid/cell_change.h"

namespace corvanes {

struct SearchOptions {
    bool match_case = false;
    bool whole_cell = false;
};

// What is looked for in each cell. Without match_case letters are compared as block names are, beyond ASCII too.
class CellSearch {
  public:
    // Whether the cell's text matches. An empty text is in no cell, but it is the whole text of an empty one.
    CellSearch(std::wstring_view text, SearchOptions options);
    bool matches(std::wstring_view cell) const;
    // Whether the cell begins with the text.
    bool begins(std::wstring_view cell) const { return place_in(cell.substr(0, text_.size()), 0) == 0; }
    // The cell's text with each place that matches replaced, from left to right.
    std::wstring replaced(std::wstring_view cell, std::wstring_view by) const;

  private:
    // Where the text begins in the cell, at `from` or after it; npos when it is not there.
    std::size_t place_in(std::wstring_view cell, std::size_t from) const;

    wchar_t folded(wchar_t letter) const;
    bool same_folded(std::wstring_view letters) const;

    const wchar_t* lower_;  // the table of lower-case letters, by character
    std::wstring text_;     // in lower case unless the case matters
    SearchOptions options_;
};

// The cells that are looked at: row by row, in each row the given columns.
struct SearchSpace {
    std::vector<int> columns;  // from left to right
    int rows = 0;
    std::function<const wchar_t*(CellAddress)> text;  // null for a cell without one
};

enum class SearchEnd { found, not_found, given_up };

struct SearchResult {
    SearchEnd end;
    CellAddress cell;  // when it was found
};

// The next cell after `from` (before it with `up`) that matches; after the last one the first follows, and `from` comes
// last. A row of -1 stands before all cells. `go_on` is asked from time to time, and answers false to give up.
SearchResult search_cells(const CellSearch& search, const SearchSpace& space, CellAddress from, bool up,
                          const std::function<bool()>& go_on);

}  // namespace corvanes
