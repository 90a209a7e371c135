#include "platform/host/database/entity_selector.h"

#include <algorithm>

#include "platform/host/database/vectors.h"
#include "platform/host/view/hit_test.h"

namespace host {
namespace {

Vec2 plan(const AcGePoint3d& point) {
    return vector_of(point).plan();
}

}  // namespace

EntitySelector::EntitySelector(const DatabaseStore& store)
    : store_(store), drawing_(store.drawing()), layers_(drawing_) {}

bool EntitySelector::selectable(dxf::RecordId record) const {
    const dxf::NameId layer = drawing_.record(record).layer;
    return !(layers_.is_zero(layer) ? layers_.zero_state() : layers_.of(layer)).frozen;
}

template <class Visit>
void EntitySelector::visit_space(BlockNumber space, Visit visit) const {
    const bool paper = space == paper_space_number;
    if (store_.blocks().is_space(space)) {
        for (const dxf::RecordId record : drawing_.entities()) {
            const dxf::Record& entity = drawing_.record(record);
            if (!entity.is(dxf::Record::erased) && entity.is(dxf::Record::paper_space) == paper) {
                visit(record);
            }
        }
    }
    const dxf::BlockId block = store_.blocks().block(space);
    if (block != dxf::no_block) {
        for (const dxf::RecordId record : drawing_.blocks()[block].entities) {
            if (!drawing_.record(record).is(dxf::Record::erased)) {
                visit(record);
            }
        }
    }
}

std::vector<dxf::RecordId> EntitySelector::all(const SelectionFilter& filter) const {
    std::vector<dxf::RecordId> found;
    visit_space(store_.current_space(), [&](dxf::RecordId record) {
        if (filter.accepts(drawing_, record) && selectable(record)) {
            found.push_back(record);
        }
    });
    return found;
}

std::vector<dxf::RecordId> EntitySelector::whole_drawing(const SelectionFilter& filter) const {
    std::vector<dxf::RecordId> found;
    for (BlockNumber block = 0; block < store_.blocks().size(); ++block) {
        if (store_.blocks().is_layout(block)) {
            visit_space(block, [&](dxf::RecordId record) {
                if (filter.accepts(drawing_, record)) {
                    found.push_back(record);
                }
            });
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

std::vector<dxf::RecordId> EntitySelector::last() const {
    dxf::RecordId newest = dxf::no_record;
    visit_space(store_.current_space(), [&](dxf::RecordId record) {
        if (selectable(record) && (newest == dxf::no_record || record > newest)) {
            newest = record;
        }
    });
    return newest == dxf::no_record ? std::vector<dxf::RecordId>() : std::vector<dxf::RecordId>{newest};
}

std::vector<dxf::RecordId> EntitySelector::previous() const {
    std::vector<dxf::RecordId> found;
    const BlockNumber space = store_.current_space();
    std::copy_if(store_.selections().previous.begin(), store_.selections().previous.end(), std::back_inserter(found),
                 [&](dxf::RecordId record) {
                     return !drawing_.record(record).is(dxf::Record::erased) && selectable(record) &&
                            store_.owner({ObjectSpace::record, record}) == store_.id_of_block(space);
                 });
    return found;
}

const DisplayList& EntitySelector::display_list() {
    if (display_list_ == nullptr) {
        display_list_ =
            DisplayList::shared(drawing_, store_.tilemode() ? DisplayList::Space::model : DisplayList::Space::paper);
    }
    return *display_list_;
}

std::vector<dxf::RecordId> EntitySelector::at_point(const AcGePoint3d& point, double reach) {
    constexpr double usual_reach = 0.25;
    const Box2 pick_box = Box2::around(plan(point), reach > 0 ? reach : usual_reach);
    const dxf::RecordId hit = HitTest(display_list()).pick(pick_box);
    return hit == dxf::no_record ? std::vector<dxf::RecordId>() : std::vector<dxf::RecordId>{hit};
}

std::vector<dxf::RecordId> EntitySelector::in_window(const AcGePoint3d& one, const AcGePoint3d& other) {
    const HitTest hits(display_list());
    const Box2 box = Box2::between(plan(one), plan(other));
    const std::vector<dxf::RecordId> inside = hits.window(box);
    // An entity of which nothing is seen is inside of every window, but touches none.
    const std::vector<dxf::RecordId> touching = hits.crossing(box);
    std::vector<dxf::RecordId> found;
    std::set_intersection(inside.begin(), inside.end(), touching.begin(), touching.end(), std::back_inserter(found));
    return found;
}

std::vector<dxf::RecordId> EntitySelector::crossing(const AcGePoint3d& one, const AcGePoint3d& other) {
    return HitTest(display_list()).crossing(Box2::between(plan(one), plan(other)));
}

}  // namespace host
