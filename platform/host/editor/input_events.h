// Where acedGrRead gets the user's pointer and keys from.
#pragma once

#include <optional>

#include "platform/host/prompt/input_text.h"

namespace host {

class InputEvents {
  public:
    virtual ~InputEvents() = default;
    /// Waits for the next event; nothing when the user cancels.
    virtual std::optional<InputEvent> next() = 0;
};

/// The events that are answering now: by default those typed at the command line (see parse_input_event).
InputEvents& input_events();
/// Takes events from elsewhere; null for the default. The caller keeps the object alive.
void set_input_events(InputEvents* events);

/// Where acedGrDraw draws.
class VectorDisplay {
  public:
    virtual ~VectorDisplay() = default;
    /// Colour -1 complements what is on the screen.
    virtual void draw_vector(const Point& from, const Point& to, int colour, bool highlight) = 0;
};

/// Null (the default) shows vectors nowhere.
void set_vector_display(VectorDisplay* display);
VectorDisplay* vector_display();

}  // namespace host
