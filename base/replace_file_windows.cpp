#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "base/code_page.h"
#include "base/replace_file_system.h"
#include "base/wine_permissions.h"

namespace base {
namespace {

std::error_code error_of(DWORD code) {
    return {static_cast<int>(code), std::system_category()};
}

std::error_code last_error() {
    return error_of(GetLastError());
}

std::error_code error_unless(BOOL succeeded) {
    return succeeded ? std::error_code() : last_error();
}

std::vector<char> access_list(const std::filesystem::path& path) {
    DWORD needed = 0;
    GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &needed);
    std::vector<char> list(needed);
    if (needed == 0 || !GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, list.data(), needed, &needed)) {
        list.clear();
    }
    return list;
}

/// Tries an action again for a while when it fails because another program has the file open for a moment.
template <class Action>
std::error_code patiently(const Action& action) {
    constexpr DWORD pause_milliseconds = 20;
    constexpr int tries = 25;
    std::error_code error = error_unless(action());
    for (int i = 1; i < tries && error == std::errc::permission_denied; ++i) {
        Sleep(pause_milliseconds);
        error = error_unless(action());
    }
    return error;
}

class WindowsFile final : public ReplacementFile {
  public:
    WindowsFile(const std::filesystem::path& path, HANDLE handle) : ReplacementFile(path), handle_(handle) {}
    ~WindowsFile() override { CloseHandle(handle_); }

    bool lock() override {
        OVERLAPPED place{};
        place.Offset = static_cast<DWORD>(lock_offset);
        place.OffsetHigh = static_cast<DWORD>(lock_offset >> 32);
        return LockFileEx(handle_, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) != 0;
    }

    bool is_named() const override {
        FILE_STANDARD_INFO info{};
        return GetFileInformationByHandleEx(handle_, FileStandardInfo, &info, sizeof info) != 0 &&
               info.NumberOfLinks > 0 && info.DeletePending == 0;
    }

    std::uint64_t size(std::error_code& error) const override {
        LARGE_INTEGER size{};
        error = error_unless(GetFileSizeEx(handle_, &size));
        return static_cast<std::uint64_t>(size.QuadPart);
    }

    std::error_code write(std::string_view bytes) override {
        while (!bytes.empty()) {
            constexpr size_t largest = 1U << 28;
            DWORD written = 0;
            if (!WriteFile(handle_, bytes.data(), static_cast<DWORD>(std::min(bytes.size(), largest)), &written,
                           nullptr)) {
                return last_error();
            }
            if (written == 0) {
                return error_of(ERROR_DISK_FULL);
            }
            bytes.remove_prefix(written);
        }
        return {};
    }

    std::string read(std::uint64_t offset, size_t count, std::error_code& error) override {
        std::string bytes(count, '\0');
        DWORD taken = 0;
        error = seek(offset);
        if (!error) {
            error = error_unless(ReadFile(handle_, bytes.data(), static_cast<DWORD>(count), &taken, nullptr));
        }
        bytes.resize(taken);
        return bytes;
    }

    std::error_code seek(std::uint64_t offset) override {
        LARGE_INTEGER place{};
        place.QuadPart = static_cast<LONGLONG>(offset);
        return error_unless(SetFilePointerEx(handle_, place, nullptr, FILE_BEGIN));
    }

    std::error_code resize(std::uint64_t size) override {
        const std::error_code error = seek(size);
        return error ? error : error_unless(SetEndOfFile(handle_));
    }

    std::error_code flush() override { return error_unless(FlushFileBuffers(handle_)); }

    Takeover take_over_from(const std::filesystem::path& target) override {
        if (const auto taken = take_over_under_wine(target, path_)) {
            return *taken;
        }
        auto wanted = access_list(target);
        const bool has_it = wanted.empty() || wanted == access_list(path_) ||
                            SetFileSecurityW(path_.c_str(), DACL_SECURITY_INFORMATION, wanted.data()) != 0;
        return has_it ? Takeover::whole : Takeover::incomplete;
    }

    std::error_code appear_as(const std::filesystem::path& target) override {
        // Under Wine only a Unix program could tell whether the name is a link to nothing, and starting one takes time.
        if (!new_files_have_the_right_mode() || !CreateHardLinkW(target.c_str(), path_.c_str(), nullptr)) {
            return std::make_error_code(std::errc::not_supported);
        }
        remove();
        return {};
    }

    std::error_code rename(const std::filesystem::path& target) override {
        return patiently([&] {
            return MoveFileExW(path_.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
        });
    }

    void remove() override { DeleteFileW(path_.c_str()); }

  private:
    HANDLE handle_;
};

std::unique_ptr<ReplacementFile> open_file(const std::filesystem::path& path, DWORD shared, DWORD disposition,
                                           std::error_code& error) {
    const HANDLE handle = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, shared, nullptr, disposition,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    error = error_unless(handle != INVALID_HANDLE_VALUE);
    return error ? nullptr : std::make_unique<WindowsFile>(path, handle);
}

}  // namespace

std::unique_ptr<ReplacementFile> ReplacementFile::create(const std::filesystem::path& path, std::error_code& error) {
    // The file may be renamed and deleted by name while it is open.
    return open_file(path, FILE_SHARE_DELETE, CREATE_NEW, error);
}

std::unique_ptr<ReplacementFile> ReplacementFile::open(const std::filesystem::path& path, std::error_code& error) {
    return open_file(path, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING, error);
}

std::filesystem::path folder_delivered_later() {
    const wchar_t* const folder = _wgetenv(L"CORVANES_DELIVERED_LATER");
    return folder != nullptr ? folder : L"";
}

// The runtime's own function takes paths that begin with "\\?\" for relative ones.
std::filesystem::path full_path(const std::filesystem::path& path) {
    std::wstring full(32768, L'\0');
    const DWORD length = GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    if (length == 0 || length >= full.size()) {
        return path;
    }
    full.resize(length);
    return full;
}

std::filesystem::path resolve_links(const std::filesystem::path& path) {
    // A path without attributes may be no file (a named pipe has none under Wine) and must not be opened.
    if (GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) {
        return path;
    }
    const HANDLE handle =
        CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return path;
    }
    const std::unique_ptr<void, decltype(&CloseHandle)> owner(handle, CloseHandle);
    std::wstring resolved(32768, L'\0');
    const DWORD length = GetFinalPathNameByHandleW(handle, resolved.data(), static_cast<DWORD>(resolved.size()), 0);
    if (length == 0 || length >= resolved.size()) {
        return path;
    }
    resolved.resize(length);
    return resolved;
}

WriteStatus refusal_of(const std::filesystem::path& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return GetLastError() == ERROR_INVALID_PARAMETER ? Failure{"It is not a regular file"} : WriteStatus();
    }
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return Failure{"It is a folder"};
    }
    std::error_code error;
    const auto file = ReplacementFile::open(path, error);
    const bool denied = !file && error == error_of(ERROR_ACCESS_DENIED);
    return denied || (attributes & FILE_ATTRIBUTE_READONLY) != 0 ? failure(error_of(ERROR_ACCESS_DENIED))
                                                                 : WriteStatus();
}

Failure<std::string> failure(std::error_code error) {
    if (error.category() != std::system_category()) {
        return {error.message()};
    }
    wchar_t* text = nullptr;
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                       nullptr, static_cast<DWORD>(error.value()), MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US),
                       reinterpret_cast<LPWSTR>(&text), 0, nullptr);
    const std::unique_ptr<wchar_t, decltype(&LocalFree)> owner(text, LocalFree);
    std::wstring reason(text == nullptr ? L"" : text, length);
    while (!reason.empty() && (reason.back() <= L' ' || reason.back() == L'.')) {
        reason.pop_back();
    }
    return {reason.empty() ? "error " + std::to_string(error.value()) : utf8_from_wide(reason)};
}

}  // namespace base
