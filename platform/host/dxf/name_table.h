// Names of layers, blocks or record types as small numbers, equal for names that differ in case only.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/host/dxf/text_codec.h"

namespace dxf {

using NameId = uint32_t;
constexpr NameId no_name = 0xFFFFFFFF;

/// Every spelling (raw bytes) is decoded and folded once; after that a lookup costs one hash of the bytes.
/// Ids count from 0 in the order of first appearance.
class NameTable {
  public:
    /// The id of a raw name, a new one when no name equal to it without regard to case was met.
    NameId intern(std::string_view raw, const TextCodec& codec);

    /// The id of a name without regard to case, or no_name.
    NameId find(std::wstring_view name) const;

    /// The name as it was first spelled; empty for no_name. Stays valid while the table lives.
    const std::wstring& name(NameId id) const;

    NameId size() const { return static_cast<NameId>(names_.size()); }

  private:
    struct Spelling {
        std::string raw;
        NameId id;
    };
    struct Slot {
        uint32_t hash = 0;
        uint32_t spelling = no_name;
    };
    NameId add_spelling(std::string_view raw, uint32_t hash, size_t slot, const TextCodec& codec);
    void grow();

    std::vector<Slot> slots_;
    std::vector<Spelling> spellings_;
    std::deque<std::wstring> names_;
    std::unordered_map<std::wstring, NameId> folded_;
};

}  // namespace dxf
