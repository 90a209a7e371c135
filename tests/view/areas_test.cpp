#include "platform/host/view/areas.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/view/described_list.h"

namespace host {

TEST(Areas, ABlockBesideADrawingLeavesItHalfOfThePicture) {
    struct Case {
        const char* what;
        Vec2 drawing;
        Vec2 block;
        bool right;
        double letters;  // the least height of letters in the picture, in pixels
    };
    const Case cases[] = {
        {"three rows", {4000, 1500}, {70, 12}, false, 15},
        {"62 rows", {4000, 1500}, {70, 190}, true, 5.8},
        {"100 rows beside a flat drawing", {4000, 300}, {70, 303}, true, 3.9},
        {"under a wide one", {9000, 1000}, {70, 30}, false, 15},
        {"beside a high one", {100, 9000}, {70, 30}, true, 10},
        {"a tiny drawing", {1e-6, 1e-6}, {70, 30}, false, 6},
    };
    for (const Case& one : cases) {
        const Box2 drawing = Box2::between({10, 20}, Vec2{10, 20} + one.drawing);
        const BesidePlace place = place_beside(drawing, one.block);
        const Box2 block{{place.upper_left.x, place.upper_left.y - place.scale * one.block.y},
                         {place.upper_left.x + place.scale * one.block.x, place.upper_left.y}};
        EXPECT_FALSE(block.intersects(drawing)) << one.what;
        EXPECT_EQ(block.low.x > drawing.high.x, one.right) << one.what;
        const auto zoom = [](const Box2& box) {
            return std::min(picture_width / box.width(), picture_height / box.height());
        };
        Box2 both = drawing;
        both.add(block);
        EXPECT_GE(zoom(both) / zoom(drawing), 0.707) << one.what;
        EXPECT_GE(place.scale * zoom(both), one.letters) << one.what;
        EXPECT_LE(place.scale * zoom(both), 16.1) << one.what;
    }
}

TEST(Areas, OfTheLastEntityAndOfMostThings) {
    std::string cluster;
    for (int i = 0; i < 30; ++i) {
        cluster += "0 CIRCLE|8 0|10 " + std::to_string(i % 6 * 10) + "|20 " + std::to_string(i / 6 * 10) + "|40 1|";
    }
    const std::string frame = "0 LWPOLYLINE|8 0|90 2|70 0|10 0|20 0|10 9000|20 5000|";
    const std::string last =
        "0 INSERT|8 0|2 B|66 1|10 0|20 0|0 ATTRIB|8 0|10 1|20 2|40 3|1 x|0 ATTRIB|8 0|10 1|20 9|40 2|1 x|0 SEQEND|8 0";
    const std::string b = blocks(block("B", "0 LINE|8 0|10 0|20 0|11 50|21 40"));
    const auto drawing = drawing_of(b + entities(frame + cluster + last));
    const DisplayList list = DisplayList::build(*drawing);
    const LastArea area = last_area(list);
    EXPECT_EQ((Vec2{50, 40}), area.box.high);
    EXPECT_EQ(2, area.letters);
    EXPECT_EQ((Vec2{50, 40}), block_area(*drawing, 0).high);
    const std::optional<Box2> crowded = crowded_area(list);
    ASSERT_TRUE(crowded.has_value());
    EXPECT_EQ((Vec2{-1, -1}), crowded->low);
    EXPECT_EQ((Vec2{51, 41}), crowded->high);
    EXPECT_FALSE(crowded_area(DisplayList::build(*drawing_of(b + entities(cluster + last)))));
    EXPECT_FALSE(crowded_area(DisplayList()));
    EXPECT_TRUE(last_area(DisplayList()).box.empty());
}

}  // namespace host
