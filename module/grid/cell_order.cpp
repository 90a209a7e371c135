#include "grid/cell_order.h"

#include <cwchar>
#include <utility>

namespace corvanes {

namespace {

template <class Value>
int sign_of_difference(Value first, Value second) {
    return static_cast<int>(first > second) - static_cast<int>(first < second);
}

}  // namespace

int compare_cells(const CUGCell* first, const CUGCell* second, int flags) {
    if ((flags & sort_descending) != 0) {
        std::swap(first, second);
    }
    if (first == nullptr || second == nullptr) {
        return sign_of_difference(first != nullptr, second != nullptr);
    }
    if (!first->IsPropertySet(cell_text) || !second->IsPropertySet(cell_text)) {
        return sign_of_difference(first->IsPropertySet(cell_text), second->IsPropertySet(cell_text));
    }
    switch (first->GetDataType()) {
        case data_number:
        case data_boolean:
        case data_currency:
            return sign_of_difference(first->GetNumber(), second->GetNumber());
        default:
            return sign_of_difference(std::wcscmp(first->GetText(), second->GetText()), 0);
    }
}

}  // namespace corvanes
