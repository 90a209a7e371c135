// Tests of entities that are drawn from their own data: dimensions, leaders, tolerances, tables and images.
#include <gtest/gtest.h>

#include "tests/view/described_list.h"

namespace host {

namespace {

const std::string styles =
    tables(
        "0 TABLE|2 BLOCK_RECORD|0 BLOCK_RECORD|5 B1|2 _OPEN30|0 BLOCK_RECORD|5 B2|2 _NONE|0 ENDTAB|"
        "0 TABLE|2 DIMSTYLE|0 DIMSTYLE|105 D1|2 OPEN|40 2|41 1|42 0|44 1|140 1|147 1|176 1|177 3|271 2|78 8|343 B1|344 "
        "B2|"
        "341 B1|0 ENDTAB") +
    blocks(block("_OPEN30", "0 LINE|8 0|62 0|10 0|20 0|11 -1|21 0.5"));

}  // namespace

TEST(Annotations, OfDimensionsWithoutTheirBlock) {
    EXPECT_EQ(
        "00ff00 strip 0,0 0,7\n"
        "00ff00 strip 10,0 10,7\n"
        "ff0000 strip 0,5 10,5\n"
        "ff0000 strip 0,5 2,4\n"
        "------ text \"10\" centre 5,7 x 2,0 y 0,2\n"
        "ff0000 strip 0,0 3,4\n"
        "------ text \"about R5\" centre 9.8,8.4 x 1.2,1.6 y -1.6,1.2\n"
        "00ff00 strip 4,0 7.657,0\n"
        "00ff00 strip 0,4 0,7.657\n"
        "ff0000 arc 0,0 u 5.657,0 v 0,5.657 from 0 by 90\n"
        "ff0000 strip 5.657,0 6.657,2\n"
        "------ strip 4,5 4,8.28 9,8.64 9,9\n"
        "------ text \"3.0000\" centre 8.91,9 x 0,0.18 y -0.18,0\n",
        described(styles + entities("0 DIMENSION|8 0|3 OPEN|70 0|10 10|20 5|13 0|23 0|14 10|24 0|50 0|"
                                    "0 DIMENSION|8 0|3 OPEN|70 4|10 0|20 0|15 3|25 4|1 about <>|11 9|21 9|"
                                    "0 DIMENSION|8 0|3 OPEN|70 5|15 0|25 0|13 4|23 0|14 0|24 4|10 4|20 4|1  |"
                                    "0 DIMENSION|8 0|3 NONE|70 70|10 1|20 1|13 4|23 5|14 9|24 9")));
}

TEST(Annotations, OfLeaders) {
    EXPECT_EQ(
        "ff0000 strip 0,0 0,9 3,9\n"
        "ff0000 strip 0,0 1,2\n"
        "0000ff strip 0,0 9,0\n"
        "------ strip 0,0 0,0.1\n"
        "0000ff strip 0,0 15,8\n"
        "0000ff strip 0,0 3.353,0.088\n"
        "0000ff strip 15,8 19,8\n"
        "------ strip 19,5.4 26.436,5.4 26.436,10 19,10 19,5.4\n"
        "------ text \"note\" left 20,7 x 2,0 y 0,2\n",
        described(
            styles +
            entities(
                "0 LEADER|8 0|62 5|3 OPEN|71 1|10 0|20 0|10 0|20 9|10 3|20 9|"
                "0 LEADER|8 0|62 5|3 open|10 0|20 0|10 9|20 0|1001 ACAD|1000 DSTYLE|1002 {|1070 341|1005 B2|"
                "1070 176|1070 0|1002 }|"
                "0 LEADER|8 0|10 0|20 0|10 0|20 0.1|"
                "0 MULTILEADER|8 0|300 CONTEXT_DATA{|40 1|41 2|140 3|145 1|290 1|304 note|11 0|21 0|31 1|"
                "12 20|22 9|13 1|23 0|43 0|90 -1073741824|171 1|172 5|291 0|302 LEADER{|290 1|291 1|10 15|20 8|11 1|"
                "21 0|40 4|304 LEADER_LINE{|10 0|20 0|305 }|303 }|301 }|170 1|91 -1023410171|342 B1|292 1")));
}

TEST(Annotations, OfFramesWithTexts) {
    EXPECT_EQ(
        "ff0000 strip 7,5 7,9.793 3,9.793 3,5 7,5\n"
        "------ text \"\u2316\" centre 6,7.397 x 0,2 y -2,0\n"
        "ff0000 strip 7,9.793 7,18.469 3,18.469 3,9.793 7,9.793\n"
        "------ text \"\u23000.5\" centre 6,14.131 x 0,2 y -2,0\n"
        "ff0000 strip 11,5 11,9 7,9 7,5 11,5\n"
        "------ text \"A\" centre 10,7 x 0,2 y -2,0\n"
        "------ strip 100,46 130,46 130,50 100,50 100,46\n"
        "------ text \"Title\" centre 115,47 x 2,0 y 0,2\n"
        "------ strip 100,40 110,40 110,46 100,46 100,40\n"
        "------ text \"a\" centre 105,42.91 x 0.18,0 y 0,0.18\n"
        "------ strip 110,40 130,40 130,46 110,46 110,40\n"
        "------ text \"b\" centre 120,42.91 x 0.18,0 y 0,0.18\n",
        described(styles + entities("0 TOLERANCE|8 0|3 OPEN|10 5|20 5|1 {\\Fgdt;j}%%v{\\Fgdt;n}0.5%%v%%v^JA|11 0|21 1|"
                                    "0 ACAD_TABLE|8 0|2 *GONE|10 100|20 50|141 4|141 6|142 10|142 20|"
                                    "171 1|175 2|176 1|1 Title|140 2|171 1|1 under it|171 1|1 a|171 1|301 "
                                    "CELL_VALUE|140 100|302 b|304 ACVALUE_END")));
}

TEST(Annotations, OfMeshesAndPictures) {
    const std::string definitions =
        "0 SECTION|2 OBJECTS|0 IMAGEDEF|5 E1|1 C:\\pictures\\site.jpg|0 PDFDEFINITION|5 E2|1 plan.pdf|0 ENDSEC|";
    const std::string corners = "0 MESH|8 0|91 0|92 4|10 0|20 0|30 0|10 4|20 0|30 1|10 4|20 4|30 2|10 0|20 4|30 3|";
    EXPECT_EQ(
        "------ strip 5,10 15,10 15,5 5,5 5,10\n"
        "------ text \"site.jpg\" centre 10,7.25 x 0.5,0 y 0,0.5\n"
        "------ strip 10,10 10,16 2,16 2,10 10,10\n"
        "------ text \"plan.pdf\" centre 6.3,13 x 0,0.6 y -0.6,0\n"
        "------ strip 4,0 0,4\n"
        "------ strip 0,0 4,0\n",
        described(entities("0 IMAGE|8 0|10 5|20 5|11 0.1|21 0|12 0|22 0.1|13 100|23 50|340 E1|"
                           "0 PDFUNDERLAY|8 0|10 10|20 10|41 2|42 2|50 90|340 E2|11 0|21 0|11 3|21 4|" +
                           corners + "93 5|90 4|90 0|90 1|90 2|90 3|94 1|90 1|90 3|95 0|" + corners +
                           "93 9|90 3|90 0|90 1|90 7|90 4|90 2") +
                  definitions));
}

}  // namespace host
