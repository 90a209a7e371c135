// SOLID, TRACE, 3DFACE and HATCH.
#include "platform/host/view/entity_scope.h"
#include "platform/host/view/hatch_boundary.h"
#include "platform/host/view/hatch_pattern.h"

namespace host {

namespace {

// Of a hatch with more lines the outline is shown. Where memory is tight, few have to do.
constexpr size_t most_lines = 20000;
constexpr size_t few_lines = 100;

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
    const bool solid = scope.fields.integer(70) == 1 || scope.fields.integer(450) == 1;
    if (!solid && draw_pattern(scope, contours, map)) {
        return;
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
