// Helpers of the fuzzers: views of the input, checks that stop a run, and a file that holds the input for code that
// reads files.
#pragma once

#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace fuzz {

/// Ends the program, and so the run, with `what`, unless the condition holds.
inline void require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}

inline std::string_view bytes_of(const uint8_t* data, size_t size) {
    return size == 0 ? std::string_view() : std::string_view(reinterpret_cast<const char*>(data), size);
}

/// Random decisions taken from the input's last bytes. The bytes stay in the input, so a seed needs none for decisions.
class Decisions {
  public:
    Decisions(const uint8_t* data, size_t size) : data_(data), size_(size) {}
    /// A number below `limit`; 0 when the input is used up.
    size_t below(size_t limit) {
        if (size_ < 2 || limit == 0) {
            return 0;
        }
        size_ -= 2;
        return (data_[size_] | size_t{data_[size_ + 1]} << 8U) % limit;
    }

  private:
    const uint8_t* data_;
    size_t size_;
};

/// A file in the folder for temporary files, with a name of this process's own; removed with the object.
class ScratchFile {
  public:
    explicit ScratchFile(const char* name)
        : path_(std::filesystem::temp_directory_path() / (std::to_string(getpid()) + "_" + name)) {}
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    ~ScratchFile() {
        std::error_code error;
        std::filesystem::remove(path_, error);
    }
    const std::filesystem::path& path() const { return path_; }
    void write(std::string_view bytes) const { std::ofstream(path_, std::ios::binary) << bytes; }
    std::string contents() const {
        std::ifstream in(path_, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }

  private:
    std::filesystem::path path_;
};

}  // namespace fuzz
