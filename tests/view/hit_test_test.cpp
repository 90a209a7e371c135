#include "platform/host/view/hit_test.h"

#include <gtest/gtest.h>

#include "tests/view/described_list.h"

namespace host {

namespace {

/// Finds entities in the list of a drawing, and names them by their place in the drawing, from 0.
struct Finder {
    explicit Finder(const std::string& groups)
        : drawing(drawing_of(groups)), list(DisplayList::build(*drawing)), test(list) {}

    std::string names(const std::vector<dxf::RecordId>& found) const {
        std::string text;
        for (const dxf::RecordId id : found) {
            text += (text.empty() ? "" : " ") + std::to_string(id - drawing->entities()[0]);
        }
        return text;
    }
    std::string pick(double x, double y, double half = 0.1) const {
        const dxf::RecordId id = test.pick(Box2::around({x, y}, half));
        return id == dxf::no_record ? "" : names({id});
    }
    std::string window(Vec2 low, Vec2 high) const { return names(test.window({low, high})); }
    std::string crossing(Vec2 low, Vec2 high) const { return names(test.crossing({low, high})); }

    std::unique_ptr<dxf::Drawing> drawing;
    DisplayList list;
    HitTest test;
};

}  // namespace

TEST(HitTest, FindsPlainEntitiesByTheirShape) {
    const Finder find(
        entities("0 LINE|8 0|10 0|20 0|11 10|21 10|"
                 "0 CIRCLE|8 0|10 20|20 5|40 5|"
                 "0 SOLID|8 0|10 30|20 0|11 40|21 0|12 30|22 10|13 40|23 10|"
                 "0 TEXT|8 0|10 50|20 0|40 2|1 HHHH|50 90|"
                 "0 LINE|8 0|10 0|20 10|11 10|21 0"));
    EXPECT_EQ("0", find.pick(2, 2));
    EXPECT_EQ("4", find.pick(2, 8));
    EXPECT_EQ("4", find.pick(5, 5)) << "where they cross, the one drawn last";
    EXPECT_EQ("", find.pick(2, 5));
    EXPECT_EQ("1", find.pick(20, 10));
    EXPECT_EQ("", find.pick(20, 5)) << "a circle is not hit in its middle";
    EXPECT_EQ("2", find.pick(35, 5)) << "but an area is";
    EXPECT_EQ("2", find.pick(29.95, 5)) << "from outside too, at the edge that closes it";
    EXPECT_EQ("3", find.pick(49, 4)) << "and a text, between its letters";
    EXPECT_EQ("", find.pick(54, 1));

    EXPECT_EQ("0 1", find.crossing({9, 4}, {16, 10}));
    EXPECT_EQ("", find.crossing({17, 3}, {23, 7})) << "inside the circle";
    EXPECT_EQ("2", find.crossing({33, 3}, {34, 4})) << "inside the solid";
    EXPECT_EQ("", find.window({9, 4}, {16, 10}));
    EXPECT_EQ("0 1 4", find.window({0, 0}, {25, 10}));
    EXPECT_EQ("0 4", find.window({-1, -1}, {24.9, 11}));
    EXPECT_EQ("2 3", find.window({29, -1}, {60, 20}));
}

TEST(HitTest, FindsBlockReferencesByWhatIsSeenOfThem) {
    const std::string tables_of_drawing =
        tables("0 TABLE|2 LAYER|70 2|" + layer("0", 7) + "|" + layer("OFF", -1) + "|0 ENDTAB");
    // A cross of two lines, of which one is on a layer that is off; and a diamond made of a turned square.
    const std::string shapes =
        blocks(block("CROSS", "0 LINE|8 0|10 -5|20 0|11 5|21 0|0 LINE|8 OFF|10 0|20 -5|11 0|21 5") + "|" +
               block("SQUARE", "0 LWPOLYLINE|8 0|90 4|70 1|10 -5|20 -5|10 5|20 -5|10 5|20 5|10 -5|20 5") + "|" +
               block("DIAMOND", "0 INSERT|8 0|2 SQUARE|10 0|20 0|50 45"));
    const Finder find(
        tables_of_drawing + shapes +
        entities("0 INSERT|8 0|2 CROSS|10 0|20 0|"
                 "0 INSERT|8 0|2 DIAMOND|10 20|20 0|50 45|41 0.5|42 0.5|"
                 "0 INSERT|8 OFF|2 CROSS|10 0|20 0|"
                 "0 INSERT|8 0|66 1|2 CROSS|10 40|20 0|0 ATTRIB|8 0|10 40|20 20|40 1|1 H|2 T|70 0|0 SEQEND|8 0"));
    EXPECT_EQ("0", find.pick(3, 0));
    EXPECT_EQ("", find.pick(0, 3)) << "on the layer that is off";
    EXPECT_EQ("1", find.pick(20, 2.5));
    EXPECT_EQ("", find.pick(20, 0));
    EXPECT_EQ("0", find.window({-5, -1}, {5, 1})) << "what is off does not count";
    EXPECT_EQ("1", find.window({17.4, -2.6}, {22.6, 2.6})) << "the seen square, not the box around the turned block";
    EXPECT_EQ("", find.window({30, -1}, {50, 1})) << "the attribute is part of it";
    EXPECT_EQ("3", find.window({30, -1}, {50, 22}));
    EXPECT_EQ("3", find.crossing({39, 19}, {41, 22}));
}

TEST(HitTest, ComesToAnEndWithBlocksNestedLikeABomb) {
    std::string bomb = block("B0", "0 CIRCLE|8 0|10 0|20 0|40 5");
    for (int level = 1; level < 20; ++level) {
        std::string inner;
        for (int copy = 0; copy < 10; ++copy) {
            inner += (copy > 0 ? "|" : "") + ("0 INSERT|8 0|2 B" + std::to_string(level - 1) + "|10 0|20 0");
        }
        bomb.append("|").append(block("B" + std::to_string(level), inner));
    }
    // Turned, so that its box is larger than what is seen of it.
    const Finder find(blocks(bomb) + entities("0 INSERT|8 0|2 B19|10 0|20 0|50 45|"
                                              "0 CIRCLE|8 0|10 0|20 0|40 4|"
                                              "0 LINE|8 0|10 -1|20 0|11 1|21 0"));
    EXPECT_EQ("2", find.pick(0.5, 0));
    EXPECT_EQ("0", find.pick(0, 2)) << "by its box, where its shape is not looked at to the end";
    EXPECT_EQ("0 2", find.crossing({-1.5, -1.5}, {1.5, 1.5}));
    EXPECT_EQ("1 2", find.window({-6, -6}, {6, 6}));
    EXPECT_EQ("0 1 2", find.window({-8, -8}, {8, 8}));
}

TEST(HitTest, FindsArraysByTheirCopies) {
    const std::string bar = blocks(block("BAR", "0 LINE|8 0|10 0|20 0|11 2|21 1"));
    const Finder find(bar +
                      entities("0 INSERT|8 0|2 BAR|10 0|20 0|70 1000|71 1000|44 4|45 3|"
                               "0 INSERT|8 0|66 1|2 BAR|10 0|20 -90|70 3|44 10|0 ATTRIB|8 0|10 0|20 -90|40 1|1 T|2 A|"
                               "70 0|0 SEQEND|8 0"));
    EXPECT_EQ("0", find.pick(4 * 500 + 1, 3 * 700 + 0.5));
    EXPECT_EQ("", find.pick(4 * 500 + 3, 3 * 700 + 0.5)) << "between the copies";
    EXPECT_EQ("1", find.pick(21, -89.5));
    EXPECT_EQ("0", find.crossing({1999, 0}, {2001, 9}));
    EXPECT_EQ("0", find.window({-1, -1}, {4000, 3000}));
    EXPECT_EQ("", find.window({-1, -1}, {4000, 2997.9}));
    EXPECT_EQ("1", find.window({-1, -91}, {23, -80}));
}

}  // namespace host
