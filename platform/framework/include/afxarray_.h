// CArray: a growing array with a settable growth step.
#pragma once

#include <algorithm>
#include <stdexcept>
#include <type_traits>
#include <vector>

#include "afxver_.h"

/// ARG_TYPE is how elements are passed in: a value, `const TYPE&`, or `TYPE&` for callers that keep the object.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray {
    static_assert(!std::is_same_v<TYPE, bool>, "a packed vector has no element addresses; use BOOL");

  public:
    CArray() = default;
    virtual ~CArray() = default;
    CArray(const CArray&) = delete;
    CArray& operator=(const CArray&) = delete;

    INT_PTR GetSize() const { return static_cast<INT_PTR>(elements_.size()); }
    INT_PTR GetCount() const { return GetSize(); }
    BOOL IsEmpty() const { return elements_.empty(); }
    INT_PTR GetUpperBound() const { return GetSize() - 1; }

    /// New elements are default-constructed. `grow_by` is the least number of elements to make room for at a time, -1
    /// leaves it as it is; the array may make room for more, so that adding one by one stays linear.
    void SetSize(INT_PTR size, INT_PTR grow_by = -1) {
        if (size < 0) {
            throw std::invalid_argument("CArray: negative size");
        }
        if (grow_by >= 0) {
            grow_by_ = grow_by;
        }
        if (size == 0) {
            std::vector<TYPE>().swap(elements_);
            return;
        }
        make_room(static_cast<size_t>(size));
        elements_.resize(static_cast<size_t>(size));
    }
    void RemoveAll() { SetSize(0); }
    void FreeExtra() { elements_.shrink_to_fit(); }

    const TYPE& GetAt(INT_PTR index) const { return elements_[checked(index)]; }
    TYPE& GetAt(INT_PTR index) { return elements_[checked(index)]; }
    const TYPE& ElementAt(INT_PTR index) const { return GetAt(index); }
    TYPE& ElementAt(INT_PTR index) { return GetAt(index); }
    const TYPE& operator[](INT_PTR index) const { return GetAt(index); }
    TYPE& operator[](INT_PTR index) { return GetAt(index); }
    void SetAt(INT_PTR index, ARG_TYPE element) { GetAt(index) = element; }
    const TYPE* GetData() const { return elements_.data(); }
    TYPE* GetData() { return elements_.data(); }

    /// The new element's index.
    INT_PTR Add(ARG_TYPE element) {
        InsertAt(GetSize(), element);
        return GetUpperBound();
    }
    void SetAtGrow(INT_PTR index, ARG_TYPE element) {
        TYPE copy(element);
        if (index >= GetSize()) {
            SetSize(index + 1);
        }
        GetAt(index) = std::move(copy);
    }
    INT_PTR Append(const CArray& source) {
        const INT_PTR first = GetSize();
        const std::vector<TYPE> copies(source.elements_);
        make_room(elements_.size() + copies.size());
        elements_.insert(elements_.end(), copies.begin(), copies.end());
        return first;
    }
    void Copy(const CArray& source) { elements_ = source.elements_; }

    /// Beyond the end, the gap is filled with default-constructed elements. The element may be one of this array.
    void InsertAt(INT_PTR index, ARG_TYPE element, INT_PTR count = 1) {
        if (index < 0 || count < 0) {
            throw std::out_of_range("CArray: insertion before the first element");
        }
        const TYPE copy(element);
        const size_t at = static_cast<size_t>(index);
        make_room(std::max(at, elements_.size()) + static_cast<size_t>(count));
        if (at > elements_.size()) {
            elements_.resize(at);
        }
        elements_.insert(elements_.begin() + index, static_cast<size_t>(count), copy);
    }
    void RemoveAt(INT_PTR index, INT_PTR count = 1) {
        if (index < 0 || count < 0 || count > GetSize() - index) {
            throw std::out_of_range("CArray: removal outside the array");
        }
        elements_.erase(elements_.begin() + index, elements_.begin() + index + count);
    }

  private:
    size_t checked(INT_PTR index) const {
        if (index < 0 || index >= GetSize()) {
            throw std::out_of_range("CArray: index outside the array");
        }
        return static_cast<size_t>(index);
    }

    void make_room(size_t size) {
        const size_t room = elements_.capacity();
        if (size > room) {
            elements_.reserve(std::max(size, room + std::max(static_cast<size_t>(grow_by_), room / 2)));
        }
    }

    std::vector<TYPE> elements_;
    INT_PTR grow_by_ = 0;
};
