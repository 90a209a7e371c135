// Bounded reading of the binary pictures that applications leave with their own kinds of entities.
#pragma once

#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "platform/host/dxf/record_fields.h"
#include "platform/host/view/geometry.h"

namespace host {

/// What a part of such a picture is: it sets something for the parts behind it, or it is a shape.
enum class ProxyPart : uint32_t {
    circle = 2,
    circle_by_points = 3,
    arc = 4,
    arc_by_points = 5,
    polyline = 6,
    polygon = 7,
    mesh = 8,
    shell = 9,
    text = 10,
    styled_text = 11,
    construction_line = 12,
    ray = 13,
    colour = 14,
    layer = 16,
    line_type = 18,
    fill = 20,
    true_colour = 22,
    line_weight = 23,
    line_type_scale = 24,
    push_matrix = 29,
    push_other_matrix = 30,
    pop_matrix = 31,
    polyline_with_normal = 32,
    light_polyline = 33,
    wide_text = 36,
    styled_wide_text = 38,
};

/// Little-endian values one after another. Behind the end all are 0, and ended() tells.
class ProxyStream {
  public:
    explicit ProxyStream(std::string_view bytes) : bytes_(bytes) {}

    bool ended() const { return ended_; }
    size_t left() const { return bytes_.size(); }
    uint32_t word() { return number<uint32_t>(); }
    double real() { return number<double>(); }
    Vec3 point() {
        const double x = real();
        const double y = real();
        return {x, y, real()};
    }
    /// The next `size` bytes, or none when there are not so many.
    std::string_view take(size_t size);
    /// Up to its final zero, which is padded to a multiple of four bytes.
    std::string_view text();
    /// The same in UTF-16.
    std::wstring wide_text();

  private:
    template <typename Number>
    Number number() {
        Number value{};
        const std::string_view bytes = take(sizeof value);
        if (!bytes.empty()) {
            std::memcpy(&value, bytes.data(), sizeof value);
        }
        return value;
    }

    std::string_view bytes_;
    bool ended_ = false;
};

/// Values that do not begin at bytes, the highest bit of each byte first. Behind the end all are 0, and ended() tells.
class ProxyBits {
  public:
    explicit ProxyBits(std::string_view bytes) : bytes_(bytes) {}

    bool ended() const { return ended_; }
    uint32_t short_number();
    uint32_t long_number();
    double real();
    /// A real of which only those bytes are stored that differ from `usual`.
    double real_like(double usual);
    double raw_real();

  private:
    uint32_t bits(size_t count);
    uint32_t bytes(size_t count);

    std::string_view bytes_;
    size_t at_ = 0;  ///< in bits
    bool ended_ = false;
};

/// The bytes of an entity's picture: the groups 310 behind the length in group 92 or 160. Nothing without one.
std::optional<std::string> proxy_graphics_of(const dxf::RecordFields& fields);

}  // namespace host
