// CString: the framework's text, wide characters on every platform.
#pragma once

#include <cstdarg>
#include <string>

#include "afxver_.h"

class CString {
  public:
    CString() = default;
    CString(const wchar_t* text) : text_(text ? text : L"") {}
    CString(const wchar_t* text, int length) : text_(text, static_cast<size_t>(length)) {}
    explicit CString(wchar_t character, int repeat = 1) : text_(static_cast<size_t>(repeat), character) {}

    CString& operator=(const wchar_t* text);
    CString& operator=(wchar_t character);

    int GetLength() const { return static_cast<int>(text_.size()); }
    BOOL IsEmpty() const { return text_.empty(); }
    void Empty() { text_.clear(); }
    wchar_t GetAt(int index) const { return text_.at(static_cast<size_t>(index)); }
    wchar_t operator[](int index) const { return text_[static_cast<size_t>(index)]; }
    void SetAt(int index, wchar_t character) { text_.at(static_cast<size_t>(index)) = character; }
    operator const wchar_t*() const { return text_.c_str(); }
    const wchar_t* GetString() const { return text_.c_str(); }

    /// A buffer for at least `length` characters and the null after them. Until ReleaseBuffer no other member may be
    /// called; it takes the new length, or -1 for "up to the first null".
    wchar_t* GetBuffer(int length = 0);
    wchar_t* GetBufferSetLength(int length);
    void ReleaseBuffer(int length = -1);
    void Preallocate(int length) { text_.reserve(static_cast<size_t>(length)); }
    void Truncate(int length) { text_.resize(static_cast<size_t>(length)); }

    CString& operator+=(const CString& text);
    CString& operator+=(const wchar_t* text);
    CString& operator+=(wchar_t character);
    void Append(const wchar_t* text) { *this += text; }
    void Append(const wchar_t* text, int length) { text_.append(text, static_cast<size_t>(length)); }
    void AppendChar(wchar_t character) { text_ += character; }

    int Compare(const wchar_t* other) const;
    /// Compares lower-case characters, beyond ASCII too.
    int CompareNoCase(const wchar_t* other) const;

    // Positions and counts outside the text are cut to it; searches give -1 when nothing is found.
    CString Mid(int first) const { return Mid(first, GetLength()); }
    CString Mid(int first, int count) const;
    CString Left(int count) const { return Mid(0, count); }
    CString Right(int count) const;
    int Find(wchar_t character, int start = 0) const;
    int Find(const wchar_t* part, int start = 0) const;
    int FindOneOf(const wchar_t* set) const;
    int ReverseFind(wchar_t character) const;

    CString& MakeLower();
    CString& MakeUpper();
    CString& MakeReverse();
    CString& Trim() { return TrimRight().TrimLeft(); }
    CString& Trim(wchar_t character) { return TrimRight(character).TrimLeft(character); }
    CString& Trim(const wchar_t* set) { return TrimRight(set).TrimLeft(set); }
    CString& TrimLeft();
    CString& TrimLeft(wchar_t character);
    CString& TrimLeft(const wchar_t* set);
    CString& TrimRight();
    CString& TrimRight(wchar_t character);
    CString& TrimRight(const wchar_t* set);

    // These return the number of replacements or removals; Insert and Delete the new length.
    int Replace(wchar_t from, wchar_t to);
    int Replace(const wchar_t* from, const wchar_t* to);
    int Remove(wchar_t character);
    int Insert(int index, wchar_t character);
    int Insert(int index, const wchar_t* text);
    int Delete(int index, int count = 1);

    /// printf with the rules of Windows' wide functions on every platform: %s and %c take wide, %S and %C (and %hs,
    /// %hc) single-byte text. Pass texts as `text.GetString()`.
    void Format(const wchar_t* format, ...);
    void FormatV(const wchar_t* format, va_list arguments);
    void AppendFormat(const wchar_t* format, ...);

#ifdef _WIN32
    /// The string resource from the chain that AfxFindResourceHandle searches; FALSE when there is none.
    AFX_PUBLIC BOOL LoadString(UINT id);
    void Format(UINT id, ...) = delete;
#endif

    friend CString operator+(const CString& left, const CString& right) {
        return CString(left) += right;
    }
    friend CString operator+(const CString& left, const wchar_t* right) {
        return CString(left) += right;
    }
    friend CString operator+(const CString& left, wchar_t right) {
        return CString(left) += right;
    }
    friend CString operator+(const wchar_t* left, const CString& right) {
        return CString(left) += right;
    }
    friend CString operator+(wchar_t left, const CString& right) {
        return CString(left) += right;
    }

  private:
    std::wstring text_;
};

using CStringW = CString;

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
AFX_CSTRING_COMPARISON(<)
AFX_CSTRING_COMPARISON(>)
AFX_CSTRING_COMPARISON(<=)
AFX_CSTRING_COMPARISON(>=)
#undef AFX_CSTRING_COMPARISON
