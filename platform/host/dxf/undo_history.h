// UndoHistory, a record of what each step of edits did to a drawing's records, so that it can be undone.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/host/dxf/record.h"

namespace dxf {

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
