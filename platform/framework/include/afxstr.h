// CString: the framework's text, wide characters on every platform.
#pragma once

#include <cwchar>
#include <string>

#include "afxver_.h"

class CString {
  public:
    CString() = default;
    CString(const wchar_t* text) : text_(text ? text : L"") {}
    CString(const wchar_t* text, int length) : text_(text, static_cast<size_t>(length)) {}

    CString& operator=(const wchar_t* text);

    int GetLength() const { return static_cast<int>(text_.size()); }
    BOOL IsEmpty() const { return text_.empty(); }
    void Empty() { text_.clear(); }
    operator const wchar_t*() const { return text_.c_str(); }
    const wchar_t* GetString() const { return text_.c_str(); }

    /// A buffer for at least `length` characters and the null after them. Until ReleaseBuffer no other member may be
    /// called; it takes the new length, or -1 for "up to the first null".
    wchar_t* GetBuffer(int length = 0);
    void ReleaseBuffer(int length = -1);

    CString& operator+=(const CString& text);
    CString& operator+=(const wchar_t* text);

    int Compare(const wchar_t* other) const { return std::wcscmp(text_.c_str(), other ? other : L""); }
    CString& MakeLower();

    friend CString operator+(const CString& left, const CString& right) { return CString(left) += right; }
    friend CString operator+(const CString& left, const wchar_t* right) { return CString(left) += right; }
    friend CString operator+(const wchar_t* left, const CString& right) { return CString(left) += right; }

  private:
    std::wstring text_;
};

// NOLINTBEGIN(bugprone-macro-parentheses): an operator takes none
#define AFX_CSTRING_COMPARISON(op)                                       \
    inline bool operator op(const CString& left, const CString& right) { \
        return left.Compare(right) op 0;                                 \
    }                                                                    \
    inline bool operator op(const CString& left, const wchar_t* right) { \
        return left.Compare(right) op 0;                                 \
    }                                                                    \
    inline bool operator op(const wchar_t* left, const CString& right) { \
        return 0 op right.Compare(left);                                 \
    }
// NOLINTEND(bugprone-macro-parentheses)
AFX_CSTRING_COMPARISON(==)
AFX_CSTRING_COMPARISON(!=)
#undef AFX_CSTRING_COMPARISON
