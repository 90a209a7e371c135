// The host's one settings file.
#pragma once

#include <filesystem>
#include <functional>

#include "base/result.h"
#include "platform/host/editor/window_settings.h"

namespace host {

/// Without a file nothing is remembered; where it cannot be read, or not be written, no longer than the host runs. Each
/// change reads the file before it writes, so that hosts that run at once keep what the others remember.
class UserSettings {
  public:
    /// The user's file: $CORVANES_SETTINGS, else Corvanes\window.set in the user's folder for programs' data.
    static std::filesystem::path usual_file();
    void use(std::filesystem::path file);

    /// As last read or written.
    const WindowSettings& settings() const { return settings_; }
    /// The reason, when what was changed cannot be written, and the change before could.
    base::Outcome<> change(const std::function<void(WindowSettings&)>& edit);

  private:
    void read();

    std::filesystem::path file_;
    WindowSettings settings_;
    bool failed_ = false;  ///< the last change could not be written
};

}  // namespace host
