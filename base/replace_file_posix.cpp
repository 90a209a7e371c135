#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <utility>

#include "base/replace_file_system.h"

namespace base {
namespace {

std::error_code last_error() {
    return {errno, std::generic_category()};
}

std::error_code error_unless(bool succeeded) {
    return succeeded ? std::error_code() : last_error();
}

bool same_permissions(const struct stat& left, const struct stat& right) {
    return left.st_uid == right.st_uid && left.st_gid == right.st_gid && left.st_mode == right.st_mode;
}

class PosixFile final : public ReplacementFile {
  public:
    PosixFile(const std::filesystem::path& path, int descriptor) : ReplacementFile(path), descriptor_(descriptor) {}
    ~PosixFile() override { ::close(descriptor_); }

    bool lock() override {
        struct flock range {};
        range.l_type = F_WRLCK;
        range.l_start = static_cast<off_t>(lock_offset);
        range.l_len = 1;
        // On a file system without locks the file counts as locked: other writers could not be told apart anyway.
        return ::fcntl(descriptor_, F_OFD_SETLK, &range) == 0 || (errno != EAGAIN && errno != EACCES);
    }

    bool is_named() const override { return status().st_nlink > 0; }

    std::uint64_t size(std::error_code& error) const override {
        struct stat info {};
        error = error_unless(::fstat(descriptor_, &info) == 0);
        return static_cast<std::uint64_t>(info.st_size);
    }

    std::error_code write(std::string_view bytes) override {
        while (!bytes.empty()) {
            const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
            if (written < 0 && errno != EINTR) {
                return last_error();
            }
            bytes.remove_prefix(written > 0 ? static_cast<size_t>(written) : 0);
        }
        return {};
    }

    std::string read(std::uint64_t offset, size_t count, std::error_code& error) override {
        std::string bytes(count, '\0');
        const ssize_t taken = ::pread(descriptor_, bytes.data(), count, static_cast<off_t>(offset));
        error = error_unless(taken >= 0);
        bytes.resize(taken > 0 ? static_cast<size_t>(taken) : 0);
        return bytes;
    }

    std::error_code seek(std::uint64_t offset) override {
        return error_unless(::lseek(descriptor_, static_cast<off_t>(offset), SEEK_SET) >= 0);
    }

    std::error_code resize(std::uint64_t size) override {
        return error_unless(::ftruncate(descriptor_, static_cast<off_t>(size)) == 0);
    }

    std::error_code flush() override {
        return error_unless(::fsync(descriptor_) == 0 || errno == EINVAL || errno == EROFS);
    }

    Takeover take_over_from(const std::filesystem::path& target) override {
        struct stat old {};
        if (::stat(target.c_str(), &old) != 0) {
            return Takeover::whole;
        }
        // A user who may not give the file to its old owner may still give it to a group that he belongs to.
        if (::fchown(descriptor_, old.st_uid, old.st_gid) != 0) {
            [[maybe_unused]] const int group_kept = ::fchown(descriptor_, static_cast<uid_t>(-1), old.st_gid);
        }
        const bool mode_kept = ::fchmod(descriptor_, old.st_mode & 07777) == 0;
        return mode_kept && same_permissions(status(), old) ? Takeover::whole : Takeover::incomplete;
    }

    std::error_code appear_as(const std::filesystem::path&) override {
        return std::make_error_code(std::errc::not_supported);  // a rename does it
    }

    std::error_code rename(const std::filesystem::path& target) override {
        return error_unless(::rename(path_.c_str(), target.c_str()) == 0);
    }

    void remove() override { ::unlink(path_.c_str()); }

  private:
    struct stat status() const {
        struct stat info {};
        ::fstat(descriptor_, &info);
        return info;
    }

    int descriptor_;
};

std::unique_ptr<ReplacementFile> open_file(const std::filesystem::path& path, int flags, std::error_code& error) {
    const int descriptor = ::open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOCTTY | flags, 0666);
    error = error_unless(descriptor >= 0);
    return error ? nullptr : std::make_unique<PosixFile>(path, descriptor);
}

}  // namespace

std::unique_ptr<ReplacementFile> ReplacementFile::create(const std::filesystem::path& path, std::error_code& error) {
    return open_file(path, O_CREAT | O_EXCL, error);
}

std::unique_ptr<ReplacementFile> ReplacementFile::open(const std::filesystem::path& path, std::error_code& error) {
    return open_file(path, 0, error);
}

std::filesystem::path folder_delivered_later() {
    const char* const folder = std::getenv("CORVANES_DELIVERED_LATER");
    return folder != nullptr ? folder : "";
}

std::filesystem::path full_path(const std::filesystem::path& path) {
    return std::filesystem::absolute(path);
}

std::filesystem::path resolve_links(const std::filesystem::path& path) {
    std::error_code error;
    auto resolved = std::filesystem::canonical(path, error);
    return error ? path : resolved;
}

WriteStatus refusal_of(const std::filesystem::path& path) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) {
        const bool broken_link = ::lstat(path.c_str(), &info) == 0;
        return broken_link ? Failure{"It is a link to a file that does not exist"} : WriteStatus();
    }
    if (S_ISDIR(info.st_mode)) {
        return failure(std::make_error_code(std::errc::is_a_directory));
    }
    if (!S_ISREG(info.st_mode)) {
        return Failure{"It is not a regular file"};
    }
    return ::access(path.c_str(), W_OK) == 0 ? WriteStatus() : failure(last_error());
}

Failure<std::string> failure(std::error_code error) {
    return {error.message()};
}

}  // namespace base
