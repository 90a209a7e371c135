#include "base/replace_file.h"

#include <atomic>
#include <utility>

#include "base/replace_file_system.h"

namespace base {
namespace {

std::filesystem::path temporary_beside(const std::filesystem::path& target) {
    static std::atomic<unsigned> count{0};
    auto path = target;
    path += "." + std::to_string(process_number()) + "-" + std::to_string(++count) + ".tmp";
    return path;
}

}  // namespace

FileReplacement::FileReplacement(const std::filesystem::path& target) : target_(resolve_links(target)) {
    if (refuses_writing(target_, status_)) {
        return;
    }
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
