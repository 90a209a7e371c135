// How often blocks stand within other blocks. Pure.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace corvanes {

/// Blocks are numbered from 0; each holds references of others, `number` of each.
struct HeldBlock {
    std::size_t block;
    std::uint64_t number;
};

/// For each block how often it stands inside of others, through all levels, when each stands `outside` times in the
/// drawing itself. Numbers stop at the largest value; a reference that leads back into its own block counts nothing.
/// Linear in the number of entries, however often the blocks multiply.
std::vector<std::uint64_t> nested_counts(const std::vector<std::vector<HeldBlock>>& held,
                                         const std::vector<std::uint64_t>& outside);

}  // namespace corvanes
