// SOLID, TRACE, 3DFACE and HATCH.
#include "base/case_folding.h"
#include "platform/host/view/entity_scope.h"
#include "platform/host/view/hatch.h"

namespace host {

namespace {

// Of a hatch with more lines the outline is shown. Where memory is tight, few have to do.
constexpr size_t most_lines = 20000;
constexpr size_t few_lines = 100;
constexpr size_t points_to_try = 8;

std::vector<Vec3> corners(const EntityScope& scope) {
    const Vec3 third = scope.fields.point(12);
    return {scope.fields.point(10), scope.fields.point(11), third, scope.fields.point(13, third)};
}

/// All contours as one polygon: the bridges between them are run twice and cancel under the even-odd rule.
std::vector<Vec2> joined(const std::vector<std::vector<Vec2>>& contours) {
    std::vector<Vec2> polygon;
    for (const std::vector<Vec2>& contour : contours) {
        polygon.insert(polygon.end(), contour.begin(), contour.end());
        polygon.push_back(contour.front());
        if (contours.size() > 1) {
            polygon.push_back(contours.front().front());
        }
    }
    return polygon;
}

/// Whether most of a contour is inside of another; they may have points in common. Some points stand for all.
bool mostly_inside(const std::vector<Vec2>& contour, const std::vector<Vec2>& other) {
    const size_t step = contour.size() / points_to_try + 1;
    size_t tried = 0;
    size_t inside = 0;
    for (size_t i = 0; i < contour.size(); i += step, ++tried) {
        inside += encloses(other, (contour[i] + contour[(i + 1) % contour.size()]) * 0.5) ? 1 : 0;
    }
    return 2 * inside > tried;
}

/// Drops the contours that the hatch's style does not count: islands within islands where the outermost areas alone are
/// filled (1), all islands where they are passed over (2).
void drop_islands(std::vector<std::vector<Vec2>>& contours, int64_t style, PictureBudget& budget) {
    if (style != 1 && style != 2) {
        return;
    }
    std::vector<std::vector<Vec2>> kept;
    for (const std::vector<Vec2>& contour : contours) {
        int64_t around = 0;
        for (const std::vector<Vec2>& other : contours) {
            if (!budget.work(points_to_try * other.size())) {
                return;
            }
            around += &other != &contour && mostly_inside(contour, other) ? 1 : 0;
        }
        if (around + style <= 2) {
            kept.push_back(contour);
        }
    }
    contours = std::move(kept);
}

/// The mean of a gradient's colours; nothing without any.
std::optional<Ink> mean_ink(const dxf::RecordFields& hatch) {
    uint64_t sums[3] = {};
    uint64_t count = 0;
    bool begun = false;
    for (const dxf::Group& group : hatch.groups()) {
        begun = begun || group.code == 463;
        if (begun && group.code == 421) {
            const auto colour = static_cast<uint32_t>(group.integer());
            for (size_t i = 0; i < 3; ++i) {
                sums[i] += colour >> 8 * i & 0xFF;
            }
            ++count;
        }
    }
    if (count == 0) {
        return std::nullopt;
    }
    return Ink::rgb(static_cast<uint32_t>(sums[2] / count << 16 | sums[1] / count << 8 | sums[0] / count));
}

/// False when the pattern has no lines here, or more than can be shown.
bool draw_pattern(const EntityScope& scope, const std::vector<std::vector<Vec2>>& contours, const Transform3& map) {
    PictureBudget& budget = scope.out.budget();
    const bool tight = budget.tight();
    const auto lines = hatch_lines(read_hatch_pattern(scope.fields), contours, tight ? few_lines : most_lines, budget);
    if (!lines && tight) {
        budget.leave_out();
    }
    if (!lines || lines->empty()) {
        return false;
    }
    for (const HatchLine& line : *lines) {
        scope.out.line(map({line.from.x, line.from.y, 0}).plan(), map({line.to.x, line.to.y, 0}).plan());
    }
    return true;
}

}  // namespace

/// The third and fourth corner stand crosswise.
void draw_solid(const EntityScope& scope) {
    const Transform3 map = scope.object_space();
    const std::vector<Vec3> at = corners(scope);
    scope.out.fill({map(at[0]).plan(), map(at[1]).plan(), map(at[3]).plan(), map(at[2]).plan()});
}

void draw_face(const EntityScope& scope) {
    const std::vector<Vec3> at = corners(scope);
    const int64_t hidden_edges = scope.fields.integer(70);
    for (size_t i = 0; i < 4; ++i) {
        if ((hidden_edges >> i & 1) == 0) {
            scope.out.line(scope.world(at[i]), scope.world(at[(i + 1) % 4]));
        }
    }
}

void draw_hatch(const EntityScope& scope) {
    const Transform3 map = scope.object_space() * Transform3::translation({0, 0, scope.fields.real(30)});
    PictureBudget& budget = scope.out.budget();
    std::vector<std::vector<Vec2>> contours = read_hatch_boundary(scope.fields, budget.most_chords());
    drop_islands(contours, scope.fields.integer(75), budget);
    const bool gradient = scope.fields.integer(450) == 1;
    const bool no_lines = scope.fields.has(78) && scope.fields.integer(78) == 0;
    const bool solid = scope.fields.integer(70) == 1 || gradient ||
                       (no_lines && base::compare_ignoring_case(scope.fields.text(2), L"SOLID") == 0);
    if (!solid && (no_lines || draw_pattern(scope, contours, map))) {
        return;
    }
    if (gradient) {
        scope.out.set_ink(mean_ink(scope.fields).value_or(scope.out.ink()));
    }
    for (std::vector<Vec2>& contour : contours) {
        for (Vec2& point : contour) {
            point = map({point.x, point.y, 0}).plan();
        }
    }
    if (solid && !contours.empty()) {
        scope.out.fill(joined(contours), contours.size() > 1);
        return;
    }
    for (std::vector<Vec2>& contour : contours) {
        contour.push_back(contour.front());
        scope.out.strip(contour);
    }
}

}  // namespace host
