#include "platform/host/view/layer_states.h"

#include "platform/host/dxf/layer_view.h"

namespace host {

namespace {

LayerState read_state(const dxf::RecordView& entry) {
    const dxf::LayerView layer = dxf::read_layer(entry);
    LayerState state;
    const auto true_colour = entry.group(420);
    state.ink = true_colour ? Ink::rgb(static_cast<uint32_t>(true_colour->integer())) : indexed_ink(layer.colour);
    state.on = layer.on;
    state.frozen = layer.frozen;
    state.line_type = entry.text(6);
    return state;
}

}  // namespace

LayerStates::LayerStates(const dxf::Drawing& drawing)
    : states_(drawing.layer_names().size()), zero_(drawing.layer_names().find(L"0")) {
    const dxf::Table* const table = drawing.table("LAYER");
    if (table == nullptr) {
        return;
    }
    for (const dxf::RecordId id : table->entries) {
        if (drawing.record(id).is(dxf::Record::erased)) {
            continue;
        }
        const dxf::RecordView entry = drawing.view(id);
        const std::wstring name = entry.text(2);
        const LayerState state = read_state(entry);
        if (name == L"0") {
            zero_state_ = state;
        }
        const dxf::NameId used = drawing.layer_names().find(name);
        if (used != dxf::no_name) {
            states_[used] = state;
        }
    }
}

}  // namespace host
