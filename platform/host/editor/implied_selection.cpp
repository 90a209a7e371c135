#include "platform/host/editor/implied_selection.h"

#include <utility>

#include "platform/host/database/entity_selector.h"
#include "platform/host/database/selection_set.h"
#include "platform/host/dxf/drawing.h"

namespace host {
namespace {

AcGePoint3d place_of(const Point& point) {
    return {point.x, point.y, point.z};
}

}  // namespace

PointerGuide ImpliedSelection::pick(const Point& at, double reach, bool with_shift) {
    const Document* const document = documents_.document();
    if (document == nullptr) {
        return {};
    }
    EntitySelector selector(document->database()->store());
    if (const std::optional<Point> first = std::exchange(corner_, std::nullopt)) {
        const AcGePoint3d one = place_of(*first);
        const AcGePoint3d other = place_of(at);
        change(at.x >= first->x ? selector.in_window(one, other) : selector.crossing(one, other), with_shift);
        return {};
    }
    const std::vector<dxf::RecordId> hit = selector.at_point(place_of(at), reach);
    if (hit.empty()) {
        corner_ = at;
        return {PointerGuide::Kind::box, at};
    }
    change(hit, with_shift);
    return {};
}

void ImpliedSelection::take_all() {
    clear();
    if (const Document* const document = documents_.document()) {
        change(EntitySelector(document->database()->store()).all(SelectionFilter()), false);
    }
}

void ImpliedSelection::set(const std::vector<dxf::RecordId>& records) {
    clear();
    if (!records.empty()) {
        change(records, false);
    }
}

void ImpliedSelection::clear() {
    corner_.reset();
    records_.clear();
    ++changes_;
}

void ImpliedSelection::change(const std::vector<dxf::RecordId>& found, bool take_out) {
    SelectionSet set(records());
    if (take_out) {
        set.remove(found);
    } else {
        set.add(found);
    }
    records_ = set.records();
    drawing_ = documents_.document()->drawing().serial();
    ++changes_;
}

std::vector<dxf::RecordId> ImpliedSelection::records() const {
    const Document* const document = documents_.document();
    if (document == nullptr || document->drawing().serial() != drawing_) {
        return {};
    }
    std::vector<dxf::RecordId> there = records_;
    std::erase_if(there, [&drawing = document->drawing()](dxf::RecordId record) {
        return drawing.record(record).is(dxf::Record::erased);
    });
    return there;
}

}  // namespace host
