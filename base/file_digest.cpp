#include "base/file_digest.h"

#include <gcrypt.h>

#include <fstream>
#include <vector>

namespace base {

namespace {

/// A running SHA-256 sum. The library uses what the processor has for it; Wine's own takes six times as long.
class Sha256 {
  public:
    Sha256() {
        static const bool ready = gcry_check_version(GCRYPT_VERSION) != nullptr &&
                                  gcry_control(GCRYCTL_DISABLE_SECMEM, 0) == 0 &&
                                  gcry_control(GCRYCTL_INITIALIZATION_FINISHED, 0) == 0;
        if (!ready || gcry_md_open(&sum_, GCRY_MD_SHA256, 0) != 0) {
            sum_ = nullptr;
        }
    }
    ~Sha256() { gcry_md_close(sum_); }
    Sha256(const Sha256&) = delete;
    Sha256& operator=(const Sha256&) = delete;

    void add(const char* bytes, std::size_t size) {
        if (sum_ != nullptr) {
            gcry_md_write(sum_, bytes, size);
        }
    }
    /// The sum's bytes; empty when the library failed.
    std::string bytes() {
        const auto* const sum =
            sum_ != nullptr ? reinterpret_cast<const char*>(gcry_md_read(sum_, GCRY_MD_SHA256)) : nullptr;
        return sum != nullptr ? std::string(sum, gcry_md_get_algo_dlen(GCRY_MD_SHA256)) : std::string();
    }

  private:
    gcry_md_hd_t sum_ = nullptr;
};

std::string hexadecimal(const std::string& bytes) {
    constexpr char digits[] = "0123456789abcdef";
    std::string text;
    for (const char byte : bytes) {
        text += digits[static_cast<unsigned char>(byte) >> 4];
        text += digits[byte & 15];
    }
    return text;
}

}  // namespace

std::optional<FileDigest> file_digest(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::vector<char> block(std::size_t{1} << 20);
    FileDigest digest;
    Sha256 sum;
    while (file) {
        file.read(block.data(), static_cast<std::streamsize>(block.size()));
        const auto read = static_cast<std::size_t>(file.gcount());
        sum.add(block.data(), read);
        digest.size += read;
    }
    digest.sha256 = file.eof() ? hexadecimal(sum.bytes()) : std::string();
    return digest.sha256.empty() ? std::nullopt : std::optional(std::move(digest));
}

std::string sha256_of(std::string_view text) {
    Sha256 sum;
    sum.add(text.data(), text.size());
    return sum.bytes();
}

}  // namespace base
