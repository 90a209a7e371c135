// The pointer and keys of a person at the window, for acedGrRead.
#pragma once

#include "platform/host/editor/input_events.h"

namespace host {

class MainWindow;

/// Answers for as long as it lives.
class WindowEvents final : public InputEvents {
  public:
    explicit WindowEvents(MainWindow& window);
    ~WindowEvents() override;
    WindowEvents(const WindowEvents&) = delete;
    WindowEvents& operator=(const WindowEvents&) = delete;

    std::optional<InputEvent> next() override;

  private:
    MainWindow& window_;
};

}  // namespace host
