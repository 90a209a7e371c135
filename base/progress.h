// How far a long action is, told to whoever waits for it.
#pragma once

#include <functional>
#include <utility>

namespace base {

/// While it lives, the long actions of its thread tell it how far they are. Of several the innermost is told.
class ProgressWatch {
  public:
    /// Takes a part from 0 to 1; false when the action is to end.
    using Watch = std::function<bool(double part)>;

    explicit ProgressWatch(Watch watch) : watch_(std::move(watch)), outer_(std::exchange(innermost, this)) {}
    ~ProgressWatch() { innermost = outer_; }
    ProgressWatch(const ProgressWatch&) = delete;
    ProgressWatch& operator=(const ProgressWatch&) = delete;

    /// For a long action, now and then: whether it is to go on.
    static bool goes_on(double part) { return innermost == nullptr || !innermost->watch_ || innermost->watch_(part); }

  private:
    inline static thread_local ProgressWatch* innermost = nullptr;

    Watch watch_;
    ProgressWatch* outer_;
};

}  // namespace base
