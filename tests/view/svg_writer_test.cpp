#include "platform/host/view/svg_writer.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <random>

#include "platform/host/view/svg_text.h"
#include "tests/view/described_list.h"

namespace host {

namespace {

SvgPicture svg_of(const std::string& groups, std::optional<uint64_t> most = {}) {
    const auto drawing = drawing_of(groups);
    return svg_picture(DisplayList::build(*drawing), *drawing, most);
}

/// The symbols and the elements of the space, without the head of the SVG.
std::string elements_of(const SvgPicture& picture) {
    const size_t begin = picture.text.find("<defs>\n") + 7;
    return picture.text.substr(begin, picture.text.find("</svg>") - begin);
}

/// Blocks of which each holds ten references to the one before.
std::string bomb(int levels) {
    std::string all = block("B0", "0 LINE|8 0|10 0|20 0|11 1|21 1");
    for (int level = 1; level <= levels; ++level) {
        const std::string inside = "0 INSERT|8 0|2 B" + std::to_string(level - 1) + "|10 0|20 0";
        const std::string five = inside + "|" + inside + "|" + inside + "|" + inside + "|" + inside;
        all += "|" + block("B" + std::to_string(level), five + "|" + five);
    }
    return blocks(all) + entities("0 LINE|8 0|10 0|20 0|11 1|21 1|0 INSERT|8 0|2 B" + std::to_string(levels));
}

}  // namespace

TEST(SvgWriter, OfBlocksAndReferences) {
    const SvgPicture picture =
        svg_of(tables("0 TABLE|2 LAYER|" + layer("RED", 1) + "|" + layer("OFF", -3) + "|0 ENDTAB") +
               blocks(block("PART",
                            "0 LINE|8 0|62 0|10 0|20 0|11 4|21 0|0 LINE|8 0|62 0|10 4|20 0|11 4|21 2|"
                            "0 CIRCLE|8 0|10 2|20 1|40 1|0 SOLID|8 RED|10 0|20 0|11 1|21 0|12 0|22 1") +
                      "|" + block("WHOLE", "0 INSERT|8 0|2 PART|10 1|20 1|0 INSERT|8 0|62 0|2 PART|10 5|20 1|41 -1")) +
               entities("0 INSERT|5 1A|8 RED|2 WHOLE|10 0|20 0|"
                        "0 INSERT|5 1B|8 RED|62 5|2 PART|10 20|20 0|50 90|"
                        "0 INSERT|5 1C|8 OFF|2 PART|10 0|20 8|70 3|71 2|44 10|45 5|"
                        "0 TEXT|8 0|10 0|20 20|40 2|1 \\U+05D0 <b>&\"|"
                        "0 POINT|8 RED|62 7|10 40|20 30"));
    EXPECT_EQ(
        R"svg(<symbol id="s0" data-box="-500 -250 1000 500"><path class="l2" d="M-500 250L500 250M500 250L500 -250M250 0C250 -138.071 138.071 -250 0 -250C-138.071 -250 -250 -138.071 -250 0C-250 138.071 -138.071 250 0 250C138.071 250 250 138.071 250 0"/>
<polygon class="l0" points="-500 250 -250 250 -500 0 -500 0"/>
</symbol>
<symbol id="s1" data-box="-500 -250 1000 500"><path class="l2 cb" d="M-500 250L500 250M500 250L500 -250"/>
<path class="l2" d="M250 0C250 -138.071 138.071 -250 0 -250C-138.071 -250 -250 -138.071 -250 0C-250 138.071 -138.071 250 0 250C138.071 250 250 138.071 250 0"/>
<polygon class="l0" points="-500 250 -250 250 -500 0 -500 0"/>
</symbol>
<symbol id="s2" data-box="-500 -250 1000 500"><use class="l2" data-block="PART" data-handle="0" href="#s0" transform="matrix(1 0 0 1 0 0)"/>
<use class="l2 ub" data-block="PART" data-handle="0" href="#s1" transform="matrix(-1 0 0 1 0 0)"/>
</symbol>
<symbol id="s3" data-box="-500 -250 1000 500"><polygon class="l0" points="-500 250 -250 250 -500 0 -500 0"/>
</symbol>
<symbol id="s4"><use href="#s3" transform="matrix(0.1538462 0 0 0.1538462 107.6923 830.7692)"/></symbol>
<symbol id="s5"><use href="#s4" transform="translate(0 0)"/><use href="#s4" transform="translate(384.6154 0)"/><use href="#s4" transform="translate(769.2308 0)"/></symbol>
<symbol id="s6" data-box="30.7692 600 923.0769 269.2308"><use href="#s5" transform="translate(0 0)"/><use href="#s5" transform="translate(0 -192.3077)"/></symbol>
</defs>
<g class="cf">
<use class="l0" data-block="WHOLE" data-handle="1A" href="#s2" transform="matrix(0.1538462 0 0 0.1538462 146.1538 1100)"/>
<use class="l0 u0000ff" data-block="PART" data-handle="1B" href="#s1" transform="matrix(0 -0.1538462 0.1538462 0 761.5385 1100)"/>
<use class="l1" data-block="PART" data-handle="1C" href="#s6"/>
<text class="l2 t0 e r" transform="matrix(1.074345 0 0 1.074345 30.76923 407.6923)">א &#60;b&#62;&#38;&#34;</text>
<path class="l0 cf o" d="M1569.2308 23.0769h0"/>
</g>
)svg",
        elements_of(picture));
    EXPECT_EQ(21U, picture.elements);
}

TEST(SvgWriter, OfNamesThatAreMarkup) {
    const std::string text = svg_of(tables("0 TABLE|2 LAYER|" + layer("</style><script>", 1) + "|0 ENDTAB") +
                                    blocks(block("]]>\" onload=\"x\\U+0001\\U+D800", "0 POINT|8 0|10 1|20 1")) +
                                    entities("0 INSERT|5 1A|8 </style><script>|2 ]]>\" onload=\"x\\U+0001\\U+D800"))
                                 .text;
    EXPECT_NE(std::string::npos, text.find("data-block=\"]]&#62;&#34; onload=&#34;x\xEF\xBF\xBD\xEF\xBF\xBD\""));
    EXPECT_NE(std::string::npos, text.find("data-layer=\"&#60;/style&#62;&#60;script&#62;\""));
    EXPECT_EQ(std::string::npos, text.find("<script"));
}

TEST(SvgWriter, OfClippedReferencesAndInheritedDashes) {
    const SvgPicture picture =
        svg_of(tables("0 TABLE|2 LTYPE|0 LTYPE|2 DASHED|73 2|40 0.3|49 0.2|49 -0.1|0 ENDTAB") +
               blocks(block("BAR", "0 LINE|8 0|6 ByBlock|370 -2|10 0|20 0|11 8|21 0")) +
               entities("0 INSERT|5 1A|8 0|6 DASHED|370 100|2 BAR|10 1|20 1|0 INSERT|5 1B|8 0|2 BAR|10 1|20 3|"
                        "102 {ACAD_XDICTIONARY|360 A1|102 }") +
               "0 SECTION|2 OBJECTS|0 DICTIONARY|5 A1|3 ACAD_FILTER|360 A2|0 DICTIONARY|5 A2|3 SPATIAL|360 A3|"
               "0 SPATIAL_FILTER|5 A3|70 2|10 1|20 -1|10 6|20 1|210 0|220 0|230 1|11 0|21 0|31 0|71 1|72 0|73 0|"
               "40 1|40 0|40 0|40 0|40 0|40 1|40 0|40 0|40 0|40 0|40 1|40 0|"
               "40 1|40 0|40 0|40 0|40 0|40 1|40 0|40 0|40 0|40 0|40 1|40 0|0 ENDSEC|");
    const std::string elements = elements_of(picture);
    EXPECT_EQ(0U, elements.find("<symbol id=\"s0\" data-box=\"-500 0 1000 0\"><path class=\"l0 w4 d1\" d="));
    EXPECT_NE(std::string::npos, elements.find("points=\"-500 200 500 200 500 -200 -500 -200\"/></clipPath>"));
    EXPECT_NE(std::string::npos, elements.find("data-handle=\"1B\" href=\"#s3\" transform=\"matrix(0.9615385 0 0 0."));
    EXPECT_NE(std::string::npos, picture.text.find(".w4{stroke-width:4px}.d1{"));
}

TEST(SvgWriter, LeavesOutWhatWouldTakeTooLong) {
    const SvgPicture whole = svg_of(bomb(4));
    EXPECT_EQ(std::pair(size_t{0}, uint64_t{21112}), std::pair(whole.left_out, whole.elements));
    const SvgPicture cut = svg_of(bomb(40));
    EXPECT_EQ(std::pair(size_t{1}, uint64_t{1}), std::pair(cut.left_out, cut.elements));
    EXPECT_LT(cut.text.size(), 50'000U);
    EXPECT_EQ("", svg_of(bomb(4), 21111).text);
    EXPECT_EQ(std::pair(true, false),
              std::pair(has_more_elements(*drawing_of(bomb(4)), 1), has_more_elements(*drawing_of(bomb(4)), 2)));
    EXPECT_EQ(whole.text, svg_of(bomb(4), 21112).text);
    EXPECT_EQ("", svg_of(bomb(40), 1'000'000).text);
    EXPECT_NE("", svg_of(blocks("0 ENDBLK")).text);
}

TEST(SvgText, WritesNumbersAsTheLibraryDoes) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> mantissa(-10, 10);
    std::uniform_int_distribution<int> exponent(-20, 20);
    SvgTransforms transforms;
    for (int count = 0; count < 20000; ++count) {
        const double value = mantissa(random) * std::pow(10, exponent(random));
        char expected[64];
        const auto general = std::to_chars(expected, std::end(expected), value, std::chars_format::general, 7);
        const std::string number(expected, general.ptr);
        std::string placed;
        transforms.append(placed, {{value, 0}, {0, value}, {0, value}});
        transforms.append(placed, {{value, 0}, {0, value}, {value, 0}});
        ASSERT_EQ(placed, " transform=\"matrix(" + number + " 0 0 " + number + " 0 " + number + ")\"" +
                              " transform=\"matrix(" + number + " 0 0 " + number + " " + number + " 0)\"");
        if (std::fabs(value) < 1e6) {
            std::string fixed;
            append_coordinate(fixed, value, 3);
            ASSERT_NEAR(std::stod(fixed), value, 0.000501) << fixed;
        }
    }
    std::string edges;
    for (const double value : {0.0, -0.0, -0.0004, 0.9996, 2.5, -10.0, 1e300, std::nan("")}) {
        append_coordinate(edges += ' ', value, 3);
    }
    EXPECT_EQ(edges, " 0 0 0 1 2.5 -10 0 0");
}

}  // namespace host
