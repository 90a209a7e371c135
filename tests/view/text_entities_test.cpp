#include <gtest/gtest.h>

#include "platform/host/view/text_item.h"
#include "tests/view/described_list.h"

namespace host {

namespace {

const std::string styles = tables(
    "0 TABLE|2 STYLE|70 2|0 STYLE|2 Standard|70 0|40 0|41 1|50 0|71 0|3 txt|"
    "0 STYLE|2 NARROW|70 0|40 0|41 0.5|50 45|71 2|3 arial.ttf|0 ENDTAB");

}  // namespace

TEST(TextEntities, OfOneLineAreJustified) {
    const std::string text = "0 TEXT|8 0|10 10|20 10|40 2|1 Ab|11 30|21 10|";
    EXPECT_EQ(
        "------ text \"Ab\" left 10,10 x 2,0 y 0,2\n"
        "------ text \"Ab\" centre 30,10 x 2,0 y 0,2\n"
        "------ text \"Ab\" right 30,8 x 2,0 y 0,2\n"
        "------ text \"Ab\" left 30,9 x 2,0 y 0,2\n"
        "------ text \"Ab\" centre 30,9 x 2,0 y 0,2\n"
        // Fit between two points; the rotation is ignored.
        "------ text \"Ab\" left 10,10 x 2,0 y 0,2 fit 10\n"
        // Turned by 90 degrees: the upper left corner is where the line's top is.
        "------ text \"Ab\" left 32,10 x 0,2 y -2,0\n",
        described(styles + entities(text + text + "72 1|" + text + "72 2|73 3|" + text + "73 2|" + text + "72 4|" +
                                    text + "72 5|50 33|" + text + "73 3|50 90")));
}

TEST(TextEntities, OfOneLineLeaveWidthSlantAndMirroringOfTheStyleToNewText) {
    const std::string text = "|8 0|10 1|20 1|40 2|1 A|7 narrow|";
    EXPECT_EQ(
        "------ text \"A\" left 1,1 x 2,0 y 0,2\n"
        // Slanted and backward, and upside down with its own width.
        "------ text \"A\" left 1,1 x -2,0 y 2,2\n"
        // Slanted to the left, which programs write as 360 degrees less.
        "------ text \"A\" left 1,1 x 2,0 y -2,2\n"
        "------ text \"A\" left 1,1 x 6,0 y 0,-2\n"
        "------ text \"A\" left -1,1 x -2,0 y 0,2\n"
        // Paragraphs take them from the style.
        "------ text \"A\" left 1,-1 x 1,0 y 2,2\n",
        described(styles + entities("0 TEXT" + text + "0 TEXT" + text + "51 45|71 2|0 TEXT" + text + "51 315|0 TEXT" +
                                    text + "41 3|71 4|" + "0 TEXT" + text + "210 0|220 0|230 -1|0 MTEXT" +
                                    text.substr(0, text.size() - 1))));
}

TEST(TextEntities, OfParagraphsStackTheirLines) {
    const std::string paragraphs = "0 MTEXT|8 0|10 5|20 100|40 3|1 one\\Ptwo\\Pthree|";
    EXPECT_EQ(
        "------ text \"one\" left 5,97 x 3,0 y 0,3\n"
        "------ text \"two\" left 5,92 x 3,0 y 0,3\n"
        "------ text \"three\" left 5,87 x 3,0 y 0,3\n"
        "------ text \"one\" centre 5,103.5 x 3,0 y 0,3\n"
        "------ text \"two\" centre 5,98.5 x 3,0 y 0,3\n"
        "------ text \"three\" centre 5,93.5 x 3,0 y 0,3\n"
        // At the lower right, turned upwards by its direction, with lines twice as far apart.
        "------ text \"one\" right -15,100 x 0,3 y -3,0\n"
        "------ text \"two\" right -5,100 x 0,3 y -3,0\n"
        "------ text \"three\" right 5,100 x 0,3 y -3,0\n",
        described(styles +
                  entities(paragraphs + paragraphs + "71 5|" + paragraphs + "71 9|44 2|50 30|11 0|21 1|31 0")));
}

TEST(TextEntities, OfParagraphsHaveABackground) {
    const std::string text = "0 MTEXT|8 0|10 5|20 100|40 2|1 a\\Pa|41 10|";
    EXPECT_EQ(
        "00ff00 fill 4,93.067 16,93.067 16,101 4,101\n"
        "------ text \"a\" left 5,98 x 2,0 y 0,2\n------ text \"a\" left 5,94.667 x 2,0 y 0,2\n"
        // Centred, in the colour of the window, and framed.
        "  mask fill 0,96.733 10,96.733 10,102.667 0,102.667\n"
        "------ strip 0,96.733 10,96.733 10,102.667 0,102.667 0,96.733\n"
        "------ text \"a\" centre 5,100.667 x 2,0 y 0,2\n------ text \"a\" centre 5,97.333 x 2,0 y 0,2\n",
        described(styles + entities(text + "90 1|63 3|" + text + "71 5|90 18|45 1")));
}

TEST(TextEntities, OfParagraphsBreakAtTheirWidth) {
    EXPECT_EQ(
        "ff0000 text \"alpha beta\" left 0,-2 x 2,0 y 0,2\n"
        "ff0000 text \"gamma\" left 0,-5.333 x 2,0 y 0,2\n"
        "ff0000 text \"extraordinarily\" left 0,-8.667 x 2,0 y 0,2\n"
        "------ text \"long\" left 0,-10.333 x 1,0 y 0,1\n"
        // The long text is split into pieces, one of them within a character.
        "------ text \"piece after \xD7\xA9\" left 0,0 x 1,0 y 0,1\n",
        described(styles +
                  entities("0 MTEXT|8 0|10 0|20 0|40 1|41 16|1 {\\H2x;\\C1;alpha beta gamma extraordinarily} long|"
                           "0 MTEXT|8 0|10 0|20 1|40 1|3 piece after \\U+05|1 E9")));
    EXPECT_GT(estimated_width(L"alpha beta gamma"), 8);
    EXPECT_LT(estimated_width(L"alpha beta"), 8);
}

/// Runs of one line follow each other by their estimated widths: an "H" is about 1 wide.
TEST(TextEntities, OfSeveralLooksStandBesideEachOther) {
    EXPECT_EQ(
        "------ text \"H\" left 0,-1 x 1,0 y 0,1 fit 1.008\n"
        "ff0000 text \"H\" left 1.008,-1 x 1,0 y 0,1 fit 1.008\n"
        "------ text \"H\" left 2.017,-0.5 x 0.6,0 y 0,0.6 fit 1.008\n"
        "------ strip 2.017,-0.62 2.622,-0.62\n"
        "------ text \"HH\" left 2.017,-1.25 x 0.6,0 y 0,0.6 fit 2.017\n"
        // Centred and at the right of the text's width; the distance to the line below follows from the height of its
        // letters.
        "------ text \"H\" centre 5,-1 x 1,0 y 0,1\n"
        "------ text \"H\" right 10,-4.333 x 2,0 y 0,2\n"
        // A line of Hebrew goes on at the left.
        "ff0000 text \"12\" left 0.777,-1 x 1,0 y 0,1 from right fit 1.553\n"
        "------ text \"\xD7\xA9\" left 0,-1 x 1,0 y 0,1 from right fit 0.777\n"
        // An empty first line takes its space.
        "------ text \"H\" left 0,-2.667 x 1,0 y 0,1\n"
        // A rule under a part of a line.
        "------ text \"H\" left -1.008,0 x 1,0 y 0,1 fit 1.008\n"
        "------ text \"H\" left 0,0 x 1,0 y 0,1 fit 1.008\n"
        "------ strip 0,-0.2 1.008,-0.2\n",
        described(styles + entities("0 MTEXT|8 0|10 0|20 0|40 1|1 H{\\C1;H}\\SH/HH;|"
                                    "0 MTEXT|8 0|10 0|20 0|40 1|41 10|1 \\pxqc;H\\P\\pxqr;\\H2;H|"
                                    "0 MTEXT|8 0|10 0|20 0|40 1|1 {\\C1;12}\\U+05E9|"
                                    "0 MTEXT|8 0|10 0|20 0|40 1|1 \\PH|"
                                    "0 TEXT|8 0|10 0|20 0|11 0|21 0|72 1|40 1|1 H%%uH")));
}

}  // namespace host
