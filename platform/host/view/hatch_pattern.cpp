#include "platform/host/view/hatch_pattern.h"

namespace host {

namespace {

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
