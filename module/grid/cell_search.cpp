#include "grid/cell_search.h"

#include <algorithm>
#include <cstdint>

#include "base/case_folding.h"

namespace corvanes {

namespace {

constexpr std::size_t remembered_letters = 0x10000;

// base::to_lower of the first characters, remembered: beyond ASCII it asks the system, which a search of a million
// cells has no time for.
const wchar_t* lower_letters() {
    static const std::vector<wchar_t> lower = [] {
        std::vector<wchar_t> letters(remembered_letters);
        for (std::size_t code = 0; code < letters.size(); ++code) {
            letters[code] = base::to_lower(static_cast<wchar_t>(code));
        }
        return letters;
    }();
    return lower.data();
}

}  // namespace

wchar_t CellSearch::folded(wchar_t letter) const {
    const auto code = static_cast<char32_t>(letter);
    return code < remembered_letters ? lower_[code] : base::to_lower(letter);
}

bool CellSearch::same_folded(std::wstring_view letters) const {
    return std::equal(text_.begin(), text_.end(), letters.begin(),
                      [this](wchar_t wanted, wchar_t letter) { return wanted == folded(letter); });
}

CellSearch::CellSearch(std::wstring_view text, SearchOptions options)
    : lower_(lower_letters()), text_(options.match_case ? std::wstring(text) : base::lower(text)), options_(options) {}

std::size_t CellSearch::place_in(std::wstring_view cell, std::size_t from) const {
    if (text_.empty() || cell.size() < text_.size()) {
        return cell.npos;
    }
    if (options_.match_case) {
        return cell.find(text_, from);
    }
    const std::size_t last = cell.size() - text_.size();
    for (std::size_t place = from; place <= last; ++place) {
        if (folded(cell[place]) == text_.front() && same_folded(cell.substr(place, text_.size()))) {
            return place;
        }
    }
    return cell.npos;
}

bool CellSearch::matches(std::wstring_view cell) const {
    if (options_.whole_cell) {
        return cell.size() == text_.size() && (text_.empty() || place_in(cell, 0) == 0);
    }
    return place_in(cell, 0) != cell.npos;
}

std::wstring CellSearch::replaced(std::wstring_view cell, std::wstring_view by) const {
    if (options_.whole_cell) {
        return std::wstring(matches(cell) ? by : cell);
    }
    std::wstring changed;
    std::size_t done = 0;
    for (std::size_t place = 0; (place = place_in(cell, done)) != cell.npos; done = place + text_.size()) {
        changed += cell.substr(done, place - done);
        changed += by;
    }
    return changed += cell.substr(done);
}

namespace {

// A walk over the cells of a search space that begins again after the last one.
class CellWalk {
  public:
    CellWalk(const SearchSpace& space, CellAddress from, bool up)
        : columns_(static_cast<int>(space.columns.size())),
          rows_(space.rows),
          cells_(static_cast<long long>(columns_) * rows_),
          up_(up) {
        if (cells_ > 0) {
            const long long start = from.row < 0 ? (up ? 0 : -1) : place_of(space, from);
            column_ = static_cast<int>((start + cells_) % columns_);
            row_ = static_cast<int>((start + cells_) % cells_ / columns_);
        }
    }
    long long cells() const { return cells_; }
    void advance() {
        column_ += up_ ? -1 : 1;
        if (column_ < 0 || column_ == columns_) {
            column_ = up_ ? columns_ - 1 : 0;
            row_ = up_ ? (row_ == 0 ? rows_ : row_) - 1 : (row_ + 1 == rows_ ? 0 : row_ + 1);
        }
    }
    std::size_t column() const { return static_cast<std::size_t>(column_); }
    int row() const { return row_; }

  private:
    // The place before the first step, counted row by row.
    long long place_of(const SearchSpace& space, CellAddress from) const {
        const auto beside = std::lower_bound(space.columns.begin(), space.columns.end(), from.column);
        const bool in_column = beside != space.columns.end() && *beside == from.column;
        // From a column that is not searched, the walk down begins with the next searched column to the right.
        const long long before = in_column || up_ ? 0 : 1;
        return static_cast<long long>(from.row) * columns_ + (beside - space.columns.begin()) - before;
    }

    int columns_;
    int rows_;
    long long cells_;
    bool up_;
    int column_ = 0;
    int row_ = 0;
};

}  // namespace

SearchResult search_cells(const CellSearch& search, const SearchSpace& space, CellAddress from, bool up,
                          const std::function<bool()>& go_on) {
    constexpr long long cells_between_questions = 1 << 16;
    CellWalk walk(space, from, up);
    for (long long seen = 1; seen <= walk.cells(); ++seen) {
        walk.advance();
        const CellAddress cell{space.columns[walk.column()], walk.row()};
        const wchar_t* const text = space.text(cell);
        if (search.matches(text != nullptr ? text : L"")) {
            return {SearchEnd::found, cell};
        }
        if (seen % cells_between_questions == 0 && !go_on()) {
            return {SearchEnd::given_up, {}};
        }
    }
    return {SearchEnd::not_found, {}};
}

}  // namespace corvanes
