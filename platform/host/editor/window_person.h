// Who sits at the main window: a user, or a script in a user's place with the watch over its progress.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "platform/host/prompt/person.h"

namespace host {

class CommandProcessor;
class MainWindow;
class ScriptRun;

/// A user, who answers and points at the window and sees there what commands show.
class WindowPerson : public Person {
  public:
    /// With `echo`, what is printed goes to standard error too. The window and the processor are borrowed.
    WindowPerson(MainWindow& window, CommandProcessor& processor, bool echo = false)
        : window_(window), processor_(processor), echo_(echo) {}

    /// Runs the transparent commands that are typed, and asks again, until another answer comes.
    Answer prompt(std::wstring_view text, const PointerGuide& guide = {}) final;
    std::optional<InputEvent> next_event() override;
    void print(std::wstring_view text) final;
    void report(std::wstring_view problem) override;
    void draw_vector(const Point& from, const Point& to, int colour, bool highlight) final;
    bool show_progress(std::wstring_view action, double part) override;
    bool has_typed_ahead() const final;
    void show_selected(const std::vector<dxf::RecordId>& entities) final;

  protected:
    MainWindow& window() const { return window_; }

  private:
    virtual Answer take_answer(std::wstring_view text, const PointerGuide& guide);

    MainWindow& window_;
    CommandProcessor& processor_;
    bool echo_;
};

/// A script in a user's place: it answers, and the window shows what happens.
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

/// The last resort against hanging: a thread that watches the script. When no line was taken for `patience`, it writes
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

/// Writes text to standard error at once, as UTF-8. Any thread may call it.
void write_standard_error(std::wstring_view text);

}  // namespace host
