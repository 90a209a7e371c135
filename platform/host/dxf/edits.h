// What the edits of a drawing did: to its bytes, which saving writes, and to its records, which undoing restores.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host/dxf/record.h"

namespace dxf {

/// Edits to a file's bytes: the pieces that they put in before a place or instead of a range. The original bytes are
/// never copied or changed.
class EditList {
  public:
    bool empty() const { return edits_.empty(); }
    /// How many edits were made in all; it never goes back.
    uint64_t made() const { return made_; }
    /// The size of all pieces.
    uint64_t bytes() const;

    /// Adds `bytes` directly before a place of the original or before another piece, after all that was put there
    /// before it. Returns the new piece's place.
    Place insert_before(Place place, std::string bytes);

    /// Whether something was put before a place of the original.
    bool has_pieces_before(Place place) const;

    /// Puts `bytes` instead of the original range [place, place + length), or instead of the whole piece at `place`.
    /// Returns the new bytes' place: a piece keeps its own.
    Place replace(Place place, uint64_t length, std::string bytes);

    /// Leaves out the original range or the piece. The place itself stays good for insert_before().
    void erase(Place place, uint64_t length);

    std::string_view piece(Place place) const;

    /// Calls `emit(bytes, place)` for each stretch of the edited file in order, original stretches and pieces.
    /// Stops and returns false when `emit` does.
    using Emit = std::function<bool(std::string_view bytes, Place place)>;
    bool apply(std::string_view original, const Emit& emit) const;

  private:
    struct Edit {
        std::vector<uint64_t> before;  ///< pieces, in order
        std::optional<uint64_t> replacement;
        uint64_t skip = 0;  ///< original bytes that the edit leaves out
    };
    uint64_t add_piece(std::string bytes, uint64_t anchor);

    std::map<uint64_t, Edit> edits_;  ///< by original offset
    std::deque<std::string> pieces_;
    std::vector<uint64_t> anchors_;  ///< by piece: the original offset under which it stands
    uint64_t made_ = 0;
};

/// A record of what each step of edits did to a drawing's records, so that it can be undone.
class UndoHistory {
  public:
    /// What an edit did to a record.
    struct Change {
        RecordId record;
        std::optional<std::string> before;  ///< its bytes; nothing for a record that was added
    };
    /// The edits of one command, in order.
    struct Step {
        std::wstring name;
        uint64_t state_before = 0;
        std::vector<Change> changes;
    };

    /// Begins a step with this name; the edits that follow belong to it. A step without edits does not count.
    void begin_step(std::wstring name = {});
    /// Adds a change to the current step. During a Pause the state changes, but no step gets the change.
    void note(Change change);
    /// Removes the last step from the history and returns it; an empty step when there is none.
    Step take_last();
    /// To be called when all of a taken step has been undone.
    void restore_state(const Step& step) { state_ = step.state_before; }
    /// Forgets all steps: no edit made before can be undone.
    void clear() { steps_.clear(); }

    /// A number for the state of all records: the same number means the same records.
    uint64_t state() const { return state_; }

    /// While this object lives, edits are not part of any step.
    class Pause {
      public:
        explicit Pause(UndoHistory& history) : history_(history) { ++history_.pauses_; }
        ~Pause() { --history_.pauses_; }
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

      private:
        UndoHistory& history_;
    };

  private:
    std::vector<Step> steps_;
    uint64_t state_ = 0;
    uint64_t states_ = 0;  ///< state numbers given out so far
    std::wstring name_;    ///< of the step that begins with the next edit
    bool step_ended_ = true;
    int pauses_ = 0;
};

}  // namespace dxf
