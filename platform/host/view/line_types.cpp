#include "platform/host/view/line_types.h"

#include <cmath>

#include "base/case_folding.h"
#include "platform/host/dxf/record_fields.h"

namespace host {

namespace {

/// Dashes, gaps and dots. Texts and shapes of complex linetypes are left out.
LinePattern read_pattern(const dxf::RecordView& entry, double scale) {
    constexpr int dash_length = 49;
    LinePattern pattern;
    pattern.lengths = dxf::RecordFields(entry).reals(dash_length);
    return pattern.scaled(scale);
}

double drawing_scale(const dxf::Drawing& drawing) {
    const dxf::RecordId id = drawing.header_variable("$LTSCALE");
    const double scale = id == dxf::no_record ? 1 : drawing.view(id).real(40, 1);
    return scale > 0 ? scale : 1;
}

}  // namespace

LineTypes::LineTypes(const dxf::Drawing& drawing, std::vector<LinePattern> known) : patterns_(std::move(known)) {
    const dxf::Table* const table = drawing.table("LTYPE");
    if (table == nullptr) {
        return;
    }
    const double scale = drawing_scale(drawing);
    for (const dxf::RecordId id : table->entries) {
        if (drawing.record(id).is(dxf::Record::erased)) {
            continue;
        }
        const dxf::RecordView entry = drawing.view(id);
        LinePattern pattern = read_pattern(entry, scale);
        if (pattern.total() > 0 && std::isfinite(pattern.total())) {
            types_[base::lower(entry.text(2))] = std::move(pattern);
        }
    }
}

uint16_t LineTypes::pattern(const std::wstring& name, double scale) {
    if (types_.empty()) {
        return LinePattern::continuous;
    }
    const auto type = types_.find(base::lower(name));
    if (type == types_.end() || !(scale > 0) || patterns_.size() > LinePattern::last) {
        return LinePattern::continuous;
    }
    const auto [number, added] = numbers_.try_emplace({type->first, scale}, static_cast<uint16_t>(patterns_.size()));
    if (added) {
        patterns_.push_back(type->second.scaled(scale));
    }
    return number->second;
}

}  // namespace host
