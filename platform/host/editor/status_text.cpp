#include "platform/host/editor/status_text.h"

#include <algorithm>

namespace host {

std::wstring selected_text(size_t count) {
    return count == 0 ? L"" : std::to_wstring(count) + L" selected";
}

std::wstring entity_text(const dxf::Drawing& drawing, dxf::RecordId entity) {
    if (entity == dxf::no_record) {
        return {};
    }
    const dxf::Record& record = drawing.record(entity);
    std::wstring text = drawing.type_names().name(record.type);
    if (record.type == dxf::type_insert && record.block_name != dxf::no_name) {
        const auto count =
            std::count_if(drawing.entities().begin(), drawing.entities().end(), [&](dxf::RecordId other) {
                const dxf::Record& beside = drawing.record(other);
                return beside.type == dxf::type_insert && beside.block_name == record.block_name &&
                       !beside.is(dxf::Record::erased) &&
                       beside.is(dxf::Record::paper_space) == record.is(dxf::Record::paper_space);
            });
        text += L" \"" + drawing.block_names().name(record.block_name) + L"\", " + std::to_wstring(count) +
                L" in the drawing";
    }
    text += L", layer " + (record.layer == dxf::no_name ? L"0" : drawing.layer_names().name(record.layer));
    return text;
}

}  // namespace host
