#include "platform/host/view/layer_states.h"

#include "platform/host/dxf/entities.h"

namespace host {

namespace {

LayerState read_state(const dxf::Layer& layer, const dxf::RecordFields& entry) {
    const dxf::Group* const true_colour = entry.group(420);
    LayerState state;
    state.ink = true_colour != nullptr ? Ink::rgb(static_cast<uint32_t>(true_colour->integer()))
                                       : indexed_ink(layer.colour_index());
    state.on = layer.on();
    state.frozen = layer.frozen();
    state.locked = layer.locked();
    state.line_type = layer.line_type;
    state.weight = LineWeight::in_pixels(entry.integer(370, -1));
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
        const dxf::RecordFields entry(drawing.view(id));
        const auto layer = dxf::read<dxf::Layer>(entry);
        const LayerState state = read_state(layer, entry);
        if (layer.name == L"0") {
            zero_state_ = state;
        }
        const dxf::NameId used = drawing.layer_names().find(layer.name);
        if (used != dxf::no_name) {
            states_[used] = state;
        }
    }
}

}  // namespace host
