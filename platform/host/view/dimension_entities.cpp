// DIMENSION where the block with its lines is missing: from its points and its style.
#include <cstdio>

#include "platform/host/view/dim_style.h"

namespace host {

namespace {

enum Kind { turned, aligned, angular, diameter, radius, angular_by_points, ordinate };

constexpr wchar_t degree_sign[] = L"\u00B0";
constexpr wchar_t diameter_sign[] = L"\u2300";

Kind kind_of(const EntityScope& scope) {
    const std::string_view type = scope.record.type();
    return type == "ARC_DIMENSION"            ? angular_by_points
           : type == "LARGE_RADIAL_DIMENSION" ? radius
                                              : static_cast<Kind>(scope.fields.integer(70) & 7);
}

class DimensionPainter {
  public:
    explicit DimensionPainter(const EntityScope& scope) : scope_(scope), style_(scope), own_ink_(scope.out.ink()) {}

    void paint() {
        switch (kind_of(scope_)) {
            case turned:
                paint_linear(direction(scope_.fields.angle(50)));
                break;
            case aligned: {
                const Vec2 run = (point(14) - point(13)).plan();
                paint_linear(run * (1 / run.length()));
                break;
            }
            case angular:
                paint_angle(crossing_of_sides(), point(14).plan(), point(10).plan(), point(16).plan());
                break;
            case angular_by_points:
                paint_angle(point(15).plan(), point(13).plan(), point(14).plan(), point(10).plan());
                break;
            case diameter:
                paint_radial(diameter_sign, true);
                break;
            case radius:
                paint_radial(L"R", false);
                break;
            default:
                paint_ordinate();
                break;
        }
    }

  private:
    Vec3 point(int code) const { return scope_.fields.point(code); }
    void take_ink(int code) { scope_.out.set_ink(style_.ink(code).value_or(own_ink_)); }
    void line(Vec2 from, Vec2 to) { scope_.out.line(scope_.world(at_height(from)), scope_.world(at_height(to))); }
    Vec3 at_height(Vec2 place) const { return {place.x, place.y, point(10).z}; }
    void arrow(int code, Vec2 tip, Vec2 from) {
        draw_arrow_head(scope_, style_.arrow(code), at_height(tip), at_height(from), style_.arrow_size());
    }

    void paint_linear(Vec2 along);
    void paint_extension(Vec2 from, Vec2 to);
    Vec2 crossing_of_sides() const;
    void paint_angle(Vec2 vertex, Vec2 first, Vec2 second, Vec2 on_arc);
    void paint_radial(const wchar_t* sign, bool both_arrows);
    void paint_ordinate();
    void paint_text(const std::wstring& measured, Vec2 middle, Vec2 along);
    std::wstring number(double value, int decimals) const;
    std::wstring length(double value) const {
        return number(scope_.fields.real(42, value) * style_.length_factor(), style_.decimals());
    }

    const EntityScope& scope_;
    const DimStyle style_;
    const Ink own_ink_;
};

std::wstring DimensionPainter::number(double value, int decimals) const {
    constexpr double largest = 1e15;
    if (!(std::fabs(value) < largest)) {
        return L"?";
    }
    char digits[64];
    std::snprintf(digits, sizeof digits, "%.*f", decimals, value);
    std::string text = digits;
    if (style_.drops_trailing_zeros() && text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        text.erase(text.find_last_not_of('.') + 1);
    }
    return {text.begin(), text.end()};
}

/// A text of its own has "<>" where the measured one goes; a blank stands for no text.
void DimensionPainter::paint_text(const std::wstring& measured, Vec2 middle, Vec2 along) {
    std::wstring value = scope_.fields.text(1);
    const size_t place = value.find(L"<>");
    if (value.empty()) {
        value = measured;
    } else if (place != std::wstring::npos) {
        value.replace(place, 2, measured);
    }
    if (value.find_first_not_of(L' ') == std::wstring::npos) {
        return;
    }
    const bool upside_down = along.x < -1e-9 || (std::fabs(along.x) <= 1e-9 && along.y < 0);
    const Vec2 upright = upside_down ? along * -1 : along;
    MadeText text;
    text.value = std::move(value);
    text.style = style_.text_style();
    text.height = style_.text_height();
    text.attachment = 5;
    text.direction = {upright.x, upright.y, 0};
    const Vec2 raised = middle + upright.left() * (style_.gap() + text.height / 2);
    text.position = scope_.fields.has(11) ? point(11) : at_height(raised);
    take_ink(178);
    draw_made_text(scope_, text);
}

void DimensionPainter::paint_extension(Vec2 from, Vec2 to) {
    const Vec2 run = to - from;
    const double long_enough = style_.extension_offset();
    if (run.length() > long_enough) {
        const Vec2 unit = run * (1 / run.length());
        line(from + unit * long_enough, to + unit * style_.extension_beyond());
    }
}

void DimensionPainter::paint_linear(Vec2 along) {
    const Vec2 through = point(10).plan();
    const auto foot = [&](Vec2 from) { return through + along * dot(from - through, along); };
    const Vec2 first = foot(point(13).plan());
    const Vec2 second = foot(point(14).plan());
    take_ink(177);
    paint_extension(point(13).plan(), first);
    paint_extension(point(14).plan(), second);
    take_ink(176);
    line(first, second);
    arrow(343, first, second);
    arrow(344, second, first);
    paint_text(length((second - first).length()), (first + second) * 0.5, along);
}

/// The crossing of the lines through points 13 and 14, and 15 and 10: the vertex of an angle.
Vec2 DimensionPainter::crossing_of_sides() const {
    const Vec2 first = point(13).plan();
    const Vec2 run = point(14).plan() - first;
    const Vec2 other = point(10).plan() - point(15).plan();
    const double turn = cross(run, other);
    return turn == 0 ? first : first + run * (cross(point(15).plan() - first, other) / turn);
}

/// Paints the arc about the vertex through a point, on that point's side.
void DimensionPainter::paint_angle(Vec2 vertex, Vec2 first, Vec2 second, Vec2 on_arc) {
    const auto angle_of = [vertex](Vec2 place) { return std::atan2(place.y - vertex.y, place.x - vertex.x); };
    const double distance = (on_arc - vertex).length();
    double start = angle_of(first);
    double end = angle_of(second);
    if (positive_sweep(start, angle_of(on_arc)) > positive_sweep(start, end)) {
        std::swap(start, end);
    }
    const double sweep = positive_sweep(start, end);
    take_ink(177);
    paint_extension(first, vertex + direction(angle_of(first)) * distance);
    paint_extension(second, vertex + direction(angle_of(second)) * distance);
    take_ink(176);
    const Vec3 centre = at_height(vertex);
    scope_.out.arc({scope_.world(centre), scope_.space.vector({distance, 0, 0}).plan(),
                    scope_.space.vector({0, distance, 0}).plan(), start, sweep});
    const Vec2 begin = vertex + direction(start) * distance;
    const Vec2 finish = vertex + direction(end) * distance;
    arrow(343, begin, begin + direction(start).left());
    arrow(344, finish, finish - direction(end).left());
    const double middle = start + sweep / 2;
    paint_text(number(scope_.fields.real(42, sweep) * 180 / pi, 0) + degree_sign, vertex + direction(middle) * distance,
               direction(middle).left() * -1);
}

void DimensionPainter::paint_radial(const wchar_t* sign, bool both_arrows) {
    const Vec2 from = point(10).plan();
    const Vec2 to = point(15).plan();
    const Vec2 run = to - from;
    take_ink(176);
    line(from, to);
    arrow(344, to, from);
    if (both_arrows) {
        arrow(343, from, to);
    }
    paint_text(sign + length(run.length()), (from + to) * 0.5, run * (1 / run.length()));
}

/// Flag 64 measures along x. The line leaves its point and comes to its end along the other axis.
void DimensionPainter::paint_ordinate() {
    const bool along_x = (scope_.fields.integer(70) & 64) != 0;
    const Vec2 feature = point(13).plan();
    const Vec2 end = point(14).plan();
    const Vec2 offset = feature - point(10).plan();
    const Vec2 axis = along_x ? Vec2{0, 1} : Vec2{1, 0};
    const double reach = dot(end - feature, axis);
    const double straight = std::copysign(std::min(2 * style_.arrow_size(), std::fabs(reach) / 2), reach);
    const Vec2 first_corner = feature + axis * (reach - 2 * straight);
    const Vec2 second_corner = end - axis * straight;
    take_ink(176);
    scope_.out.strip({scope_.world(at_height(feature)), scope_.world(at_height(first_corner)),
                      scope_.world(at_height(second_corner)), scope_.world(at_height(end))});
    paint_text(length(std::fabs(along_x ? offset.x : offset.y)), end, axis);
}

}  // namespace

void draw_dimension(const EntityScope& scope) {
    DimensionPainter(scope).paint();
}

}  // namespace host
