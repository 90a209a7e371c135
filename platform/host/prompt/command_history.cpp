#include "platform/host/prompt/command_history.h"

namespace host {

void CommandHistory::add(const std::wstring& line) {
    if (!line.empty() && (lines_.empty() || lines_.back() != line)) {
        lines_.push_back(line);
    }
    if (lines_.size() > most) {
        lines_.erase(lines_.begin());
    }
    at_ = lines_.size();
    unfinished_.clear();
}

std::wstring CommandHistory::earlier(const std::wstring& typed) {
    if (at_ == lines_.size()) {
        unfinished_ = typed;
    }
    at_ -= at_ > 0 ? 1 : 0;
    return lines_.empty() ? typed : lines_[at_];
}

std::wstring CommandHistory::later(const std::wstring& typed) {
    if (at_ == lines_.size()) {
        return typed;
    }
    ++at_;
    return at_ == lines_.size() ? unfinished_ : lines_[at_];
}

}  // namespace host
