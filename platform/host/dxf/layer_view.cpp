#include "platform/host/dxf/layer_view.h"

#include <cstdlib>

#include "base/case_folding.h"

namespace dxf {

namespace {

constexpr int64_t frozen_flag = 1;
constexpr int64_t locked_flag = 4;

}  // namespace

LayerView read_layer(const RecordView& entry) {
    const int64_t colour = entry.integer(62, 7);
    const int64_t flags = entry.integer(70);
    LayerView layer;
    layer.name = entry.text(2);
    layer.colour = static_cast<int>(std::abs(colour) % 257);
    layer.on = colour >= 0;  // a layer that is off has its colour negated
    layer.frozen = (flags & frozen_flag) != 0;
    layer.locked = (flags & locked_flag) != 0;
    layer.line_type = entry.text(6);
    return layer;
}

bool is_model_space_name(std::wstring_view name) {
    const std::wstring lower = base::lower(name);
    return lower == L"*model_space" || lower == L"$model_space";
}

bool is_paper_space_name(std::wstring_view name) {
    const std::wstring lower = base::lower(name);
    return lower.rfind(L"*paper_space", 0) == 0 || lower.rfind(L"$paper_space", 0) == 0;
}

}  // namespace dxf
