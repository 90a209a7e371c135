// Person, the interface to the one who sits at the host: he answers commands' questions, points into the drawing and
// sees what commands show. Commands do not know whether that is a person at the window, a script, or the arguments of
// acedCommand.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/progress.h"
#include "base/result.h"
#include "platform/host/dxf/record.h"
#include "platform/host/prompt/input_text.h"

namespace host {

/// What came back from a prompt.
struct Answer {
    enum Kind {
        line,         ///< a text, without its line end
        return_only,  ///< Return or an empty line: the default, or the end of a repeated question
        cancel,       ///< Escape or ^C: the command gives up
    };
    Kind kind = cancel;
    std::wstring text;
    bool with_shift = false;  ///< a point that was picked while the Shift key was down
    double reach = 0;         ///< of a point that was picked: half the side of the pick box, in drawing units
};

/// What the pointer looks like while a question is asked.
struct PointerGuide {
    enum class Kind {
        idle,       ///< no question that a point answers
        crosshair,  ///< a point
        follow,     ///< a point, while a command draws at the pointer, where a long cross would erase it
        pick_box,   ///< an entity
        line,       ///< a point, with a line from the anchor to it
        rectangle,  ///< a corner, with a rectangle from the anchor to it
        window,     ///< the same, to select what is inside
        crossing,   ///< the same, to select what it touches too
        box,        ///< to the right of the anchor a window, to the left a crossing
    };
    Kind kind = Kind::idle;
    Point anchor;

    /// The rectangle from the anchor selects what is there.
    bool selects() const { return kind == Kind::window || kind == Kind::crossing || kind == Kind::box; }
};

class Person {
  public:
    virtual ~Person() = default;

    /// Shows `text` and waits for one answer. While the guide is not idle, a point that is picked in the drawing is an
    /// answer, as if typed. A person may run transparent commands before the answer comes. After a script has failed
    /// every prompt answers with cancel, so that commands unwind.
    virtual Answer prompt(std::wstring_view text, const PointerGuide& guide = {}) = 0;
    /// Waits for the next event while a command follows the pointer; nothing on a cancel. This default prompts for the
    /// event as a text (see parse_input_event).
    virtual std::optional<InputEvent> next_event();

    /// Adds text to the history. Line ends are where the text has them ("\n" begins a new line).
    virtual void print(std::wstring_view text) = 0;
    /// Prints, on a line of its own, that something could not be done (an answer that is no point, an unknown command).
    /// A person reads it and goes on; a script stops there.
    virtual void report(std::wstring_view problem) = 0;

    /// Shows how far a long action is, from 0 to 1; 1 when it has ended. False when it is to end.
    virtual bool show_progress(std::wstring_view action, double part);

    /// Draws a temporary vector over the drawing. Colour -1 complements what is on the screen.
    virtual void draw_vector(const Point& from, const Point& to, int colour, bool highlight);
    /// Shows these entities as selected, and no others.
    virtual void show_selected(const std::vector<dxf::RecordId>& entities);

    /// Whether the next question is answered already. Then a question that a dialog would ask is asked at the command
    /// line.
    virtual bool has_typed_ahead() const { return false; }
    /// Whether a script answers. Then a question that a dialog would ask is asked at the command line.
    virtual bool is_script() const { return false; }
};

/// The person seated now. During acedCommand it is the argument list.
Person& person();

/// Whether the outcome is a success; a failure is reported to the person.
bool succeeded(const base::Outcome<>& outcome);

/// While this object lives, the person, if one is seated, is shown how far long actions are.
class ShownProgress {
  public:
    explicit ShownProgress(std::wstring action);
    ~ShownProgress();
    ShownProgress(const ShownProgress&) = delete;
    ShownProgress& operator=(const ShownProgress&) = delete;

  private:
    std::wstring action_;
    base::ProgressWatch watch_;
};

/// Seats another person while this object lives.
class PersonScope {
  public:
    explicit PersonScope(Person& seated);
    ~PersonScope();
    PersonScope(const PersonScope&) = delete;
    PersonScope& operator=(const PersonScope&) = delete;

  private:
    Person* previous_;
};

}  // namespace host
