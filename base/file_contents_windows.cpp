#include <windows.h>

#include <algorithm>

#include "base/background.h"
#include "base/file_contents_system.h"

namespace base {
namespace {

std::error_code last_error() {
    return {static_cast<int>(GetLastError()), std::system_category()};
}

/// Writes to each page of memory that is new to the process. Wine reads and then writes a byte of every page before it
/// fills a buffer, and a new page that is read first costs two faults and an interrupt of all other threads.
void write_to_pages(char* memory, size_t size) {
    constexpr size_t page = 4096;
    for (size_t at = 0; at < size; at += page) {
        static_cast<volatile char*>(memory)[at] = 0;
    }
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
        constexpr size_t large = 1U << 25;
        if (size < large) {
            return read_at(0, to, size, error);
        }
        // Most of the time is spent on pages that are new to the process; two threads halve it.
        const size_t half = size / 2;
        std::error_code later_error;
        auto later = run_beside([&] { return read_at(half, to + half, size - half, later_error); });
        const size_t first = read_at(0, to, half, error);
        const size_t second = later.get();
        if (first < half || error) {
            return first;
        }
        error = later_error;
        return first + second;
    }

  private:
    size_t read_at(std::uint64_t offset, char* to, size_t size, std::error_code& error) const {
        constexpr size_t largest = 1U << 20;  // what the processor's cache holds
        size_t taken = 0;
        DWORD count = 0;
        do {
            count = 0;
            const size_t piece = std::min(size - taken, largest);
            write_to_pages(to + taken, piece);
            OVERLAPPED place{};
            place.Offset = static_cast<DWORD>(offset + taken);
            place.OffsetHigh = static_cast<DWORD>((offset + taken) >> 32);
            if (ReadFile(handle_, to + taken, static_cast<DWORD>(piece), &count, &place) == 0 &&
                GetLastError() != ERROR_HANDLE_EOF) {
                error = last_error();
            }
            taken += count;
        } while (count != 0 && taken < size);
        return taken;
    }

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
