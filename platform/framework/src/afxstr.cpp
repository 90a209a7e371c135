#include "afxstr.h"

#include <algorithm>

#include "base/case_folding.h"

CString& CString::operator=(const wchar_t* text) {
    // assign copes with a text that is part of this one.
    text_.assign(text ? text : L"");
    return *this;
}

wchar_t* CString::GetBuffer(int length) {
    text_.resize(std::max(text_.size(), static_cast<size_t>(std::max(length, 0))));
    return text_.data();
}

void CString::ReleaseBuffer(int length) {
    text_.resize(length < 0 ? std::wcslen(text_.c_str()) : static_cast<size_t>(length));
}

CString& CString::operator+=(const CString& text) {
    text_ += text.text_;
    return *this;
}

CString& CString::operator+=(const wchar_t* text) {
    if (text) {
        text_ += text;
    }
    return *this;
}

CString& CString::MakeLower() {
    base::lower_in_place(text_.data(), text_.size());
    return *this;
}
