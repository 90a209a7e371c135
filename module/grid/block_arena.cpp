#include "grid/block_arena.h"

#include <cstring>
#include <new>

namespace corvanes {

BlockArena::Handle BlockArena::allocate(std::size_t units) {
    if (units > largest_pooled) {
        return allocate_alone(units);
    }
    if (const Handle reused = released_[units]; reused != none) {
        std::memcpy(&released_[units], at(reused), sizeof(Handle));
        return reused;
    }
    if (filled_units_ + units > chunk_units) {
        filling_ = add_chunk(chunk_units);
        // Unit 0 of the first chunk stays unused, since its handle would be `none`.
        filled_units_ = filling_ == 0 ? 1 : 0;
    }
    const Handle block = (filling_ << unit_bits) | static_cast<Handle>(filled_units_);
    filled_units_ += units;
    return block;
}

BlockArena::Handle BlockArena::allocate_alone(std::size_t units) {
    if (chunks_.empty()) {
        filling_ = add_chunk(chunk_units);
        filled_units_ = 1;
    }
    return add_chunk(units) << unit_bits;
}

std::uint32_t BlockArena::add_chunk(std::size_t units) {
    if (vacant_chunks_.empty() && chunks_.size() >= (std::size_t{1} << (32 - unit_bits))) {
        throw std::bad_alloc();
    }
    std::unique_ptr<std::byte[]> memory(new std::byte[units * unit_size]);
    std::uint32_t index;
    if (vacant_chunks_.empty()) {
        // This room is reserved here so that releasing a block never allocates.
        vacant_chunks_.reserve(chunks_.size() + 1);
        index = static_cast<std::uint32_t>(chunks_.size());
        chunks_.push_back(std::move(memory));
    } else {
        index = vacant_chunks_.back();
        vacant_chunks_.pop_back();
        chunks_[index] = std::move(memory);
    }
    memory_used_ += units * unit_size;
    return index;
}

void BlockArena::release(Handle block, std::size_t units) noexcept {
    if (block == none) {
        return;
    }
    if (units > largest_pooled) {
        chunks_[block >> unit_bits].reset();
        vacant_chunks_.push_back(block >> unit_bits);
        memory_used_ -= units * unit_size;
        return;
    }
    std::memcpy(at(block), &released_[units], sizeof(Handle));
    released_[units] = block;
}

void BlockArena::clear() noexcept {
    chunks_.clear();
    vacant_chunks_.clear();
    released_.fill(none);
    filling_ = 0;
    filled_units_ = chunk_units;
    memory_used_ = 0;
}

}  // namespace corvanes
