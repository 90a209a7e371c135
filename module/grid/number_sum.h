// The sum of the numbers in selected cells. Pure.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace corvanes {

// The value of a text that is a number and nothing else: digits with at most one point, a sign before them.
std::optional<double> plain_number(std::wstring_view text);

class NumberSum {
  public:
    // Adds the number; a text that is no plain number is ignored.
    void add(std::wstring_view text);
    // "Count: 2   Sum: 12.50" for two or more numbers, with as many decimals as the number that has the most of them;
    // else empty.
    std::wstring words() const;

  private:
    std::size_t count_ = 0;
    std::size_t decimals_ = 0;
    double sum_ = 0;
};

}  // namespace corvanes
