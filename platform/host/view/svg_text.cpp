#include "platform/host/view/svg_text.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstdint>

#include "base/code_page.h"

namespace host {

namespace {

constexpr wchar_t no_character = 0xFFFD;

bool xml_holds(wchar_t character) {
    return character >= 0x20 && character != 0xFFFE && character != 0xFFFF;
}

/// Where a line from `from` by `way` enters the square around 0 and leaves it, as parts of the way.
bool clip_to_square(Vec2 from, Vec2 way, double half, double& enters, double& leaves) {
    const auto clip_axis = [&](double at, double by) {
        if (by == 0) {
            return std::fabs(at) <= half;
        }
        const double one = (-half - at) / by;
        const double other = (half - at) / by;
        enters = std::max(enters, std::min(one, other));
        leaves = std::min(leaves, std::max(one, other));
        return true;
    };
    return clip_axis(from.x, way.x) && clip_axis(from.y, way.y) && enters < leaves;
}

constexpr int most_decimals = 16;

/// 10 to the power of 0 to most_decimals.
constexpr auto powers_of_ten = [] {
    std::array<double, most_decimals + 1> powers{1};
    for (size_t exponent = 1; exponent < powers.size(); ++exponent) {
        powers[exponent] = 10 * powers[exponent - 1];
    }
    return powers;
}();

/// A whole number divided by ten to the power of `decimals`, without zeros at the end. Many times as quick as
/// std::to_chars with a precision.
void append_quotient(std::string& out, uint64_t number, int decimals) {
    constexpr size_t longest = 20;
    char text[most_decimals + 1 + longest];
    char* first = text + most_decimals;  // zeros may come before
    char* end = std::to_chars(first, std::end(text) - 1, number).ptr;
    while (end - first <= decimals) {
        *--first = '0';
    }
    char* const point = end - decimals;
    while (end > point && end[-1] == '0') {
        --end;
    }
    if (end > point) {
        std::copy_backward(point, end, end + 1);
        *point = '.';
        ++end;
    }
    out.append(first, end);
}

bool same(Vec2 a, Vec2 b) {
    return a.x == b.x && a.y == b.y;
}

size_t hash_of(const Affine2& map) {
    constexpr uint64_t odd = 0x9E3779B97F4A7C15;
    uint64_t hash = 0;
    for (const double value : {map.x.x, map.x.y, map.y.x, map.y.y}) {
        hash = (hash ^ std::bit_cast<uint64_t>(value)) * odd;
        hash ^= hash >> 32;  // the product carries upwards only, and signs are the uppermost bits
    }
    return hash;
}

/// The nearest whole number to one that is not negative. The library's functions for it take far longer on Windows.
uint64_t nearest(double value) {
    const auto whole = static_cast<uint64_t>(value);
    return whole + (value - static_cast<double>(whole) < 0.5 ? 0 : 1);
}

/// Seven digits of a finite number.
void append_significant(std::string& out, double value) {
    constexpr int digits = 7;
    constexpr int most_zeros = 4;  // behind the point; more take an exponent
    const double size = std::fabs(value);
    int decimals = 0;
    while (decimals < most_decimals && size * powers_of_ten[decimals] < powers_of_ten[digits - 1]) {
        ++decimals;
    }
    const double shifted = size * powers_of_ten[decimals];
    if (value != 0 && (shifted >= powers_of_ten[digits] || shifted < powers_of_ten[digits - 1])) {
        char text[32];
        out.append(text, std::to_chars(text, std::end(text), value, std::chars_format::general, digits).ptr);
        return;
    }
    out += value < 0 ? "-" : "";
    const int exponent = digits - 1 - decimals;
    const bool plain = value == 0 || -exponent <= most_zeros;
    append_quotient(out, nearest(shifted), plain ? decimals : digits - 1);
    if (!plain) {
        out += (-exponent < 10 ? "e-0" : "e-") + std::to_string(-exponent);
    }
}

}  // namespace

std::string svg_escaped(std::wstring_view text) {
    std::wstring escaped;
    escaped.reserve(text.size());
    for (const wchar_t character : text) {
        if (std::wstring_view(L"<>&\"\t\n").find(character) != std::wstring_view::npos) {
            escaped += L"&#" + std::to_wstring(static_cast<unsigned>(character)) + L';';
        } else {
            escaped += xml_holds(character) ? character : no_character;
        }
    }
    return base::utf8_from_wide(escaped);
}

std::string css_string(std::wstring_view text) {
    std::string quoted = "\"";
    for (const wchar_t character : text) {
        const bool plain = (character >= L'0' && character <= L'9') || (character >= L'A' && character <= L'Z') ||
                           (character >= L'a' && character <= L'z') || character == L' ' || character == L'-';
        if (plain) {
            quoted += static_cast<char>(character);
        } else {
            char code[16];
            const auto end = std::to_chars(code, code + sizeof code, static_cast<unsigned>(character), 16).ptr;
            quoted += "\\" + std::string(code, end) + " ";
        }
    }
    return quoted + "\"";
}

void append_coordinate(std::string& out, double value, int decimals) {
    constexpr double largest = 1e15;  // up to here a double holds each whole number
    if (const double shifted = std::fabs(value) * powers_of_ten[decimals]; shifted < largest) {
        const uint64_t number = nearest(shifted);
        out += value < 0 && number > 0 ? "-" : "";
        append_quotient(out, number, decimals);
        return;
    }
    char digits[64];
    const auto [end, error] = std::to_chars(digits, std::end(digits), value, std::chars_format::fixed, 0);
    const bool has_place = std::isfinite(value) && error == std::errc();
    out += has_place ? std::string_view(digits, static_cast<size_t>(end - digits)) : "0";  // no viewer could show it
}

void append_point(std::string& out, Vec2 point, int decimals) {
    append_coordinate(out, point.x, decimals);
    out += ' ';
    append_coordinate(out, point.y, decimals);
}

void SvgTransforms::append(std::string& out, const Affine2& map) {
    constexpr double nothing = 1e-9;  // beside 1: what a right angle leaves of a cosine
    Turn& turn = known_[hash_of(map) % known_.size()];
    const auto append = [&turn](std::string& text, double value) {
        append_significant(text, std::fabs(value) >= turn.least && std::isfinite(value) ? value : 0.0);
    };
    if (!same(turn.x, map.x) || !same(turn.y, map.y) || turn.text.empty()) {
        turn = {map.x, map.y, nothing * map.scale(), " transform=\"matrix("};
        for (const double value : {map.x.x, map.x.y, map.y.x, map.y.y}) {
            append(turn.text, value);
            turn.text += ' ';
        }
    }
    out += turn.text;
    append(out, map.origin.x);
    out += ' ';
    append(out, map.origin.y);
    out += ")\"";
}

void append_svg_attribute(std::string& out, const char* name, std::string_view value) {
    if (!value.empty()) {
        out.append(" ").append(name).append("=\"").append(value).append("\"");
    }
}

std::string svg_attribute(const char* name, std::string_view value) {
    std::string text;
    append_svg_attribute(text, name, value);
    return text;
}

std::string svg_box(const Box2& box, int decimals) {
    std::string text;
    append_point(text, box.low, decimals);
    text += ' ';
    append_point(text, {box.width(), box.height()}, decimals);
    return text;
}

std::string svg_points(std::span<const Vec2> points, const SvgFrame& frame) {
    std::string text;
    for (const Vec2 point : points) {
        text += text.empty() ? "" : " ";
        append_point(text, frame(point), frame.decimals);
    }
    return text;
}

void SvgPath::add(char command, Vec2 point) {
    data_ += command;
    append_point(data_, point, frame_.decimals);
    ++points_;
}

void SvgPath::dot(Vec2 point) {
    move_to(point);
    data_ += "h0";
}

void SvgPath::arc(const Arc& arc) {
    constexpr double most_parts = 16;
    const double parts = std::clamp(std::ceil(std::fabs(arc.sweep) / (pi / 2) - 1e-9), 1.0, most_parts);
    const double step = arc.sweep / parts;
    const double handle = 4.0 / 3 * std::tan(step / 4);
    const auto tangent = [&arc](double t) { return arc.u * -std::sin(t) + arc.v * std::cos(t); };
    move_to(arc.begin());
    for (double part = 0; part < parts; ++part) {
        const double from = arc.start + part * step;
        const double to = from + step;
        add('C', frame_(arc.at(from) + tangent(from) * handle));
        add(' ', frame_(arc.at(to) - tangent(to) * handle));
        add(' ', frame_(arc.at(to)));
    }
}

void SvgPath::endless_line(Vec2 from, Vec2 to) {
    constexpr double widest = 100'000;
    const Vec2 begin = frame_(from);
    const Vec2 way = frame_(to) - begin;
    double enters = 0;
    double leaves = 1;
    if (clip_to_square(begin, way, widest, enters, leaves)) {
        add('M', begin + way * enters);
        add('L', begin + way * leaves);
    }
}

void SvgPath::clear() {
    data_.clear();
    points_ = 0;
}

}  // namespace host
