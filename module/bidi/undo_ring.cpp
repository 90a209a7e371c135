#include "bidi/undo_ring.h"

namespace corvanes {

void UndoRing::save(const std::wstring& text) {
    if (text.empty()) {
        return;
    }
    last_saved_ = last_saved_ >= slot_count - 1 ? 0 : last_saved_ + 1;
    slots_[static_cast<size_t>(last_saved_)] = text;
}

const std::wstring* UndoRing::take() {
    if (cursor_ <= 0) {
        cursor_ = last_saved_ + 1;
    }
    if (cursor_ <= 0) {
        return nullptr;
    }
    --cursor_;
    return &slots_[static_cast<size_t>(cursor_)];
}

void UndoRing::clear() {
    *this = UndoRing();
}

}  // namespace corvanes
