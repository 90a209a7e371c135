// How large a display list may become and how long it may take to build, whatever the drawing holds.
#pragma once

#include <cstddef>
#include <cstdint>

namespace host {

/// What a display list may cost: memory in bytes, time in steps of some nanoseconds.
struct PictureLimits {
    uint64_t bytes = uint64_t{400} << 20;
    uint64_t steps = 1'500'000'000;

    /// For a drawing of this size. Growing lists take twice what is in them at times, which leaves a drawing within
    /// 1 GB and four times its size.
    static PictureLimits for_drawing(uint64_t size) {
        PictureLimits limits;
        limits.bytes += size + size / 2;
        limits.steps += 4 * size;
        return limits;
    }
};

/// What is left of the limits while a list is built. One for all of a list: many small things cost as much as one
/// large thing. Entities that do not get what they need are counted.
class PictureBudget {
  public:
    explicit PictureBudget(const PictureLimits& limits) : limits_(limits), left_(limits) {}

    /// What is taken from here on is for another entity.
    void begin_entity() { cut_ = false; }
    /// False when there is no room: the entity does without.
    bool take(size_t bytes) { return take(left_.bytes, bytes); }
    /// False when there is no time: the entity must end its work.
    bool work(size_t steps) { return take(left_.steps, steps); }
    /// The entity does without something.
    void leave_out() {
        left_out_ += cut_ ? 0 : 1;
        cut_ = true;
    }
    /// Whether the entity does without something.
    bool cut() const { return cut_; }
    /// Nobody waits for the rest.
    void spend() { left_.steps = 0; }
    /// Whether it is of no use to look at further entities.
    bool spent() const { return left_.bytes < spare_bytes || left_.steps == 0; }
    /// Into how many chords a curve may be cut.
    size_t most_chords() const { return tight() ? coarse : fine; }
    /// Whether a good part of the memory is taken, and what costs much must be done without.
    bool tight() const { return left_.bytes < limits_.bytes - limits_.bytes / 4; }
    uint64_t bytes_left() const { return left_.bytes; }
    size_t left_out() const { return left_out_; }

  private:
    static constexpr uint64_t spare_bytes = 1024;
    static constexpr size_t fine = 1000;
    static constexpr size_t coarse = 8;

    bool take(uint64_t& left, uint64_t wanted) {
        if (wanted <= left) {
            left -= wanted;
            return true;
        }
        leave_out();
        return false;
    }

    PictureLimits limits_;
    PictureLimits left_;
    bool cut_ = false;
    size_t left_out_ = 0;
};

}  // namespace host
