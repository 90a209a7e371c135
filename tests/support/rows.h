// Splits short texts into tables for tests.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace test_support {

/// The parts of a text between separators; there is always one more than there are separators.
template <class Char>
std::vector<std::basic_string<Char>> split(std::basic_string_view<Char> text, Char separator) {
    std::vector<std::basic_string<Char>> parts(1);
    for (const Char character : text) {
        if (character == separator) {
            parts.emplace_back();
        } else {
            parts.back() += character;
        }
    }
    return parts;
}

/// "a=1|b=2": rows between bars, cells between equals signs.
template <class Char>
std::vector<std::vector<std::basic_string<Char>>> rows_of(const Char* text) {
    std::vector<std::vector<std::basic_string<Char>>> rows;
    for (const auto& row : split<Char>(text, Char{'|'})) {
        rows.push_back(split<Char>(row, Char{'='}));
    }
    return rows;
}

}  // namespace test_support
