// ProgressWatch: a long action tells whoever waits for it how far it is, and may be told to end.
#pragma once

#include <functional>
#include <utility>

namespace base {

/// While it lives, the long actions of its thread tell it how far they are. Of several, only the innermost is told.
class ProgressWatch {
  public:
    /// Takes the part that is done, from 0 to 1; returns false when the action is to end.
    using Watch = std::function<bool(double part)>;

    explicit ProgressWatch(Watch watch) : watch_(std::move(watch)), outer_(std::exchange(innermost, this)) {}
    ~ProgressWatch() { innermost = outer_; }
    ProgressWatch(const ProgressWatch&) = delete;
    ProgressWatch& operator=(const ProgressWatch&) = delete;

    /// A long action calls this now and then, and ends when it returns false.
    static bool goes_on(double part) { return innermost == nullptr || !innermost->watch_ || innermost->watch_(part); }

  private:
    inline static thread_local ProgressWatch* innermost = nullptr;

    Watch watch_;
    ProgressWatch* outer_;
};

}  // namespace base
