// Memory for many small blocks that never move: the texts and the rows of the grid's cell store.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace corvanes {

// Blocks are counted in units of 8 bytes and named by 32-bit handles, so that a store of millions of cells spends four
// bytes on a reference. A released block is used again for the next one of its size. The caller remembers the size.
class BlockArena {
  public:
    using Handle = std::uint32_t;
    static constexpr Handle none = 0;
    static constexpr std::size_t unit_size = 8;

    BlockArena() = default;
    BlockArena(const BlockArena&) = delete;
    BlockArena& operator=(const BlockArena&) = delete;

    // A block of at least one unit with unspecified content. Throws std::bad_alloc when memory or handles run out.
    Handle allocate(std::size_t units);
    // `units` must be what the block was allocated with. `none` is allowed and does nothing.
    void release(Handle block, std::size_t units) noexcept;
    // The block's first byte, aligned to 8; valid until the block is released.
    void* at(Handle block) const { return chunks_[block >> unit_bits].get() + (block & unit_mask) * unit_size; }
    // Releases every block.
    void clear() noexcept;
    // Bytes taken from the system.
    std::size_t memory_used() const { return memory_used_; }

  private:
    static constexpr unsigned unit_bits = 17;
    static constexpr std::size_t chunk_units = std::size_t{1} << unit_bits;
    static constexpr Handle unit_mask = chunk_units - 1;
    // Larger blocks get a chunk of their own.
    static constexpr std::size_t largest_pooled = 512;

    Handle allocate_alone(std::size_t units);
    std::uint32_t add_chunk(std::size_t units);

    std::vector<std::unique_ptr<std::byte[]>> chunks_;
    std::vector<std::uint32_t> vacant_chunks_;
    // For each size the last released block; a released block's first bytes name the one before it.
    std::array<Handle, largest_pooled + 1> released_{};
    std::uint32_t filling_ = 0;
    std::size_t filled_units_ = chunk_units;
    std::size_t memory_used_ = 0;
};

}  // namespace corvanes
