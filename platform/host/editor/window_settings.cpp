#include "platform/host/editor/window_settings.h"

#include <algorithm>

#include "base/case_folding.h"
#include "platform/host/prompt/input_text.h"

namespace host {
namespace {

constexpr size_t longest_value = 4096;  // characters; no path is longer

bool usable(std::wstring_view value) {
    return !value.empty() && value.size() <= longest_value &&
           std::all_of(value.begin(), value.end(), [](wchar_t character) { return character >= L' '; });
}

/// Reads "left top width height", with or without "maximised" behind them. Nothing for another text.
std::optional<WindowPlace> read_place(std::wstring_view value) {
    constexpr int most = 100000;
    WindowPlace place;
    for (int* const number : {&place.left, &place.top, &place.width, &place.height}) {
        const size_t blank = std::min(value.find(L' '), value.size());
        const std::optional<int> read = parse_integer(value.substr(0, blank));
        if (!read || *read > most || *read < -most) {
            return std::nullopt;
        }
        *number = *read;
        value.remove_prefix(std::min(blank + 1, value.size()));
    }
    place.maximised = value == L"maximised";
    return place.width > 0 && place.height > 0 ? std::optional(place) : std::nullopt;
}

}  // namespace

WindowPlace WindowPlace::within(const WindowPlace& area) const {
    WindowPlace fitting = *this;
    fitting.width = std::min(width, area.width);
    fitting.height = std::min(height, area.height);
    fitting.left = std::clamp(left, area.left, area.left + area.width - fitting.width);
    fitting.top = std::clamp(top, area.top, area.top + area.height - fitting.height);
    return fitting;
}

void WindowSettings::add_recent(const std::wstring& path) {
    std::erase_if(recent, [&](const std::wstring& other) { return base::compare_ignoring_case(path, other) == 0; });
    recent.insert(recent.begin(), path);
    recent.resize(std::min(recent.size(), most_recent));
}

WindowSettings read_window_settings(std::wstring_view text) {
    WindowSettings settings;
    while (!text.empty()) {
        const size_t end = std::min(text.find_first_of(L"\r\n"), text.size());
        const std::wstring_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        const size_t equals = line.find(L'=');
        if (equals == std::wstring_view::npos || !usable(line.substr(equals + 1))) {
            continue;
        }
        const std::wstring_view name = line.substr(0, equals);
        const std::wstring value(line.substr(equals + 1));
        if (name == L"window") {
            settings.place = read_place(value);
        } else if (name == L"folder") {
            settings.folder = value;
        } else if (name == L"recent" && settings.recent.size() < WindowSettings::most_recent) {
            settings.recent.push_back(value);
        }
    }
    return settings;
}

std::wstring format_window_settings(const WindowSettings& settings) {
    std::wstring text;
    if (const std::optional<WindowPlace>& place = settings.place) {
        text += L"window=" + std::to_wstring(place->left) + L" " + std::to_wstring(place->top) + L" " +
                std::to_wstring(place->width) + L" " + std::to_wstring(place->height) +
                (place->maximised ? L" maximised" : L"") + L"\r\n";
    }
    if (!settings.folder.empty()) {
        text += L"folder=" + settings.folder + L"\r\n";
    }
    for (const std::wstring& path : settings.recent) {
        text += L"recent=" + path + L"\r\n";
    }
    return text;
}

}  // namespace host
