#include "platform/host/editor/user_settings.h"

#include <windows.h>

#include <utility>

#include "base/code_page.h"
#include "base/file_contents.h"
#include "base/replace_file.h"

namespace host {
namespace {

std::wstring environment_value(const wchar_t* name) {
    std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    return value;
}

}  // namespace

std::filesystem::path UserSettings::usual_file() {
    if (const std::wstring named = environment_value(L"CORVANES_SETTINGS"); !named.empty()) {
        return named;
    }
    const std::wstring data = environment_value(L"APPDATA");
    return data.empty() ? std::filesystem::path() : std::filesystem::path(data) / L"Corvanes" / L"window.set";
}

void UserSettings::use(std::filesystem::path file) {
    file_ = std::move(file);
    read();
}

void UserSettings::read() {
    if (const auto contents = base::FileContents::read(file_)) {
        settings_ = read_window_settings(base::wide_from_utf8(contents->bytes()));
    }
}

base::Outcome<> UserSettings::change(const std::function<void(WindowSettings&)>& edit) {
    if (file_.empty()) {
        return {};
    }
    read();
    const WindowSettings before = settings_;
    edit(settings_);
    if (settings_ == before) {
        return {};
    }
    std::error_code error;
    std::filesystem::create_directories(file_.parent_path(), error);
    const base::WriteStatus written =
        base::replace_file(file_, base::utf8_from_wide(format_window_settings(settings_)));
    const bool is_news = !std::exchange(failed_, !written);
    return written || !is_news ? base::Outcome<>()
                               : base::Failure{file_.wstring() + L": " + base::wide_from_utf8(written.reason())};
}

}  // namespace host
