// The block table records of a drawing: both spaces, which are always there, then the blocks in file order.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host/dxf/drawing.h"

namespace host {

/// Whether a block is a space's: "*Model_Space" or R12's "$MODEL_SPACE"; "*Paper_Space", "*Paper_Space0" … or R12's
/// "$PAPER_SPACE". Case does not matter.
bool is_model_space_name(std::wstring_view name);
bool is_paper_space_name(std::wstring_view name);

/// Numbers of block table records. They stay the same while the drawing is open.
using BlockNumber = uint32_t;
constexpr BlockNumber model_space_number = 0;
constexpr BlockNumber paper_space_number = 1;
constexpr BlockNumber no_block_number = 0xFFFFFFFF;

/// Blocks without a name and later blocks of a name that was there before cannot be referred to and have no number.
class BlockCatalogue {
  public:
    explicit BlockCatalogue(const dxf::Drawing& drawing);

    BlockNumber size() const { return static_cast<BlockNumber>(entries_.size()); }
    /// The record's name as the BLOCK spells it. Valid until the drawing is closed.
    const std::wstring& name(BlockNumber number) const;
    /// Without regard to case; no_block_number for an unknown or erased one.
    BlockNumber named(std::wstring_view name) const;
    BlockNumber number_of(dxf::BlockId block) const {
        return block < numbers_.size() ? numbers_[block] : no_block_number;
    }
    /// no_block for a space that the file has no BLOCK for.
    dxf::BlockId block(BlockNumber number) const { return entries_[number].block; }
    bool erased(BlockNumber number) const;
    bool is_space(BlockNumber number) const { return number <= paper_space_number; }
    /// The spaces and the blocks of the other layouts.
    bool is_layout(BlockNumber number) const;

    /// The block that a block reference inserts.
    BlockNumber inserted_by(const dxf::Record& reference) const {
        return number_of(drawing_.block_named(reference.block_name));
    }

    /// The slots of a block's entities, in file order. A slot may hold an erased entity or, in a space, one of the
    /// other space; holds() tells.
    size_t slots(BlockNumber number) const;
    dxf::RecordId at(BlockNumber number, size_t slot) const;
    bool holds(BlockNumber number, dxf::RecordId record, bool skip_erased = true) const;

    /// The block that an entity stands in, or no_block_number.
    BlockNumber owner_of(dxf::RecordId record) const;

    /// Takes in a block that was added to the drawing.
    BlockNumber add(dxf::BlockId block);

  private:
    struct Entry {
        dxf::BlockId block = dxf::no_block;
        mutable std::optional<std::wstring> name;
    };
    std::wstring read_name(BlockNumber number) const;

    const dxf::Drawing& drawing_;
    std::vector<Entry> entries_;
    std::vector<BlockNumber> numbers_;  ///< by dxf::BlockId
};

}  // namespace host
