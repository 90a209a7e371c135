#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "base/file_contents_system.h"

namespace base {
namespace {

std::error_code last_error() {
    return {errno, std::generic_category()};
}

class PosixSource final : public FileSource {
  public:
    explicit PosixSource(int descriptor) : descriptor_(descriptor) {}
    ~PosixSource() override { ::close(descriptor_); }

    Stamp stamp(std::error_code& error) const override {
        struct stat info {};
        if (::fstat(descriptor_, &info) != 0) {
            error = last_error();
        }
        constexpr std::int64_t nanoseconds = 1'000'000'000;
        return {static_cast<std::uint64_t>(info.st_size), info.st_mtim.tv_sec * nanoseconds + info.st_mtim.tv_nsec};
    }

    size_t read(char* to, size_t size, std::error_code& error) override {
        size_t taken = 0;
        while (taken < size) {
            const ssize_t count = ::read(descriptor_, to + taken, size - taken);
            if (count < 0 && errno == EINTR) {
                continue;
            }
            if (count < 0) {
                error = last_error();
            }
            if (count <= 0) {
                break;
            }
            taken += static_cast<size_t>(count);
        }
        return taken;
    }

  private:
    int descriptor_;
};

}  // namespace

std::unique_ptr<FileSource> FileSource::open(const std::filesystem::path& path, std::error_code& error) {
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) {
        error = last_error();
        return nullptr;
    }
    return std::make_unique<PosixSource>(descriptor);
}

}  // namespace base
