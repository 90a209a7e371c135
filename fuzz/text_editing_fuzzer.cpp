// Takes any sequence of edits, three bytes each: the text must be what plain string operations make of it, undoing must
// give the earlier texts, and the caret must be able to walk from one end of the painted text to the other over every
// character.
#include <algorithm>
#include <array>
#include <set>

#include "bidi/text_editing.h"
#include "fuzz/fuzz_input.h"

namespace {

using namespace corvanes;
using fuzz::require;

constexpr std::wstring_view alphabet =
    L"\x5D0\x5D1\x5EA"
    L"abz 012.,-()%\n\x5B0\x4E2D\xD83D\xDE00\x1";

/// The texts that undoing comes back to. Keeps them all, by their slots.
class PlainUndo {
  public:
    void save(const std::wstring& text) {
        if (!text.empty()) {
            last_ = last_ >= 9 ? 0 : last_ + 1;
            slots_[static_cast<size_t>(last_)] = text;
        }
    }
    std::wstring take(const std::wstring& initial) {
        cursor_ = cursor_ <= 0 ? last_ + 1 : cursor_;
        return cursor_ > 0 ? slots_[static_cast<size_t>(--cursor_)] : initial;
    }

  private:
    std::array<std::wstring, 10> slots_;
    int last_ = -1;
    int cursor_ = 0;
};

class EditedText {
  public:
    EditedText() { editing_.reset(L""); }

    void apply(unsigned operation, unsigned argument, unsigned more);
    void check() const;
    void check_walks();

  private:
    size_t position(unsigned argument, unsigned more) const { return (argument * 256 + more) % (text_.size() + 1); }
    static std::wstring some_text(unsigned argument, unsigned more);
    void insert(const std::wstring& text, TextRange range);
    void erase(TextRange range);
    void begin_anew(const std::wstring& text);
    std::vector<size_t> walk(Motion motion, std::set<size_t>& reached);
    bool between_halves(size_t gap) const;

    TextEditing editing_;
    PlainUndo undo_;
    std::wstring text_;
    std::wstring initial_;
};

std::wstring EditedText::some_text(unsigned argument, unsigned more) {
    const std::wstring two = {alphabet[argument % alphabet.size()], alphabet[more % alphabet.size()]};
    std::wstring text = two.substr(0, 1U + argument % 2);
    for (unsigned times = more / 64; times > 0; --times) {
        text += text + two;
    }
    return text;
}

void EditedText::insert(const std::wstring& text, TextRange range) {
    const bool fits = text_.size() - range.length() + text.size() <= TextEditing::max_length;
    const bool inserted = range.empty() ? editing_.insert(text) : editing_.replace_selection(text);
    require(inserted == fits, "what fits is inserted, and nothing else");
    if (fits) {
        undo_.save(text_);
        text_.replace(range.start, range.length(), text);
        require(editing_.caret().index == range.start + text.size(), "the caret stands behind what was inserted");
    }
}

void EditedText::erase(TextRange range) {
    if (!range.empty()) {
        undo_.save(text_);
    }
    text_.erase(range.start, range.length());
}

void EditedText::begin_anew(const std::wstring& text) {
    editing_.reset(text);
    undo_ = PlainUndo();
    text_ = text;
    initial_ = text;
    require(!editing_.modified(), "a new text is not modified");
}

void EditedText::apply(unsigned operation, unsigned argument, unsigned more) {
    const size_t caret = editing_.caret().index;
    const TextRange selection = editing_.selection();
    switch (operation % 12) {
        case 0:
        case 1:
            return insert(some_text(argument, more), selection);
        case 2: {
            const size_t start = caret > 1 && splits_pair(text_, caret - 1) ? caret - 2 : caret - (caret > 0 ? 1 : 0);
            editing_.delete_before();
            return erase({start, caret});
        }
        case 3: {
            const size_t next = std::min(caret + 1, text_.size());
            editing_.delete_after();
            return erase({caret, splits_pair(text_, next) ? next + 1 : next});
        }
        case 4:
            require(editing_.delete_selection() == !selection.empty(), "a selection is deleted if there is one");
            return erase(selection);
        case 5: {
            const std::wstring before = text_;
            const bool possible = editing_.can_undo();
            editing_.undo();
            text_ = undo_.take(initial_);
            return require(possible || text_ == before, "what cannot be undone stays");
        }
        case 6:
        case 7:
            return editing_.move(static_cast<Motion>(argument % 8), more % 2 != 0);
        case 8:
            return operation < 128 ? editing_.place_at_gap(position(argument, more), operation % 2 != 0)
                                   : editing_.drag_beyond(position(argument, more), static_cast<Motion>(more % 4));
        case 9:
            editing_.select(position(argument, more), position(more, argument));
            return require(
                !splits_pair(text_, editing_.selection().start) && !splits_pair(text_, editing_.selection().end),
                "a selection takes pairs whole");
        case 10:
            editing_.select_word(position(argument, more));
            return require(text_.empty() || !editing_.selection().empty(), "there is a word everywhere");
        default:
            return argument % 16 == 0 ? begin_anew(some_text(more, argument))
                                      : editing_.set_right_to_left(more % 2 != 0);
    }
}

void EditedText::check() const {
    const TextModel& model = editing_.model();
    require(model.logical() == text_, "the text is what was made of it");
    require(model.visual().size() == text_.size() && model.map().size() == text_.size() + 1,
            "the painted text is as long as the typed one");
    require(editing_.caret().index <= text_.size() && editing_.caret().gap <= text_.size(), "the caret is in the text");
    const TextRange selection = editing_.selection();
    require(selection.start <= selection.end && selection.end <= text_.size(), "so is the selection");
    require(editing_.selected_text() == text_.substr(selection.start, selection.length()), "and it is a part of it");
    const int line = editing_.caret_line();
    require(line >= 0 && line < std::max(1, model.line_count()), "the caret's line exists");
    require(editing_.caret_column() >= 0 &&
                static_cast<size_t>(editing_.caret_column()) <= model.logical_line(line).length(),
            "and its column");
}

/// Whether the painted characters on both sides of the gap are the halves of one character.
bool EditedText::between_halves(size_t gap) const {
    if (gap == 0 || gap == text_.size()) {
        return false;
    }
    const size_t left = editing_.model().map()[gap - 1];
    const size_t right = editing_.model().map()[gap];
    return (left + 1 == right && splits_pair(text_, right)) || (right + 1 == left && splits_pair(text_, left));
}

/// Walks the caret, and returns the gaps at which it stops; adds the places of the typed text there to `reached`.
std::vector<size_t> EditedText::walk(Motion motion, std::set<size_t>& reached) {
    std::vector<size_t> gaps = {editing_.caret().gap};
    for (;;) {
        reached.insert(editing_.caret().index);
        editing_.move(motion, false);
        if (editing_.caret().gap == gaps.back()) {
            return gaps;
        }
        gaps.push_back(editing_.caret().gap);
        require(gaps.size() <= text_.size() + 1, "a walk ends");
    }
}

void EditedText::check_walks() {
    const bool right_to_left = editing_.model().right_to_left();
    std::vector<size_t> stops;
    for (size_t gap = 0; gap <= text_.size(); ++gap) {
        if (!between_halves(gap)) {
            stops.push_back(gap);
        }
    }
    const size_t places = stops.size();
    std::set<size_t> reached;
    editing_.place_at_gap(0, false);
    require(walk(right_to_left ? Motion::left : Motion::right, reached) == stops,
            "forward, the caret stops at every character");
    std::reverse(stops.begin(), stops.end());
    require(walk(right_to_left ? Motion::right : Motion::left, reached) == stops, "backward, it does too");
    require(reached.size() == places, "and one way or the other it reaches every place of the typed text");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    constexpr size_t most_edits = 400;
    EditedText text;
    for (size_t edits = 0; size >= 3 && edits < most_edits; data += 3, size -= 3, ++edits) {
        text.apply(data[0], data[1], data[2]);
        text.check();
    }
    text.check_walks();
    return 0;
}
