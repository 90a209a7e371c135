#include "platform/host/dxf/space_names.h"

#include <string>

#include "base/case_folding.h"

namespace dxf {

bool is_model_space_name(std::wstring_view name) {
    const std::wstring lower = base::lower(name);
    return lower == L"*model_space" || lower == L"$model_space";
}

bool is_paper_space_name(std::wstring_view name) {
    const std::wstring lower = base::lower(name);
    return lower.rfind(L"*paper_space", 0) == 0 || lower.rfind(L"$paper_space", 0) == 0;
}

}  // namespace dxf
