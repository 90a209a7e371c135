// The drawing's block names that the template grid offers, and which of them its rows use already.
#pragma once

#include <afxstr.h>
#include <afxtempl.h>

#include <vector>

#include "grid/safe_sort.h"

/// One name, with whether a row of the grid uses it.
struct blname {
    CString name;
    int used = 0;
};

/// Sorts and searches an array by one comparison. The sort keeps the order of equal elements and is safe with any
/// comparison.
template <class Element, class Argument>
class RLsort {
  public:
    virtual ~RLsort() = default;

    void Sort(CArray<Element, Argument>& array) {
        if (array.GetSize() == 0) {
            return;
        }
        Element* const data = array.GetData();
        std::vector<Element> items(data, data + array.GetSize());
        corvanes::safe_sort(items, [this](const Element& a, const Element& b) { return Compare(&a, &b); });
        std::copy(items.begin(), items.end(), data);
    }

    /// The index of an element equal to `key` in a sorted array, or -1.
    INT_PTR Find(const CArray<Element, Argument>& array, const Element& key) {
        const Element* const data = array.GetData();
        INT_PTR high = array.GetSize() - 1;
        if (high < 0 || Compare(&key, &data[0]) < 0 || Compare(&key, &data[high]) > 0) {
            return -1;
        }
        INT_PTR low = 0;
        while (high - low >= 2) {
            const INT_PTR middle = (low + high) / 2;
            const int order = Compare(&key, &data[middle]);
            if (order == 0) {
                return middle;
            }
            (order > 0 ? low : high) = middle;
        }
        return Compare(&key, &data[low]) == 0 ? low : Compare(&key, &data[high]) == 0 ? high : -1;
    }

    /// Negative, 0 or positive: the order of the elements in two slots.
    virtual int Compare(const Element* first, const Element* second) = 0;
};

/// Orders names without regard to case.
class BlockNamesContSort : public RLsort<blname*, blname*> {
  public:
    int Compare(blname* const* first, blname* const* second) override;
};

/// Owns its elements.
class BlockNamesCont {
  public:
    BlockNamesCont() = default;
    virtual ~BlockNamesCont();
    BlockNamesCont(const BlockNamesCont&) = delete;
    BlockNamesCont& operator=(const BlockNamesCont&) = delete;

    /// The names of the working drawing's blocks, as they stand in its block table; anonymous blocks and layouts (names
    /// that begin with "*") are left out. An absent drawing gives an empty list. Returns 1.
    int Fill();
    void Sort();
    void ResetUsed();
    /// Sets the flag of the element with this name, whatever its case; does nothing when there is none. The names must
    /// be sorted.
    void MarkUsed(const wchar_t* name, int flag);
    /// The names that are not used, each followed by a line feed.
    void GetList(CString& out) const;

    /// Appends a name, not used yet.
    void Add(const wchar_t* name);
    void Clear();

  private:
    void DeleteElements() noexcept;

    CArray<blname*, blname*> names_;
};
