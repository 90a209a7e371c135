#include "bidi/text_editing.h"

#include <algorithm>
#include <cwctype>

namespace corvanes {
namespace {

std::wstring with_line_feeds(std::wstring_view text) {
    std::wstring result;
    result.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != L'\r') {
            result.push_back(text[i]);
        } else if (i + 1 == text.size() || text[i + 1] != L'\n') {
            result.push_back(L'\n');
        }
    }
    return result;
}

enum class WordPart { letters, blanks, others };

WordPart word_part(wchar_t character) {
    const bool separator = character < 0x80 && std::iswpunct(static_cast<wint_t>(character)) != 0;
    return character == L' ' || character == L'\n' ? WordPart::blanks
           : separator                             ? WordPart::others
                                                   : WordPart::letters;
}

}  // namespace

int TextEditing::caret_column() const {
    return static_cast<int>(caret_.index - model_.logical_line(caret_line()).start);
}

TextRange TextEditing::selection() const {
    return {std::min(anchor_, caret_.index), std::max(anchor_, caret_.index)};
}

std::wstring TextEditing::selected_text() const {
    const TextRange range = selection();
    return model_.logical().substr(range.start, range.length());
}

void TextEditing::reset(std::wstring_view text, bool from_logical) {
    if (from_logical) {
        model_.set_logical(with_line_feeds(text));
    } else {
        model_.set_visual(with_line_feeds(text));
    }
    initial_text_ = model_.logical();
    undo_.clear();
    modified_ = false;
    put_caret(caret_at_index(model_, 0), false);
}

void TextEditing::set_right_to_left(bool right_to_left) {
    model_.set_right_to_left(right_to_left);
    caret_ = caret_at_index(model_, caret_.index);
    remembered_column_.reset();
}

bool TextEditing::insert(std::wstring_view text) {
    remembered_column_.reset();
    const std::wstring inserted = with_line_feeds(text);
    if (model_.logical().size() + inserted.size() > max_length) {
        return false;
    }
    undo_.save(model_.logical());
    replace({caret_.index, caret_.index}, inserted);
    return true;
}

bool TextEditing::replace_selection(std::wstring_view text) {
    remembered_column_.reset();
    const std::wstring inserted = with_line_feeds(text);
    const TextRange range = selection();
    if (range.empty() && inserted.empty()) {
        return true;
    }
    if (model_.logical().size() - range.length() + inserted.size() > max_length) {
        return false;
    }
    undo_.save(model_.logical());
    replace(range, inserted);
    return true;
}

bool TextEditing::delete_selection() {
    const bool selected = !selection().empty();
    erase(selection());
    return selected;
}

void TextEditing::delete_before() {
    erase({deletion_end(caret_.index, false), caret_.index});
}

void TextEditing::delete_after() {
    erase({caret_.index, deletion_end(caret_.index, true)});
}

void TextEditing::undo() {
    const std::wstring* saved = undo_.take();
    model_.set_logical(saved != nullptr ? *saved : initial_text_);
    modified_ = true;
    put_caret(caret_at_index(model_, 0), false);
}

void TextEditing::move(Motion motion, bool extend) {
    const TextRange line = model_.logical_line(caret_line());
    switch (motion) {
        case Motion::left:
        case Motion::right:
            // In a right-to-left text painted positions are counted from the right edge.
            return step((motion == Motion::right) != model_.right_to_left(), extend);
        case Motion::up:
            return move_by_row(-1, extend);
        case Motion::down:
            return move_by_row(1, extend);
        case Motion::line_start:
            return put_caret(caret_at_index(model_, line.start), extend);
        case Motion::line_end:
            return put_caret(caret_at_index(model_, line.end), extend);
        case Motion::text_start:
            return put_caret(caret_at_index(model_, 0), extend);
        case Motion::text_end:
            return put_caret(caret_at_index(model_, model_.logical().size()), extend);
    }
}

// Where two directions meet, a gap stands for two typed places. A selection begins at the place beside the character
// that it takes first.
void TextEditing::step(bool forward, bool extend) {
    const VisualCaret to = step_caret(model_, caret_, forward);
    if (extend && selection().empty() && to.gap != caret_.gap) {
        anchor_ = step_caret(model_, to, !forward).index;
    }
    put_caret(to, extend);
}

void TextEditing::place_at_gap(size_t gap, bool extend) {
    put_caret(caret_at_gap(model_, gap), extend);
}

void TextEditing::drag_beyond(size_t gap, Motion direction) {
    place_at_gap(gap, true);
    const VisualCaret edge = caret_;
    move(direction, true);
    const bool sideways = direction == Motion::left || direction == Motion::right;
    if (sideways && model_.visual_line_at(caret_.gap) != model_.visual_line_at(edge.gap)) {
        put_caret(edge, true);
    }
}

void TextEditing::select(size_t anchor, size_t end) {
    const std::wstring& text = model_.logical();
    const auto held = [&text](size_t index) {
        index = std::min(index, text.size());
        return splits_pair(text, index) ? index - 1 : index;
    };
    anchor_ = held(anchor);
    put_caret(caret_at_index(model_, held(end)), true);
}

void TextEditing::select_word(size_t index) {
    const std::wstring& text = model_.logical();
    if (text.empty()) {
        return;
    }
    index = std::min(index, text.size() - 1);
    const auto outside = [part = word_part(text[index])](wchar_t character) { return word_part(character) != part; };
    const auto here = text.begin() + static_cast<std::ptrdiff_t>(index);
    const auto end = std::find_if(here, text.end(), outside);
    const auto start = std::find_if(std::make_reverse_iterator(here), text.rend(), outside).base();
    select(static_cast<size_t>(start - text.begin()), static_cast<size_t>(end - text.begin()));
}

void TextEditing::erase(TextRange range) {
    if (!range.empty()) {
        undo_.save(model_.logical());
        replace(range, {});
    }
}

void TextEditing::replace(TextRange range, std::wstring_view text) {
    std::wstring changed = model_.logical();
    changed.replace(range.start, range.length(), text);
    model_.set_logical(std::move(changed));
    modified_ = true;
    put_caret(caret_at_index(model_, range.start + text.size()), false);
}

void TextEditing::put_caret(const VisualCaret& caret, bool extend) {
    caret_ = {std::min(caret.index, model_.logical().size()), caret.gap};
    anchor_ = extend ? std::min(anchor_, model_.logical().size()) : caret_.index;
    remembered_column_.reset();
}

void TextEditing::move_by_row(int rows, bool extend) {
    const int line = model_.visual_line_at(caret_.gap);
    // The lines of a right-to-left text are painted from the bottom.
    const int target = line + (model_.right_to_left() ? -rows : rows);
    if (target < 0 || target >= model_.line_count()) {
        return;
    }
    const size_t column = remembered_column_.value_or(caret_.gap - model_.visual_line(line).start);
    const TextRange to = model_.visual_line(target);
    put_caret(caret_at_gap(model_, std::min(to.start + column, to.end)), extend);
    remembered_column_ = column;
}

size_t TextEditing::deletion_end(size_t index, bool forward) const {
    const std::wstring& text = model_.logical();
    if (index == (forward ? text.size() : 0)) {
        return index;
    }
    const size_t next = forward ? index + 1 : index - 1;
    return splits_pair(text, next) ? (forward ? next + 1 : next - 1) : next;
}

std::wstring single_line(std::wstring_view text) {
    constexpr std::wstring_view breaks = L"\r\n\t";
    std::wstring line;
    for (size_t start = text.find_first_not_of(breaks); start != std::wstring_view::npos;) {
        const size_t end = std::min(text.find_first_of(breaks, start), text.size());
        if (!line.empty()) {
            line += L' ';
        }
        line += text.substr(start, end - start);
        start = text.find_first_not_of(breaks, end);
    }
    return line;
}

int tab_blanks(int column, int tab_width) {
    return tab_width > 0 ? tab_width - column % tab_width : 1;
}

}  // namespace corvanes
