// CMap: a hash map from KEY to VALUE.
#pragma once

#include <algorithm>
#include <stdexcept>
#include <utility>
#include <vector>

#include "afxstr.h"

/// The hash of a key as it is passed. Texts work; specialise it for other keys.
template <class ARG_KEY>
UINT HashKey(ARG_KEY key);

template <>
inline UINT HashKey<const wchar_t*>(const wchar_t* key) {
    UINT hash = 2166136261u;
    for (; *key; ++key) {
        hash = (hash ^ static_cast<UINT>(*key)) * 16777619u;
    }
    return hash;
}

template <class KEY, class ARG_KEY = const KEY&, class VALUE = KEY, class ARG_VALUE = const VALUE&>
class CMap {
  public:
    /// Associations are allocated in blocks of at least `block_size`; an association never moves, so a reference to its
    /// value holds until RemoveAll.
    explicit CMap(INT_PTR block_size = 10) : block_size_(block_size > 0 ? static_cast<size_t>(block_size) : 1) {}
    virtual ~CMap() = default;
    CMap(const CMap&) = delete;
    CMap& operator=(const CMap&) = delete;

    BOOL IsEmpty() const { return count_ == 0; }

    /// Sets the number of buckets; only an empty map takes another number. The map adds buckets by itself before these
    /// fill up.
    void InitHashTable(UINT size) {
        if (count_ != 0 || size == 0) {
            throw std::logic_error("CMap: the hash table is set while the map is empty, and is not empty itself");
        }
        table_size_ = size;
        buckets_.assign(size, nullptr);
    }

    BOOL Lookup(ARG_KEY key, VALUE& value) const {
        const Association* found = find(key, HashKey<ARG_KEY>(key));
        if (found) {
            value = found->value;
        }
        return found != nullptr;
    }

    /// Adds a default-constructed value for a key that is not there.
    VALUE& operator[](ARG_KEY key) {
        const UINT hash = HashKey<ARG_KEY>(key);
        if (Association* found = find(key, hash)) {
            return found->value;
        }
        reserve_buckets();
        Association* added = allocate(hash, key);
        link(added);
        ++count_;
        return added->value;
    }

    void RemoveAll() {
        buckets_.clear();
        blocks_.clear();
        count_ = 0;
    }

  private:
    struct Association {
        Association(UINT key_hash, ARG_KEY new_key) : hash(key_hash), key(new_key) {}
        Association* next = nullptr;
        UINT hash;
        KEY key;
        VALUE value{};
    };

    Association* find(ARG_KEY key, UINT hash) const {
        if (buckets_.empty()) {
            return nullptr;
        }
        for (Association* at = buckets_[hash % buckets_.size()]; at; at = at->next) {
            if (at->hash == hash && at->key == key) {
                return at;
            }
        }
        return nullptr;
    }

    void link(Association* association) {
        Association*& first = buckets_[association->hash % buckets_.size()];
        association->next = first;
        first = association;
    }

    /// Keeps chains short: doubles the bucket count, which stays odd, before there is more than one key for each
    /// bucket.
    void reserve_buckets() {
        if (buckets_.empty()) {
            buckets_.resize(table_size_);
        } else if (count_ >= buckets_.size()) {
            std::vector<Association*> old(buckets_.size() * 2 + 1);
            old.swap(buckets_);
            for (Association* association : old) {
                while (association) {
                    link(std::exchange(association, association->next));
                }
            }
        }
    }

    Association* allocate(UINT hash, ARG_KEY key) {
        if (blocks_.empty() || blocks_.back().size() == blocks_.back().capacity()) {
            blocks_.emplace_back().reserve(std::max(block_size_, count_ / 4));
        }
        return &blocks_.back().emplace_back(hash, key);
    }

    size_t block_size_;
    UINT table_size_ = 17;
    size_t count_ = 0;
    std::vector<Association*> buckets_;
    std::vector<std::vector<Association>> blocks_;  // no block grows beyond what was reserved for it
};
