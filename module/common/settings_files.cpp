#include "common/settings_files.h"

#include "base/case_folding.h"
#include "common/module_path.h"
#include "common/price_text.h"
#include "common/text_file.h"

namespace corvanes {
namespace {

/// Replaces every occurrence of `what`, in the names of folders too, so that the settings are found where they have
/// always been.
std::wstring replace_all(std::wstring text, std::wstring_view what, std::wstring_view with) {
    if (what.empty()) {
        return text;
    }
    for (size_t at = text.find(what); at != std::wstring::npos; at = text.find(what, at + with.size())) {
        text.replace(at, what.size(), with);
    }
    return text;
}

/// Writes the text unless the file has it already.
void write_changed(const std::filesystem::path& path, std::wstring_view text) {
    if (read_text_file(path) != text) {
        write_text_file(path, text);
    }
}

}  // namespace

SettingsPaths settings_paths(std::wstring_view module_path, std::wstring_view settings_name) {
    const std::wstring module = base::lower(module_path);
    size_t separator = module.rfind(L'/');
    if (separator == std::wstring::npos) {
        separator = module.rfind(L'\\');
    }
    SettingsPaths paths;
    paths.settings = separator == std::wstring::npos
                         ? std::wstring(settings_name)
                         : replace_all(module, std::wstring_view(module).substr(separator + 1), settings_name);
    paths.last_file = replace_all(paths.settings, settings_name, last_file_name);
    return paths;
}

void read_column_widths(const std::filesystem::path& path, std::span<int> widths) {
    const auto text = read_text_file(path);
    if (!text) {
        return;
    }
    std::wstring_view rest = *text;
    for (int& width : widths) {
        if (!take_integer(rest, width)) {
            return;
        }
    }
}

void write_column_widths(const std::filesystem::path& path, std::span<const int> widths) {
    std::wstring text;
    for (const int width : widths) {
        text += std::to_wstring(width) + L' ';
    }
    write_changed(path, text);
}

std::optional<std::wstring> read_last_file(const std::filesystem::path& path) {
    const auto text = read_text_file(path);
    if (!text) {
        return std::nullopt;
    }
    std::wstring_view rest = *text;
    const std::wstring_view word = take_word(rest);
    return word.empty() ? std::nullopt : std::optional(std::wstring(word));
}

void write_last_file(const std::filesystem::path& path, std::wstring_view last_file) {
    write_changed(path, last_file);
}

void GetSettingsPaths(const wchar_t* settings_file_name, std::wstring& settings_path, std::wstring& last_file_path) {
    SettingsPaths paths = settings_paths(module_path(), settings_file_name);
    settings_path = std::move(paths.settings);
    last_file_path = std::move(paths.last_file);
}

void read_settings(const wchar_t* settings_file_name, std::vector<int>& widths, std::wstring& last_file) {
    SettingsPaths paths;
    GetSettingsPaths(settings_file_name, paths.settings, paths.last_file);
    read_column_widths(paths.settings, widths);
    if (auto read = read_last_file(paths.last_file)) {
        last_file = std::move(*read);
    }
}

void write_settings(const wchar_t* settings_file_name, const std::vector<int>& widths, std::wstring_view last_file) {
    SettingsPaths paths;
    GetSettingsPaths(settings_file_name, paths.settings, paths.last_file);
    write_column_widths(paths.settings, widths);
    write_last_file(paths.last_file, last_file);
}

}  // namespace corvanes
