#include "platform/host/editor/window_events.h"

#include "platform/host/editor/main_window.h"
#include "platform/host/view/pointer_guide.h"

namespace host {

WindowEvents::WindowEvents(MainWindow& window) : window_(window) {
    set_input_events(this);
}

WindowEvents::~WindowEvents() {
    set_input_events(nullptr);
}

std::optional<InputEvent> WindowEvents::next() {
    const PointerGuideScope scope({PointerGuide::Kind::follow, {}});
    return window_.wait_for_event();
}

}  // namespace host
