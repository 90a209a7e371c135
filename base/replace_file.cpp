#include "base/replace_file.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <fstream>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

#include "base/file_contents.h"
#include "base/replace_file_system.h"

namespace base {
namespace {

using PathText = std::basic_string_view<std::filesystem::path::value_type>;

/// What the names of a target's temporary files begin with: its own name, but not so much of it that theirs would be
/// longer than a file system takes.
PathText stem_of(const std::filesystem::path& name) {
    constexpr size_t longest = 60;
    return PathText(name.native()).substr(0, longest);
}

std::filesystem::path temporary_beside(const std::filesystem::path& target) {
    static std::atomic<unsigned> count{0};
    auto path = target.parent_path() / stem_of(target.filename());
    path += "." + std::to_string(process_number()) + "-" + std::to_string(++count) + ".tmp";
    return path;
}

/// Takes the decimal number at the front away.
std::optional<unsigned long> take_number(PathText& text) {
    unsigned long number = 0;
    size_t digits = 0;
    for (; digits < text.size() && text[digits] >= '0' && text[digits] <= '9'; ++digits) {
        number = number * 10 + static_cast<unsigned long>(text[digits] - '0');
    }
    text.remove_prefix(digits);
    return digits == 0 ? std::nullopt : std::optional(number);
}

bool take_character(PathText& text, char character) {
    const bool there = !text.empty() && text.front() == character;
    text.remove_prefix(there ? 1 : 0);
    return there;
}

/// The process whose temporary file for targets with this stem it is; nothing for any other file.
std::optional<unsigned long> process_writing(PathText name, PathText stem) {
    if (name.substr(0, stem.size()) != stem) {
        return std::nullopt;
    }
    name.remove_prefix(stem.size());
    if (!take_character(name, '.')) {
        return std::nullopt;
    }
    const std::optional<unsigned long> process = take_number(name);
    const bool counted = take_character(name, '-') && take_number(name);
    const std::string_view ending = ".tmp";
    return counted && std::equal(name.begin(), name.end(), ending.begin(), ending.end()) ? process : std::nullopt;
}

/// Removes what processes have left behind that ended while they wrote this target. What another machine's process has
/// open cannot be removed.
void remove_abandoned(const std::filesystem::path& target) {
    std::error_code error;
    std::vector<std::filesystem::path> abandoned;
    const std::filesystem::path name = target.filename();
    for (std::filesystem::directory_iterator entry(target.parent_path(), error), end; !error && entry != end;
         entry.increment(error)) {
        const std::filesystem::path other = entry->path().filename();
        const auto process = process_writing(other.native(), stem_of(name));
        if (process && !process_runs(*process)) {
            abandoned.push_back(entry->path());
        }
    }
    for (const std::filesystem::path& path : abandoned) {
        std::filesystem::remove(path, error);
    }
}

WriteStatus stream_failure() {
    return {false, std::generic_category().message(errno)};
}

/// Writes the bytes into the file itself, from `begin` on.
bool write_range(std::fstream& file, std::string_view bytes, size_t begin) {
    file.seekp(static_cast<std::streamoff>(begin));
    file.write(bytes.data() + begin, static_cast<std::streamsize>(bytes.size() - begin));
    return static_cast<bool>(file.flush());
}

WriteStatus write_directly(const std::filesystem::path& target, std::string_view bytes) {
    std::error_code error;
    const bool existed = std::filesystem::exists(target, error);
    const size_t old_size = existed ? static_cast<size_t>(std::filesystem::file_size(target, error)) : 0;
    errno = 0;
    std::fstream file(target, std::ios::binary | std::ios::out | (existed ? std::ios::in : std::ios::trunc));
    if (!file || error) {
        return stream_failure();
    }
    if (bytes.size() > old_size && !write_range(file, bytes, old_size)) {
        WriteStatus status = stream_failure();
        file.close();
        existed ? std::filesystem::resize_file(target, old_size, error)
                : static_cast<void>(std::filesystem::remove(target, error));
        return status;
    }
    if (!write_range(file, bytes.substr(0, old_size), 0)) {
        return stream_failure();
    }
    file.close();
    std::filesystem::resize_file(target, bytes.size(), error);
    return {!error, error ? error.message() : ""};
}

}  // namespace

FileReplacement::FileReplacement(const std::filesystem::path& target) : target_(resolve_links(target)) {
    if (refuses_writing(target_, status_)) {
        return;
    }
    remove_abandoned(target_);
    temporary_ = temporary_beside(target_);
    WriteStatus created;
    file_ = File::create(temporary_, created);
    if (!file_) {
        temporary_.clear();
        std::error_code error;
        if (!std::filesystem::is_directory(target_.parent_path(), error)) {
            status_ = std::move(created);
        }
    }
}

FileReplacement::~FileReplacement() {
    if (!temporary_.empty()) {
        file_.reset();
        std::error_code error;
        std::filesystem::remove(temporary_, error);
    }
}

WriteStatus FileReplacement::write(std::string_view bytes) {
    if (!status_) {
        return status_;
    }
    if (file_) {
        status_ = file_->write(bytes);
    } else {
        contents_.append(bytes);
    }
    return status_;
}

WriteStatus FileReplacement::commit() {
    if (!status_) {
        return status_;
    }
    if (!file_) {
        return status_ = write_directly(target_, contents_);
    }
    status_ = file_->finish();
    file_.reset();
    return status_ ? status_ = replace() : status_;
}

WriteStatus FileReplacement::replace() {
    copy_permissions(target_, temporary_);
    WriteStatus moved = move_over(temporary_, target_);
    if (moved) {
        temporary_.clear();
        return moved;
    }
    std::string reason;
    const auto written = FileContents::read(temporary_, reason);
    return written && write_directly(target_, written->bytes()) ? WriteStatus() : moved;
}

WriteStatus replace_file(const std::filesystem::path& target, std::string_view bytes) {
    FileReplacement replacement(target);
    replacement.write(bytes);
    return replacement.commit();
}

}  // namespace base
