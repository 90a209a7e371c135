#include "bom/nested_references.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace corvanes {

namespace {

constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();

std::uint64_t sum(std::uint64_t a, std::uint64_t b) {
    return a > most - b ? most : a + b;
}

std::uint64_t product(std::uint64_t a, std::uint64_t b) {
    return b != 0 && a > most / b ? most : a * b;
}

enum class Visit : char { none, open, done };

/// Orders the blocks so that each comes behind all blocks that it holds, and finds the references that lead back into
/// their own block.
class Order {
  public:
    explicit Order(const std::vector<std::vector<HeldBlock>>& held) : held_(held), visits_(held.size(), Visit::none) {
        for (std::size_t block = 0; block < held.size(); ++block) {
            if (visits_[block] == Visit::none) {
                visit(block);
            }
        }
    }

    std::vector<std::size_t> blocks;
    std::vector<std::pair<std::size_t, std::size_t>> back;  ///< a block, and the index of a reference within it

  private:
    void visit(std::size_t root) {
        std::vector<std::pair<std::size_t, std::size_t>> path{{root, 0}};
        visits_[root] = Visit::open;
        while (!path.empty()) {
            auto& [block, next] = path.back();
            if (next == held_[block].size()) {
                visits_[block] = Visit::done;
                blocks.push_back(block);
                path.pop_back();
                continue;
            }
            const std::size_t inner = held_[block][next].block;
            if (visits_[inner] == Visit::open) {
                back.emplace_back(block, next);
            }
            ++next;
            if (visits_[inner] == Visit::none) {
                visits_[inner] = Visit::open;
                path.emplace_back(inner, 0);
            }
        }
    }

    const std::vector<std::vector<HeldBlock>>& held_;
    std::vector<Visit> visits_;
};

}  // namespace

std::vector<std::uint64_t> nested_counts(const std::vector<std::vector<HeldBlock>>& held,
                                         const std::vector<std::uint64_t>& outside) {
    Order order(held);
    std::sort(order.back.begin(), order.back.end());
    std::vector<std::uint64_t> nested(held.size(), 0);
    for (auto block = order.blocks.rbegin(); block != order.blocks.rend(); ++block) {
        const std::uint64_t all = sum(outside[*block], nested[*block]);
        for (std::size_t i = 0; i < held[*block].size(); ++i) {
            if (!std::binary_search(order.back.begin(), order.back.end(), std::pair(*block, i))) {
                const HeldBlock& inner = held[*block][i];
                nested[inner.block] = sum(nested[inner.block], product(all, inner.number));
            }
        }
    }
    return nested;
}

}  // namespace corvanes
