#include "platform/host/view/box_tree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace host {

namespace {

BoxTree::BoxOf box_in(const std::vector<Box2>& boxes) {
    return [&boxes](uint32_t number) -> const Box2& { return boxes[number]; };
}

std::vector<uint32_t> found(const std::vector<Box2>& boxes, const Box2& area, double detail = 0) {
    std::vector<uint32_t> numbers;
    const BoxTree tree(boxes.size(), box_in(boxes));
    tree.visit(area, detail, box_in(boxes), [&numbers](uint32_t number) { numbers.push_back(number); });
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

std::vector<Box2> scattered(size_t count, std::mt19937& random) {
    std::uniform_real_distribution<double> place(-1000, 1000);
    std::exponential_distribution<double> size(0.1);
    std::vector<Box2> boxes(count);
    for (Box2& box : boxes) {
        box.add(Vec2{place(random), place(random)});
        box.add(box.low + Vec2{size(random), size(random)});
    }
    return boxes;
}

}  // namespace

TEST(BoxTree, FindsWhatASearchOfAllBoxesFinds) {
    std::mt19937 random(7);
    for (const size_t count : {0, 1, 15, 16, 17, 256, 257, 5000}) {
        std::vector<Box2> boxes = scattered(count, random);
        if (count > 1) {
            boxes[count / 2] = Box2();  // empty boxes are nowhere
        }
        for (int round = 0; round < 30; ++round) {
            Box2 area = scattered(1, random).front();
            if (round % 2 == 0) {
                area.add(Vec2{0, 0});
            }
            std::vector<uint32_t> expected;
            for (uint32_t i = 0; i < boxes.size(); ++i) {
                if (boxes[i].intersects(area)) {
                    expected.push_back(i);
                }
            }
            EXPECT_EQ(expected, found(boxes, area)) << count;
        }
    }
}

TEST(BoxTree, ShowsOneOfEveryClusterThatIsTooSmallToTellApart) {
    std::vector<Box2> boxes;
    for (int cluster = 0; cluster < 4; ++cluster) {
        for (int row = 0; row < 40; ++row) {
            for (int column = 0; column < 40; ++column) {
                boxes.push_back(Box2::around({cluster * 1000 + column * 0.01, row * 0.01}, 0.001));
            }
        }
    }
    const Box2 all{{-10, -10}, {4000, 10}};
    EXPECT_EQ(6400U, found(boxes, all).size());
    const std::vector<uint32_t> few = found(boxes, all, 1);
    EXPECT_LT(few.size(), 200U);
    bool clusters[4] = {};
    for (const uint32_t number : few) {
        clusters[number / 1600] = true;
    }
    EXPECT_TRUE(clusters[0] && clusters[1] && clusters[2] && clusters[3]);
}

}  // namespace host
