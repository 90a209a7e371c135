#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "base/replace_file_system.h"

namespace base {
namespace {

WriteStatus failure(int error = errno) {
    return {false, std::generic_category().message(error)};
}

class PosixFile final : public FileReplacement::File {
  public:
    explicit PosixFile(int descriptor) : descriptor_(descriptor) {}
    ~PosixFile() override {
        if (descriptor_ >= 0) {
            ::close(descriptor_);
        }
    }

    WriteStatus write(std::string_view bytes) override {
        while (!bytes.empty()) {
            const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
            if (written < 0 && errno != EINTR) {
                return failure();
            }
            bytes.remove_prefix(written > 0 ? static_cast<size_t>(written) : 0);
        }
        return {};
    }

    WriteStatus finish() override {
        if (::fsync(descriptor_) != 0 && errno != EINVAL && errno != EROFS) {
            return failure();
        }
        return ::close(std::exchange(descriptor_, -1)) == 0 ? WriteStatus{} : failure();
    }

  private:
    int descriptor_;
};

}  // namespace

std::unique_ptr<FileReplacement::File> FileReplacement::File::create(const std::filesystem::path& path,
                                                                     WriteStatus& status) {
    const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_EXCL, 0666);
    if (descriptor < 0) {
        status = failure();
        return nullptr;
    }
    return std::make_unique<PosixFile>(descriptor);
}

std::filesystem::path resolve_links(const std::filesystem::path& path) {
    std::error_code error;
    auto resolved = std::filesystem::canonical(path, error);
    return error ? path : resolved;
}

bool refuses_writing(const std::filesystem::path& path, WriteStatus& status) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) {
        return false;
    }
    if (S_ISDIR(info.st_mode)) {
        status = failure(EISDIR);
    } else if (::access(path.c_str(), W_OK) != 0) {
        status = failure();
    }
    return !status.ok;
}

void copy_permissions(const std::filesystem::path& from, const std::filesystem::path& to) {
    struct stat info {};
    if (::stat(from.c_str(), &info) == 0) {
        // The owner can be kept only by a privileged process; the mode is kept in any case.
        [[maybe_unused]] const int owner_kept = ::chown(to.c_str(), info.st_uid, info.st_gid);
        ::chmod(to.c_str(), info.st_mode & 07777);
    }
}

WriteStatus move_over(const std::filesystem::path& from, const std::filesystem::path& to) {
    return ::rename(from.c_str(), to.c_str()) == 0 ? WriteStatus{} : failure();
}

unsigned long process_number() {
    return static_cast<unsigned long>(::getpid());
}

bool process_runs(unsigned long number) {
    return ::kill(static_cast<pid_t>(number), 0) == 0 || errno != ESRCH;
}

}  // namespace base
