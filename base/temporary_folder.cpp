#include "base/temporary_folder.h"

#include <random>
#include <string>
#include <system_error>
#include <utility>

namespace base {

TemporaryFolder::TemporaryFolder() {
    std::error_code error;
    const std::filesystem::path parent = std::filesystem::temp_directory_path(error);
    std::random_device random;
    for (int attempt = 0; attempt < 100 && !error && path_.empty(); ++attempt) {
        const std::filesystem::path folder = parent / ("drawinghost-" + std::to_string(random()));
        if (std::filesystem::create_directory(folder, error)) {
            path_ = folder;
        }
    }
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    if (!path_.empty()) {
        std::filesystem::remove_all(path_, ignored);
    }
}

TemporaryFolder::TemporaryFolder(TemporaryFolder&& other) noexcept : path_(std::exchange(other.path_, {})) {}

}  // namespace base
