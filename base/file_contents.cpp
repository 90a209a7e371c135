#include "base/file_contents.h"

#include <new>
#include <utility>

#include "base/file_contents_system.h"

namespace base {
namespace {

/// The reason of a failure: words of our own for the failures that people meet, the system's for the rest.
std::string reason_of(std::error_code error) {
    if (error == std::errc::no_such_file_or_directory) {
        return "no such file";
    }
    if (error == std::errc::permission_denied) {
        return "permission denied";
    }
    if (error == std::errc::invalid_argument) {
        return "is not a regular file";  // Wine says so of a pipe
    }
    return error.message();
}

/// Why an existing path cannot be read as a file; empty when it can.
std::string refusal(const std::filesystem::path& path) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (!std::filesystem::exists(status) || std::filesystem::is_regular_file(status)) {
        return {};
    }
    return std::filesystem::is_directory(status) ? "is a directory" : "is not a regular file";
}

}  // namespace

Result<FileContents, std::string> FileContents::read(const std::filesystem::path& path) {
    if (std::string refused = refusal(path); !refused.empty()) {
        return Failure{std::move(refused)};
    }
    std::error_code error;
    const auto source = FileSource::open(path, error);
    const FileSource::Stamp before = source ? source->stamp(error) : FileSource::Stamp();
    FileContents contents;
    if (!error) {
        contents.size_ = static_cast<size_t>(before.size);
        // The memory is not filled with zeros first, since the file may be as large as half of the memory. One byte
        // more than its size shows whether the file has grown.
        contents.data_.reset(new (std::nothrow) char[contents.size_ + 1]);
        if (!contents.data_) {
            return Failure{"is too large for the memory"};
        }
        const size_t taken = source->read(contents.data_.get(), contents.size_ + 1, error);
        const bool whole = taken == contents.size_ && (error || source->stamp(error) == before);
        if (!error && !whole) {
            return Failure{"was changed while it was read"};
        }
    }
    if (error) {
        return Failure{reason_of(error)};
    }
    return contents;
}

}  // namespace base
