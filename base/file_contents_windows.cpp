#include <windows.h>

#include <algorithm>

#include "base/file_contents_system.h"

namespace base {
namespace {

std::error_code last_error() {
    return {static_cast<int>(GetLastError()), std::system_category()};
}

class WindowsSource final : public FileSource {
  public:
    explicit WindowsSource(HANDLE handle) : handle_(handle) {}
    ~WindowsSource() override { CloseHandle(handle_); }

    Stamp stamp(std::error_code& error) const override {
        BY_HANDLE_FILE_INFORMATION info = {};
        if (GetFileInformationByHandle(handle_, &info) == 0) {
            error = last_error();
        }
        const auto wide = [](DWORD high, DWORD low) { return std::uint64_t{high} << 32 | low; };
        return {
            wide(info.nFileSizeHigh, info.nFileSizeLow),
            static_cast<std::int64_t>(wide(info.ftLastWriteTime.dwHighDateTime, info.ftLastWriteTime.dwLowDateTime))};
    }

    size_t read(char* to, size_t size, std::error_code& error) override {
        constexpr size_t largest = 1U << 28;
        size_t taken = 0;
        DWORD count = 0;
        do {
            count = 0;
            if (ReadFile(handle_, to + taken, static_cast<DWORD>(std::min(size - taken, largest)), &count, nullptr) ==
                0) {
                error = last_error();
            }
            taken += count;
        } while (count != 0 && taken < size);
        return taken;
    }

  private:
    HANDLE handle_;
};

}  // namespace

std::unique_ptr<FileSource> FileSource::open(const std::filesystem::path& path, std::error_code& error) {
    const HANDLE handle =
        CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        error = last_error();
        return nullptr;
    }
    return std::make_unique<WindowsSource>(handle);
}

}  // namespace base
