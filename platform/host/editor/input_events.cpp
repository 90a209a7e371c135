#include "platform/host/editor/input_events.h"

#include "acedads.h"
#include "platform/host/prompt/command_line.h"

namespace host {
namespace {

class TypedInputEvents final : public InputEvents {
  public:
    std::optional<InputEvent> next() override {
        for (;;) {
            const Answer answer = command_line().prompt(L"");
            if (answer.kind == Answer::cancel) {
                return std::nullopt;
            }
            if (const std::optional<InputEvent> event = parse_input_event(answer.text)) {
                return event;
            }
            command_line().report(L"A pointer event is needed: move x,y, pick x,y or return.");
        }
    }
};

InputEvents* chosen_events = nullptr;
VectorDisplay* chosen_display = nullptr;

}  // namespace

InputEvents& input_events() {
    static TypedInputEvents typed;
    return chosen_events != nullptr ? *chosen_events : typed;
}

void set_input_events(InputEvents* events) {
    chosen_events = events;
}

void set_vector_display(VectorDisplay* display) {
    chosen_display = display;
}

VectorDisplay* vector_display() {
    return chosen_display;
}

}  // namespace host

int acedGrRead(int track, int* type, struct resbuf* result) {
    constexpr int report_movement = 1;
    constexpr int no_cancel_message = 8;
    for (;;) {
        const std::optional<host::InputEvent> event = host::input_events().next();
        if (!event) {
            if ((track & no_cancel_message) == 0) {
                host::command_line().print(L"\n*Cancel*\n");
            }
            return RTCAN;
        }
        if (event->kind == host::InputEvent::move && (track & report_movement) == 0) {
            continue;
        }
        if (event->kind == host::InputEvent::key) {
            *type = ACED_GR_KEYBOARD;
            result->restype = RTSHORT;
            result->resval.rint = static_cast<short>(event->character);
        } else {
            *type = event->kind == host::InputEvent::move ? ACED_GR_MOVE : ACED_GR_PICK;
            result->restype = RT3DPOINT;
            result->resval.rpoint[X] = event->point.x;
            result->resval.rpoint[Y] = event->point.y;
            result->resval.rpoint[Z] = event->point.z;
        }
        return RTNORM;
    }
}

int acedGrDraw(const ads_point from, const ads_point to, int colour, int highlight) {
    if (host::VectorDisplay* const display = host::vector_display()) {
        display->draw_vector({from[X], from[Y], from[Z]}, {to[X], to[Y], to[Z]}, colour, highlight != 0);
    }
    return RTNORM;
}
