#include "bidi/visual_caret.h"

#include <algorithm>

namespace corvanes {
namespace {

/// The typed position beside painted character `v`, on its side that is farther from painted position 0.
size_t index_behind(const TextModel& model, size_t v) {
    const size_t character = model.map()[v];
    return model.runs_forward(character) ? character + 1 : character;
}

/// The typed position beside painted character `v`, on its side that is nearer to painted position 0.
size_t index_before(const TextModel& model, size_t v) {
    const size_t character = model.map()[v];
    return model.runs_forward(character) ? character : character + 1;
}

/// The gap at which a typed character ends, and the one at which it begins.
size_t gap_behind(const TextModel& model, size_t index) {
    return model.visual_index(index) + (model.runs_forward(index) ? 1 : 0);
}

size_t gap_before(const TextModel& model, size_t index) {
    return model.visual_index(index) + (model.runs_forward(index) ? 0 : 1);
}

}  // namespace

VisualCaret caret_at_index(const TextModel& model, size_t index) {
    const std::wstring& text = model.logical();
    index = std::min(index, text.size());
    const bool character_before = index > 0 && text[index - 1] != L'\n';
    const bool character_after = index < text.size() && text[index] != L'\n';
    if (character_before || (!character_after && index > 0)) {
        return {index, gap_behind(model, index - 1)};
    }
    return {index, index < text.size() ? gap_before(model, index) : 0};
}

VisualCaret caret_at_gap(const TextModel& model, size_t gap) {
    const std::wstring& text = model.visual();
    gap = std::min(gap, text.size());
    gap -= model.splits_painted_pair(gap) ? 1 : 0;
    const bool character_before = gap > 0 && text[gap - 1] != L'\n';
    const bool character_after = gap < text.size() && text[gap] != L'\n';
    if (character_before || (!character_after && gap > 0)) {
        return {index_behind(model, gap - 1), gap};
    }
    return {gap < text.size() ? index_before(model, gap) : 0, gap};
}

VisualCaret step_caret(const TextModel& model, const VisualCaret& caret, bool forward) {
    const std::wstring& text = model.visual();
    size_t gap = std::min(caret.gap, text.size());
    do {
        if (gap == (forward ? text.size() : 0)) {
            return caret;
        }
        gap += forward ? 1 : -1;
    } while (model.splits_painted_pair(gap));
    return {forward ? index_behind(model, gap - 1) : index_before(model, gap), gap};
}

}  // namespace corvanes
