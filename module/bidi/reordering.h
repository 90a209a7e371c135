// Reordering of a line from logical (typed) order to visual (painted) order.
//
// Position 0 of a visual line is painted at the left edge in a left-to-right paragraph and at the right edge in a
// right-to-left one. Text is wide, one code unit an entry; only the types of its characters come from the system's
// code page.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "bidi/visual_order.h"

namespace corvanes {

void ReverseChars(wchar_t* text, size_t length);
void ReverseIndexes(std::uint32_t* map, size_t length);

/// Reorders by given levels, one a character. `visual` takes `length` characters and no terminator; `map`, which may be
/// null, takes length + 1 entries: entry v is the logical index of the character painted at v, the last one is the
/// length. In a right-to-left line the brackets at those visual positions are mirrored whose *logical* index has an odd
/// level. Returns 1.
int ReorderLevels(const wchar_t* logical, size_t length, wchar_t* visual, const Level* levels, std::uint32_t* map,
                  int left_to_right);

/// Whether some character of the text is a Hebrew letter, so that its painted order may differ from the typed one.
bool contains_right_to_left(std::wstring_view text);

/// The work buffers of reordering, kept from line to line so that a call allocates only when a line is longer than all
/// before it.
class Reordering {
  public:
    explicit Reordering(const CharacterTypes& types) : character_types_(types) {}

    /// `visual` takes text.size() characters, `map` as in ReorderLevels. Throws std::bad_alloc, with the output
    /// untouched.
    void reorder(std::wstring_view text, wchar_t* visual, std::uint32_t* map, bool left_to_right,
                 Level level_offset = 0);

    /// As above, for a text of several lines, each of which is reordered by itself: no character leaves its line, and
    /// the line feeds stay where they are.
    void reorder_lines(std::wstring_view text, wchar_t* visual, std::uint32_t* map, bool left_to_right);

    /// The level runs of the last line or lines, in logical order.
    const std::vector<LevelRun>& level_runs() const { return runs_; }

  private:
    const CharacterTypes& character_types_;
    LevelRules rules_;
    std::vector<LevelRun> runs_;
    std::vector<LevelRun> runs_of_lines_;
    VisualOrder order_;
};

/// Reorders one line from its text alone: `visual` must hold length + 1 characters and is terminated; `map` may be
/// null. Returns 1, or 0 with everything untouched when the system cannot classify characters or memory runs out.
int LogicalToVisual(const wchar_t* text, size_t length, wchar_t* visual, std::uint32_t* map, int left_to_right);

/// LogicalToVisual under its second name.
int LogicalToVisualLine(const wchar_t* text, size_t length, wchar_t* visual, std::uint32_t* map, int left_to_right);

/// As LogicalToVisual, for each line of a text by itself.
int LinesToVisual(const wchar_t* text, size_t length, wchar_t* visual, std::uint32_t* map, int left_to_right);

/// As LogicalToVisual, with every level one higher when the runs are reversed.
int LogicalToVisualRaised(const wchar_t* text, size_t length, wchar_t* visual, std::uint32_t* map, int left_to_right);

}  // namespace corvanes
