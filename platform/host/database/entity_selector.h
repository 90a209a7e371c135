// Which entities a selection finds, before the filter.
#pragma once

#include <memory>
#include <vector>

#include "gepnt3d.h"
#include "platform/host/database/database_store.h"
#include "platform/host/database/selection_filter.h"
#include "platform/host/view/display_list.h"
#include "platform/host/view/style_tables.h"

namespace host {

/// Finds the selectable entities of a drawing's current space: not erased and not on a frozen layer. Entities on layers
/// that are off or locked are found by all(), those on locked layers by place too. All lists are in drawing order. For
/// the time of one selection: the drawing must not change meanwhile.
class EntitySelector {
  public:
    explicit EntitySelector(const DatabaseStore& store);

    std::vector<dxf::RecordId> all(const SelectionFilter& filter) const;
    /// Entities of both spaces and of the other layouts, whatever their layers.
    std::vector<dxf::RecordId> whole_drawing(const SelectionFilter& filter) const;
    /// The entity that was added last, or none.
    std::vector<dxf::RecordId> last() const;
    std::vector<dxf::RecordId> previous() const;
    /// The topmost entity that touches the pick box around the point, or none. `reach`: half the box's side, in drawing
    /// units; 0 for a point that nobody pointed at.
    std::vector<dxf::RecordId> at_point(const AcGePoint3d& point, double reach = 0);
    /// Entirely inside the rectangle between two corners.
    std::vector<dxf::RecordId> in_window(const AcGePoint3d& one, const AcGePoint3d& other);
    /// Inside it or touching it.
    std::vector<dxf::RecordId> crossing(const AcGePoint3d& one, const AcGePoint3d& other);

  private:
    bool selectable(dxf::RecordId record) const;
    template <class Visit>
    void visit_space(BlockNumber space, Visit visit) const;
    const DisplayList& display_list();

    const DatabaseStore& store_;
    const dxf::Drawing& drawing_;
    LayerStates layers_;
    std::shared_ptr<const DisplayList> display_list_;
};

}  // namespace host
