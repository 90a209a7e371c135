#include "platform/host/view/svg_text.h"

#include <charconv>

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
    char digits[64];
    const auto end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, decimals);
    if (!std::isfinite(value) || end.ec != std::errc()) {
        out += '0';  // no viewer could show it either
        return;
    }
    std::string_view number(digits, static_cast<size_t>(end.ptr - digits));
    if (number.find('.') != std::string_view::npos) {
        number = number.substr(0, number.find_last_not_of('0') + 1);
        number.remove_suffix(number.back() == '.' ? 1 : 0);
    }
    out += number == "-0" ? "0" : number;
}

void append_point(std::string& out, Vec2 point, int decimals) {
    append_coordinate(out, point.x, decimals);
    out += ' ';
    append_coordinate(out, point.y, decimals);
}

std::string svg_matrix(const Affine2& map) {
    constexpr int digits = 7;
    constexpr double nothing = 1e-9;  // beside 1: what a right angle leaves of a cosine
    const double least = nothing * map.scale();
    std::string matrix = "matrix(";
    for (const double value : {map.x.x, map.x.y, map.y.x, map.y.y, map.origin.x, map.origin.y}) {
        char text[32];
        const auto end =
            std::to_chars(text, text + sizeof text, std::fabs(value) >= least && std::isfinite(value) ? value : 0.0,
                          std::chars_format::general, digits)
                .ptr;
        matrix.append(text, end);
        matrix += ' ';
    }
    matrix.back() = ')';
    return matrix;
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
