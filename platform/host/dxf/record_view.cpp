#include "platform/host/dxf/record_view.h"

#include "platform/host/dxf/own_groups.h"

namespace dxf {

RecordView::RecordView(std::string_view bytes, Encoding encoding, TextCodec codec)
    : bytes_(bytes), encoding_(encoding), codec_(codec) {}

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
        in_data = in_data || group.code >= OwnGroups::first_extended_code;
        if (in_data && group.code == code) {
            return group;
        }
    }
    return std::nullopt;
}

}  // namespace dxf
