#include "platform/host/dxf/record_view.h"

namespace dxf {

namespace {

constexpr int control_string = 102;
constexpr int first_extended_code = 1000;

}  // namespace

RecordView::RecordView(std::string_view bytes, Encoding encoding, TextCodec codec)
    : bytes_(bytes), encoding_(encoding), codec_(codec) {}

std::vector<Group> RecordView::own_groups() const {
    std::vector<Group> own;
    GroupCursor cursor = groups();
    Group group;
    while (cursor.next(group) && (own.empty() || group.code != 0)) {
        own.push_back(group);
    }
    return own;
}

std::vector<RecordView> RecordView::parts() const {
    std::vector<uint64_t> starts;
    GroupCursor cursor = groups();
    Group group;
    while (cursor.next(group)) {
        if (group.code == 0) {
            starts.push_back(group.begin);
        }
    }
    std::vector<RecordView> parts;
    for (size_t i = 1; i < starts.size(); ++i) {
        const uint64_t end = i + 1 < starts.size() ? starts[i + 1] : bytes_.size();
        parts.emplace_back(bytes_.substr(starts[i], end - starts[i]), encoding_, codec_);
    }
    return parts;
}

std::string_view RecordView::type() const {
    GroupCursor cursor = groups();
    Group group;
    return cursor.next(group) ? group.word() : std::string_view();
}

std::optional<Group> RecordView::group(int code, size_t nth) const {
    GroupCursor cursor = groups();
    Group group;
    for (bool own_type = true; cursor.next(group) && (own_type || group.code != 0); own_type = false) {
        if (group.code == code && nth-- == 0) {
            return group;
        }
    }
    return std::nullopt;
}

std::wstring RecordView::text(int code) const {
    const auto found = group(code);
    return found ? codec_.decode(found->value) : std::wstring();
}

int64_t RecordView::integer(int code, int64_t fallback) const {
    const auto found = group(code);
    return found ? found->integer() : fallback;
}

double RecordView::real(int code, double fallback) const {
    const auto found = group(code);
    return found ? found->real() : fallback;
}

uint64_t RecordView::handle(int code) const {
    const auto found = group(code);
    return found ? found->handle() : 0;
}

uint64_t RecordView::owner() const {
    bool in_list = false;
    GroupCursor cursor = groups();
    Group group;
    for (bool own_type = true; cursor.next(group) && (own_type || group.code != 0); own_type = false) {
        if (group.code >= first_extended_code) {
            break;
        }
        if (group.code == control_string) {
            in_list = group.word().substr(0, 1) == "{";
        } else if (group.code == 330 && !in_list) {
            return group.handle();
        }
    }
    return 0;
}

}  // namespace dxf
