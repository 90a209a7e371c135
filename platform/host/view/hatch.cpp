#include "platform/host/view/hatch.h"

#include "platform/host/view/curves.h"

namespace host {

namespace {

constexpr double chord_error = 1.0 / 1000;  // of an arc's radius
constexpr int64_t polyline_path = 2;
constexpr size_t most_points = 2'000'000;  // of all curves of a hatch
constexpr size_t groups_of_a_curve = 3;    // at least

/// Reads the groups of a HATCH in their order. Missing groups leave what was asked for at 0.
class BoundaryReader {
  public:
    BoundaryReader(const std::vector<dxf::Group>& groups, size_t most_chords)
        : at_(groups.begin()),
          end_(groups.end()),
          most_chords_(std::min(most_chords, most_points / (groups.size() / groups_of_a_curve + 1))) {}

    std::vector<std::vector<Vec2>> read() {
        while (at_ != end_ && at_->code != 91) {
            ++at_;
        }
        std::vector<std::vector<Vec2>> contours;
        for (int64_t paths = take_integer(91); paths > 0 && skip_to(92); --paths) {
            const int64_t flags = take_integer(92);
            points_.clear();
            if ((flags & polyline_path) != 0) {
                read_polyline();
            } else {
                read_edges();
            }
            if (points_.size() > 2) {
                contours.push_back(std::move(points_));
            }
        }
        return contours;
    }

  private:
    bool next_is(int code) const { return at_ != end_ && at_->code == code; }

    /// Stops before the pattern and seed points, which follow the boundary.
    bool skip_to(int code) {
        while (at_ != end_ && at_->code != code && at_->code != 75) {
            ++at_;
        }
        return next_is(code);
    }
    double take(int code) { return next_is(code) ? (at_++)->real() : 0; }
    int64_t take_integer(int code) { return next_is(code) ? (at_++)->integer() : 0; }
    Vec2 take_point(int code) {
        const double x = take(code);
        return {x, take(code + 10)};
    }

    void add_arc(const Arc& arc) {
        const double radius = std::max(arc.u.length(), arc.v.length());
        if (std::isfinite(radius) && radius > 0) {
            arc.flatten(radius * chord_error, points_, most_chords_);
        }
    }

    void read_polyline() {
        take_integer(72);
        take_integer(73);
        struct Corner {
            Vec2 point;
            double bulge;
        };
        std::vector<Corner> corners;
        for (int64_t count = take_integer(93); count > 0 && next_is(10); --count) {
            const Vec2 point = take_point(10);
            corners.push_back({point, take(42)});
        }
        for (size_t i = 0; i < corners.size(); ++i) {
            const Corner& next = corners[(i + 1) % corners.size()];
            if (corners[i].bulge != 0 && !(corners[i].point == next.point)) {
                add_arc(bulge_arc(corners[i].point, next.point, corners[i].bulge));
            } else {
                points_.push_back(corners[i].point);
            }
        }
    }

    void read_edges() {
        for (int64_t count = take_integer(93); count > 0 && next_is(72); --count) {
            switch (take_integer(72)) {
                case 1:
                    points_.push_back(take_point(10));
                    points_.push_back(take_point(11));
                    break;
                case 2:
                    read_arc();
                    break;
                case 3:
                    read_ellipse();
                    break;
                case 4:
                    read_spline();
                    break;
                default:
                    return;
            }
        }
    }

    /// Angles of a clockwise edge are counted the other way round.
    void add_turn(Arc arc, double start, double end) {
        const bool counter_clockwise = take_integer(73) != 0;
        const double sweep = positive_sweep(start, end);
        arc.start = counter_clockwise ? start : -start;
        arc.sweep = counter_clockwise ? sweep : -sweep;
        add_arc(arc);
    }

    void read_arc() {
        Arc arc;
        arc.centre = take_point(10);
        const double radius = take(40);
        arc.u = {radius, 0};
        arc.v = {0, radius};
        const double start = take(50) * pi / 180;
        add_turn(arc, start, take(51) * pi / 180);
    }

    void read_ellipse() {
        Arc arc;
        arc.centre = take_point(10);
        arc.u = take_point(11);
        arc.v = arc.u.left() * take(40);
        const double start = take(50) * pi / 180;
        add_turn(arc, start, take(51) * pi / 180);
    }

    void read_spline() {
        Spline spline;
        spline.degree = static_cast<int>(take_integer(94));
        take_integer(73);
        take_integer(74);
        take_integer(95);
        take_integer(96);
        while (next_is(40)) {
            spline.knots.push_back(take(40));
        }
        while (next_is(10)) {
            const Vec2 point = take_point(10);
            spline.controls.push_back({point.x, point.y, 0});
            if (next_is(42)) {
                spline.weights.push_back(take(42));
            }
        }
        std::vector<Vec3> fit;
        take_integer(97);
        while (next_is(11)) {
            const Vec2 point = take_point(11);
            fit.push_back({point.x, point.y, 0});
        }
        take_point(12);  // the directions at both ends
        take_point(13);
        for (const Vec3& point :
             spline.valid() ? spline.flatten(most_chords_) : curve_through(fit, false, most_chords_)) {
            points_.push_back(point.plan());
        }
    }

    std::vector<dxf::Group>::const_iterator at_;
    std::vector<dxf::Group>::const_iterator end_;
    const size_t most_chords_;
    std::vector<Vec2> points_;
};

/// Cuts one family's lines. Its own axes are u along the lines and v across them, from the family's base point.
class FamilyCutter {
  public:
    FamilyCutter(const HatchFamily& family, size_t most, PictureBudget& budget, std::vector<HatchLine>& lines)
        : family_(family),
          along_(direction(family.angle)),
          spacing_(cross(along_, family.offset)),
          shift_(dot(along_, family.offset)),
          most_lines_(most),
          budget_(budget),
          lines_(lines) {
        for (const double dash : family.dashes) {
            period_ += std::fabs(dash);
            gaps_alone_ = gaps_alone_ && dash < 0;
        }
    }

    /// False when the lines are too many, or there is no time for them.
    bool cut(const std::vector<std::vector<Vec2>>& contours) {
        if (gaps_alone_ && period_ > 0) {
            return true;
        }
        size_t points = 0;
        for (const std::vector<Vec2>& contour : contours) {
            points += contour.size();
            std::vector<Vec2> turned;
            for (const Vec2 point : contour) {
                const Vec2 from_base = point - family_.base;
                turned.push_back({dot(along_, from_base), cross(along_, from_base)});
                reach_.add(turned.back());
            }
            turned_.push_back(std::move(turned));
        }
        const double first = std::ceil(std::min(reach_.low.y / spacing_, reach_.high.y / spacing_));
        const double last = std::floor(std::max(reach_.low.y / spacing_, reach_.high.y / spacing_));
        if (!(last - first < static_cast<double>(most_lines_))) {
            return false;
        }
        for (double number = first; number <= last && lines_.size() < most_lines_ && !budget_.cut(); ++number) {
            if (budget_.work(points)) {
                cut_line(number);
            }
        }
        return lines_.size() < most_lines_ && !budget_.cut();
    }

  private:
    void cut_line(double number) {
        const double v = number * spacing_;
        crossings_.clear();
        for (const std::vector<Vec2>& contour : turned_) {
            for (size_t i = 0; i < contour.size(); ++i) {
                const Vec2 from = contour[i];
                const Vec2 to = contour[(i + 1) % contour.size()];
                if ((from.y <= v) != (to.y <= v)) {
                    crossings_.push_back(from.x + (to.x - from.x) * (v - from.y) / (to.y - from.y));
                }
            }
        }
        std::sort(crossings_.begin(), crossings_.end());
        for (size_t i = 0; i + 1 < crossings_.size(); i += 2) {
            add_dashes(crossings_[i], crossings_[i + 1], v, number * shift_);
        }
    }

    void add_dashes(double from, double to, double v, double phase) {
        if (!(period_ > 0)) {
            add(from, to, v);
            return;
        }
        double at = phase + std::floor((from - phase) / period_) * period_;
        while (at < to && lines_.size() < most_lines_ && budget_.work(family_.dashes.size())) {
            const double before = at;
            for (const double dash : family_.dashes) {
                const double end = at + std::fabs(dash);
                if (dash >= 0 && end >= from && at <= to) {
                    add(std::max(at, from), std::min(end, to), v);
                }
                at = end;
            }
            if (!(at > before)) {
                return;  // the period is too small for the numbers' precision
            }
        }
    }

    void add(double from, double to, double v) {
        const Vec2 across = along_.left() * v;
        lines_.push_back({family_.base + along_ * from + across, family_.base + along_ * to + across});
    }

    const HatchFamily& family_;
    Vec2 along_;
    double spacing_;
    double shift_;
    double period_ = 0;
    bool gaps_alone_ = true;
    Box2 reach_;
    std::vector<std::vector<Vec2>> turned_;
    const size_t most_lines_;
    PictureBudget& budget_;
    std::vector<double> crossings_;
    std::vector<HatchLine>& lines_;
};

}  // namespace

std::vector<std::vector<Vec2>> read_hatch_boundary(const dxf::RecordFields& hatch, size_t most_chords) {
    return BoundaryReader(hatch.groups(), most_chords).read();
}

std::vector<HatchFamily> read_hatch_pattern(const dxf::RecordFields& hatch) {
    std::vector<HatchFamily> families;
    bool in_pattern = false;
    for (const dxf::Group& group : hatch.groups()) {
        if (group.code == 78) {
            in_pattern = true;
        } else if (in_pattern && group.code == 53) {
            families.emplace_back();
            families.back().angle = group.real() * pi / 180;
        } else if (families.empty()) {
            continue;
        } else if (group.code == 43) {
            families.back().base.x = group.real();
        } else if (group.code == 44) {
            families.back().base.y = group.real();
        } else if (group.code == 45) {
            families.back().offset.x = group.real();
        } else if (group.code == 46) {
            families.back().offset.y = group.real();
        } else if (group.code == 49) {
            families.back().dashes.push_back(group.real());
        }
    }
    return families;
}

std::optional<std::vector<HatchLine>> hatch_lines(const std::vector<HatchFamily>& pattern,
                                                  const std::vector<std::vector<Vec2>>& contours, size_t most,
                                                  PictureBudget& budget) {
    std::vector<HatchLine> lines;
    for (const HatchFamily& family : pattern) {
        if (!FamilyCutter(family, most, budget, lines).cut(contours)) {
            return std::nullopt;
        }
    }
    return lines;
}

}  // namespace host
