// Typed answers: numbers, points and pointer events. The decimal point is always ".", whatever the locale.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace host {

/// A point, in drawing units.
struct Point {
    double x = 0;
    double y = 0;
    double z = 0;
    bool operator==(const Point&) const = default;
};

// These give nothing for a text that is not all of what they read, blanks around it aside.
std::optional<int> parse_integer(std::wstring_view text);
/// Finite numbers only.
std::optional<double> parse_real(std::wstring_view text);
/// "x,y" or "x,y,z"; a missing z is 0.
std::optional<Point> parse_point(std::wstring_view text);

/// A point in percent of an area that the caller knows: "105%,100%" gives 1.05 and 1, a point to the right of the area
/// at its top.
std::optional<Point> parse_percent_point(std::wstring_view text);

/// The shortest text that parse_real reads back to the same number.
std::wstring format_real(double number);
std::wstring format_point(const Point& point);

/// One thing that the user does while a command follows the pointer.
struct InputEvent {
    enum Kind { move, pick, key };
    Kind kind = move;
    Point point;          ///< of move and pick
    wchar_t character{};  ///< of key; Return is 13
};

/// "move x,y[,z]", "pick x,y[,z]", "return" (or an empty text) or "key c".
std::optional<InputEvent> parse_input_event(std::wstring_view text);

}  // namespace host
