#include "platform/host/view/pointer_guide.h"

namespace host {

namespace {

PointerGuide current_guide;
SelectionDisplay* current_display = nullptr;

}  // namespace

const PointerGuide& pointer_guide() {
    return current_guide;
}

PointerGuideScope::PointerGuideScope(const PointerGuide& guide) : previous_(current_guide) {
    current_guide = guide;
}

PointerGuideScope::~PointerGuideScope() {
    current_guide = previous_;
}

void set_selection_display(SelectionDisplay* display) {
    current_display = display;
}

SelectionShown::~SelectionShown() {
    if (shown_) {
        show({});
    }
}

void SelectionShown::show(const std::vector<dxf::RecordId>& entities) {
    shown_ = true;
    if (current_display != nullptr) {
        current_display->show_selected(entities);
    }
}

}  // namespace host
