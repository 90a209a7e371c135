// The names of the blocks of model and paper space.
#pragma once

#include <string_view>

namespace dxf {

/// "*Model_Space", "*Paper_Space", "*Paper_Space0" …, "$MODEL_SPACE" and "$PAPER_SPACE" of R12, without regard to case.
bool is_model_space_name(std::wstring_view name);
bool is_paper_space_name(std::wstring_view name);

}  // namespace dxf
