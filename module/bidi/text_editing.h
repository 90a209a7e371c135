// TextEditing, an editor's text and what is done to it: inserting, deleting, moving the caret, selecting, undoing.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "bidi/text_model.h"
#include "bidi/undo_ring.h"
#include "bidi/visual_caret.h"

namespace corvanes {

enum class Motion { left, right, up, down, line_start, line_end, text_start, text_end };

class TextEditing {
  public:
    /// Insertions never make the text longer than this.
    static constexpr size_t max_length = 1024;

    const TextModel& model() const { return model_; }
    const VisualCaret& caret() const { return caret_; }
    int caret_line() const { return model_.logical_line_at(caret_.index); }
    int caret_column() const;
    /// The selected part of the typed text; empty at the caret when nothing is selected.
    TextRange selection() const;
    std::wstring selected_text() const;
    bool modified() const { return modified_; }
    void set_modified(bool modified) { modified_ = modified; }

    /// Begins anew with a text of any length. Undoing comes back to this text when nothing was saved. CR LF and a
    /// single CR become LF.
    void reset(std::wstring_view text, bool from_logical = true);
    void set_right_to_left(bool right_to_left);

    /// False, with nothing changed, when the text would become too long. CR LF becomes LF.
    bool insert(std::wstring_view text);
    /// Replaces the selection by a text, whole or not at all.
    bool replace_selection(std::wstring_view text);
    bool delete_selection();
    /// These delete a surrogate pair as one character.
    void delete_before();
    void delete_after();
    void undo();
    /// Whether undoing would change anything.
    bool can_undo() const { return !undo_.empty() || model_.logical() != initial_text_; }

    /// With `extend` the selection follows the caret, else it is given up.
    void move(Motion motion, bool extend);
    /// Puts the caret at a gap of the painted text.
    void place_at_gap(size_t gap, bool extend);
    /// The selection follows the caret to a gap, and by one step further in a direction as long as that stays on the
    /// line, or changes to another line.
    void drag_beyond(size_t gap, Motion direction);
    /// Selects from one place to another. Both are held within the text, and moved to the front of a surrogate pair
    /// that they would split. The caret goes to `end`.
    void select(size_t anchor, size_t end);
    /// The run of letters and digits, of separators or of blanks around a typed position.
    void select_word(size_t index);
    /// The next move from line to line keeps to the column where the caret stands then.
    void forget_column() { remembered_column_.reset(); }

  private:
    void erase(TextRange range);
    void replace(TextRange range, std::wstring_view text);
    void put_caret(const VisualCaret& caret, bool extend);
    void step(bool forward, bool extend);
    void move_by_row(int rows, bool extend);
    size_t deletion_end(size_t index, bool forward) const;

    TextModel model_;
    VisualCaret caret_;
    size_t anchor_ = 0;
    /// The column that the caret keeps to while it moves from line to line, even over shorter lines.
    std::optional<size_t> remembered_column_;
    UndoRing undo_;
    std::wstring initial_text_;
    bool modified_ = false;
};

/// A text from elsewhere in the form for an editor of one line: line ends and tabs at its two ends are removed, and
/// each run of them within becomes one blank.
std::wstring single_line(std::wstring_view text);

/// How many blanks Tab inserts at a column: up to the next multiple of the tab width, at least one.
int tab_blanks(int column, int tab_width);

}  // namespace corvanes
