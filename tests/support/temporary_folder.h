// A temporary folder for the files of a test.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace test_support {

/// The bytes of a file; empty when it cannot be read.
inline std::string contents(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// An empty folder, removed with all its contents.
class TemporaryFolder {
  public:
    /// `name` becomes a part of the folder's name, which is unique to this test and this run.
    explicit TemporaryFolder(const std::string& name)
        : path_(std::filesystem::temp_directory_path() / (name + '_' + std::to_string(std::random_device()()))) {
        std::filesystem::create_directories(path_);
    }
    ~TemporaryFolder() {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(const std::filesystem::path& name) const { return path_ / name; }
    void write(const std::filesystem::path& name, const std::string& bytes) const {
        std::ofstream(path_ / name, std::ios::binary) << bytes;
    }
    std::string read(const std::filesystem::path& name) const { return contents(path_ / name); }

  private:
    std::filesystem::path path_;
};

}  // namespace test_support
