// The numbers that a cell can be set to: limits, step, and what comes after a limit. Pure.
#pragma once

#include <string>
#include <string_view>

namespace corvanes {

struct ValueRange {
    double least = 0;
    double most = 100;
    double step = 1;
    bool wraps = false;
    int decimals = 0;  // as many as the label writes
};

// From the settings "min", "max" and "step" (above 0), and "wrap". Limits that are the wrong way round change places.
ValueRange range_from_label(std::wstring_view label);

// Where a value stands between the limits, from 0 to 1; a value beyond a limit stands at it.
double fraction_of(const ValueRange& range, double value);

// The value nearest to a fraction between the limits, among those that are whole steps from the least value, and the
// greatest value.
double value_at(const ValueRange& range, double fraction);

// The value so many steps from another, downwards when `steps` is below 0. The steps stop at a limit; from the limit
// itself a range that wraps goes on at the other one.
double stepped(const ValueRange& range, double value, int steps);

// The number that a cell with this text gets, where `former` says how many decimals it has had.
std::wstring value_text(const ValueRange& range, double value, std::wstring_view former);

// The number so many steps on from that of a cell with this label and text.
std::wstring stepped_text(std::wstring_view label, std::wstring_view text, int steps);

// How many steps a page is: a tenth of the range.
int steps_a_page(const ValueRange& range);

// The digits behind the point of the number in a text, at most 15.
int decimals_in(std::wstring_view text);

// The number as a text with so many decimals, and without an exponent unless it is beyond a quadrillion.
std::wstring number_text(double number, int decimals);

}  // namespace corvanes
