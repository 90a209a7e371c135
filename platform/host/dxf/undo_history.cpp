#include "platform/host/dxf/undo_history.h"

#include <utility>

namespace dxf {

void UndoHistory::begin_step(std::wstring name) {
    step_ended_ = true;
    name_ = std::move(name);
}

void UndoHistory::note(Change change) {
    if (pauses_ == 0) {
        if (std::exchange(step_ended_, false) || steps_.empty()) {
            steps_.push_back({name_, state_, {}});
        }
        steps_.back().changes.push_back(std::move(change));
    }
    state_ = ++states_;
}

UndoHistory::Step UndoHistory::take_last() {
    if (steps_.empty()) {
        return {};
    }
    Step last = std::move(steps_.back());
    steps_.pop_back();
    step_ended_ = true;
    return last;
}

}  // namespace dxf
