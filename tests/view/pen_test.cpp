// Tests of the dashes along a line, and of which linetype an entity has.
#include "platform/host/view/pen.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "tests/view/described_list.h"

namespace host {

namespace {

/// The dashes of a line through points: where each begins and ends.
std::string dashes(const std::vector<Vec2>& points, const LinePattern& pattern,
                   const Box2& area = {{-1e3, -1e3}, {1e3, 1e3}}) {
    std::vector<Vec2> ends;
    cut_by_pattern(points, pattern, area, ends);
    std::string text;
    for (size_t i = 0; i < ends.size(); ++i) {
        char number[64];
        std::snprintf(number, sizeof number, "%g,%g%s", ends[i].x, ends[i].y, i % 2 == 0 ? ">" : " ");
        text += number;
    }
    return text;
}

/// The pattern length of each visible line, in the drawing's order; 0 for a continuous line.
std::string patterns_of(const std::string& groups) {
    const DisplayList list = DisplayList::build(*drawing_of(groups));
    std::string text;
    const auto add = [&](const Picture& picture, const Surroundings& around, const auto& again) -> void {
        for (const Primitive& primitive : picture.primitives) {
            if (primitive.kind == Primitive::Kind::instance) {
                const Instance& instance = picture.instances[primitive.first];
                again(list.pictures[instance.picture], around.inside(instance), again);
            } else {
                char number[32];
                std::snprintf(number, sizeof number, "%g ",
                              list.patterns.at(around.resolve_pattern(primitive.pattern)).total());
                text += number;
            }
        }
    };
    add(list.top, list.surroundings, add);
    return text;
}

}  // namespace

TEST(LinePattern, CutsALineIntoDashes) {
    const LinePattern dashed{{2, -1}};
    EXPECT_EQ(dashes({{0, 0}, {10, 0}}, dashed), "0,0>1.5,0 2.5,0>4.5,0 5.5,0>7.5,0 8.5,0>10,0 ");
    EXPECT_EQ(dashes({{0, 0}, {4, 0}, {4, 6}}, dashed), "0,0>1.5,0 2.5,0>4,0 4,0>4,0.5 4,1.5>4,3.5 4,4.5>4,6 ")
        << "around a corner";
    EXPECT_EQ(dashes({{0, 0}, {2.5, 0}}, dashed), "0,0>2.5,0 ") << "shorter than the pattern";
    EXPECT_EQ(dashes({{0, 0}, {10, 0}}, dashed, {{3, -1}, {6, 1}}), "3,0>4.5,0 5.5,0>6,0 ") << "what is seen of it";
    EXPECT_EQ(dashes({{0, 0}, {10, 0}}, dashed, {{3, 1}, {6, 2}}), "");
    EXPECT_EQ(dashes({{0, 0}, {4, 0}}, {{1, -1, 0, -1}}), "0,0>1,0 2,0>2,0 3,0>4,0 ") << "a dot between dashes";
    EXPECT_EQ(dashes({{0, 0}, {3, 0}}, {{0, -2}}), "0,0>0,0 0.5,0>0.5,0 2.5,0>2.5,0 3,0>3,0 ");
    const std::string endless = dashes({{-1e10, 0}, {1e10, 0}}, dashed, {{0, -1}, {9, 1}});
    EXPECT_EQ(std::count(endless.begin(), endless.end(), '>'), 3 + (endless.find("0,0>") == 0))
        << endless << " of an endless line";
}

TEST(LinePattern, FollowsTheEntityItsLayerAndItsBlock) {
    const std::string drawing =
        "0 SECTION|2 HEADER|9 $LTSCALE|40 10|0 ENDSEC|0 SECTION|2 TABLES|0 TABLE|2 LTYPE|"
        "0 LTYPE|2 CONTINUOUS|73 0|40 0|0 LTYPE|2 Dashed|73 2|40 0.75|49 0.5|49 -0.25|"
        "0 LTYPE|2 DOT|73 2|40 0.25|49 0|49 -0.25|0 ENDTAB|"
        "0 TABLE|2 LAYER|0 LAYER|2 AXIS|70 0|62 1|6 DASHED|0 LAYER|2 0|70 0|62 7|6 DOT|0 ENDTAB|0 ENDSEC|" +
        blocks(block("B", "0 LINE|8 0|6 BYBLOCK|11 9|0 LINE|8 0|11 9|0 LINE|8 AXIS|11 9|0 LINE|8 0|6 Continuous|11 9"));
    EXPECT_EQ(patterns_of(drawing + entities("0 LINE|8 0|6 dashed|11 9|0 LINE|8 0|6 DASHED|48 2|11 9|0 LINE|8 0|11 9|"
                                             "0 CIRCLE|8 AXIS|40 9|0 ARC|8 AXIS|48 0.5|40 9|51 90|"
                                             "0 LINE|8 AXIS|6 NOSUCH|11 9|0 LINE|8 AXIS|6 BYLAYER|11 9|"
                                             "0 SOLID|8 AXIS|11 9|22 9|13 9|23 9")),
              "7.5 15 2.5 7.5 3.75 0 7.5 7.5 ");
    EXPECT_EQ(patterns_of(drawing + entities("0 INSERT|8 AXIS|2 B|6 DOT")), "2.5 7.5 7.5 0 ");
    EXPECT_EQ(patterns_of(drawing + entities("0 INSERT|8 0|2 B")), "2.5 2.5 7.5 0 ");
}

}  // namespace host
