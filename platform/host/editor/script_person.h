// A script in a person's place, and the watch over its progress.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "platform/host/editor/window_person.h"

namespace host {

class ScriptRun;

/// The script answers; the window shows what happens.
class ScriptPerson final : public WindowPerson {
  public:
    ScriptPerson(ScriptRun& run, MainWindow& window, CommandProcessor& processor, bool echo)
        : WindowPerson(window, processor, echo), run_(run) {}

    std::optional<InputEvent> next_event() override { return Person::next_event(); }
    /// Fails the script.
    void report(std::wstring_view problem) override;
    bool is_script() const override { return true; }

  private:
    /// Lets the windows paint, then takes the script's next line.
    Answer take_answer(std::wstring_view text, const PointerGuide& guide) override;

    ScriptRun& run_;
};

/// The last resort against hanging. Watches from a thread of its own. When no line was taken for that long it writes
/// the failure to standard error and ends the process with status 1; nothing is saved then.
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
