// The moment in the life of a drawing that a display list shows.
#pragma once

#include "platform/host/dxf/drawing.h"

namespace host {

struct DrawnState {
    uint64_t serial = 0;  ///< Drawing::serial()
    uint64_t edits = 0;   ///< Drawing::edits_made()
    size_t changes = 0;   ///< of Drawing::changed_records()
    dxf::RecordId records = 0;
    dxf::BlockId blocks = 0;
    dxf::NameId block_names = 0;

    static DrawnState of(const dxf::Drawing& drawing);
    bool operator==(const DrawnState&) const = default;

    /// Whether what was drawn then looks the same now, so that only what came later need be drawn. `lacking`: what was
    /// drawn names a style or a block that was not there.
    bool still_holds(const dxf::Drawing& drawing, bool lacking) const;
};

}  // namespace host
