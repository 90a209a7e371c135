#include "platform/host/dxf/name_table.h"

#include "base/case_folding.h"

namespace dxf {

namespace {

uint32_t hash_of(std::string_view bytes) {
    uint32_t hash = 2166136261U;
    for (const char byte : bytes) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 16777619U;
    }
    return hash ^ hash >> 15;
}

}  // namespace

NameId NameTable::intern(std::string_view raw, const TextCodec& codec) {
    if (slots_.size() < 2 * (spellings_.size() + 1)) {
        grow();
    }
    const uint32_t hash = hash_of(raw);
    size_t slot = hash & (slots_.size() - 1);
    while (slots_[slot].spelling != no_name) {
        const Slot& taken = slots_[slot];
        if (taken.hash == hash && spellings_[taken.spelling].raw == raw) {
            return spellings_[taken.spelling].id;
        }
        slot = (slot + 1) & (slots_.size() - 1);
    }
    return add_spelling(raw, hash, slot, codec);
}

NameId NameTable::add_spelling(std::string_view raw, uint32_t hash, size_t slot, const TextCodec& codec) {
    std::wstring name = codec.decode(raw);
    const auto [entry, added] = folded_.emplace(base::lower(name), size());
    if (added) {
        names_.push_back(std::move(name));
    }
    slots_[slot] = {hash, static_cast<uint32_t>(spellings_.size())};
    spellings_.push_back({std::string(raw), entry->second});
    return entry->second;
}

NameId NameTable::find(std::wstring_view name) const {
    const auto found = folded_.find(base::lower(name));
    return found == folded_.end() ? no_name : found->second;
}

const std::wstring& NameTable::name(NameId id) const {
    static const std::wstring nameless;
    return id < names_.size() ? names_[id] : nameless;
}

void NameTable::grow() {
    std::vector<Slot> wider(slots_.empty() ? 64 : slots_.size() * 2);
    for (const Slot& old : slots_) {
        if (old.spelling == no_name) {
            continue;
        }
        size_t slot = old.hash & (wider.size() - 1);
        while (wider[slot].spelling != no_name) {
            slot = (slot + 1) & (wider.size() - 1);
        }
        wider[slot] = old;
    }
    slots_.swap(wider);
}

}  // namespace dxf
