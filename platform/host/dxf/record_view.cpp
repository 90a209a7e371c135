#include "platform/host/dxf/record_view.h"

#include "platform/host/dxf/own_groups.h"

namespace dxf {

namespace {

constexpr int owner_code = 330;
constexpr int first_extended_code = 1000;

}  // namespace

RecordView::RecordView(std::string_view bytes, Encoding encoding, TextCodec codec)
    : bytes_(bytes), encoding_(encoding), codec_(codec) {}

std::vector<Group> RecordView::own_groups() const {
    constexpr size_t usual_count = 32;
    std::vector<Group> own;
    own.reserve(usual_count);
    OwnGroupCursor cursor(groups());
    Group group;
    while (cursor.next(group)) {
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
    OwnGroupCursor cursor(groups());
    Group group;
    while (cursor.next(group)) {
        if (group.code == code && nth-- == 0) {
            return group;
        }
    }
    return std::nullopt;
}

std::optional<Group> RecordView::extended_group(int code) const {
    GroupCursor cursor = groups();
    Group group;
    bool in_data = false;
    for (bool own_type = true; cursor.next(group) && (own_type || group.code != 0); own_type = false) {
        in_data = in_data || group.code >= first_extended_code;
        if (in_data && group.code == code) {
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
    return handle(owner_code);
}

}  // namespace dxf
