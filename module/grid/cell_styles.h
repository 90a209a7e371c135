// What many cells of a store have in common besides their texts, kept once and named by a number.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace corvanes {

struct CellStyle {
    std::uint32_t properties = 0;
    std::uint32_t options = 0;
    std::int16_t data_type = 0;
    std::uint16_t type_index = 0;
    std::wstring label;

    bool operator==(const CellStyle&) const = default;
};

// Counts the cells that use each style and forgets a style with its last cell.
class CellStyles {
  public:
    using Index = std::uint32_t;
    // The style of a cell with nothing set, and that of a cell with only a text. Neither is counted.
    static constexpr Index empty = 0;
    static constexpr Index plain_text = 1;

    CellStyles();

    // The index of `style`, which counts one more user.
    Index acquire(const CellStyle& style);
    void release(Index index) noexcept;
    // The reference is valid until the next acquire.
    const CellStyle& operator[](Index index) const { return entries_[index].style; }
    void clear();

  private:
    struct Entry {
        CellStyle style;
        std::uint32_t users = 0;
    };
    struct Hash {
        std::size_t operator()(const CellStyle& style) const;
    };

    std::vector<Entry> entries_;
    std::vector<Index> vacant_;
    std::unordered_map<CellStyle, Index, Hash> index_of_;
};

}  // namespace corvanes
