// The place of the caret in a text whose typed and painted orders differ.
#pragma once

#include "bidi/text_model.h"

namespace corvanes {

/// The two sides of one caret: where the next character is inserted, and the gap between painted characters at which it
/// shows (0 before the first painted character). At the border of two directions one index shows at two gaps, so a
/// caret that moves has to remember its own.
struct VisualCaret {
    size_t index = 0;
    size_t gap = 0;
    bool operator==(const VisualCaret&) const = default;
};

/// The caret at a typed position: behind the character before it on its line, else before the one after it.
VisualCaret caret_at_index(const TextModel& model, size_t index);

/// The caret at a painted position: beside the character before it on its painted line, else beside the one after it.
VisualCaret caret_at_gap(const TextModel& model, size_t gap);

/// Moves the caret by one painted character, over line feeds too, and never to a place where it would show as before.
/// At the ends of the text the caret stays. `forward` leads away from painted position 0.
VisualCaret step_caret(const TextModel& model, const VisualCaret& caret, bool forward);

}  // namespace corvanes
