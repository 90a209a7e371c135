// CMap: a hash map from KEY to VALUE, and the helpers that say how keys are hashed and compared.
#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

#include "afxstr.h"

/// The hash of a key as it is passed. Texts, integers, enumerations and pointers work; specialise it for other keys.
template <class ARG_KEY>
inline UINT HashKey(ARG_KEY key) {
    using Key = std::remove_cv_t<std::remove_reference_t<ARG_KEY>>;
    std::uint64_t bits;
    if constexpr (std::is_pointer_v<Key>) {
        bits = reinterpret_cast<std::uintptr_t>(key);
    } else {
        bits = static_cast<std::uint64_t>(key);
    }
    return static_cast<UINT>((bits * 0x9E3779B97F4A7C15u) >> 32);
}

template <>
inline UINT HashKey<const wchar_t*>(const wchar_t* key) {
    UINT hash = 2166136261u;
    for (; *key; ++key) {
        hash = (hash ^ static_cast<UINT>(*key)) * 16777619u;
    }
    return hash;
}

template <>
inline UINT HashKey<const CString&>(const CString& key) {
    return HashKey<const wchar_t*>(key.GetString());
}

template <class TYPE, class ARG_TYPE>
inline BOOL CompareElements(const TYPE* stored, const ARG_TYPE* searched) {
    return *stored == *searched;
}

template <class KEY, class ARG_KEY = const KEY&, class VALUE = KEY, class ARG_VALUE = const VALUE&>
class CMap {
  public:
    /// Associations are allocated in blocks of at least `block_size`; an association never moves, so a reference to its
    /// value holds until its key is removed.
    explicit CMap(INT_PTR block_size = 10) : block_size_(block_size > 0 ? static_cast<size_t>(block_size) : 1) {}
    virtual ~CMap() { RemoveAll(); }
    CMap(const CMap&) = delete;
    CMap& operator=(const CMap&) = delete;

    INT_PTR GetCount() const { return static_cast<INT_PTR>(count_); }
    INT_PTR GetSize() const { return GetCount(); }
    BOOL IsEmpty() const { return count_ == 0; }
    /// The size that was asked for. The map hashes into more buckets by itself once they would fill up.
    UINT GetHashTableSize() const { return table_size_; }

    /// Only an empty map takes another size.
    void InitHashTable(UINT size, BOOL allocate_now = TRUE) {
        if (count_ != 0 || size == 0) {
            throw std::logic_error("CMap: the hash table is set while the map is empty, and is not empty itself");
        }
        table_size_ = size;
        std::vector<Association*>(allocate_now ? size : 0).swap(buckets_);
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
    void SetAt(ARG_KEY key, ARG_VALUE value) { (*this)[key] = value; }

    /// FALSE when the key is not there.
    BOOL RemoveKey(ARG_KEY key) {
        if (buckets_.empty()) {
            return FALSE;
        }
        const UINT hash = HashKey<ARG_KEY>(key);
        for (Association** at = &buckets_[hash % buckets_.size()]; *at; at = &(*at)->next) {
            Association* found = *at;
            if (found->hash != hash || !CompareElements(&found->key, &key)) {
                continue;
            }
            *at = found->next;
            release(found);
            --count_;
            return TRUE;
        }
        return FALSE;
    }

    void RemoveAll() {
        for (Association* association : buckets_) {
            while (association) {
                std::destroy_at(std::exchange(association, association->next));
            }
        }
        buckets_.clear();
        blocks_.clear();
        free_ = nullptr;
        count_ = 0;
    }

    /// Walks the associations in no particular order; adding or removing keys ends the walk's validity.
    POSITION GetStartPosition() const { return to_position(first_from(0)); }
    void GetNextAssoc(POSITION& position, KEY& key, VALUE& value) const {
        const Association* association = reinterpret_cast<const Association*>(position);
        key = association->key;
        value = association->value;
        position =
            to_position(association->next ? association->next : first_from(association->hash % buckets_.size() + 1));
    }

  private:
    struct Association {
        Association(UINT key_hash, ARG_KEY new_key) : hash(key_hash), key(new_key) {}
        Association* next = nullptr;
        UINT hash;
        KEY key;
        VALUE value{};
    };
    /// Room for one association; a free one holds the next free one.
    union Slot {
        Slot() : next_free(nullptr) {}
        ~Slot() {}
        Slot* next_free;
        Association association;
    };

    static POSITION to_position(const Association* association) {
        return reinterpret_cast<POSITION>(const_cast<Association*>(association));
    }

    Association* find(ARG_KEY key, UINT hash) const {
        if (buckets_.empty()) {
            return nullptr;
        }
        for (Association* at = buckets_[hash % buckets_.size()]; at; at = at->next) {
            if (at->hash == hash && CompareElements(&at->key, &key)) {
                return at;
            }
        }
        return nullptr;
    }

    Association* first_from(size_t bucket) const {
        for (; bucket < buckets_.size(); ++bucket) {
            if (buckets_[bucket]) {
                return buckets_[bucket];
            }
        }
        return nullptr;
    }

    void link(Association* association) {
        Association*& first = buckets_[association->hash % buckets_.size()];
        association->next = first;
        first = association;
    }

    /// Keeps chains short: the bucket count doubles (and stays odd) before more than one key per bucket is held.
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
        if (!free_) {
            add_block();
        }
        Slot* slot = free_;
        Slot* rest = slot->next_free;
        Association* association = new (&slot->association) Association(hash, key);
        free_ = rest;
        return association;
    }

    void add_block() {
        const size_t size = std::max(block_size_, count_ / 4);
        blocks_.push_back(std::make_unique<Slot[]>(size));
        for (size_t i = size; i-- > 0;) {
            push_free(&blocks_.back()[i]);
        }
    }

    void push_free(Slot* slot) {
        slot->next_free = free_;
        free_ = slot;
    }

    void release(Association* association) {
        Slot* slot = reinterpret_cast<Slot*>(association);
        std::destroy_at(association);
        push_free(new (slot) Slot);
    }

    size_t block_size_;
    UINT table_size_ = 17;
    size_t count_ = 0;
    std::vector<Association*> buckets_;
    std::vector<std::unique_ptr<Slot[]>> blocks_;
    Slot* free_ = nullptr;
};
