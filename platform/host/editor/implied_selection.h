// ImpliedSelection, the entities selected while no command runs, for the next command that works on selected ones.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/host/editor/document_manager.h"
#include "platform/host/dxf/record.h"
#include "platform/host/prompt/person.h"

namespace host {

class ImpliedSelection {
  public:
    explicit ImpliedSelection(const DocumentManager& documents) : documents_(documents) {}

    /// Takes a point that was picked in the drawing. The entity there is selected, or with Shift taken out; where there
    /// is none, a rectangle begins or ends. `reach` is half the side of the pick box, in drawing units. Returns what
    /// the pointer is to look like from then on.
    PointerGuide pick(const Point& at, double reach, bool with_shift);
    /// Selects all entities that can be selected.
    void take_all();
    /// Selects these records of the open drawing, and no others.
    void set(const std::vector<dxf::RecordId>& records);
    void clear();

    /// The selected records, without those that have been erased since.
    std::vector<dxf::RecordId> records() const;
    /// A number that grows with each change of the selection.
    uint64_t changes() const { return changes_; }

  private:
    void change(const std::vector<dxf::RecordId>& found, bool take_out);

    const DocumentManager& documents_;
    uint64_t drawing_ = 0;  ///< dxf::Drawing::serial() of what the records are of
    std::vector<dxf::RecordId> records_;
    std::optional<Point> corner_;
    uint64_t changes_ = 0;
};

}  // namespace host
