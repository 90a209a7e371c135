// Ends the process when a script makes no progress: the last resort against hanging.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace host {

class ScriptRun;

/// Watches from a thread of its own. When no line was taken for that long it writes the failure to standard error and
/// ends the process with status 1; nothing is saved then.
class Watchdog {
  public:
    Watchdog(const ScriptRun& run, std::chrono::seconds patience);
    ~Watchdog();
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

  private:
    void watch();

    const ScriptRun& run_;
    const std::chrono::seconds patience_;
    std::mutex mutex_;
    std::condition_variable wake_;
    bool done_ = false;
    std::thread thread_;
};

}  // namespace host
