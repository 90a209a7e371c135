#include "platform/host/dxf/new_handles.h"

#include <algorithm>
#include <cassert>
#include <limits>
#include <vector>

#include "platform/host/dxf/index_builder.h"

namespace dxf {

namespace {

/// Records have numbers of 32 bits.
constexpr uint64_t room = uint64_t{1} << 32;

/// Where the widest gap between handles begins.
uint64_t begin_of_widest_gap(std::vector<uint64_t> handles) {
    handles.push_back(0);
    handles.push_back(std::numeric_limits<uint64_t>::max());  // would leave no $HANDSEED
    std::sort(handles.begin(), handles.end());
    size_t widest = 1;
    for (size_t i = 2; i < handles.size(); ++i) {
        widest = handles[i] - handles[i - 1] > handles[widest] - handles[widest - 1] ? i : widest;
    }
    return handles[widest - 1] + 1;
}

}  // namespace

uint64_t first_new_handle(uint64_t seed, const DrawingIndex& index, std::string_view bytes) {
    constexpr uint64_t last = DrawingIndex::first_unusual_handle - room;
    const uint64_t behind = index.highest_usual_handle + 1;
    if (behind <= last) {
        return seed <= last ? std::max(seed, behind) : behind;
    }
    std::vector<uint64_t> handles;
    DrawingIndex again;
    again.all_handles = &handles;
    const bool whole = static_cast<bool>(build_index(bytes, again));
    assert(whole);  // it was read before
    (void)whole;
    return begin_of_widest_gap(std::move(handles));
}

}  // namespace dxf
