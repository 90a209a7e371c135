#include "platform/host/view/drawing_frame.h"

#include <gtest/gtest.h>

#include "tests/view/described_list.h"

namespace host {

namespace {

/// The box around all pixels that are not of the background.
Box2 inked(DrawingFrame& frame) {
    FrameBitmap* const picture = frame.picture();
    Box2 box;
    const Raster raster = picture->raster();
    for (int y = 0; y < picture->height(); ++y) {
        for (int x = 0; x < picture->width(); ++x) {
            if ((raster.at(x, y) & 0xFFFFFF) != frame.colours().background) {
                box.add(Vec2{static_cast<double>(x), static_cast<double>(y)});
                box.add(Vec2{x + 1.0, y + 1.0});
            }
        }
    }
    return box;
}

class DrawingFrameTest : public testing::Test {
  protected:
    /// One unit is a pixel; the origin is in the middle of 400 by 400.
    Box2 painted(const std::string& groups) {
        frame.set_list(std::make_shared<const DisplayList>(DisplayList::build(*drawing_of(entities(groups)))));
        ViewTransform view(400, 400);
        frame.set_view(view);
        return inked(frame);
    }
    DrawingFrame frame;
};

constexpr double tolerance = 3;  // pixels, for smooth edges and side bearings

}  // namespace

TEST_F(DrawingFrameTest, DrawsCapitalsAsHighAsTheyShallBe) {
    const Box2 upright = painted("0 TEXT|8 0|10 0|20 0|40 100|1 H");
    EXPECT_NEAR(100, upright.height(), tolerance);
    EXPECT_NEAR(200, upright.high.y, tolerance) << "stands on the base line";
    EXPECT_GE(upright.low.x, 199);

    const Box2 turned = painted("0 TEXT|8 0|10 0|20 0|40 100|1 H|50 90");
    EXPECT_NEAR(100, turned.width(), tolerance);
    EXPECT_NEAR(200, turned.high.x, tolerance);
    EXPECT_LE(turned.high.y, 201);
    EXPECT_NEAR(upright.width(), turned.height(), tolerance);

    const Box2 mirrored = painted("0 TEXT|8 0|10 0|20 0|40 100|1 H|71 2");
    EXPECT_NEAR(400 - upright.low.x, mirrored.high.x, tolerance);
    const Box2 double_width = painted("0 TEXT|8 0|10 0|20 0|40 100|1 H|41 2");
    EXPECT_NEAR(2 * upright.width(), double_width.width(), tolerance);
    EXPECT_NEAR(100, double_width.height(), tolerance);
}

TEST_F(DrawingFrameTest, AnchorsAndFitsLines) {
    const Box2 centred = painted("0 TEXT|8 0|10 0|20 0|11 0|21 0|40 40|1 HHHH|72 1");
    EXPECT_NEAR(200, centred.centre().x, tolerance);
    const Box2 right = painted("0 TEXT|8 0|10 0|20 0|11 0|21 0|40 40|1 HHHH|72 2");
    EXPECT_NEAR(200, right.high.x, 2 * tolerance);
    const Box2 fit = painted("0 TEXT|8 0|10 -150|20 0|11 150|21 0|40 40|1 HHHH|72 5");
    EXPECT_NEAR(50, fit.low.x, 4 * tolerance);
    EXPECT_NEAR(350, fit.high.x, 4 * tolerance);
    EXPECT_NEAR(40, fit.height(), tolerance);
}

TEST_F(DrawingFrameTest, SetsHebrewFromTheRight) {
    // The first letter, a yod, is the short one, and must be at the right end.
    frame.set_background(0xFFFFFF);
    const Box2 box = painted("0 TEXT|8 0|10 -150|20 0|40 60|1 \\U+05D9\\U+05DD\\U+05DD");
    FrameBitmap* const picture = frame.picture();
    const Raster raster = picture->raster();
    const auto reaches_down = [&](double from, double to) {
        for (int x = static_cast<int>(from); x < static_cast<int>(to); ++x) {
            if ((raster.at(x, static_cast<int>(box.high.y) - 3) & 0xFF) < 128) {
                return true;
            }
        }
        return false;
    };
    ASSERT_GT(box.width(), 60);
    EXPECT_TRUE(reaches_down(box.low.x, box.low.x + box.width() / 3));
    EXPECT_FALSE(reaches_down(box.high.x - box.width() / 8, box.high.x));
}

TEST_F(DrawingFrameTest, PaintsAgainOnlyWhenSomethingChanged) {
    painted("0 LINE|8 0|10 -100|20 0|11 100|21 0");
    FrameBitmap* const picture = frame.picture();
    Raster raster = picture->raster();
    raster.clear(0x123456);
    EXPECT_EQ(0x123456U, frame.picture()->raster().at(200, 199));
    frame.set_background(0xFFFFFF);
    EXPECT_EQ(0xFFFFFFU, frame.picture()->raster().at(200, 100) & 0xFFFFFF);
    EXPECT_EQ(0U, frame.picture()->raster().at(200, 200) & 0xFFFFFF);
    frame.resize(100, 50);
    EXPECT_EQ(100, frame.picture()->width());
    EXPECT_EQ(0U, frame.picture()->raster().at(50, 25) & 0xFFFFFF);
}

TEST(FrameBitmapTest, BeginsLikeANewOneInMemoryThatWasUsed) {
    const auto colours = [](const FrameBitmap& bitmap) {
        return std::pair(GetTextColor(bitmap.context()), GetBkMode(bitmap.context()));
    };
    std::optional<FrameBitmap> used(std::in_place, 30, 20);
    const auto first = colours(*used);
    SetTextColor(used->context(), 0x123456);
    SetBkMode(used->context(), TRANSPARENT);
    const uint32_t* const pixels = used->raster().row(0);
    used.reset();
    const FrameBitmap again(30, 20);
    const FrameBitmap beside(30, 20);
    EXPECT_EQ(std::pair(pixels, first), std::pair(std::as_const(again).raster().row(0), colours(again)));
    EXPECT_NE(pixels, beside.raster().row(0));
}

}  // namespace host
