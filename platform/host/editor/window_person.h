// A person at the main window.
#pragma once

#include "platform/host/prompt/person.h"

namespace host {

class CommandProcessor;
class MainWindow;

class WindowPerson : public Person {
  public:
    /// `echo`: what is printed goes to standard error too.
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

/// Writes text to standard error at once, as UTF-8. Any thread.
void write_standard_error(std::wstring_view text);

}  // namespace host
