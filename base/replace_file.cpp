#include "base/replace_file.h"

#include <algorithm>
#include <atomic>
#include <optional>
#include <utility>
#include <vector>

#include "base/replace_file_system.h"

namespace base {
namespace {

std::filesystem::path temporary_beside(const std::filesystem::path& target) {
    static std::atomic<unsigned> count{0};
    auto path = target;
    path += "." + std::to_string(process_number()) + "-" + std::to_string(++count) + ".tmp";
    return path;
}

using PathText = std::basic_string_view<std::filesystem::path::value_type>;

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

/// The process whose temporary file beside the target this is; nothing for any other file.
std::optional<unsigned long> process_writing(PathText name, PathText target) {
    if (name.substr(0, target.size()) != target) {
        return std::nullopt;
    }
    name.remove_prefix(target.size());
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
        const auto process = process_writing(other.native(), name.native());
        if (process && !process_runs(*process)) {
            abandoned.push_back(entry->path());
        }
    }
    for (const std::filesystem::path& path : abandoned) {
        std::filesystem::remove(path, error);
    }
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
        if (!std::filesystem::exists(target_, error)) {
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

WriteStatus FileReplacement::write_directly() {
    auto file = File::overwrite(target_, status_);
    if (file) {
        status_ = file->write(contents_);
    }
    if (file && status_) {
        status_ = file->finish();
    }
    return status_;
}

WriteStatus FileReplacement::commit() {
    if (!status_) {
        return status_;
    }
    if (!file_) {
        return write_directly();
    }
    status_ = file_->finish();
    file_.reset();
    if (!status_) {
        return status_;
    }
    copy_permissions(target_, temporary_);
    status_ = move_over(temporary_, target_);
    if (status_) {
        temporary_.clear();
    }
    return status_;
}

WriteStatus replace_file(const std::filesystem::path& target, std::string_view bytes) {
    FileReplacement replacement(target);
    replacement.write(bytes);
    return replacement.commit();
}

}  // namespace base
