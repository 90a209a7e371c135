#include "platform/host/dxf/edits.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace dxf {

uint64_t EditList::add_piece(std::string bytes, uint64_t anchor) {
    pieces_.push_back(std::move(bytes));
    anchors_.push_back(anchor);
    return pieces_.size() - 1;
}

uint64_t EditList::bytes() const {
    return std::accumulate(pieces_.begin(), pieces_.end(), uint64_t{0},
                           [](uint64_t sum, const std::string& piece) { return sum + piece.size(); });
}

Place EditList::insert_before(Place place, std::string bytes) {
    ++made_;
    const uint64_t anchor = place.added() ? anchors_[place.number()] : place.number();
    const uint64_t added = add_piece(std::move(bytes), anchor);
    std::vector<uint64_t>& before = edits_[anchor].before;
    auto at = before.end();
    if (place.added()) {
        // Searched from the end: the place is nearly always that of the end record of the block that is being filled.
        const auto found = std::find(before.rbegin(), before.rend(), place.number());
        at = found == before.rend() ? before.end() : std::prev(found.base());
    }
    before.insert(at, added);
    return Place::piece(added);
}

bool EditList::has_pieces_before(Place place) const {
    const auto edit = edits_.find(place.number());
    return edit != edits_.end() && !edit->second.before.empty();
}

Place EditList::replace(Place place, uint64_t length, std::string bytes) {
    ++made_;
    if (place.added()) {
        pieces_[place.number()] = std::move(bytes);
        return place;
    }
    const uint64_t added = add_piece(std::move(bytes), place.number());
    Edit& edit = edits_[place.number()];
    edit.replacement = added;
    edit.skip = length;
    return Place::piece(added);
}

void EditList::erase(Place place, uint64_t length) {
    ++made_;
    if (place.added()) {
        std::string().swap(pieces_[place.number()]);  // clear() would keep its memory
    } else {
        edits_[place.number()].skip = length;
    }
}

std::string_view EditList::piece(Place place) const {
    return place.number() < pieces_.size() ? std::string_view(pieces_[place.number()]) : std::string_view();
}

bool EditList::apply(std::string_view original, const Emit& emit) const {
    uint64_t position = 0;
    for (const auto& [anchor, edit] : edits_) {
        if (anchor > position && !emit(original.substr(position, anchor - position), Place::original(position))) {
            return false;
        }
        for (const uint64_t number : edit.before) {
            if (!emit(pieces_[number], Place::piece(number))) {
                return false;
            }
        }
        if (edit.replacement && !emit(pieces_[*edit.replacement], Place::piece(*edit.replacement))) {
            return false;
        }
        position = anchor + edit.skip;
    }
    return position >= original.size() || emit(original.substr(position), Place::original(position));
}

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
