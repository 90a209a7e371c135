#include "base/replace_file.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <random>
#include <thread>
#include <utility>
#include <vector>

#include "base/replace_file_system.h"

namespace base {
namespace {

using PathText = std::basic_string_view<std::filesystem::path::value_type>;

constexpr std::string_view temporary_ending = ".tmp";
constexpr std::string_view hexadecimal = "0123456789abcdef";
constexpr size_t random_digits = 16;

/// The beginning of the names of a target's temporary files: the target's own name, cut so that theirs are not too long
/// for a file system.
PathText stem_of(const std::filesystem::path& name) {
    constexpr size_t longest = 60;
    return PathText(name.native()).substr(0, longest);
}

/// A random name beside the target that no other process chooses.
std::filesystem::path random_name_beside(const std::filesystem::path& target, std::string_view ending) {
    static thread_local std::random_device source;
    std::uniform_int_distribution<size_t> digit(0, hexadecimal.size() - 1);
    std::string random = ".";
    for (size_t i = 0; i < random_digits; ++i) {
        random.push_back(hexadecimal[digit(source)]);
    }
    const std::filesystem::path name = target.filename();
    auto path = target.parent_path() / stem_of(name);
    path += random.append(ending);
    return path;
}

/// Whether it is the name of a temporary file for targets with this stem.
bool is_temporary_name(PathText name, PathText stem) {
    if (name.size() != stem.size() + 1 + random_digits + temporary_ending.size() ||
        name.substr(0, stem.size()) != stem || name[stem.size()] != '.') {
        return false;
    }
    const PathText random = name.substr(stem.size() + 1, random_digits);
    const PathText ending = name.substr(stem.size() + 1 + random_digits);
    return std::all_of(random.begin(), random.end(),
                       [](auto character) {
                           return character < 0x80 &&
                                  hexadecimal.find(static_cast<char>(character)) != hexadecimal.npos;
                       }) &&
           std::equal(ending.begin(), ending.end(), temporary_ending.begin(), temporary_ending.end());
}

/// Removes what killed writers of this target have left behind: temporary files that nobody has locked.
void remove_abandoned(const std::filesystem::path& target) {
    std::error_code error;
    std::vector<std::filesystem::path> candidates;
    const std::filesystem::path name = target.filename();
    for (std::filesystem::directory_iterator entry(target.parent_path(), error), end; !error && entry != end;
         entry.increment(error)) {
        if (is_temporary_name(entry->path().filename().native(), stem_of(name))) {
            candidates.push_back(entry->path());
        }
    }
    for (const std::filesystem::path& path : candidates) {
        const auto file = ReplacementFile::open(path, error);
        if (file && file->lock()) {
            file->remove();
        }
    }
}

std::unique_ptr<ReplacementFile> create_beside(const std::filesystem::path& target, std::error_code& error) {
    constexpr int tries = 100;
    for (int i = 0; i < tries; ++i) {
        auto file = ReplacementFile::create(random_name_beside(target, temporary_ending), error);
        // Another process may have taken the file for an abandoned one, and removed it, before it was locked.
        if (file && file->lock() && file->is_named()) {
            return file;
        }
        if (!file && error != std::errc::file_exists) {
            return nullptr;
        }
    }
    return nullptr;
}

bool is_denial(std::error_code error) {
    return error == std::errc::permission_denied || error == std::errc::operation_not_permitted;
}

/// Locks the target; a process that writes in place waits for one that does so already.
bool lock_patiently(ReplacementFile& file) {
    constexpr std::chrono::milliseconds pause(10);
    constexpr int tries = 1000;
    for (int i = 0; i < tries; ++i) {
        if (file.lock()) {
            return true;
        }
        std::this_thread::sleep_for(pause);
    }
    return false;
}

/// Whether another program delivers the file.
bool is_delivered_later(const std::filesystem::path& target) {
    const std::filesystem::path folder = folder_delivered_later();
    return !folder.empty() &&
           std::mismatch(folder.begin(), folder.end(), target.begin(), target.end()).first == folder.end();
}

}  // namespace

FileReplacement::FileReplacement(const std::filesystem::path& target) : target_(resolve_links(full_path(target))) {
    status_ = refusal_of(target_);
    if (!status_) {
        return;
    }
    std::error_code error;
    if (is_delivered_later(target_) && (temporary_ = ReplacementFile::create(target_, error)) != nullptr) {
        is_delivered_later_ = true;
        return;
    }
    remove_abandoned(target_);
    temporary_ = create_beside(target_, error);
    std::error_code ignored;
    target_is_new_ = !std::filesystem::exists(target_, ignored);
    if (temporary_ && !target_is_new_) {
        take_over();
    } else if (!temporary_ && (!is_denial(error) || target_is_new_)) {
        status_ = failure(error);  // only a process that may not make a file here goes on without one
    }
}

void FileReplacement::take_over() {
    const Takeover taken = temporary_->take_over_from(target_);
    may_replace_ = taken == Takeover::whole;
    if (taken == Takeover::target_is_broken_link) {
        status_ = Failure{"It is a link to a file that does not exist"};
    }
}

FileReplacement::~FileReplacement() {
    if (temporary_) {
        temporary_->remove();
    }
}

WriteStatus FileReplacement::write(std::string_view bytes) {
    if (!status_) {
        return status_;
    }
    if (!temporary_) {
        contents_.append(bytes);
    } else if (const std::error_code error = temporary_->write(bytes)) {
        status_ = failure(error);
    }
    size_ += bytes.size();
    return status_;
}

WriteStatus FileReplacement::commit() {
    if (!status_) {
        return status_;
    }
    if (is_delivered_later_) {
        temporary_.reset();
        return {};
    }
    if (temporary_) {
        if (const std::error_code error = temporary_->flush()) {
            return status_ = failure(error);
        }
        if (target_is_new_) {
            if (!temporary_->appear_as(target_)) {
                temporary_.reset();
                return {};
            }
            take_over();
            if (!status_) {
                return status_;
            }
        }
    }
    if (may_replace_) {
        const std::error_code error = temporary_->rename(target_);
        if (!error) {
            temporary_.reset();
            return {};
        }
        if (!is_denial(error) && error != std::errc::device_or_resource_busy) {
            return status_ = failure(error);
        }
    }
    return status_ = write_in_place();
}

WriteStatus FileReplacement::write_in_place() {
    std::error_code error;
    const auto target = ReplacementFile::open(target_, error);
    if (!target) {
        return failure(error);
    }
    if (!lock_patiently(*target)) {
        return Failure{"Another program is writing it"};
    }
    const std::uint64_t old_size = target->size(error);
    if (!error && size_ > old_size) {
        error = copy(*target, old_size, size_);
        if (error) {
            target->resize(old_size);
        }
    }
    if (error) {
        return failure(error);
    }
    error = copy(*target, 0, std::min(old_size, size_));
    if (!error) {
        error = target->resize(size_);
    }
    if (!error) {
        error = target->flush();
    }
    return error ? keep_for_rescue(error) : WriteStatus();
}

/// Copies a range of the new contents to its place in the target, to the disk itself.
std::error_code FileReplacement::copy(ReplacementFile& target, std::uint64_t begin, std::uint64_t end) {
    constexpr std::uint64_t piece = 1U << 20;
    std::error_code error = target.seek(begin);
    while (!error && begin < end) {
        const auto count = static_cast<size_t>(std::min(piece, end - begin));
        const std::string bytes = temporary_ ? temporary_->read(begin, count, error) : contents_.substr(begin, count);
        if (!error) {
            error = bytes.empty() ? std::make_error_code(std::errc::io_error) : target.write(bytes);
        }
        begin += bytes.size();
    }
    return error ? error : target.flush();
}

/// The target is damaged, so the temporary file with the new contents must stay: neither this object nor the next one
/// for the target may remove it.
WriteStatus FileReplacement::keep_for_rescue(std::error_code error) {
    Failure<std::string> status = failure(error);
    if (temporary_) {
        const auto rescue = random_name_beside(target_, ".rescued");
        const auto& name = temporary_->rename(rescue) ? temporary_->path() : rescue;
        const std::u8string shown = name.filename().u8string();
        status.reason += "; the whole new contents are in " + std::string(shown.begin(), shown.end());
        temporary_.reset();
    }
    return status;
}

WriteStatus replace_file(const std::filesystem::path& target, std::string_view bytes) {
    FileReplacement replacement(target);
    WriteStatus written = replacement.write(bytes);
    return written ? replacement.commit() : written;
}

}  // namespace base
