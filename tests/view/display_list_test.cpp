#include "platform/host/view/display_list.h"

#include <gtest/gtest.h>

#include "base/progress.h"
#include "tests/support/drawing_groups.h"
#include "tests/view/described_list.h"

namespace host {

TEST(DisplayList, OfCurves) {
    EXPECT_EQ(
        "ff0000 strip 1,2 3,4\n"
        "------ dot 5,6\n"
        "------ arc 10,10 u 5,0 v 0,5 from 0 by 360\n"
        "------ arc 10,10 u 5,0 v 0,5 from 270 by 180\n"
        "------ arc -10,10 u -5,0 v 0,5 from 270 by 180\n"  // seen from below: on the other side
        "------ arc 1,1 u 3,4 v -2,1.5 from 0 by 180\n"
        "------ strip 0,0 9,9\n"
        "------ endless 0,5 10000000000,5\n"
        "------ strip 0,0 4,0 4,3\n",
        described(entities("0 LINE|8 0|62 1|10 1|20 2|11 3|21 4|"
                           "0 POINT|8 0|10 5|20 6|"
                           "0 CIRCLE|8 0|10 10|20 10|40 5|"
                           "0 ARC|8 0|10 10|20 10|40 5|50 270|51 90|"
                           "0 ARC|8 0|10 10|20 10|40 5|50 270|51 90|210 0|220 0|230 -1|"
                           "0 ELLIPSE|8 0|10 1|20 1|11 3|21 4|40 0.5|41 0|42 3.14159265358979|"
                           "0 SPLINE|8 0|71 1|40 0|40 0|40 1|40 1|10 0|20 0|10 9|20 9|"
                           "0 RAY|8 0|10 0|20 5|11 1|21 0|"
                           "0 LEADER|8 0|71 0|10 0|20 0|10 4|20 0|10 4|20 3")));
}

TEST(DisplayList, OfPolylines) {
    EXPECT_EQ(
        // A closed one whose second segment is a half circle.
        "------ strip 0,0 4,0\n"
        "------ arc 4,1 u 1,0 v 0,1 from -90 by 180\n"
        "------ strip 4,2 0,2 0,0\n"
        // A wide one with a mitred corner.
        "------ fill 0,1 10,1 10,-1 0,-1\n"
        "------ fill 10,0 10,-1 11,-1 11,0\n"
        "------ fill 9,0 9,5 11,5 11,0\n"
        // A POLYLINE; the frame of its spline is not seen.
        "------ strip 1,1 2,2 3,1\n"
        // A face with a hidden edge, and a mesh of 2 by 3 nodes closed across.
        "------ strip 0,0 5,0\n"
        "------ strip 0,5 0,0\n"
        "------ strip 0,0 1,0 2,0\n"
        "------ strip 0,1 1,1 2,1\n"
        "------ strip 0,0 0,1 0,0\n"
        "------ strip 1,0 1,1 1,0\n"
        "------ strip 2,0 2,1 2,0\n",
        described(
            entities("0 LWPOLYLINE|8 0|90 4|70 1|10 0|20 0|10 4|20 0|42 1|10 4|20 2|10 0|20 2|"
                     "0 LWPOLYLINE|8 0|90 3|70 0|43 2|10 0|20 0|10 10|20 0|10 10|20 5|"
                     "0 POLYLINE|8 0|66 1|70 4|0 VERTEX|8 0|10 9|20 9|70 16|0 VERTEX|8 0|10 1|20 1|70 8|"
                     "0 VERTEX|8 0|10 2|20 2|70 8|0 VERTEX|8 0|10 3|20 1|70 8|0 SEQEND|8 0|"
                     "0 POLYLINE|8 0|66 1|70 64|0 VERTEX|8 0|10 0|20 0|70 192|0 VERTEX|8 0|10 5|20 0|70 192|"
                     "0 VERTEX|8 0|10 0|20 5|70 192|0 VERTEX|8 0|70 128|71 1|72 -2|73 3|0 SEQEND|8 0|"
                     "0 POLYLINE|8 0|66 1|70 17|71 2|72 3|0 VERTEX|8 0|10 0|20 0|70 64|0 VERTEX|8 0|10 1|20 0|70 64|"
                     "0 VERTEX|8 0|10 2|20 0|70 64|0 VERTEX|8 0|10 0|20 1|70 64|0 VERTEX|8 0|10 1|20 1|70 64|"
                     "0 VERTEX|8 0|10 2|20 1|70 64|0 SEQEND|8 0")));
}

TEST(DisplayList, OfAreas) {
    const std::string square = "92 2|72 0|73 1|93 4|10 0|20 0|10 8|20 0|10 8|20 8|10 0|20 8|97 0|";
    const std::string hole =
        "92 1|93 4|72 1|10 2|20 2|11 6|21 2|72 1|10 6|20 2|11 6|21 6|"
        "72 1|10 6|20 6|11 2|21 6|72 1|10 2|20 6|11 2|21 2|97 0|";
    const std::string head = "0 HATCH|8 0|10 0|20 0|30 0|";
    EXPECT_EQ(
        "------ fill 0,0 4,0 4,3 0,3\n"
        "------ strip 0,0 4,0\n"
        "------ strip 4,3 0,3\n"
        "------ strip 0,3 0,0\n"
        "------ fill 0,0 8,0 8,8 0,8 0,0 0,0 2,2 6,2 6,2 6,6 6,6 2,6 2,6 2,2 2,2 0,0\n"
        // Lines at 45 degrees, three apart along y, around the hole.
        "------ strip 0,0 2,2\n"
        "------ strip 6,6 8,8\n"
        // Dashes of 2 with gaps of 1 on the one line that crosses the area.
        "------ strip 0,3 2,3\n"
        "------ strip 3,3 5,3\n"
        "------ strip 6,3 8,3\n"
        // Without a pattern only the outline is drawn.
        "------ strip 0,0 8,0 8,8 0,8 0,0\n",
        described(entities("0 SOLID|8 0|10 0|20 0|11 4|21 0|12 0|22 3|13 4|23 3|"
                           "0 3DFACE|8 0|10 0|20 0|11 4|21 0|12 4|22 3|13 0|23 3|70 2|" +
                           head + "2 SOLID|70 1|91 2|" + square + hole + "75 0|76 1|98 0|" +  //
                           head + "2 U|70 0|91 2|" + square + hole +
                           "75 0|76 0|52 45|41 1|77 0|78 1|53 45|43 0|44 0|45 -7|46 7|79 0|98 0|" +  //
                           head + "2 U|70 0|91 1|" + square +
                           "75 0|76 0|52 0|41 1|77 0|78 1|53 0|43 0|44 3|45 0|46 20|79 2|49 2|49 -1|98 0|" +  //
                           head + "2 U|70 0|91 1|" + square + "75 0|76 0|98 0")));
}

TEST(DisplayList, OfPointsByTheirMode) {
    const auto header = [](const std::string& mode, const std::string& size) {
        return "0 SECTION|2 HEADER|9 $PDMODE|70 " + mode + "|9 $PDSIZE|40 " + size +
               "|9 $EXTMIN|10 0|20 0|9 $EXTMAX|10 9|" + "20 40|0 ENDSEC|";
    };
    const std::string point = entities("0 POINT|8 0|10 5|20 6");
    EXPECT_EQ("", described(header("1", "2") + point));
    EXPECT_EQ("------ dot 5,6\n------ arc 5,6 u 1,0 v 0,1 from 0 by 360\n", described(header("32", "2") + point));
    EXPECT_EQ("------ strip 3,4 7,8\n------ strip 3,8 7,4\n------ strip 4,5 6,5 6,7 4,7 4,5\n",
              described(header("67", "0") + point));
    EXPECT_EQ("------ strip 5,6 5,8\n", described(header("4", "-10") + point));
}

TEST(DisplayList, OfHatchesByTheirStyle) {
    const auto square = [](int low, int high) {
        const std::string begin = std::to_string(low);
        const std::string end = std::to_string(high);
        return "92 2|72 0|73 1|93 4|10 " + begin + "|20 " + begin + "|10 " + end + "|20 " + begin + "|10 " + end +
               "|20 " + end + "|10 " + begin + "|20 " + end + "|97 0|";
    };
    const std::string nested = "0 HATCH|8 0|10 0|20 0|30 0|70 1|91 3|" + square(0, 9) + square(4, 5) + square(2, 7);
    EXPECT_EQ(
        "------ fill 0,0 9,0 9,9 0,9 0,0 0,0 2,2 7,2 7,7 2,7 2,2 0,0\n"
        "------ fill 0,0 9,0 9,9 0,9 0,0\n"
        // The mean colour of a gradient, and a solid fill where the pattern has no lines.
        "2040c0 fill 0,0 9,0 9,9 0,9 0,0\n"
        "------ fill 0,0 9,0 9,9 0,9 0,0\n",
        described(entities(nested + "75 1|" + nested + "75 2|" + nested +
                           "75 2|450 1|453 2|463 0|63 5|421 255|463 1|63 2|421 4227201|"
                           "0 HATCH|8 0|2 Solid|10 0|20 0|70 0|91 1|" +
                           square(0, 9) +
                           "75 0|78 0|"
                           "0 HATCH|8 0|2 ANSI31|10 0|20 0|70 0|91 1|" +
                           square(0, 9) + "75 0|78 0")));
}

TEST(DisplayList, OfHatchesWithCurvedEdges) {
    const DisplayList list = DisplayList::build(
        *drawing_of(entities("0 HATCH|8 0|10 0|20 0|30 0|2 SOLID|70 1|91 1|92 1|93 2|"
                             "72 2|10 0|20 0|40 5|50 180|51 360|73 0|"  // the upper half, clockwise
                             "72 3|10 0|20 0|11 5|21 0|40 0.4|50 180|51 360|73 0|97 0|75 0|76 1|98 0")));
    const Box2& box = list.extents();
    EXPECT_NEAR(-5, box.low.x, 0.01);
    EXPECT_NEAR(5, box.high.x, 0.01);
    EXPECT_NEAR(0, box.low.y, 0.01);
    EXPECT_NEAR(5, box.high.y, 0.01);
    EXPECT_EQ("------ fill 0,0 4,0 4,0 9,0 9,0 9,7 9,7 0,0 0,0\n",
              described(entities("0 HATCH|8 0|10 0|20 0|30 0|2 SOLID|70 1|91 1|92 1|93 4|"
                                 "72 4|94 1|73 0|74 0|95 4|96 2|40 0|40 0|40 1|40 1|10 0|20 0|10 4|20 0|"
                                 "97 2|11 0|21 0|11 4|21 0|12 1|22 0|13 1|23 0|"
                                 "72 1|10 4|20 0|11 9|21 0|72 1|10 9|20 0|11 9|21 7|72 1|10 9|20 7|11 0|21 0|"
                                 "97 0|75 0|76 1|98 0")))
        << "a spline's fit points and directions, and the edges after it";
}

TEST(DisplayList, PlacesBlocks) {
    const std::string flag = blocks(block("FLAG", "0 LINE|8 0|10 1|20 0|11 2|21 0|0 CIRCLE|8 0|10 0|20 0|40 1") + "|" +
                                    "0 BLOCK|8 0|2 PAIR|70 0|10 10|20 0|30 0|"
                                    "0 INSERT|8 0|2 flag|10 10|20 0|0 INSERT|8 0|2 FLAG|10 12|20 0|50 90|41 -1|"
                                    "0 ENDBLK|8 0");
    EXPECT_EQ(
        "------ strip 102,50 104,50\n"
        "------ arc 100,50 u 2,0 v 0,3 from 0 by 360\n"
        // The base point of PAIR falls on its insertion point; it is mirrored inside, and turned as a whole.
        "------ strip 5,6 5,7\n"
        "------ arc 5,5 u 0,1 v -1,0 from 0 by 360\n"
        "------ strip 6,7 7,7\n"
        "------ arc 5,7 u 1,0 v 0,-1 from 0 by 360\n"
        // Seen from behind: x is mirrored in world coordinates.
        "------ strip -8,3 -9,3\n"
        "------ arc -7,3 u -1,0 v 0,1 from 0 by 360\n",
        described(flag + entities("0 INSERT|8 0|2 Flag|10 100|20 50|41 2|42 3|"
                                  "0 INSERT|8 0|2 PAIR|10 5|20 5|50 90|"
                                  "0 INSERT|8 0|2 FLAG|10 7|20 3|210 0|220 0|230 -1")));
}

TEST(DisplayList, RepeatsArrays) {
    const std::string dot = blocks(block("DOT", "0 POINT|8 0|10 0|20 0"));
    EXPECT_EQ(
        "------ dot 1,1\n------ text \"T\" left 1,2 x 1,0 y 0,1\n"
        "------ dot 1,4\n------ text \"T\" left 1,5 x 1,0 y 0,1\n"
        "------ dot -9,1\n------ text \"T\" left -9,2 x 1,0 y 0,1\n"
        "------ dot -9,4\n------ text \"T\" left -9,5 x 1,0 y 0,1\n",
        described(dot + entities("0 INSERT|8 0|66 1|2 DOT|10 1|20 1|50 90|70 2|71 2|44 3|45 10|"
                                 "0 ATTRIB|8 0|10 1|20 2|40 1|1 T|2 TAG|70 0|0 SEQEND|8 0")));
    // A count of 0 means 1. An array of more copies than a screen has pixels takes no more time.
    EXPECT_EQ("------ dot 1,1\n", described(dot + entities("0 INSERT|8 0|2 DOT|10 1|20 1|70 0|71 -5|44 3|45 3")));
    const DisplayList many =
        DisplayList::build(*drawing_of(dot + entities("0 INSERT|8 0|2 DOT|10 0|20 0|70 32767|71 32767|44 1|45 1")));
    EXPECT_EQ(1U, many.pictures.size());
    EXPECT_EQ(1U, many.top.primitives.size());
    EXPECT_EQ(32766, many.extents().high.x);
    EXPECT_EQ(32766, many.extents().high.y);
}

std::string times(size_t count, const std::string& groups) {
    std::string all;
    for (size_t i = 0; i < count; ++i) {
        all += groups;
    }
    return all;
}

/// How many entities are left out of a drawing that needs more than the limits, and whether the list kept to them.
std::string within_limits(const PictureLimits& limits, const std::string& groups, const std::string& before = "") {
    const auto drawing = drawing_of(before + entities(groups.substr(0, groups.size() - 1)));
    const DisplayList list = DisplayList::build(*drawing, DisplayList::Space::model, limits);
    size_t bytes = list.pictures.size() * sizeof(Picture) + list.top.points.size() * sizeof(Vec2);
    bytes += list.top.primitives.size() * sizeof(Primitive) + list.top.instances.size() * sizeof(Instance);
    return std::to_string(list.left_out) + (bytes <= limits.bytes ? "" : " beyond the limit");
}

TEST(DisplayList, KeepsToItsLimitsAndCountsWhatItLeavesOut) {
    const auto hatch = [](const std::string& step, const std::string& dashes) {
        return "0 HATCH|8 0|10 0|20 0|30 0|2 U|70 0|91 1|92 2|72 0|73 1|93 4|10 0|20 0|10 8|20 0|10 8|20 8|10 0|20 8|"
               "97 0|75 0|76 0|52 0|41 1|77 0|78 1|53 0|43 0|44 0|45 0|46 " +
               step + "|" + dashes + "98 0|";
    };
    const PictureLimits small{100'000, 10'000'000};
    const std::string point = "0 POINT|8 0|10 0|20 0|";
    EXPECT_EQ("0", within_limits(small, times(1000, point)));
    EXPECT_EQ("1012", within_limits(small, times(2250, point)));
    const std::string tilted = "0 INSERT|8 0|2 WALL|10 1|20 0|70 32767|71 32767|44 1|45 1|210 0|220 -1|230 0.5|";
    const std::string wall = blocks(block("WALL", "0 LINE|8 0|10 0|20 0|30 3|11 2|21 5|31 3"));
    EXPECT_EQ("2", within_limits(small, tilted + tilted, wall));
    const std::string lines = "0 MLINE|8 0|71 0|11 0|21 0|13 0|23 1|" + times(300, "74 1|41 1|");
    EXPECT_EQ("1", within_limits(small, lines + times(300, "11 1|21 0|23 1|")));
    // Curves are cut into fewer chords, and hatches shown by their outlines, before anything is left out.
    const std::string wide = "0 LWPOLYLINE|8 0|90 2|70 1|43 1|10 0|20 0|42 1|10 9|20 0|42 1|";
    EXPECT_EQ("0", within_limits(small, times(50, wide)));
    EXPECT_EQ("96", within_limits({1'000'000, 100'000'000}, times(100, hatch("0.01", ""))));
    EXPECT_EQ("1", within_limits({1'000'000, 1000}, hatch("0.01", ""))) << "time";
    EXPECT_EQ("0", within_limits(small, hatch("1", "79 1|49 -1e-12|"))) << "nothing but gaps";
}

TEST(DisplayList, IsSharedByAllWhoLookAtOneState) {
    const auto drawing = drawing_of(entities("0 POINT|8 0|10 0|20 0"));
    const auto other = drawing_of(entities("0 POINT|8 0|10 0|20 0"));
    const auto list = DisplayList::shared(*drawing);
    EXPECT_EQ(list, DisplayList::shared(*drawing));
    drawing->append_entity("0\nPOINT\n");
    const auto edited = DisplayList::shared(*drawing);
    EXPECT_EQ(2U, edited->top.primitives.size());
    EXPECT_NE(edited, DisplayList::shared(*other));
    const auto many = drawing_of(entities(times(8999, "0 POINT|8 0|10 0|20 0|") + "0 POINT|8 0|10 0|20 0"));
    const auto half = [&] {
        const base::ProgressWatch watch([](double part) { return part < 0.4; });
        return DisplayList::shared(*many);
    }();
    EXPECT_EQ(9000U - 4095, half->left_out) << "nobody waited for more";
    EXPECT_EQ(9000U, DisplayList::shared(*many)->top.primitives.size()) << "somebody does now";
    DisplayList::begin(*other, DisplayList::Space::model);
    const auto begun = DisplayList::shared(*other);
    EXPECT_EQ(begun, DisplayList::shared(*other));
    EXPECT_EQ(1U, begun->top.primitives.size());
}

/// An edit, and whether the list that was drawn before it is continued or drawn anew.
struct LaterEdit {
    const char* name;
    bool goes_on;
    void (*make)(dxf::Drawing& drawing);
};

TEST(DisplayList, GoesOnWhereOnlyAdditionsWereMade) {
    const LaterEdit edits[] = {
        {"a line", true, [](dxf::Drawing& d) { d.append_entity(groups("0 LINE|8 0|62 1|10 1|20 2|11 3|21 4")); }},
        {"a line in paper space", true,
         [](dxf::Drawing& d) { d.append_entity(groups("0 LINE|8 0|67 1|10 1|20 2|11 3|21 4")); }},
        {"references to a block that is there, and to a new one", true,
         [](dxf::Drawing& d) {
             d.append_entry("STYLE", groups("0 STYLE|2 NARROW|70 0|41 0.5|3 times.ttf"));
             const dxf::BlockId made =
                 d.append_block(groups("0 BLOCK|8 0|2 NEW|70 0|10 0|20 0"), groups("0 ENDBLK|8 0"));
             d.append_to_block(made, groups("0 TEXT|8 0|7 NARROW|10 0|20 0|40 1|1 added"));
             d.append_to_block(made, groups("0 LINE|8 0|6 DASHED|10 0|20 0|11 1|21 0"));
             d.append_entity(groups("0 INSERT|8 0|2 ONE|10 5|20 5"));
             d.append_entity(groups("0 INSERT|8 0|2 NEW|10 6|20 6"));
         }},
        {"a line that goes again", true,
         [](dxf::Drawing& d) { d.erase(d.append_entity(groups("0 LINE|8 0|10 1|20 2|11 3|21 4"))); }},
        {"the next handle", true,
         [](dxf::Drawing& d) { d.replace_value(d.header_variable("$HANDSEED"), 5, dxf::Handle{0x77}); }},
        {"a point gone", false, [](dxf::Drawing& d) { d.erase(d.entities()[0]); }},
        {"a layer that was missing", false,
         [](dxf::Drawing& d) { d.append_entry("LAYER", groups("0 LAYER|2 THERE|70 0|62 3")); }},
        {"another scale of dashes", false,
         [](dxf::Drawing& d) { d.append_header_variable(groups("9 $LTSCALE|40 2")); }},
        {"an order of drawing", false,
         [](dxf::Drawing& d) { d.append_object(groups("0 SORTENTSTABLE|330 1F|331 A|5 B")); }},
        {"more in a block", false, [](dxf::Drawing& d) { d.append_to_block(0, groups("0 POINT|8 0|10 9|20 9")); }},
        {"the block that was missing", false,
         [](dxf::Drawing& d) {
             const dxf::BlockId made = d.append_block(groups("0 BLOCK|8 0|2 GONE|70 0"), groups("0 ENDBLK|8 0"));
             d.append_to_block(made, groups("0 POINT|8 0|10 9|20 9"));
         }},
    };
    for (const LaterEdit& edit : edits) {
        const auto drawing =
            drawing_of("0 SECTION|2 HEADER|9 $HANDSEED|5 FF|0 ENDSEC|" +
                       tables("0 TABLE|2 LTYPE|70 1|0 LTYPE|2 DASHED|73 2|40 3|49 2|49 -1|0 ENDTAB|"
                              "0 TABLE|2 STYLE|70 1|0 STYLE|2 STANDARD|70 0|3 txt|0 ENDTAB") +
                       blocks(block("ONE", "0 POINT|8 0|10 1|20 0")) +
                       entities("0 POINT|8 THERE|10 3|20 4|0 INSERT|8 0|2 ONE|10 1|20 1|0 INSERT|8 0|2 GONE|10 1|20 1|"
                                "0 TEXT|8 0|10 0|20 0|40 1|1 old|0 LINE|8 0|6 DASHED|10 0|20 0|11 9|21 0"));
        const bool lacking = DisplayList::build(*drawing).lacking;
        const DrawnState before = DrawnState::of(*drawing);
        DisplayList::begin(*drawing, DisplayList::Space::model);
        edit.make(*drawing);
        EXPECT_EQ(edit.goes_on, before.still_holds(*drawing, lacking)) << edit.name;
        const auto later = DisplayList::shared(*drawing);
        const DisplayList anew = DisplayList::build(*drawing);
        EXPECT_EQ(described(anew), described(*later)) << edit.name;
        EXPECT_EQ(anew.extents().low, later->extents().low) << edit.name;
        EXPECT_EQ(anew.extents().high, later->extents().high) << edit.name;
        EXPECT_EQ(anew.fonts, later->fonts) << edit.name;
    }
}

TEST(DisplayList, SeesTiltedBlocksFromAbove) {
    // The block stands upright and faces -y: its x is the world's x, its y the height, and its z points to -y.
    EXPECT_EQ("------ strip 1,-4 3,-4\n------ arc 1,-4 u 2,0 v 0,0 from 0 by 360\n",
              described(blocks(block("WALL",
                                     "0 LINE|8 0|10 0|20 0|30 3|11 2|21 5|31 3|"
                                     "0 CIRCLE|8 0|10 0|20 0|30 3|40 2")) +
                        entities("0 INSERT|8 0|2 WALL|10 1|20 0|30 1|210 0|220 -1|230 0")));
}

TEST(DisplayList, ResolvesColoursOfLayersAndBlocks) {
    const std::string parts = block("PARTS",
                                    "0 POINT|8 0|10 1|20 0|"          // the reference's layer's colour
                                    "0 POINT|8 0|62 0|10 2|20 0|"     // the reference's colour
                                    "0 POINT|8 BLUE|10 3|20 0|"       // its own layer's
                                    "0 POINT|8 BLUE|62 3|10 4|20 0|"  // its own
                                    "0 POINT|8 0|420 1193046|10 5|20 0");
    // Entities that follow a reference are coloured as those inside of it.
    const std::string attributes =
        "0 ATTRIB|8 0|10 0|20 2|40 1|1 a|2 A|70 0|0 ATTRIB|8 0|62 0|10 0|20 2|40 1|1 b|2 B|70 0|"
        "0 ATTRIB|8 BLUE|10 0|20 2|40 1|1 c|2 C|70 0|0 SEQEND|8 0";
    const std::string titled = block("TITLED", "0 INSERT|8 0|66 1|62 0|2 NOWHERE|10 0|20 0|" + attributes);
    const auto titles = [](const std::string& x) {
        const std::string place = " left " + x + ",2 x 1,0 y 0,1\n";
        return "ff0000 text \"a\"" + place + "00ff00 text \"b\"" + place + "0000ff text \"c\"" + place;
    };
    const std::string nested =
        block("NESTED", "0 INSERT|8 0|62 0|2 PARTS|10 0|20 0|0 INSERT|8 BLUE|2 PARTS|10 10|20 0");
    const std::string layers = tables("0 TABLE|2 LAYER|70 3|" + layer("0", 2) + "|" + layer("RED", 1) + "|" +
                                      layer("BLUE", 5) + "|420 255|0 ENDTAB");
    EXPECT_EQ(
        "ff0000 dot 1,0\nff00ff dot 2,0\n0000ff dot 3,0\n00ff00 dot 4,0\n123456 dot 5,0\n"
        "0000ff dot 11,0\n0000ff dot 12,0\n0000ff dot 13,0\n00ff00 dot 14,0\n123456 dot 15,0\n"
        // At the top level: the colour of layer 0, BYBLOCK without a block, colour 12 of the palette, and a number that
        // no colour has.
        "ffff00 dot 1,1\n------ dot 2,1\na50000 dot 3,1\n5b5b5b dot 4,1\n------ dot 5,1\n" +
            titles("0") + titles("0") + titles("9") + titles("0"),
        described(layers + blocks(parts + "|" + nested + "|" + titled) +
                  entities("0 INSERT|8 RED|62 6|2 NESTED|10 0|20 0|"
                           "0 POINT|8 0|10 1|20 1|0 POINT|8 0|62 0|10 2|20 1|0 POINT|8 0|62 12|10 3|20 1|"
                           "0 POINT|8 0|62 251|10 4|20 1|0 POINT|8 NEW|10 5|20 1|"
                           "0 INSERT|8 RED|66 1|62 3|2 NOWHERE|10 0|20 0|" +
                           attributes + "|0 INSERT|8 RED|66 1|62 3|2 NOWHERE|10 0|20 0|70 2|44 9|" + attributes +
                           "|0 INSERT|8 RED|62 3|2 TITLED|10 0|20 0")));
}

TEST(DisplayList, LeavesOutWhatIsNotShown) {
    const std::string layers = tables("0 TABLE|2 LAYER|70 4|" + layer("0", 7) + "|" + layer("OFF", -1) + "|" +
                                      layer("COLD", 1, 1) + "|" + layer("ON", 3) + "|0 ENDTAB");
    const std::string mixed = blocks(block("MIXED",
                                           "0 POINT|8 0|10 0|20 0|0 POINT|8 ON|10 1|20 0|0 POINT|8 OFF|10 2|20 0|"
                                           "0 POINT|8 COLD|10 3|20 0|0 POINT|8 ON|60 1|10 4|20 0|"
                                           "0 ATTDEF|8 ON|10 5|20 0|40 1|1 value|2 TAG|70 0|"
                                           "0 ATTDEF|8 ON|10 6|20 0|40 1|1 always|2 TAG|70 2"));
    EXPECT_EQ(
        "00ff00 dot 0,10\n00ff00 dot 1,10\n00ff00 text \"always\" left 6,10 x 1,0 y 0,1\n"
        // A reference on a layer that is off hides its entities of layer 0 and shows the rest. One on a frozen layer
        // hides all.
        "00ff00 dot 1,20\n00ff00 text \"always\" left 6,20 x 1,0 y 0,1\n"
        "00ff00 text \"seen\" left 0,40 x 1,0 y 0,1\n"
        "00ff00 text \"TAG\" left 0,50 x 1,0 y 0,1\n",
        described(
            layers + mixed +
            entities("0 POINT|8 OFF|10 0|20 0|0 POINT|8 COLD|10 0|20 0|0 POINT|8 ON|60 1|10 0|20 0|"
                     "0 POINT|8 ON|67 1|10 0|20 0|"
                     "0 INSERT|8 ON|2 MIXED|10 0|20 10|0 INSERT|8 OFF|2 MIXED|10 0|20 20|"
                     "0 INSERT|8 COLD|2 MIXED|10 0|20 30|0 INSERT|8 ON|66 1|2 NOWHERE|10 0|20 40|"
                     "0 ATTRIB|8 ON|10 0|20 40|40 1|1 seen|2 A|70 0|0 ATTRIB|8 ON|10 0|20 41|40 1|1 hidden|2 B|70 1|"
                     "0 ATTRIB|8 OFF|10 0|20 42|40 1|1 off|2 C|70 0|0 SEQEND|8 ON|"
                     "0 ATTDEF|8 ON|10 0|20 50|40 1|1 value|2 TAG|70 0")));
}

TEST(DisplayList, LayerZeroThatIsOffHidesOnlyWhatStandsOnIt) {
    const std::string layers = tables("0 TABLE|2 LAYER|70 2|" + layer("0", -7) + "|" + layer("ON", 3) + "|0 ENDTAB");
    const std::string one = blocks(block("ONE", "0 POINT|8 0|10 0|20 0"));
    const std::string title = "2 NOWHERE|10 0|20 0|0 ATTRIB|8 0|10 0|20 0|40 1|1 a|2 A|70 0|0 SEQEND|8 0";
    EXPECT_EQ("00ff00 dot 1,0\n00ff00 text \"a\" left 0,0 x 1,0 y 0,1\n",
              described(layers + one +
                        entities("0 POINT|8 0|10 9|20 9|0 INSERT|8 ON|2 ONE|10 1|20 0|"
                                 "0 INSERT|8 0|2 ONE|10 2|20 0|0 INSERT|8 ON|66 1|" +
                                 title + "|0 INSERT|8 0|66 1|" + title)));
}

TEST(DisplayList, PlacesBlocksOfEndlessLines) {
    const auto drawing =
        drawing_of(blocks(block("AXIS", "0 XLINE|8 0|10 0|20 0|11 1|21 0") + "|" +
                          block("AXES", "0 INSERT|8 0|2 AXIS|10 0|20 5|0 INSERT|8 0|2 AXIS|10 0|20 6")) +
                   entities("0 INSERT|8 0|2 AXES|10 0|20 1|0 POINT|8 0|10 3|20 4"));
    const DisplayList list = DisplayList::build(*drawing);
    EXPECT_EQ(
        "------ endless -10000000000,6 10000000000,6\n"
        "------ endless -10000000000,7 10000000000,7\n"
        "------ dot 3,4\n",
        described(list));
    EXPECT_EQ((Vec2{3, 4}), list.extents().low);
    EXPECT_EQ((Vec2{3, 4}), list.extents().high);
}

TEST(DisplayList, SurvivesBlocksThatContainThemselves) {
    EXPECT_EQ("------ dot 1,0\n------ dot 1,0\n",
              described(blocks(block("A", "0 POINT|8 0|10 1|20 0|0 INSERT|8 0|2 B|10 0|20 0") + "|" +
                               block("B",
                                     "0 INSERT|8 0|2 A|10 0|20 0|0 INSERT|8 0|2 B|10 0|20 0|"
                                     "0 INSERT|8 0|2 B|10 0|20 0|210 1|220 0|230 0")) +
                        entities("0 INSERT|8 0|2 A|10 0|20 0|0 INSERT|8 0|2 A|10 0|20 0")));
}

TEST(DisplayList, DropsWhatIsNoNumber) {
    EXPECT_EQ("------ strip 0,0 1,1\n",
              described(entities("0 LINE|8 0|10 nan|20 0|11 1e999|21 inf|0 CIRCLE|8 0|10 0|20 0|40 inf|"
                                 "0 TEXT|8 0|10 inf|20 0|40 1|1 x|0 LINE|8 0|10 0|20 0|11 1|21 1")));
}

TEST(DisplayList, OfDimensionsAndTables) {
    EXPECT_EQ("ff0000 dot 3,4\n------ dot 8,11\n", described(blocks(block("*D1", "0 POINT|8 0|62 0|10 3|20 4") + "|" +
                                                                    block("*T1", "0 POINT|8 0|10 1|20 2")) +
                                                             entities("0 DIMENSION|8 0|62 1|2 *D1|10 100|20 100|"
                                                                      "0 ACAD_TABLE|8 0|2 *T1|10 10|20 10|11 0|21 1")));
}

}  // namespace host
