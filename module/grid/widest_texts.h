// WidestTexts, which picks of very many texts the few that may be the widest. Pure.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

namespace corvanes {

// Adds up the widths of the characters, each of which it asks for once, because measuring a million whole texts would
// take seconds.
class WidestTexts {
  public:
    static constexpr std::size_t kept = 8;

    explicit WidestTexts(std::function<int(wchar_t)> width_of);
    // A text is as wide as its widest line.
    void add(int row, std::wstring_view text);
    // The rows of the widest texts, the widest first; of texts of one width the first rows.
    std::vector<int> rows() const;

  private:
    struct Measured {
        int width;
        int row;
    };
    int width_of(std::wstring_view text);
    int width_of(wchar_t character);

    std::function<int(wchar_t)> ask_;
    std::vector<int> known_;  // widths by character; -1 for one that was not asked for
    std::vector<Measured> widest_;
};

}  // namespace corvanes
