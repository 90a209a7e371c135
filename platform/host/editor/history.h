// Where everything goes that the command line prints: the window's history and, when asked for, standard error.
#pragma once

#include <string_view>

namespace host {

class MainWindow;

class History {
  public:
    void attach(MainWindow* window) { window_ = window; }
    void echo_to_standard_error(bool echo) { echo_ = echo; }
    void print(std::wstring_view text) const;

  private:
    MainWindow* window_ = nullptr;
    bool echo_ = false;
};

/// Writes text to standard error at once, as UTF-8. Any thread.
void write_standard_error(std::wstring_view text);

}  // namespace host
