#include "platform/host/view/pen.h"

#include <cmath>
#include <initializer_list>

namespace host {

namespace {

constexpr uint32_t basic_colours[] = {0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF, 0x0000FF,
                                      0xFF00FF, 0xFFFFFF, 0x808080, 0xC0C0C0};
constexpr uint32_t greys[] = {0x333333, 0x5B5B5B, 0x848484, 0xADADAD, 0xD6D6D6, 0xFFFFFF};

/// Indexes 10 to 249: 24 hues, each in five shades, each shade full and half saturated.
uint32_t hue_colour(int index) {
    constexpr double shades[] = {1.0, 165.0 / 255, 127.0 / 255, 76.0 / 255, 38.0 / 255};
    const int turn = index / 10 - 1;
    const double hue = turn * 15 / 60.0;
    const double value = shades[index % 10 / 2];
    const double saturation = index % 2 == 0 ? 1.0 : 0.5;
    uint32_t colour = 0;
    for (const double offset : {5.0, 3.0, 1.0}) {  // red, green, blue
        const double at = std::fmod(offset + hue, 6.0);
        const double ramp = std::fmax(0.0, std::fmin(1.0, std::fmin(at, 4.0 - at)));
        const double part = value * (1 - saturation * ramp);
        colour = colour << 8 | static_cast<uint32_t>(part * 255 + 1e-6);
    }
    return colour;
}

double length_of(const std::vector<Vec2>& points) {
    double length = 0;
    for (size_t i = 1; i < points.size(); ++i) {
        length += (points[i] - points[i - 1]).length();
    }
    return length;
}

/// Cuts one straight part after the other; distances are counted from the begin of the whole line.
class PatternCutter {
  public:
    PatternCutter(const LinePattern& pattern, double line_length, const Box2& area, std::vector<Vec2>& dashes)
        : pattern_(pattern), total_(pattern.total()), line_length_(line_length), area_(area), dashes_(dashes) {
        const double whole_patterns = std::floor(line_length / total_);
        const double first_dash = std::max(pattern.lengths.front(), 0.0);
        margin_ = (line_length - whole_patterns * total_ + first_dash) / 2;
        shift_ = first_dash - margin_;
        end_dash_ = first_dash > 0 ? margin_ : 0;
    }

    void cut(Vec2 from, Vec2 to) {
        const Vec2 way = to - from;
        const double length = way.length();
        if (length > 0 && clip(from, way)) {
            from_ = from;
            direction_ = way * (1 / length);
            begin_ = done_;
            low_ = done_ + seen_from_ * length;
            high_ = done_ + seen_to_ * length;
            add(0, end_dash_);
            add_patterns(std::max(low_, margin_), std::min(high_, line_length_ - margin_));
            add(line_length_ - end_dash_, line_length_);
        }
        done_ += length;
    }

  private:
    /// Where the part enters the area and leaves it again, as parts of its length; false when it does not come in.
    bool clip(Vec2 from, Vec2 way) {
        seen_from_ = 0;
        seen_to_ = 1;
        return clip_axis(from.x, way.x, area_.low.x, area_.high.x) &&
               clip_axis(from.y, way.y, area_.low.y, area_.high.y) && seen_from_ <= seen_to_;
    }

    bool clip_axis(double from, double way, double low, double high) {
        if (way == 0) {
            return low <= from && from <= high;
        }
        const double enters = (way > 0 ? low - from : high - from) / way;
        const double leaves = (way > 0 ? high - from : low - from) / way;
        seen_from_ = std::max(seen_from_, enters);
        seen_to_ = std::min(seen_to_, leaves);
        return true;
    }

    void add_patterns(double low, double high) {
        if (low >= high) {
            return;
        }
        double at = std::floor((low + shift_) / total_) * total_ - shift_;
        while (at <= high) {
            for (const double length : pattern_.lengths) {
                if (length > 0 && at < high && at + length > low) {
                    add(std::max(at, low), std::min(at + length, high));
                } else if (length == 0 && at >= low && at <= high) {
                    add(at, at);
                }
                at += std::fabs(length);
            }
        }
    }

    void add(double from, double to) {
        from = std::max(from, low_);
        to = std::min(to, high_);
        if (from <= to) {
            dashes_.push_back(from_ + direction_ * (from - begin_));
            dashes_.push_back(from_ + direction_ * (to - begin_));
        }
    }

    const LinePattern& pattern_;
    const double total_;
    const double line_length_;
    const Box2 area_;
    std::vector<Vec2>& dashes_;
    double margin_ = 0;    ///< what the whole patterns leave of the line at either end
    double end_dash_ = 0;  ///< how much of that is drawn
    double shift_ = 0;     ///< where in the pattern the line begins
    double done_ = 0;      ///< the length of the parts that are done
    // The part that is being cut.
    Vec2 from_;
    Vec2 direction_;
    double begin_ = 0;
    double seen_from_ = 0;
    double seen_to_ = 1;
    double low_ = 0;
    double high_ = 0;
};

}  // namespace

Ink indexed_ink(int index) {
    if (index < 1 || index > 255 || index == 7) {
        return Ink::foreground();
    }
    if (index < 10) {
        return Ink::rgb(basic_colours[index - 1]);
    }
    return Ink::rgb(index < 250 ? hue_colour(index) : greys[index - 250]);
}

double LinePattern::total() const {
    double total = 0;
    for (const double length : lengths) {
        total += std::fabs(length);
    }
    return total;
}

LinePattern LinePattern::scaled(double factor) const {
    LinePattern result = *this;
    for (double& length : result.lengths) {
        length *= factor;
    }
    return result;
}

LinePattern LinePattern::in_pixels(double pixels_per_unit) const {
    LinePattern result = scaled(pixels_per_unit);
    for (size_t i = 0; i < result.lengths.size(); ++i) {
        double& length = result.lengths[i];
        const double shorter = std::min(1.0, length);
        if (length > 0) {
            double& next = result.lengths[(i + 1) % result.lengths.size()];
            length -= shorter;
            next -= next < 0 ? shorter : 0;
        }
    }
    return result;
}

void cut_by_pattern(const std::vector<Vec2>& points, const LinePattern& pattern, const Box2& area,
                    std::vector<Vec2>& dashes) {
    const double length = length_of(points);
    const bool whole = length < pattern.total();
    PatternCutter cutter(pattern, length, area, dashes);
    for (size_t i = 1; i < points.size(); ++i) {
        if (whole) {
            dashes.insert(dashes.end(), {points[i - 1], points[i]});
        } else {
            cutter.cut(points[i - 1], points[i]);
        }
    }
}

}  // namespace host
