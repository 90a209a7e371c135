#include "platform/host/dxf/drawing.h"

#include <gtest/gtest.h>

#include "drawing_text.h"

namespace {

using dxf_test::drawing_text;

const std::string house = groups(
    "999 made by hand|0 SECTION|2 HEADER|9 $ACADVER|1 AC1015|9 $DWGCODEPAGE|3 ANSI_1255|9 $HANDSEED|5 50|"
    "0 ENDSEC|0 SECTION|2 TABLES|"
    "0 TABLE|2 LAYER|5 1|70 2|0 LAYER|5 2|2 Walls|70 1|62 3|6 Continuous|"
    "0 LAYER|5 3|2 \xE7\xEC\xE5\xEF|70 4|62 -5|0 ENDTAB|"
    "0 TABLE|2 DIMSTYLE|70 1|0 DIMSTYLE|105 4F|2 Standard|5 FFFF|0 ENDTAB|0 ENDSEC|"
    "0 SECTION|2 BLOCKS|0 BLOCK|5 10|2 Door|70 0|0 LINE|8 0|0 INSERT|2 KNOB|0 ENDBLK|"
    "0 BLOCK|5 11|2 knob|0 POLYLINE|66 1|0 VERTEX|10 1|0 VERTEX|10 2|0 SEQEND|0 CIRCLE|0 ENDBLK|0 ENDSEC|"
    "0 SECTION|2 ENTITIES|0 INSERT|5 20|8 WALLS|2 DOOR|66 1|0 ATTRIB|5 21|8 0|2 TAG|0 SEQEND|5 22|"
    "0 ATTRIB|8 0|2 STRAY|0 INSERT|8 walls|67 1|2 Nowhere|0 INSERT|8 0|0 ENDSEC|"
    "0 SECTION|2 OBJECTS|0 DICTIONARY|5 C|0 ENDSEC|0 SECTION|2 THUMBNAILIMAGE|90 3|310 AABBCC|0 ENDSEC|0 EOF");

const char* const house_text =
    "AC1015\n"
    "LAYER: Walls \xD7\x97\xD7\x9C\xD7\x95\xD7\x9F\n"
    "DIMSTYLE: Standard\n"
    "block Door: LINE@0 INSERT(KNOB)\n"
    "block KNOB: POLYLINE+parts CIRCLE\n"
    "entities: INSERT(Door)@Walls+parts ATTRIB@0 INSERT(Nowhere)@Walls/paper INSERT@0\n"
    "objects: DICTIONARY\n";

TEST(Drawing, IndexesEverySection) {
    std::string returns;
    for (const char byte : house) {
        returns += byte == '\n' ? "\r\n" : std::string(1, byte);
    }
    EXPECT_EQ(dxf_test::read(returns)->manner().line_end, "\r\n");
    EXPECT_EQ(drawing_text(*dxf_test::read(returns)), house_text);
    const auto drawing = dxf_test::read(house);
    ASSERT_TRUE(drawing);
    EXPECT_EQ(drawing_text(*drawing), house_text);
    EXPECT_EQ(drawing->manner().line_end, "\n");
    EXPECT_EQ(drawing->view(drawing->blocks()[1].head).text(2), L"knob") << "a name stays as stored";
    EXPECT_EQ(drawing->block_named(drawing->block_names().find(L"DOOR")), 0U);
    EXPECT_EQ(drawing->block_named(drawing->block_names().find(L"nowhere")), dxf::no_block);
    EXPECT_EQ(drawing->view(drawing->header_variable("$HANDSEED")).handle(5), 0x50U);
    EXPECT_EQ(drawing->header_variable("$NONE"), dxf::no_record);
    EXPECT_EQ(drawing->record(drawing->table("DIMSTYLE")->entries[0]).handle, 0x4FU);
    EXPECT_EQ(drawing->allocate_handle(), 0x50U);
}

TEST(Drawing, RefusesWhatIsNoWholeDrawing) {
    const std::string section = "0\nSECTION\n2\nENTITIES\n";
    const struct {
        std::string bytes;
        const char* message;
    } cases[] = {
        {"", "memory.dxf: the file is empty"},
        {"Dear reader,\nthis is a letter\n", "memory.dxf:1: a group code was expected"},
        {"\x89PNG\r\n\x1a\n", "memory.dxf:1: a group code was expected"},
        {"12\n13\n14\n15\n", "memory.dxf:1: SECTION or EOF was expected here"},
        {"AC1027\0\0", "memory.dxf: a DWG drawing, not a DXF drawing"},
        {"0\nEOF\n", "memory.dxf:1: a drawing without sections"},
        {"0\nSECTION\n0\nENDSEC\n", "memory.dxf:3: a SECTION without a name"},
        {"0\nSECTION\n", "memory.dxf:3: a SECTION without a name"},
        {"0\nSECTION\n2\n", "memory.dxf:3: the drawing ends within a group"},
        {section, "memory.dxf:5: the drawing ends within the section ENTITIES"},
        {section + "0\nLINE\n  8\n", "memory.dxf:7: the drawing ends within a group"},
        {section + "0\nLINE\nx8\n0\n0\nENDSEC\n", "memory.dxf:7: a group code was expected"},
        {section + "0\nLINE\n0\nEOF\n", "memory.dxf:7: the section ENTITIES is not closed before this"},
        {section + "0\nSECTION\n2\nOBJECTS\n", "memory.dxf:5: the section ENTITIES is not closed before this"},
        {section + "0\nENDSEC\n0\nBLOCK\n", "memory.dxf:7: SECTION or EOF was expected here"},
        {section + "0\nENDSEC\nEOF\n", "memory.dxf:7: a group code was expected"},
        {"AutoCAD Binary DXF\n\n", "memory.dxf: a damaged binary drawing: its first line is not as it must be"},
        {std::string("AutoCAD Binary DXF\r\n\x1a\0\0\0SECTION\0\2\0HEAD", 38),
         "memory.dxf: byte 32: the drawing ends within a group"},
    };
    for (const auto& item : cases) {
        const auto opened = dxf::Drawing::from_bytes(item.bytes, "memory.dxf");
        EXPECT_FALSE(opened);
        EXPECT_EQ(opened.reason().message(), item.message) << item.bytes;
    }
    const dxf_test::TemporaryFolder folder("corvanes_dxf_refused");
    EXPECT_EQ(dxf::Drawing::open(folder / "none.dxf").reason().reason, "no such file");
    EXPECT_EQ(dxf::Drawing::open(folder / "").reason().reason, "is a directory");
}

TEST(Drawing, TakesOddButReadableFiles) {
    const std::string entities = "0 SECTION|2 ENTITIES|0 POINT|0 ENDSEC";
    const std::string one_point = "entities: POINT\nobjects:\n";
    const struct {
        std::string bytes;
        std::string text;
    } cases[] = {
        {groups(entities), "AC1009\n" + one_point},                                     // neither HEADER nor EOF
        {groups(entities) + "\n\n\x1a", "AC1009\n" + one_point},                        // blank lines in place of EOF
        {"\xEF\xBB\xBF" + groups(entities + "|0 EOF"), "AC1009\n" + one_point},         // a byte-order mark
        {groups(entities + "|0 EOF") + "any\ntrash", "AC1009\n" + one_point},           // lines behind EOF
        {groups(entities + "|0 ENDSEC|9 $EXTMIN|10 0|0 EOF"), "AC1009\n" + one_point},  // strays between sections
        {groups("0 SECTION|999 why not|2 ENTITIES|70 9|0 POINT|0 ENDSEC"), "AC1009\n" + one_point},
        {groups("0 SECTION|2 ENTITIES|0 POINT|0 ENDSEC|0 SECTION|2 ENTITIES|0 LINE|0 ENDSEC"),
         "AC1009\nentities: POINT LINE\nobjects:\n"},
        {groups("0 SECTION|2 BLOCKS|0 LINE|0 BLOCK|0 LINE|0 BLOCK|2 |0 ENDBLK|0 ENDSEC"),
         "AC1009\nblock : LINE\nblock :\nentities:\nobjects:\n"},
        {groups("0 SECTION|2 TABLES|0 TABLE|2 STYLE|0 STYLE|2 A|0 TABLE|2 LAYER|0 ENDTAB|0 UCS|0 ENDSEC"),
         "AC1009\nSTYLE: A\nLAYER:\nentities:\nobjects:\n"},
        {groups("0 SECTION|2 ENTITIES|0 |0 INSERT|2 |8 |0 SEQEND|0 VERTEX|0 ENDSEC"),
         "AC1009\nentities:  INSERT()@+parts VERTEX\nobjects:\n"},
    };
    for (const auto& item : cases) {
        const auto opened = dxf::Drawing::from_bytes(item.bytes, "memory.dxf");
        ASSERT_TRUE(opened) << opened.reason().message() << "\n" << item.bytes;
        EXPECT_EQ(drawing_text(**opened), item.text) << item.bytes;
    }
}

}  // namespace
