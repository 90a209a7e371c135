// UndoRing, the last texts of an editor, for Ctrl+Z.
#pragma once

#include <array>
#include <string>

namespace corvanes {

/// Holds the last ten texts that were saved, in slots. Taking walks back from the slot saved last to slot 0 and then
/// begins again at the slot saved last. Saving does not move the place of that walk.
class UndoRing {
  public:
    /// Saves the text; an empty text gets no slot.
    void save(const std::wstring& text);
    /// The text before, or null when nothing has been saved since the last clear.
    const std::wstring* take();
    void clear();
    bool empty() const { return last_saved_ < 0; }

  private:
    static constexpr int slot_count = 10;

    std::array<std::wstring, slot_count> slots_;
    int last_saved_ = -1;
    int cursor_ = 0;
};

}  // namespace corvanes
