#include <gtest/gtest.h>

#include "platform/host/view/curves.h"
#include "platform/host/view/transform3.h"

namespace host {

namespace {

void expect_near(Vec2 expected, Vec2 actual) {
    EXPECT_NEAR(expected.x, actual.x, 1e-9);
    EXPECT_NEAR(expected.y, actual.y, 1e-9);
}

void expect_near(const Box2& expected, const Box2& actual) {
    expect_near(expected.low, actual.low);
    expect_near(expected.high, actual.high);
}

}  // namespace

TEST(Arc, PassesThroughTheEndsAndTheTopOfABulge) {
    for (const double bulge : {1.0, -1.0, 0.3, -0.3, 4.0, -4.0}) {
        const Vec2 from{3, 4};
        const Vec2 to{-5, 10};
        const Arc arc = bulge_arc(from, to, bulge);
        expect_near(from, arc.begin());
        expect_near(to, arc.end());
        // The bulge is the height of the arc divided by half of its chord; the arc is to the right of the chord.
        const Vec2 top = from + (to - from) * 0.5 - (to - from).left() * (bulge / 2);
        expect_near(top, arc.at(arc.start + arc.sweep / 2));
    }
}

TEST(Arc, KeepsWithinTheToleranceAndTheBox) {
    const Arc ellipse{{10, 20}, {30, 40}, {-8, 6}, 0.7, 4.0};
    std::vector<Vec2> points;
    ellipse.flatten(0.01, points);
    expect_near(ellipse.begin(), points.front());
    expect_near(ellipse.end(), points.back());
    const Box2 box = ellipse.box();
    Box2 seen;
    double furthest = 0;
    for (int i = 0; i <= 10000; ++i) {
        const Vec2 point = ellipse.at(ellipse.start + ellipse.sweep * i / 10000);
        seen.add(point);
        double nearest = 1e9;
        for (size_t chord = 1; chord < points.size(); ++chord) {
            const Vec2 run = points[chord] - points[chord - 1];
            const double part = std::clamp(dot(point - points[chord - 1], run) / dot(run, run), 0.0, 1.0);
            nearest = std::min(nearest, (points[chord - 1] + run * part - point).length());
        }
        furthest = std::max(furthest, nearest);
    }
    EXPECT_LE(furthest, 0.01);
    EXPECT_GE(furthest, 0.001);  // it is not cut into more chords than the tolerance needs
    EXPECT_NEAR(box.low.x, seen.low.x, 1e-4);
    EXPECT_NEAR(box.high.x, seen.high.x, 1e-4);
    EXPECT_NEAR(box.low.y, seen.low.y, 1e-4);
    EXPECT_NEAR(box.high.y, seen.high.y, 1e-4);
    // A quarter circle bulges out of the box of its ends, backwards too.
    expect_near(Box2{{0, 0}, {5, 5}}, Arc{{0, 0}, {5, 0}, {0, 5}, pi / 2, -pi / 2}.box());
    expect_near(Box2{{-5, -5}, {5, 5}}, Arc{{0, 0}, {5, 0}, {0, 5}, pi / 2, -2 * pi}.box());
}

TEST(Arc, TakesEqualAnglesAndARoundedTurnForAFullTurn) {
    EXPECT_DOUBLE_EQ(pi / 2, positive_sweep(1.5 * pi, 2 * pi));
    EXPECT_DOUBLE_EQ(pi, positive_sweep(1.5 * pi, pi / 2));
    EXPECT_DOUBLE_EQ(2 * pi, positive_sweep(1, 1));
    EXPECT_DOUBLE_EQ(2 * pi, positive_sweep(0, 2 * pi));
    EXPECT_DOUBLE_EQ(0.5, positive_sweep(0, 4 * pi + 0.5));
    for (const double rounded_up : {6.2831853072, 6.28318531, 6.28319}) {
        EXPECT_DOUBLE_EQ(2 * pi, positive_sweep(0, rounded_up));
        EXPECT_DOUBLE_EQ(2 * pi, positive_sweep(-1, rounded_up - 1));
    }
    EXPECT_NEAR(0.001, positive_sweep(0, 2 * pi + 0.001), 1e-9);
}

TEST(Spline, WithWeightsIsAnExactCircle) {
    const double weight = std::sqrt(0.5);
    const Spline quarter{2, {0, 0, 0, 1, 1, 1}, {{1, 0, 0}, {1, 1, 0}, {0, 1, 0}}, {1, weight, 1}};
    ASSERT_TRUE(quarter.valid());
    const std::vector<Vec3> points = quarter.flatten();
    EXPECT_EQ(17U, points.size());
    for (const Vec3& point : points) {
        EXPECT_NEAR(1, point.length(), 1e-12);
    }
    expect_near({1, 0}, points.front().plan());
    expect_near({weight, weight}, quarter.at(0.5).plan());
    expect_near({0, 1}, points.back().plan());
}

TEST(Spline, RunsThroughInnerKnotsAndKeepsToItsRange) {
    // Two cubic spans that meet at 1 with a common tangent: the inner knot's point is between its controls.
    const Spline curve{3, {0, 0, 0, 0, 1, 2, 2, 2, 2}, {{0, 0, 0}, {1, 2, 0}, {3, 4, 5}, {5, 2, 0}, {6, 0, 0}}, {}};
    ASSERT_TRUE(curve.valid());
    expect_near({3, 3}, curve.at(1).plan());
    expect_near({0, 0}, curve.at(-7).plan());
    expect_near({6, 0}, curve.at(7).plan());
    EXPECT_EQ(33U, curve.flatten().size());
    // Where a number is missing, or knots are out of order, there is no curve.
    EXPECT_FALSE((Spline{3, {0, 0, 0, 1, 1, 1}, {{}, {}, {}, {}}, {}}).valid());
    EXPECT_FALSE((Spline{1, {0, 1, 0, 1}, {{}, {}}, {}}).valid());
    EXPECT_FALSE((Spline{2, {0, 0, 0, 1, 1, 1}, {{}, {}, {}}, {1}}).valid());
    EXPECT_FALSE((Spline{0, {0, 1}, {{}}, {}}).valid());
}

TEST(Spline, ThroughPointsIsSmoothAndMeetsThem) {
    const std::vector<Vec3> nodes{{0, 0, 0}, {0, 0, 0}, {4, 4, 0}, {8, 0, 0}, {12, 4, 0}};
    const std::vector<Vec3> curve = curve_through(nodes, false);
    ASSERT_EQ(49U, curve.size());
    expect_near({4, 4}, curve[16].plan());
    expect_near({8, 0}, curve[32].plan());
    expect_near({12, 4}, curve[48].plan());
    for (size_t i = 1; i + 1 < curve.size(); ++i) {
        const Vec2 before = (curve[i] - curve[i - 1]).plan();
        const Vec2 after = (curve[i + 1] - curve[i]).plan();
        EXPECT_GT(dot(before, after), 0.9 * before.length() * after.length()) << i;
    }
    EXPECT_EQ(2U, curve_through({{0, 0, 0}, {1, 1, 0}}, true).size());
    expect_near({0, 0}, curve_through({{0, 0, 0}, {4, 0, 0}, {4, 4, 0}}, true).back().plan());
}

TEST(Transform3, TakesObjectCoordinatesByTheArbitraryAxisRule) {
    const Transform3 below = Transform3::extrusion({0, 0, -1});
    expect_near({-3, 4}, below({3, 4, 5}).plan());
    EXPECT_TRUE(below.flat());
    const Transform3 front = Transform3::extrusion({0, -2, 0});
    EXPECT_FALSE(front.flat());
    const Vec3 seen = front({3, 4, 5});
    EXPECT_DOUBLE_EQ(3, seen.x);
    EXPECT_DOUBLE_EQ(-5, seen.y);
    EXPECT_DOUBLE_EQ(4, seen.z);
    expect_near({3, 4}, Transform3::extrusion({0, 0, 0})({3, 4, 5}).plan());
}

}  // namespace host
