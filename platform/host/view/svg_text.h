// The small parts of an SVG file: escaped texts, numbers, attributes, matrices and path data.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "platform/host/view/curves.h"

namespace host {

/// A text for element content or an attribute in double quotes, in UTF-8. What XML cannot hold (most control
/// characters, half a pair of surrogates) becomes U+FFFD.
std::string svg_escaped(std::wstring_view text);

/// A text as a CSS string with its quotes, in ASCII without any character of markup.
std::string css_string(std::wstring_view text);

/// Appends a coordinate with no more decimals than told, and no zeros at its end.
void append_coordinate(std::string& out, double value, int decimals);

/// "x y".
void append_point(std::string& out, Vec2 point, int decimals);

/// Writes the attribute that places an element, with seven digits of each number: what a viewer's single precision
/// holds. Remembers how scales and turns are written, of which a drawing has few.
class SvgTransforms {
  public:
    void append(std::string& out, const Affine2& map);

  private:
    /// Those of a map.
    struct Turn {
        Vec2 x;
        Vec2 y;
        double least = 0;  ///< what is smaller is written as 0
        std::string text;  ///< up to them
    };
    std::array<Turn, 256> known_;  ///< by a hash
};

/// An attribute with a blank before it; nothing for an empty value. The value is escaped already.
void append_svg_attribute(std::string& out, const char* name, std::string_view value);
std::string svg_attribute(const char* name, std::string_view value);
/// "x y width height".
std::string svg_box(const Box2& box, int decimals);

/// Where a picture's coordinates go in a file whose viewers know single precision only: y downwards, and `centre`,
/// which may be far away, at `middle`.
struct SvgFrame {
    Vec2 centre;
    double scale = 1;
    Vec2 middle;
    int decimals = 0;  ///< that are worth writing

    Vec2 operator()(Vec2 point) const { return middle + vector(point - centre); }
    Vec2 vector(Vec2 v) const { return {v.x * scale, -v.y * scale}; }
    Box2 operator()(const Box2& box) const { return Box2::between((*this)(box.low), (*this)(box.high)); }
    /// From the coordinates that `inner` gives to those that this one gives, where `placement` goes between pictures.
    Affine2 around(const SvgFrame& inner, const Affine2& placement) const {
        return {vector(placement.vector({1 / inner.scale, 0})), vector(placement.vector({0, -1 / inner.scale})),
                (*this)(placement(inner.centre))};
    }
};

/// "x y x y …", in the coordinates that a frame gives.
std::string svg_points(std::span<const Vec2> points, const SvgFrame& frame);

/// Path data in the coordinates that a frame gives.
class SvgPath {
  public:
    explicit SvgPath(const SvgFrame& frame) : frame_(frame) {}

    void move_to(Vec2 point) { add('M', frame_(point)); }
    void line_to(Vec2 point) { add('L', frame_(point)); }
    /// A line without length, which is seen as a dot where the pen's ends are square or round.
    void dot(Vec2 point);
    /// From its begin, in cubic curves of a quarter turn at most.
    void arc(const Arc& arc);
    /// A line that ends nowhere near is cut off where no view reaches.
    void endless_line(Vec2 from, Vec2 to);

    bool empty() const { return data_.empty(); }
    size_t points() const { return points_; }
    const std::string& data() const { return data_; }
    void clear();

  private:
    void add(char command, Vec2 point);

    SvgFrame frame_;
    std::string data_;
    size_t points_ = 0;
};

}  // namespace host
