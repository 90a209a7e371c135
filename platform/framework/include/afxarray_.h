// CArray: a growing array with a settable growth step.
#pragma once

#include <algorithm>
#include <stdexcept>
#include <type_traits>
#include <vector>

#include "afxver_.h"

/// ARG_TYPE is the type by which elements are passed in: a value, `const TYPE&`, or `TYPE&` for callers that keep the
/// object.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray {
    static_assert(!std::is_same_v<TYPE, bool>, "a packed vector has no element addresses; use BOOL");

  public:
    CArray() = default;
    virtual ~CArray() = default;
    CArray(const CArray&) = delete;
    CArray& operator=(const CArray&) = delete;

    INT_PTR GetSize() const { return static_cast<INT_PTR>(elements_.size()); }

    /// Changes the number of elements; new ones are default-constructed. `grow_by` is the least number of elements to
    /// make room for at a time; -1 leaves it as it is. The array may make room for more, so that adding one by one
    /// stays linear.
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

    const TYPE& operator[](INT_PTR index) const { return elements_[checked(index)]; }
    TYPE& operator[](INT_PTR index) { return elements_[checked(index)]; }
    const TYPE* GetData() const { return elements_.data(); }
    TYPE* GetData() { return elements_.data(); }

    /// Appends an element and returns its index.
    INT_PTR Add(ARG_TYPE element) {
        const TYPE copy(element);  // `element` may be an element of this array
        make_room(elements_.size() + 1);
        elements_.push_back(copy);
        return GetSize() - 1;
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
