#include <windows.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "base/code_page.h"
#include "base/replace_file_system.h"

namespace base {
namespace {

WriteStatus failure(DWORD error = GetLastError()) {
    wchar_t* text = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
        MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), reinterpret_cast<LPWSTR>(&text), 0, nullptr);
    const std::unique_ptr<wchar_t, decltype(&LocalFree)> owner(text, LocalFree);
    std::wstring reason(text == nullptr ? L"" : text, length);
    while (!reason.empty() && (reason.back() <= L' ' || reason.back() == L'.')) {
        reason.pop_back();
    }
    return {false, reason.empty() ? "error " + std::to_string(error) : utf8_from_wide(reason)};
}

class WindowsFile final : public FileReplacement::File {
  public:
    explicit WindowsFile(HANDLE handle) : handle_(handle) {}
    ~WindowsFile() override { close(); }

    WriteStatus write(std::string_view bytes) override {
        while (!bytes.empty()) {
            constexpr size_t largest = 1U << 28;
            DWORD written = 0;
            if (!WriteFile(handle_, bytes.data(), static_cast<DWORD>(std::min(bytes.size(), largest)), &written,
                           nullptr)) {
                return failure();
            }
            if (written == 0) {
                return failure(ERROR_DISK_FULL);
            }
            bytes.remove_prefix(written);
        }
        return {};
    }

    WriteStatus finish() override {
        if (!FlushFileBuffers(handle_)) {
            return failure();
        }
        return close() ? WriteStatus{} : failure();
    }

  private:
    bool close() {
        const HANDLE handle = std::exchange(handle_, INVALID_HANDLE_VALUE);
        return handle == INVALID_HANDLE_VALUE || CloseHandle(handle);
    }

    HANDLE handle_;
};

std::vector<char> access_list(const std::filesystem::path& path) {
    DWORD needed = 0;
    GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &needed);
    std::vector<char> list(needed);
    if (needed == 0 || !GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, list.data(), needed, &needed)) {
        list.clear();
    }
    return list;
}

}  // namespace

std::unique_ptr<FileReplacement::File> FileReplacement::File::create(const std::filesystem::path& path,
                                                                     WriteStatus& status) {
    const HANDLE handle =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        status = failure();
        return nullptr;
    }
    return std::make_unique<WindowsFile>(handle);
}

std::filesystem::path resolve_links(const std::filesystem::path& path) {
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

bool refuses_writing(const std::filesystem::path& path, WriteStatus& status) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return false;
    }
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        status = {false, "It is a folder"};
    } else if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        status = failure(ERROR_ACCESS_DENIED);
    }
    return !status.ok;
}

void copy_permissions(const std::filesystem::path& from, const std::filesystem::path& to) {
    auto wanted = access_list(from);
    if (!wanted.empty() && wanted != access_list(to)) {
        SetFileSecurityW(to.c_str(), DACL_SECURITY_INFORMATION, wanted.data());
    }
}

WriteStatus move_over(const std::filesystem::path& from, const std::filesystem::path& to) {
    const bool moved = MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
    return moved ? WriteStatus{} : failure();
}

unsigned long process_number() {
    return GetCurrentProcessId();
}

bool process_runs(unsigned long number) {
    const std::unique_ptr<void, decltype(&CloseHandle)> process(OpenProcess(SYNCHRONIZE, FALSE, number), CloseHandle);
    return process == nullptr ? GetLastError() != ERROR_INVALID_PARAMETER
                              : WaitForSingleObject(process.get(), 0) == WAIT_TIMEOUT;
}

}  // namespace base
