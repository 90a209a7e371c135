#include "platform/host/dxf/file_mapping.h"

#include <cstdint>
#include <system_error>
#include <utility>

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#endif

namespace dxf {

namespace {

/// Words for the failures that people meet; the system's own for the rest.
std::string reason_of(std::error_code error) {
    if (error == std::errc::no_such_file_or_directory) {
        return "no such file";
    }
    if (error == std::errc::permission_denied) {
        return "permission denied";
    }
    return error.message();
}

#ifdef _WIN32

class OwnedHandle {
  public:
    explicit OwnedHandle(HANDLE handle) : handle_(handle) {}
    OwnedHandle(const OwnedHandle&) = delete;
    OwnedHandle& operator=(const OwnedHandle&) = delete;
    ~OwnedHandle() {
        if (valid()) {
            CloseHandle(handle_);
        }
    }
    bool valid() const { return handle_ != nullptr && handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle_; }

  private:
    HANDLE handle_;
};

std::error_code last_error() {
    return {static_cast<int>(GetLastError()), std::system_category()};
}

std::error_code map_file(const std::filesystem::path& path, const char*& data, size_t& size) {
    const OwnedHandle file(CreateFileW(path.c_str(), GENERIC_READ,
                                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                       FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    LARGE_INTEGER length = {};
    if (!file.valid() || GetFileSizeEx(file.get(), &length) == 0) {
        return last_error();
    }
    if (length.QuadPart == 0) {
        return {};
    }
    const OwnedHandle mapping(CreateFileMappingW(file.get(), nullptr, PAGE_READONLY, 0, 0, nullptr));
    if (!mapping.valid()) {
        return last_error();
    }
    // The view keeps the file mapped after both handles are closed.
    data = static_cast<const char*>(MapViewOfFile(mapping.get(), FILE_MAP_READ, 0, 0, 0));
    size = static_cast<size_t>(length.QuadPart);
    return data == nullptr ? last_error() : std::error_code();
}

#else

class OwnedDescriptor {
  public:
    explicit OwnedDescriptor(int descriptor) : descriptor_(descriptor) {}
    OwnedDescriptor(const OwnedDescriptor&) = delete;
    OwnedDescriptor& operator=(const OwnedDescriptor&) = delete;
    ~OwnedDescriptor() {
        if (descriptor_ >= 0) {
            close(descriptor_);
        }
    }
    int get() const { return descriptor_; }

  private:
    int descriptor_;
};

std::error_code last_error() {
    return {errno, std::generic_category()};
}

std::error_code map_file(const std::filesystem::path& path, const char*& data, size_t& size) {
    const OwnedDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat status = {};
    if (file.get() < 0 || fstat(file.get(), &status) != 0) {
        return last_error();
    }
    if (status.st_size == 0) {
        return {};
    }
    void* const mapped = mmap(nullptr, static_cast<size_t>(status.st_size), PROT_READ, MAP_PRIVATE, file.get(), 0);
    if (mapped == MAP_FAILED) {
        return last_error();
    }
    data = static_cast<const char*>(mapped);
    size = static_cast<size_t>(status.st_size);
    madvise(mapped, size, MADV_SEQUENTIAL);
    return {};
}

#endif

}  // namespace

FileMapping::FileMapping(FileMapping&& other) noexcept
    : data_(std::exchange(other.data_, nullptr)), size_(std::exchange(other.size_, 0)) {}

FileMapping& FileMapping::operator=(FileMapping&& other) noexcept {
    std::swap(data_, other.data_);
    std::swap(size_, other.size_);
    return *this;
}

FileMapping::~FileMapping() {
    reset();
}

std::optional<FileMapping> FileMapping::open(const std::filesystem::path& path, std::string& reason) {
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) {
        reason = "is a directory";
        return std::nullopt;
    }
    if (std::filesystem::exists(path, error) && !std::filesystem::is_regular_file(path, error)) {
        reason = "is not a regular file";
        return std::nullopt;
    }
    FileMapping mapping;
    if (const std::error_code failed = map_file(path, mapping.data_, mapping.size_)) {
        reason = reason_of(failed);
        return std::nullopt;
    }
    return mapping;
}

void FileMapping::reset() {
    if (data_ != nullptr) {
#ifdef _WIN32
        UnmapViewOfFile(data_);
#else
        munmap(const_cast<char*>(data_), size_);
#endif
    }
    data_ = nullptr;
    size_ = 0;
}

}  // namespace dxf
