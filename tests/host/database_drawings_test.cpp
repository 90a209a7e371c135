// Tests of the database on whole drawings: our samples and those that others wrote.
#include <cmath>
#include <set>
#include <tuple>

#include "acedsel.h"
#include "platform/host/database/insert_block.h"
#include "platform/host/view/display_list.h"
#include "tests/host/database_fixture.h"

namespace {

std::string file_bytes(const std::string& name) {
    return test_support::contents(std::filesystem::path(CORVANES_SOURCE_DIR) / name);
}

class Samples : public testing::TestWithParam<const char*> {};

}  // namespace

TEST_P(Samples, TakeManyEntitiesWithHandlesOfTheirOwn) {
    const std::string bytes = file_bytes(GetParam());
    const OpenDrawing drawing(bytes);
    EXPECT_EQ(drawing.saved(), bytes);
    constexpr int rows = 2000;
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(acdbOpenObject(space, drawing->currentSpaceId(), AcDb::kForWrite), Acad::eOk);
    const size_t before = drawing.drawing().entities().size();
    for (int row = 0; row < rows; ++row) {
        auto line = std::make_unique<AcDbLine>(AcGePoint3d(0, row, 0), AcGePoint3d(1, row, 0));
        ASSERT_EQ(space->appendAcDbEntity(line.get()), Acad::eOk);
        line.release()->close();
    }
    space->close();
    const OpenDrawing again(drawing.saved());
    ASSERT_EQ(again.drawing().entities().size(), before + rows);
    EXPECT_EQ(again.drawing().view(again.drawing().entities()[before + rows - 1]).real(21), rows - 1);
    std::set<Adesk::UInt64> handles;
    for (const dxf::RecordId record : again.drawing().entities()) {
        handles.insert(again.store().id_of_record(record).handle());
    }
    EXPECT_EQ(handles.size(), handles.count(0) != 0 ? 1 : before + rows) << "every handle is used once";
}

INSTANTIATE_TEST_SUITE_P(Database, Samples,
                         testing::Values("samples/house_plan.dxf", "samples/house_plan_r12.dxf",
                                         "samples/house_plan_r12_binary.dxf", "samples/house_plan_r2000.dxf",
                                         "tests/dxf/data/no_layouts.dxf", "tests/dxf/data/binary_r12.dxf"));

TEST(DatabaseDrawings, TheActiveLayoutHasItsNameInFilters) {
    const OpenDrawing drawing(
        section("HEADER", groups("9 $ACADVER|1 AC1015")) +
        section("TABLES",
                table("BLOCK_RECORD", {"5 1F|2 *Model_Space", "5 1B|2 *Paper_Space", "5 2B|2 *Paper_Space0"})) +
        section("ENTITIES", groups("0 LINE|8 0|10 0|20 0|11 1|21 0|0 LINE|67 1|8 0|10 0|20 0|11 1|21 0")) +
        section("OBJECTS", groups("0 LAYOUT|5 A|330 2B|100 AcDbPlotSettings|1 Page|100 AcDbLayout|1 Second|330 2B|"
                                  "0 LAYOUT|5 B|330 1B|100 AcDbPlotSettings|1 Page|100 AcDbLayout|1 Sheet A|330 1B")) +
        end_of_file());
    const std::pair<const ACHAR*, long> wanted[] = {
        {L"Model", 1}, {L"sheet a", 1}, {L"Second", 0}, {L"Page", 0}, {L"*", 2}};
    for (const auto& [layout, count] : wanted) {
        ads_name set;
        long length = 0;
        EXPECT_EQ(acedSSGet(L"X", nullptr, nullptr, list(410, layout).get(), set), count == 0 ? RTERROR : RTNORM)
            << layout;
        acedSSLength(set, &length);
        EXPECT_EQ(length, count) << layout;
    }
}

/// Commands get the transform that the picture shows, whatever plane the reference stands in.
TEST(DatabaseDrawings, ReferencesStandWhereTheyAreDrawn) {
    for (const std::string extrusion :
         {"210 0|220 0|230 1", "210 0|220 0|230 -1", "210 0.6|220 0|230 0.8", "210 0.001|220 -0.002|230 1"}) {
        const OpenDrawing drawing(
            section("BLOCKS", groups("0 BLOCK|8 0|2 T|70 0|10 1|20 2|30 0|0 LINE|8 0|10 3|20 5|11 4|21 5|0 ENDBLK")) +
            section("ENTITIES", groups("0 INSERT|8 0|2 T|10 10|20 20|30 5|41 2|42 3|50 30|" + extrusion)) +
            end_of_file());
        const AcDbObjectPointer<AcDbBlockReference> reference(drawing.entity(0), AcDb::kForRead);
        const AcGeMatrix3d transform = reference->blockTransform();
        host::Box2 box;
        for (const AcGePoint3d& end : {transform * AcGePoint3d(3, 5, 0), transform * AcGePoint3d(4, 5, 0)}) {
            box.add(host::Vec2{end.x, end.y});
        }
        const host::Box2 drawn = host::DisplayList::build(drawing.drawing(), host::DisplayList::Space::model).extents();
        EXPECT_NEAR((drawn.low - box.low).length() + (drawn.high - box.high).length(), 0, 1e-9) << extrusion;
        const AcGePoint3d base = transform * AcGePoint3d(1, 2, 0);
        EXPECT_NEAR((base - reference->position()).length(), 0, 1e-12) << "the base point is the insertion point";
        if (extrusion == "210 0|220 0|230 -1") {
            EXPECT_EQ(reference->position(), AcGePoint3d(-10, 20, -5)) << "seen from below, x runs to the left";
        }
    }
}

/// The attribute's text stands upright in the block, along y.
TEST(DatabaseDrawings, AttributesTurnAndAreMirroredWithTheirReference) {
    const OpenDrawing drawing(
        section("HEADER", groups("9 $ACADVER|1 AC1009")) +
        section("BLOCKS", groups("0 BLOCK|8 0|2 T|70 2|10 1.0|20 1.0|30 0.0|0 ATTDEF|8 0|62 3|10 6.0|20 6.0|40 2|1 v|"
                                 "3 p|2 TAG|70 0|50 90.0|41 0.8|0 ENDBLK")) +
        section("ENTITIES", "") + end_of_file());
    const std::tuple<AcGeScale3d, double, const char*> insertions[] = {
        {AcGeScale3d(2, 4, 1), std::acos(-1.0), "9000 8000 400 160 -9000 0 "},
        {AcGeScale3d(-1, 1, 1), 0, "9500 10500 200 80 -9000 2 "},
        {AcGeScale3d(1, -1, 1), 0, "10500 9500 200 80 9000 2 "},
        {AcGeScale3d(-1, -1, 1), 0, "9500 9500 200 80 -9000 0 "}};
    for (const auto& [scale, rotation, expected] : insertions) {
        AcDbObjectId id;
        ASSERT_EQ(host::insert_block(*drawing, L"t", {{100, 100, 0}, scale, rotation}, id), Acad::eOk);
        const OpenDrawing again(drawing.saved());
        const dxf::RecordRun& entities = again.drawing().entities();
        const dxf::RecordView attribute = again.drawing().view(entities[entities.size() - 1]).parts()[0];
        EXPECT_EQ(base::utf8_from_wide(attribute.text(2) + attribute.text(1)) + std::to_string(attribute.integer(62)),
                  "TAGv3");
        std::string hundredths;
        for (const int code : {10, 20, 40, 41, 50}) {
            hundredths += std::to_string(std::lround(attribute.real(code) * 100)) + " ";
        }
        EXPECT_EQ(hundredths + std::to_string(attribute.integer(71)) + " ", expected);
    }
    EXPECT_EQ(AcDbAttribute().setAttributeFromBlock(nullptr, AcGeMatrix3d()), Acad::eNullObjectPointer);
}

/// An embedded object has groups with the same codes as its attribute.
TEST(DatabaseDrawings, AttributesOfSeveralLinesAreReadAndWrittenByTheirOwnGroups) {
    const std::string before = file_bytes("tests/dxf/data/attribute_of_lines.dxf");
    OpenDrawing drawing(before);
    const dxf::RecordId record = drawing.drawing().blocks()[0].entities[0];
    {
        const AcDbObjectPointer<AcDbAttributeDefinition> note(drawing.store().id_of_record(record), AcDb::kForWrite);
        ASSERT_EQ(note.openStatus(), Acad::eOk);
        EXPECT_EQ(note->setAlignmentPoint({}), Acad::eNotApplicable);
        EXPECT_EQ(take(note->tag()), L"NOTE");
        EXPECT_EQ(note->setHeight(0.75), Acad::eOk);
        EXPECT_EQ(note->setWidthFactor(2.0), Acad::eOk);
    }
    std::string expected = before;
    const std::string height = " 40\n0.5\n  1\nof two lines\n";
    expected.replace(expected.find(height), height.size(), " 40\n0.75\n  1\nof two lines\n 41\n2.0\n");
    EXPECT_EQ(drawing.saved(), expected);
}
