#include "afxstr.h"

#include <algorithm>
#include <cwchar>
#include <cwctype>
#include <string_view>

#include "base/case_folding.h"
#include "platform/framework/src/wide_format.h"

namespace {

constexpr const wchar_t* kBlanks = L" \t\n\v\f\r";

int found_at(size_t position) {
    return position == std::wstring::npos ? -1 : static_cast<int>(position);
}

wchar_t to_upper(wchar_t character) {
#ifdef _WIN32
    CharUpperBuffW(&character, 1);
    return character;
#else
    return static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(character)));
#endif
}

}  // namespace

CString& CString::operator=(const wchar_t* text) {
    // assign copes with a text that is part of this one.
    text_.assign(text ? text : L"");
    return *this;
}

CString& CString::operator=(wchar_t character) {
    text_.assign(1, character);
    return *this;
}

wchar_t* CString::GetBuffer(int length) {
    text_.resize(std::max(text_.size(), static_cast<size_t>(std::max(length, 0))));
    return text_.data();
}

wchar_t* CString::GetBufferSetLength(int length) {
    text_.resize(static_cast<size_t>(length));
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

CString& CString::operator+=(wchar_t character) {
    text_ += character;
    return *this;
}

int CString::Compare(const wchar_t* other) const {
    return std::wcscmp(text_.c_str(), other ? other : L"");
}

int CString::CompareNoCase(const wchar_t* other) const {
    return base::compare_ignoring_case(text_.c_str(), other ? other : L"");
}

CString CString::Mid(int first, int count) const {
    const int start = std::clamp(first, 0, GetLength());
    return {text_.data() + start, std::clamp(count, 0, GetLength() - start)};
}

CString CString::Right(int count) const {
    const int length = std::clamp(count, 0, GetLength());
    return Mid(GetLength() - length, length);
}

int CString::Find(wchar_t character, int start) const {
    return start < 0 ? -1 : found_at(text_.find(character, static_cast<size_t>(start)));
}

int CString::Find(const wchar_t* part, int start) const {
    return start < 0 ? -1 : found_at(text_.find(part, static_cast<size_t>(start)));
}

int CString::FindOneOf(const wchar_t* set) const {
    return found_at(text_.find_first_of(set));
}

int CString::ReverseFind(wchar_t character) const {
    return found_at(text_.rfind(character));
}

CString& CString::MakeLower() {
    base::lower_in_place(text_.data(), text_.size());
    return *this;
}

CString& CString::MakeUpper() {
    std::transform(text_.begin(), text_.end(), text_.begin(), to_upper);
    return *this;
}

CString& CString::MakeReverse() {
    std::reverse(text_.begin(), text_.end());
    return *this;
}

CString& CString::TrimLeft() {
    return TrimLeft(kBlanks);
}

CString& CString::TrimLeft(wchar_t character) {
    const wchar_t set[] = {character, 0};
    return TrimLeft(set);
}

CString& CString::TrimLeft(const wchar_t* set) {
    text_.erase(0, text_.find_first_not_of(set));
    return *this;
}

CString& CString::TrimRight() {
    return TrimRight(kBlanks);
}

CString& CString::TrimRight(wchar_t character) {
    const wchar_t set[] = {character, 0};
    return TrimRight(set);
}

CString& CString::TrimRight(const wchar_t* set) {
    // npos + 1 is 0: a text of nothing else goes altogether.
    text_.erase(text_.find_last_not_of(set) + 1);
    return *this;
}

int CString::Replace(wchar_t from, wchar_t to) {
    int replaced = 0;
    for (wchar_t& character : text_) {
        if (character == from && from != to) {
            character = to;
            ++replaced;
        }
    }
    return replaced;
}

int CString::Replace(const wchar_t* from, const wchar_t* to) {
    const std::wstring_view old_part(from ? from : L"");
    if (old_part.empty()) {
        return 0;
    }
    const std::wstring new_part(to ? to : L"");
    std::wstring result;
    int replaced = 0;
    size_t start = 0;
    for (size_t at; (at = text_.find(old_part, start)) != std::wstring::npos; start = at + old_part.size()) {
        result.append(text_, start, at - start).append(new_part);
        ++replaced;
    }
    if (replaced) {
        text_ = result.append(text_, start, std::wstring::npos);
    }
    return replaced;
}

int CString::Remove(wchar_t character) {
    const size_t before = text_.size();
    text_.erase(std::remove(text_.begin(), text_.end(), character), text_.end());
    return static_cast<int>(before - text_.size());
}

int CString::Insert(int index, wchar_t character) {
    text_.insert(static_cast<size_t>(std::clamp(index, 0, GetLength())), 1, character);
    return GetLength();
}

int CString::Insert(int index, const wchar_t* text) {
    if (text) {
        text_.insert(static_cast<size_t>(std::clamp(index, 0, GetLength())), text);
    }
    return GetLength();
}

int CString::Delete(int index, int count) {
    const int first = std::max(index, 0);
    if (first < GetLength() && count > 0) {
        text_.erase(static_cast<size_t>(first), static_cast<size_t>(count));
    }
    return GetLength();
}

void CString::Format(const wchar_t* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    FormatV(format, arguments);
    va_end(arguments);
}

void CString::FormatV(const wchar_t* format, va_list arguments) {
    // A new text, since an argument may be this one's.
    text_ = framework::wide_format(format, arguments);
}

void CString::AppendFormat(const wchar_t* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    text_ += framework::wide_format(format, arguments);
    va_end(arguments);
}
