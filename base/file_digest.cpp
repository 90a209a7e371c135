#include <windows.h>
// After windows.h, which it needs.
#include <bcrypt.h>

#include <array>
#include <fstream>
#include <vector>

#include "base/file_digest.h"
#include "base/loaded_library.h"

namespace base {

namespace {

/// A running SHA-256 sum of the system's, whose library is loaded only here.
class Sha256 {
  public:
    Sha256() {
        auto* const open = library_.function<decltype(BCryptOpenAlgorithmProvider)>("BCryptOpenAlgorithmProvider");
        auto* const create = library_.function<decltype(BCryptCreateHash)>("BCryptCreateHash");
        hash_data_ = library_.function<decltype(BCryptHashData)>("BCryptHashData");
        finish_ = library_.function<decltype(BCryptFinishHash)>("BCryptFinishHash");
        ok_ = open != nullptr && create != nullptr && hash_data_ != nullptr && finish_ != nullptr &&
              open(&algorithm_, BCRYPT_SHA256_ALGORITHM, nullptr, 0) >= 0 &&
              create(algorithm_, &hash_, nullptr, 0, nullptr, 0, 0) >= 0;
    }
    ~Sha256() {
        if (hash_ != nullptr) {
            library_.function<decltype(BCryptDestroyHash)>("BCryptDestroyHash")(hash_);
        }
        if (algorithm_ != nullptr) {
            library_.function<decltype(BCryptCloseAlgorithmProvider)>("BCryptCloseAlgorithmProvider")(algorithm_, 0);
        }
    }
    Sha256(const Sha256&) = delete;
    Sha256& operator=(const Sha256&) = delete;

    void add(char* bytes, std::size_t size) {
        ok_ = ok_ && hash_data_(hash_, reinterpret_cast<PUCHAR>(bytes), static_cast<ULONG>(size), 0) >= 0;
    }
    /// Empty when the system failed.
    std::string hexadecimal() {
        std::array<unsigned char, 32> sum{};
        std::string text;
        if (ok_ && finish_(hash_, sum.data(), static_cast<ULONG>(sum.size()), 0) >= 0) {
            constexpr char digits[] = "0123456789abcdef";
            for (const unsigned char byte : sum) {
                text += digits[byte >> 4];
                text += digits[byte & 15];
            }
        }
        return text;
    }

  private:
    LoadedLibrary library_ = LoadedLibrary::load(L"bcrypt.dll");
    decltype(BCryptHashData)* hash_data_ = nullptr;
    decltype(BCryptFinishHash)* finish_ = nullptr;
    BCRYPT_ALG_HANDLE algorithm_ = nullptr;
    BCRYPT_HASH_HANDLE hash_ = nullptr;
    bool ok_ = false;
};

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
    digest.sha256 = file.eof() ? sum.hexadecimal() : std::string();
    return digest.sha256.empty() ? std::nullopt : std::optional(std::move(digest));
}

}  // namespace base
