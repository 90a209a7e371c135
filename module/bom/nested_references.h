// How often blocks stand within other blocks. Pure.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace corvanes {

/// Some references that a block holds: `number` references of one other block. Blocks are numbered from 0.
struct HeldBlock {
    std::size_t block;
    std::uint64_t number;
};

/// For each block, how often it stands inside others, through all levels, when the drawing itself has `outside` of it.
/// Numbers stop at the largest value; a reference that leads back into its own block does not count. Takes time in
/// proportion to the number of entries, however often the blocks multiply.
std::vector<std::uint64_t> nested_counts(const std::vector<std::vector<HeldBlock>>& held,
                                         const std::vector<std::uint64_t>& outside);

}  // namespace corvanes
