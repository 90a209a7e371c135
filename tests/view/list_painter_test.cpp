#include "platform/host/view/list_painter.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/host/view/hit_test.h"
#include "tests/view/described_list.h"

namespace host {

namespace {

/// A small picture of a drawing: "." for the background, "#" for the foreground, and letters for other colours.
class Painting {
  public:
    Painting(int width, int height, const std::string& groups)
        : view(width, height), drawing_(drawing_of(groups)), list(DisplayList::build(*drawing_)) {
        view.show({{0, 0}, {static_cast<double>(width), static_cast<double>(height)}});
    }

    std::string paint(PaintColours colours = {}, const EntitySet& highlighted = {}, size_t most_small_texts = 9) {
        std::vector<uint32_t> pixels(static_cast<size_t>(view.width()) * static_cast<size_t>(view.height()));
        Raster raster(pixels.data(), view.width(), view.height());
        BoxLetters boxes;
        ListPainter(list, view, raster, &boxes).paint(colours, highlighted, most_small_texts);
        texts = boxes.asked;
        std::string picture = "\n";
        for (int y = 0; y < view.height(); ++y) {
            for (int x = 0; x < view.width(); ++x) {
                picture += letter(raster.at(x, y), colours);
            }
            picture += "\n";
        }
        return picture;
    }

    dxf::RecordId entity(size_t index) const { return drawing_->entities()[index]; }

    ViewTransform view;
    size_t texts = 0;

  private:
    static char letter(uint32_t colour, const PaintColours& colours) {
        return colour == colours.background     ? '.'
               : colour == colours.foreground() ? '#'
               : colour == 0xFF0000             ? 'r'
               : colour == 0x00FF00             ? 'g'
                                                : '?';
    }
    std::unique_ptr<dxf::Drawing> drawing_;

  public:
    DisplayList list;
};

}  // namespace

TEST(ListPainter, PaintsLinesAreasAndDots) {
    Painting painting(12, 8,
                      entities("0 SOLID|8 0|62 1|10 1|20 1|11 5|21 1|12 1|22 4|13 5|23 4|"
                               "0 LINE|8 0|10 0.5|20 7.5|11 11.5|21 7.5|"
                               "0 LINE|8 0|62 3|10 11.5|20 6.5|11 11.5|21 0.5|"
                               "0 LINE|8 0|10 6.5|20 5.5|11 9.5|21 2.5|"
                               "0 POINT|8 0|10 8.5|20 0.5"));
    EXPECT_EQ(
        "\n"
        "############\n"
        "...........g\n"
        "......#....g\n"
        ".......#...g\n"
        ".rrrrr..#..g\n"
        ".rrrrr...#.g\n"
        ".rrrrr.....g\n"
        ".rrrrr..#..g\n",
        painting.paint());
    EXPECT_EQ(painting.paint({0x000000}), painting.paint({0xFFFFFF})) << "colour 7 is black on white";
    EXPECT_EQ('.', painting.paint({0xFF0000})[1 + 13 * 5 + 3]) << "an area hides what it covers";
    EXPECT_EQ('#', painting.paint({0x00FF00})[1 + 13 * 2 + 11]) << "a line does not vanish in the background";
}

TEST(ListPainter, HidesWhatMasksCoverInTheOrderOfDrawing) {
    const std::string image = "|8 0|10 1|20 0|11 4|21 0|12 0|22 4|13 1|23 1|";
    // A triangle with its frame over the first line; the entity with the lowest sort handle is drawn first.
    Painting painting(8, 4,
                      tables("0 TABLE|2 BLOCK_RECORD|0 BLOCK_RECORD|5 1F|2 *Model_Space|0 ENDTAB") +
                          entities("0 LINE|5 A|8 0|62 1|10 0|20 1.5|11 8|21 1.5|"
                                   "0 LINE|5 B|8 0|62 3|10 0|20 2.5|11 8|21 2.5|0 WIPEOUT|5 C" +
                                   image + "71 2|91 3|14 -0.5|24 0.5|14 0.5|24 0.5|14 0.5|24 -0.5") +
                          "0 SECTION|2 OBJECTS|0 SORTENTSTABLE|5 D|330 2|100 AcDbSortentsTable|330 1F|331 B|5 C|"
                          "331 C|5 B|0 WIPEOUTVARIABLES|5 E|70 0|0 ENDSEC|");
    EXPECT_EQ("\n........\ngggggggg\nrr...rrr\n........\n", painting.paint({0xFFFFFF}));
    EXPECT_EQ(painting.entity(0), HitTest(painting.list).pick({{0, 1}, {1, 2}}));
    EXPECT_EQ(dxf::no_record, HitTest(painting.list).pick({{3.8, 0.6}, {4.2, 0.9}})) << "inside of a mask";
}

TEST(ListPainter, ClipsReferencesToTheirBoundary) {
    // The two corners are the block's coordinates times two; the matrix halves them.
    const std::string filter =
        "70 2|10 2|20 0|10 12|20 4|210 0|220 0|230 1|11 0|21 0|31 0|71 1|72 0|73 0|40 0.5|40 0|40 0|"
        "40 0|40 0|40 0.5|40 0|40 0|40 0|40 0|40 0.5|40 0|40 1|40 0|40 0|40 0|40 0|40 1|40 0|40 0|"
        "40 0|40 0|40 1|40 0";
    const std::string reference = "102 {ACAD_XDICTIONARY|360 A1|102 }|8 0|2 BAR|10 1|20 1|";
    Painting painting(10, 4,
                      blocks(block("BAR",
                                   "0 LINE|8 0|10 -1|20 1.5|11 9|21 1.5|0 SOLID|8 0|62 1|10 0|20 0|11 8|21 0|"
                                   "12 0|22 1|13 8|23 1|0 TEXT|8 0|10 7|20 0|40 3|1 cut off")) +
                          entities("0 INSERT|" + reference + "0 INSERT|8 0|2 NONE|10 0|20 0") +
                          "0 SECTION|2 OBJECTS|0 DICTIONARY|5 A1|3 OTHER|350 A9|3 ACAD_FILTER|360 A2|"
                          "0 DICTIONARY|5 A2|3 SPATIAL|360 A3|0 SPATIAL_FILTER|5 A3|" +
                          filter + "|0 ENDSEC|");
    EXPECT_EQ("\n..........\n..#####...\n..rrrrr...\n..........\n", painting.paint());
    EXPECT_EQ(2, painting.list.extents().low.x);
    EXPECT_EQ(7, painting.list.extents().high.x);
    const HitTest hits(painting.list);
    EXPECT_EQ(painting.entity(0), hits.pick({{3, 2}, {4, 3}}));
    EXPECT_EQ(1U, hits.window({{2, 1}, {7, 3}}).size()) << "with all that is seen of it";
    EXPECT_EQ(0U, hits.crossing({{7.5, 0}, {9, 4}}).size());
}

TEST(ListPainter, CutsOffAtTheEdgesAndZoomsAboutAPoint) {
    Painting painting(8, 4,
                      blocks(block("AXIS", "0 XLINE|8 0|10 0|20 0|11 1|21 0")) +
                          entities("0 INSERT|8 0|2 AXIS|10 0|20 2.5|"
                                   "0 LINE|8 0|10 4.5|20 1000000000|11 4.5|21 -1000000000"));
    EXPECT_EQ(
        "\n"
        "....#...\n"
        "########\n"
        "....#...\n"
        "....#...\n",
        painting.paint());
    painting.view.zoom_about({4.5, 1.5}, 1000);
    EXPECT_EQ("\n....#...\n########\n....#...\n....#...\n", painting.paint());
    painting.view.pan({2, 1});
    EXPECT_EQ("\n......#.\n......#.\n########\n......#.\n", painting.paint());
}

TEST(ListPainter, DashesWhatIsHighlighted) {
    Painting painting(16, 3,
                      entities("0 LINE|8 0|10 0.5|20 2.5|11 15.5|21 2.5|0 LINE|8 0|10 0.5|20 0.5|11 15.5|21 0.5"));
    EXPECT_EQ(
        "\n"
        "################\n"
        "................\n"
        "####....####....\n",
        painting.paint({}, EntitySet({painting.entity(1)})));
}

TEST(ListPainter, DashesByTheLineTypeWhereItCanBeSeen) {
    Painting painting(16, 3,
                      tables("0 TABLE|2 LTYPE|0 LTYPE|2 DASHED|73 2|40 6|49 4|49 -2|0 ENDTAB") +
                          blocks(block("B", "0 LINE|8 0|6 DASHED|10 0.5|20 0|11 1|21 0")) +
                          entities("0 LINE|8 0|6 DASHED|10 0.5|20 2.5|11 15.5|21 2.5|"
                                   "0 INSERT|8 0|2 B|10 -7.5|20 0.5|41 16"));
    EXPECT_EQ(
        "\n"
        "####..####..####\n"
        "................\n"
        "####..###.......\n",
        painting.paint());
    painting.view.zoom_about({8, 1.5}, 0.3);
    EXPECT_EQ("\n................\n.....######.....\n................\n", painting.paint());
}

TEST(ListPainter, WidensLinesByTheirWeight) {
    const std::string layers = "0 TABLE|2 LAYER|" + layer("0", 7) + "|" + layer("WIDE", 1) + "|370 70|0 ENDTAB";
    const std::string drawing =
        tables(layers) + blocks(block("B", "0 LINE|8 0|10 0|20 0|11 7|21 0|0 LINE|8 0|370 -2|10 0|20 3|11 7|21 3")) +
        entities(
            "0 INSERT|8 WIDE|370 50|2 B|10 0.5|20 1.5|0 LINE|8 0|62 3|370 100|10 10|20 7.5|11 10|21 0.5|"
            "0 LINE|8 WIDE|370 -3|10 0.5|20 7.5|11 6.5|21 7.5");
    const std::string wide =
        "\nrrrrrrr..gggg\n.........gggg\n.........gggg\nrrrrrrrr.gggg\nrrrrrrrr.gggg\nrrrrrrrr.gggg\n"
        "rrrrrrrr.gggg\nrrrrrrrr.gggg\n";
    EXPECT_EQ(wide, Painting(13, 8, "0 SECTION|2 HEADER|9 $LWDISPLAY|290 1|0 ENDSEC|" + drawing).paint());
    EXPECT_EQ(
        "\nrrrrrrr...g..\n..........g..\n..........g..\nrrrrrrrr..g..\n..........g..\n..........g..\n"
        "rrrrrrrr..g..\n..........g..\n",
        Painting(13, 8, drawing).paint());
}

TEST(ListPainter, ShowsSmallThingsAsDots) {
    const std::string leaf = blocks(block("LEAF", "0 LINE|8 0|10 0|20 0|11 1|21 1|0 TEXT|8 0|10 0|20 0|40 1|1 x"));
    Painting painting(4, 2,
                      leaf + entities("0 INSERT|8 0|62 1|2 LEAF|10 1.5|20 1.5|41 0.1|42 0.1|43 0.1|"
                                      "0 CIRCLE|8 0|62 3|10 3.5|20 0.5|40 0.1"));
    EXPECT_EQ("\n.#..\n...g\n", painting.paint());
    EXPECT_EQ(0U, painting.texts);
    painting.view.zoom_about({1.5, 0.5}, 100);
    painting.paint();
    EXPECT_EQ(1U, painting.texts);
}

TEST(ListPainter, PaintsTextsByTheirOutlinesInTheirTurn) {
    Painting painting(14, 12,
                      entities("0 SOLID|8 0|62 1|10 0|20 4|11 14|21 4|12 0|22 12|13 14|23 12|"
                               "0 TEXT|8 0|10 1|20 0|40 4|1 ab|"                              // under what follows
                               "0 TEXT|8 0|62 3|10 0|20 0|11 8|21 8|40 4|50 90|72 1|1 c|"     // centred, upwards
                               "0 TEXT|8 0|62 3|10 0|20 0|11 14|21 5|40 4|72 2|41 0.5|1 de|"  // from the right
                               "0 SOLID|8 0|62 1|10 5|20 0|11 7|21 0|12 5|22 2|13 7|23 2"));
    EXPECT_EQ(
        "\n"
        "rrrrrrrrrrrrrr\n"
        "rrrrrrrrrrrrrr\n"
        "rrrrrrrrrrrrrr\n"
        "rrrrrrrrrrgrgr\n"
        "rrrrggggrrgrgr\n"
        "rrrrggggrrgrgr\n"
        "rrrrrrrrrrgrgr\n"
        "rrrrrrrrrrrrrr\n"
        "r##rr##rrrrrrr\n"
        ".##..##.......\n"
        ".##..rrr......\n"
        ".##..rrr......\n",
        painting.paint());
}

TEST(ListPainter, PaintsManySmallTextsAsLines) {
    Painting painting(20, 20,
                      entities("0 TEXT|8 0|10 0|20 1|40 3|1 a|0 TEXT|8 0|10 0|20 5|40 3|1 b|"
                               "0 TEXT|8 0|10 0|20 9|40 6|1 c"));
    painting.paint({}, {}, 1);
    EXPECT_EQ(2U, painting.texts) << "the large one, and one of the small";
}

TEST(SmoothFill, CoversPixelsByTheirParts) {
    struct Case {
        const char* what;
        Outline outline;
        std::vector<uint32_t> covered;  // of three by two pixels, in 256ths
    };
    const Case cases[] = {
        {"a box between pixels", {{{0.5, 0}, {1.75, 0}, {1.75, 1.5}, {0.5, 1.5}}, {4}}, {128, 192, 0, 64, 96, 0}},
        {"the other way round", {{{0.5, 1.5}, {1.75, 1.5}, {1.75, 0}, {0.5, 0}}, {4}}, {128, 192, 0, 64, 96, 0}},
        {"a triangle", {{{0, 0}, {2, 0}, {0, 2}}, {3}}, {256, 128, 0, 128, 0, 0}},
        {"a flat one", {{{0, 0}, {3, 0}, {3, 1}}, {3}}, {43, 128, 213, 0, 0, 0}},
        {"a hole",
         {{{0, 0}, {3, 0}, {3, 2}, {0, 2}, {1, 0}, {1, 2}, {2, 2}, {2, 0}}, {4, 8}},
         {256, 0, 256, 256, 0, 256}},
        {"beyond all edges", {{{-9, -9}, {99, -9}, {99, 99}, {-9, 99}}, {4}}, {256, 256, 256, 256, 256, 256}},
        {"twice the same",
         {{{0, 0}, {1, 0}, {1, 2}, {0, 2}, {0, 0}, {1, 0}, {1, 2}, {0, 2}}, {4, 8}},
         {256, 0, 0, 256, 0, 0}},
        {"beside", {{{5, 0}, {6, 0}, {6, 1}}, {3}}, {0, 0, 0, 0, 0, 0}},
    };
    constexpr double half_a_step = 255.0 / 64;
    for (const Case& one : cases) {
        std::vector<uint32_t> pixels(6);
        Raster raster(pixels.data(), 3, 2);
        raster.set_pen(0xFF);
        SmoothFill().fill(raster, one.outline);
        for (size_t i = 0; i < pixels.size(); ++i) {
            EXPECT_NEAR(static_cast<double>(pixels[i]), one.covered[i] * 255 / 256.0, half_a_step + 1)
                << one.what << " " << i;
        }
    }
}

TEST(ViewTransform, ShowsBoxesWholeAndGoesBothWays) {
    ViewTransform view(200, 100);
    view.show({{10, 10}, {30, 30}}, 0.25);
    EXPECT_DOUBLE_EQ(100 / 30.0, view.pixels_per_unit());
    EXPECT_EQ((Vec2{100, 50}), view.to_pixel({20, 20}));
    EXPECT_NEAR(0, view.to_pixel({20, 35}).y, 1e-9);
    const Vec2 there = view.to_world({17, 83});
    EXPECT_NEAR(17, view.to_pixel(there).x, 1e-9);
    EXPECT_NEAR(83, view.to_pixel(there).y, 1e-9);
    EXPECT_DOUBLE_EQ(60, view.visible().width());
    EXPECT_EQ((Vec2{17.12, -3.99}), view.rounded({17.123456, -3.987654}));
    view.show({});
    view.show({{5, 5}, {5, 5}});  // a point goes to the centre
    EXPECT_DOUBLE_EQ(100 / 30.0, view.pixels_per_unit());
    EXPECT_EQ((Vec2{5, 5}), view.centre());
}

TEST(ListPainter, PaintsArraysAsTheirSingleCopies) {
    const std::string flag = blocks(block("FLAG",
                                          "0 LINE|8 0|62 0|10 0|20 0|11 2|21 3|0 SOLID|8 0|62 1|10 1|20 0|11 2|21 0|"
                                          "12 1|22 1|13 2|23 1"));
    std::string singles;
    for (int i = 0; i < 20; ++i) {
        const int across = 4 * (i % 5);
        const int up = 5 * (i / 5);
        // Turned by 90 degrees: columns go up, rows to the left.
        singles += "0 INSERT|8 0|62 3|2 FLAG|10 " + std::to_string(20 - up) + ".3|20 " + std::to_string(1 + across) +
                   ".4|50 90|";
    }
    Painting array(24, 24, flag + entities("0 INSERT|8 0|62 3|2 FLAG|10 20.3|20 1.4|50 90|70 5|71 4|44 4|45 5"));
    Painting apart(24, 24, flag + entities(singles.substr(0, singles.size() - 1)));
    for (const Box2& seen : {Box2{{0, 0}, {24, 24}}, Box2{{9, 9}, {15, 13}}}) {
        array.view.show(seen);
        apart.view.show(seen);
        EXPECT_EQ(apart.paint(), array.paint());
    }
    // A thousand million copies, a few of them to a pixel.
    Painting many(8, 4,
                  blocks(block("DOT", "0 POINT|8 0|10 0|20 0")) +
                      entities("0 INSERT|8 0|2 DOT|10 0|20 0|70 32767|71 32767|44 0.0002|45 0.0001"));
    EXPECT_EQ("\n........\n#######.\n#######.\n#######.\n", many.paint());
}

TEST(ListPainter, FillsAreasOfManyEdges) {
    std::vector<uint32_t> pixels(40 * 600);
    Raster raster(pixels.data(), 40, 600);
    const auto filled = [&](size_t rounds) {
        raster.clear(0);
        raster.set_pen(0xFFFFFF);
        std::vector<Vec2> polygon;
        for (size_t i = 0; i < rounds; ++i) {
            polygon.insert(polygon.end(), {{10, 100}, {30, 100}, {30, 500}, {10, 500}, {10, 100}});
        }
        raster.fill(polygon);
        return std::count(pixels.begin(), pixels.end(), 0xFFFFFFU);
    };
    EXPECT_EQ(20 * 400, filled(1));
    EXPECT_EQ(20 * 400, filled(2001)) << "around an odd number of times";
    EXPECT_EQ(0, filled(2000));
    EXPECT_EQ(20 * 400, filled(1));
}

}  // namespace host
