// What the steps of a drawing's edits did to its records, so that they can be taken back.
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

    /// The edits from here on are a step of their own, called so. A step without edits does not count.
    void begin_step(std::wstring name = {});
    /// While notes are paused the state changes with each edit, but no step takes it.
    void note(Change change);
    /// The last step, which is no longer part of the history; empty when there is none.
    Step take_last();
    /// To be called when all of a taken step has been undone.
    void restore_state(const Step& step) { state_ = step.state_before; }
    /// Nothing before this can be taken back.
    void clear() { steps_.clear(); }

    /// Two equal numbers mean that all records are as they were.
    uint64_t state() const { return state_; }

    /// No edit made in the life of this object is part of a step.
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
    uint64_t states_ = 0;  ///< given out so far
    std::wstring name_;    ///< of the step that begins with the next edit
    bool step_ended_ = true;
    int pauses_ = 0;
};

}  // namespace dxf
