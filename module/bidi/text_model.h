// A text in typed and in painted order, line by line.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "bidi/reordering.h"

namespace corvanes {

/// Bits of a text's alignment; none of them means left and top.
enum TextAlignment : unsigned {
    align_right = 2,
    align_center = 4,
    align_bottom = 16,
    align_middle = 32,
};

/// Part of a text: from `start` up to, not including, `end`.
struct TextRange {
    size_t start = 0;
    size_t end = 0;

    size_t length() const { return end - start; }
    bool empty() const { return start == end; }
};

/// Each line is reordered by itself, so that painted line n is typed line n in its other order. In a right-to-left text
/// each painted line runs from the right edge, and the lines are painted from the bottom: the first one is the lowest.
class TextModel {
  public:
    TextModel();

    /// Each of these rebuilds the other text. False when the reordering failed: the text that was to be rebuilt and the
    /// map are then those from before.
    bool set_logical(std::wstring text);
    bool set_visual(std::wstring text);
    bool set_right_to_left(bool right_to_left);

    const std::wstring& logical() const { return logical_; }
    const std::wstring& visual() const { return visual_; }
    /// Entry v is the logical index of painted character v. The map has one entry more than the text.
    const std::vector<std::uint32_t>& map() const { return map_; }
    bool right_to_left() const { return right_to_left_; }

    /// Where a typed character is painted.
    size_t visual_index(size_t logical_index) const;
    /// Whether a typed character runs the way the painted text is counted (from the left edge in a left-to-right text,
    /// from the right edge otherwise).
    bool runs_forward(size_t logical_index) const;

    /// Whether a gap between two painted characters falls inside a surrogate pair, which may stand backwards.
    bool splits_painted_pair(size_t gap) const;

    /// 0 for an empty text.
    int line_count() const { return line_count_; }
    /// The painted line that shows at `row`, counted from the top of the whole text. Given a line, it returns its row.
    int line_of_row(int row) const;
    TextRange visual_line(int line) const;
    int visual_line_at(size_t visual_index) const;
    TextRange logical_line(int line) const;
    int logical_line_at(size_t logical_index) const;

  private:
    friend int SyncText(TextModel& model, int from_logical);

    std::wstring logical_;
    std::wstring visual_;
    std::vector<std::uint32_t> map_;
    std::vector<std::uint32_t> inverse_;
    std::vector<bool> forward_;
    bool right_to_left_ = false;
    int line_count_ = 0;
};

/// Rebuilds the visual text from the logical one, or with `from_logical` 0 the logical text from the visual one by the
/// same operation, and in both cases the map. Returns 1, or 0 when the reordering failed.
int SyncText(TextModel& model, int from_logical);

/// Whether a position between two characters of a typed text falls inside a surrogate pair.
bool splits_pair(std::wstring_view text, size_t position);

}  // namespace corvanes
