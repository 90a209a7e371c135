#include "platform/host/view/shape_file.h"

#include <gtest/gtest.h>

#include <fstream>

#include "tests/support/drawing_groups.h"
#include "tests/support/temporary_folder.h"
#include "tests/view/described_list.h"

namespace host {

namespace {

std::string two_bytes(size_t number) {
    return {static_cast<char>(number & 0xFF), static_cast<char>(number >> 8)};
}

/// A shape file: each shape has a name and pen movements; the numbers begin at 130.
std::string shape_file(const std::vector<std::pair<std::string, std::string>>& shapes) {
    std::string bytes = "AutoCAD-86 shapes V1.0\r\n\x1A" + two_bytes(130) + two_bytes(200) + two_bytes(shapes.size());
    std::string data;
    for (size_t i = 0; i < shapes.size(); ++i) {
        const std::string whole = shapes[i].first + '\0' + shapes[i].second + '\0';
        bytes += two_bytes(130 + i) + two_bytes(whole.size());
        data += whole;
    }
    return bytes + data + "EOF";
}

const std::string every_kind =
    shape_file({{"BOX", "\x14\x10\x1C\x18"},
                {"MIXED", "\x02\x20\x01\x12\x03\x02\x40\x04\x02\x05\x10\x06\x1E\x0E\x08\x09\x09"},
                {"PAIRS", std::string("\x09\x01\x02\xFF\x00\x00\x00\x0D\x02\x00\x7F\x00\x00", 13)},
                {"ARCS", std::string("\x0A\x02\x02\x0A\x01\xFC\x0B\x00\x80\x00\x04\x01\x0C\x02\x00\x81", 16)},
                {"CALLS", std::string("\x02\x08\x05\x05\x01\x07\x82", 7)},
                {"ITSELF", std::string("\x10\x07\x87", 3)}});

/// How a shape is drawn in a drawing whose shape file is in `folder`.
std::string drawn(const std::filesystem::path& folder, const std::string& name) {
    const auto drawing = dxf::Drawing::from_bytes(
        groups("0 SECTION|2 TABLES|0 TABLE|2 STYLE|70 1|0 STYLE|2 |70 1|3 C:\\fonts\\parts.shx|0 ENDTAB|0 ENDSEC|"
               "0 SECTION|2 ENTITIES|0 SHAPE|8 0|10 100|20 10|40 2|2 " +
               name + "|0 ENDSEC|0 EOF"),
        folder / "plan.dxf");
    const DisplayList list = DisplayList::build(**drawing);
    return described(list) + (list.not_shown.empty() ? "" : "not shown\n");
}

}  // namespace

TEST(ShapeFile, ShapesAreDrawnAsTheirPenGoes) {
    const test_support::TemporaryFolder folder("shape_file_test");
    EXPECT_EQ("not shown\n", drawn(folder.path(), "box"));
    std::ofstream(folder.path() / "parts.shx", std::ios::binary) << every_kind;
    EXPECT_EQ("------ strip 100,10 100,12 102,12 102,10 100,10\n", drawn(folder.path(), "box"));
    EXPECT_EQ(
        "------ strip 104,10 106,12 110,12 112,12\n"
        "------ strip 110,12 112,10\n",
        drawn(folder.path(), "Mixed"));
    EXPECT_EQ("------ strip 100,10 102,14 100,14\n------ arc 102,14 u 2,0 v 0,2 from 180 by 180\n",
              drawn(folder.path(), "PAIRS"));
    EXPECT_EQ("------ strip 110,20 110,22 112,22 112,20 110,20\n", drawn(folder.path(), "CALLS"));
    EXPECT_NE("", drawn(folder.path(), "ARCS"));
    EXPECT_NE("", drawn(folder.path(), "ITSELF"));
    EXPECT_EQ("not shown\n", drawn(folder.path(), "NONE"));
    for (size_t length = 0; length < every_kind.size(); ++length) {
        const auto cut = ShapeFile::read(std::string_view(every_kind).substr(0, length));
        for (const char* const name : {"BOX", "MIXED", "PAIRS", "ARCS", "CALLS", "ITSELF"}) {
            EXPECT_GE(6000U, cut ? cut->strokes(name).size() : 0);
        }
    }
}

}  // namespace host
