#include "grid/cell.h"

#include <cwchar>
#include <utility>

namespace corvanes {

HeldText::HeldText(HeldText&& other) noexcept
    : text_(std::exchange(other.text_, nullptr)), own_(std::move(other.own_)) {}

HeldText& HeldText::operator=(const HeldText& other) {
    if (this != &other) {
        copy(other.text_);
    }
    return *this;
}

HeldText& HeldText::operator=(HeldText&& other) noexcept {
    if (this != &other) {
        own_ = std::move(other.own_);
        text_ = std::exchange(other.text_, nullptr);
    }
    return *this;
}

void HeldText::copy(const wchar_t* text) {
    std::unique_ptr<wchar_t[]> copied;
    if (text != nullptr) {
        const std::size_t size = std::wcslen(text) + 1;
        copied.reset(new wchar_t[size]);
        std::wmemcpy(copied.get(), text, size);
    }
    own_ = std::move(copied);
    text_ = own_.get();
}

void HeldText::borrow(const wchar_t* text) {
    own_.reset();
    text_ = text;
}

}  // namespace corvanes

using namespace corvanes;

void CUGCell::SetText(const wchar_t* text) {
    text_.copy(text != nullptr ? text : L"");
    number_known_ = false;
    SetDataType(data_text);
    properties_ |= cell_text;
}

void CUGCell::BorrowText(const wchar_t* text) {
    text_.borrow(text);
    number_known_ = false;
    SetDataType(data_text);
    properties_ |= cell_text;
}

double CUGCell::GetNumber() const {
    if (!number_known_) {
        number_ = text_.get() != nullptr ? std::wcstod(text_.get(), nullptr) : 0;
        number_known_ = true;
    }
    return number_;
}

void CUGCell::SetLabelText(const wchar_t* text) {
    label_.copy(text != nullptr ? text : L"");
    properties_ |= cell_label;
}

void CUGCell::BorrowLabelText(const wchar_t* text) {
    label_.borrow(text);
    properties_ |= cell_label;
}

void CUGCell::SetDataType(int type) {
    data_type_ = static_cast<std::int16_t>(type);
    properties_ |= cell_data_type;
}

int CUGCell::GetDataType() const {
    return IsPropertySet(cell_data_type) ? data_type_ : static_cast<int>(data_text);
}

void CUGCell::SetCellType(int index) {
    type_index_ = static_cast<std::uint16_t>(index);
    properties_ |= cell_type_index;
}

void CUGCell::SetCellTypeOptions(std::uint32_t bits) {
    options_ = bits;
    properties_ |= cell_type_options;
}
