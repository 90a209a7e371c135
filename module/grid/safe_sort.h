// A merge sort that stays inside its rows whatever the comparison answers.
#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace corvanes {

namespace sorting {

constexpr std::size_t run_length = 8;

template <class Item, class Compare>
void insertion_sort(Item* first, std::size_t count, Compare& compare) {
    for (std::size_t sorted = 1; sorted < count; ++sorted) {
        Item item = std::move(first[sorted]);
        std::size_t hole = sorted;
        for (; hole > 0 && compare(first[hole - 1], item) > 0; --hole) {
            first[hole] = std::move(first[hole - 1]);
        }
        first[hole] = std::move(item);
    }
}

template <class Item, class Compare>
void merge_runs(Item* left, Item* middle, Item* right, Item* out, Compare& compare) {
    Item* a = left;
    Item* b = middle;
    // Runs that already follow each other are only moved: sorted rows cost one comparison for each pair of runs.
    if (a != middle && b != right && compare(*(middle - 1), *middle) > 0) {
        while (a != middle && b != right) {
            *out++ = std::move(compare(*a, *b) <= 0 ? *a++ : *b++);
        }
    }
    out = std::move(a, middle, out);
    std::move(b, right, out);
}

}  // namespace sorting

// Sorts `items` by `compare(a, b)`, which answers below 0, 0 or above 0. Stable, n log n comparisons. A comparison
// that contradicts itself yields some order of the same items, never a read or a write outside of them. Items must be
// default-constructible, and moving one must not throw; when the comparison throws, what `items` holds is unspecified.
template <class Item, class Compare>
void safe_sort(std::vector<Item>& items, Compare compare) {
    const std::size_t count = items.size();
    for (std::size_t run = 0; run < count; run += sorting::run_length) {
        sorting::insertion_sort(items.data() + run, std::min(sorting::run_length, count - run), compare);
    }
    if (count <= sorting::run_length) {
        return;
    }
    std::vector<Item> merged(count);
    for (std::size_t length = sorting::run_length; length < count; length *= 2) {
        for (std::size_t left = 0; left < count; left += 2 * length) {
            const std::size_t middle = std::min(left + length, count);
            const std::size_t right = std::min(middle + length, count);
            Item* from = items.data();
            sorting::merge_runs(from + left, from + middle, from + right, merged.data() + left, compare);
        }
        items.swap(merged);
    }
}

}  // namespace corvanes
