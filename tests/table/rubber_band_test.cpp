#include "table/rubber_band.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

std::string printed(const corvanes::Frame& frame) {
    std::ostringstream out;
    out << frame.upper_left.x << ',' << frame.upper_left.y << ' ' << frame.lower_right.x << ',' << frame.lower_right.y;
    return out.str();
}

TEST(RubberBand, FollowsThePointerInTheTablesProportions) {
    corvanes::RubberBand band({10, 20}, 60, 12);
    EXPECT_EQ(printed(band.frame()), "10,20 70,8") << "what Return erases before any movement";
    EXPECT_EQ(band.picked_scale(), 1.0);

    EXPECT_EQ(band.move({40, 19}), std::nullopt);
    EXPECT_EQ(printed(band.frame()), "10,20 40,14");
    EXPECT_EQ(band.picked_scale(), 0.5);

    const struct {
        corvanes::TablePoint pointer;
        const char* frame;
        double scale;
    } cases[] = {
        {{12, -4}, "10,20 130,-4", 2.0},    // mostly vertical: 24 down is 120 wide
        {{30, 0}, "10,20 30,16", 1.0 / 3},  // equal distances count as horizontal
        {{-20, 25}, "10,20 -20,14", 0.5},   // to the left: the corner of the frame follows the pointer
        {{11, 50}, "10,20 160,50", 2.5},    // upwards
        {{10, 20}, "10,20 10,20", 1},       // back in its corner: the scale is 1, as before any move
    };
    for (const auto& c : cases) {
        const std::string before = printed(band.frame());
        const auto erased = band.move(c.pointer);
        ASSERT_TRUE(erased);
        EXPECT_EQ(printed(*erased), before);
        EXPECT_EQ(printed(band.frame()), c.frame);
        EXPECT_DOUBLE_EQ(band.picked_scale(), c.scale);
    }
}

}  // namespace
