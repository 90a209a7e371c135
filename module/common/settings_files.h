// The small files beside the module that remember column widths and the last price list.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace corvanes {

constexpr const wchar_t* template_settings_name = L"corvane1.set";
constexpr const wchar_t* report_settings_name = L"corvane2.set";
constexpr std::wstring_view last_file_name = L"filename.set";

struct SettingsPaths {
    std::wstring settings;   ///< the column widths of one dialog
    std::wstring last_file;  ///< the last price list, shared by both dialogs
};

/// The paths of a module's settings files: its path in lower case with the file's name replaced. A path without any
/// separator gives bare names, that is, files of the current folder.
SettingsPaths settings_paths(std::wstring_view module_path, std::wstring_view settings_name);

/// Reads decimal, hexadecimal (0x) or octal (0) integers into `widths`, from the first on. Widths that cannot be read
/// stay as they were; without a file all of them do.
void read_column_widths(const std::filesystem::path& path, std::span<int> widths);

/// Writes each width and a blank behind it. A file that cannot be written is left as it is, silently.
void write_column_widths(const std::filesystem::path& path, std::span<const int> widths);

/// The first word of the file: a path that holds a blank comes back cut there. Nothing when there is no file or no
/// word.
std::optional<std::wstring> read_last_file(const std::filesystem::path& path);

/// Writes the path as it stands. A file that cannot be written is left as it is, silently.
void write_last_file(const std::filesystem::path& path, std::wstring_view last_file);

/// The full paths of one settings file and of the last-file settings, beside this module.
void GetSettingsPaths(const wchar_t* settings_file_name, std::wstring& settings_path, std::wstring& last_file_path);

/// These two read what a dialog remembers from those files, and write it. A value that a file lacks stays as it was.
void read_settings(const wchar_t* settings_file_name, std::vector<int>& widths, std::wstring& last_file);
void write_settings(const wchar_t* settings_file_name, const std::vector<int>& widths, std::wstring_view last_file);

}  // namespace corvanes
