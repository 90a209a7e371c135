// A LAYER entry's state.
#pragma once

#include <string>

#include "platform/host/dxf/record_view.h"

namespace dxf {

/// What the LAYER table says about a layer.
struct LayerView {
    std::wstring name;
    int colour = 7;  ///< index 1 to 255
    bool on = true;
    bool frozen = false;
    bool locked = false;
    std::wstring line_type;
};

LayerView read_layer(const RecordView& entry);

/// The names of the spaces' blocks: "*Model_Space", "*Paper_Space", "*Paper_Space0" …, "$MODEL_SPACE" and
/// "$PAPER_SPACE" of R12, without regard to case.
bool is_model_space_name(std::wstring_view name);
bool is_paper_space_name(std::wstring_view name);

}  // namespace dxf
