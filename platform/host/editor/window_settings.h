// The settings that the host remembers for its user between runs, and their text of lines "name=value".
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// A window's place on the screen, in pixels.
struct WindowPlace {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    bool maximised = false;
    bool operator==(const WindowPlace&) const = default;

    /// This place, moved and made smaller as far as it must be to lie within `area`.
    WindowPlace within(const WindowPlace& area) const;
};

struct WindowSettings {
    static constexpr size_t most_recent = 10;

    std::optional<WindowPlace> place;
    std::wstring folder;               ///< where the last file was chosen; empty for none
    std::vector<std::wstring> recent;  ///< paths of drawings, the last one first

    bool operator==(const WindowSettings&) const = default;
    void add_recent(const std::wstring& path);
};

/// Reads the text; lines that it does not know are passed over.
WindowSettings read_window_settings(std::wstring_view text);
std::wstring format_window_settings(const WindowSettings& settings);

}  // namespace host
