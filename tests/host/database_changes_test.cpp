#include <algorithm>
#include <cmath>
#include <iterator>
#include <numeric>

#include "platform/host/database/insert_block.h"
#include "tests/host/database_fixture.h"
#include "tests/host/list_person.h"

namespace {

const std::string head_r12 = "9 $ACADVER|1 AC1009|9 $CLAYER|8 walls";

std::string drawing_r12(const std::string& entities) {
    return section("HEADER", groups(head_r12)) + section("TABLES", table("LAYER", {"2 walls|70 0|62 3|6 CONTINUOUS"})) +
           section("BLOCKS",
                   groups("0 BLOCK|8 0|2 TAG|70 2|10 1.0|20 0.0|30 0.0|0 ATTDEF|8 0|10 1.0|20 2.0|30 0.0|"
                          "40 0.5|1 none|3 Mark?|2 MARK|70 1|72 1|11 3.0|21 2.0|31 0.0|0 ATTDEF|8 0|10 0|20 0|"
                          "40 1|1 fixed|3 |2 FIX|70 2|0 ENDBLK|8 0")) +
           section("ENTITIES", entities) + end_of_file();
}

std::vector<std::string> group_list(const std::string& bytes) {
    std::vector<std::string> list;
    for (size_t at = 0; at < bytes.size();) {
        const size_t end = bytes.find('\n', bytes.find('\n', at) + 1) + 1;
        list.push_back(bytes.substr(at, end - at));
        at = end;
    }
    return list;
}

/// The part of `after` between the groups that both texts begin with and those that both end with.
std::string difference(const std::string& before, const std::string& after) {
    const std::vector<std::string> old = group_list(before);
    const std::vector<std::string> now = group_list(after);
    const auto begin = std::mismatch(now.begin(), now.end(), old.begin(), old.end()).first;
    const auto end = std::mismatch(now.rbegin(), std::make_reverse_iterator(begin), old.rbegin(), old.rend()).first;
    return std::accumulate(begin, end.base(), std::string());
}

void append(const OpenDrawing& drawing, AcDbObjectId block, std::unique_ptr<AcDbEntity> entity) {
    const AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForWrite);
    ASSERT_EQ(record.openStatus(), Acad::eOk);
    ASSERT_EQ(record->appendAcDbEntity(entity.get()), Acad::eOk);
    EXPECT_EQ(entity->ownerId(), block);
    EXPECT_TRUE(entity.release()->close() == Acad::eOk && drawing.drawing().edited());
}

/// A block with a line and a centred attribute, as a command makes it.
Acad::ErrorStatus build_block(const OpenDrawing& drawing, const ACHAR* name) {
    AcDbBlockTable* blocks = nullptr;
    Acad::ErrorStatus status = drawing->getSymbolTable(blocks, AcDb::kForWrite);
    auto record = std::make_unique<AcDbBlockTableRecord>();
    record->setName(name);
    status = blocks->add(record.get());
    blocks->close();
    if (status != Acad::eOk) {
        return status;
    }
    AcDbBlockTableRecord& block = *record.release();
    auto line = std::make_unique<AcDbLine>(AcGePoint3d(0, 2, 0), AcGePoint3d(9.6, 2, 0));
    block.appendAcDbEntity(line.get());
    line.release()->close();
    auto definition = std::make_unique<AcDbAttributeDefinition>(AcGePoint3d(), L"שם", L"NAME1", L"NAME1");
    definition->setHeight(1.0);
    definition->setPosition({1, 0, 0});
    definition->setHorizontalMode(AcDb::kTextCenter);
    definition->setAlignmentPoint({4.8, 0, 0});
    block.appendAcDbEntity(definition.get());
    definition->setInvisible(false);
    definition->setVerifiable(true);
    definition.release()->close();
    block.setOrigin({0, 2, 0});
    return block.close();
}

}  // namespace

TEST(Layers, AreSwitchedByEditsOfTheirOwnRecords) {
    const std::string tables =
        section("TABLES", table("LAYER", {"2 walls|70 64|62 3|6 CONTINUOUS|290 0", "2 doors|70 0|62 1"}));
    const OpenDrawing opened(tables + section("ENTITIES", "") + end_of_file());
    const std::string before = opened.saved();
    const auto switched = [&](void (*change)(AcDbLayerTableRecord&)) {
        AcDbLayerTable* found = nullptr;
        opened->getSymbolTable(found, AcDb::kForRead);
        AcDbLayerTableRecord* layer = nullptr;
        found->getAt(L"WALLS", layer, AcDb::kForWrite);
        change(*layer);
        layer->close();
        found->close();
        return difference(plain(before), plain(opened.saved()));
    };
    EXPECT_EQ(switched([](AcDbLayerTableRecord& layer) { layer.setIsFrozen(true); }), groups("70 65"));
    EXPECT_EQ(switched([](AcDbLayerTableRecord& layer) { layer.setIsLocked(true); }), groups("70 69"));
    EXPECT_EQ(switched([](AcDbLayerTableRecord& layer) { layer.setIsOff(true); }), groups("70 69|62 -3"));
    EXPECT_EQ(switched([](AcDbLayerTableRecord& layer) {
                  EXPECT_TRUE(layer.isOff() && layer.isFrozen() && layer.isLocked());
                  layer.setIsFrozen(false);
                  layer.setIsLocked(false);
                  layer.setIsOff(false);
              }),
              "");
}

TEST(DatabaseChanges, WhatIsAddedIsInTheFileAndNothingElseChanges) {
    const std::string before = drawing_r12(groups("0 LINE|8 0|10 0|20 0|11 1|21 1"));
    const OpenDrawing drawing(before);
    append(drawing, drawing.block(L"*Model_Space"),
           std::make_unique<AcDbLine>(AcGePoint3d(1, 2, 3), AcGePoint3d(4, 5, 6)));
    EXPECT_EQ(difference(before, plain(drawing.saved())),
              groups("0 LINE|8 walls|10 1.0|20 2.0|30 3.0|11 4.0|21 5.0|31 6.0"));
    append(drawing, drawing.block(L"*Paper_Space"), std::make_unique<AcDbText>(AcGePoint3d(1, 1, 0), L"a^b"));
    EXPECT_EQ(difference(before, plain(drawing.saved())),
              groups("0 LINE|8 walls|10 1.0|20 2.0|30 3.0|11 4.0|21 5.0|31 6.0|"
                     "0 TEXT|67 1|8 walls|10 1.0|20 1.0|30 0.0|40 0.2|1 a^ b"));
}

TEST(DatabaseChanges, AddedBlocksAreComplete) {
    const std::string before = drawing_r12("");
    const OpenDrawing drawing(before);
    EXPECT_EQ(build_block(drawing, L"KVO0001"), Acad::eOk);
    EXPECT_EQ(host::open_object_report(), L"");
    // Its ENDBLK looks like the one before it.
    EXPECT_EQ(difference(before, plain(drawing.saved())),
              groups("0 BLOCK|8 0|2 KVO0001|70 2|10 0.0|20 2.0|30 0.0|3 KVO0001|1 |"
                     "0 LINE|8 walls|10 0.0|20 2.0|30 0.0|11 9.6|21 2.0|31 0.0|"
                     "0 ATTDEF|8 walls|10 1.0|20 0.0|30 0.0|40 1.0|1 \\U+05E9\\U+05DD|72 1|11 4.8|21 0.0|31 0.0|"
                     "3 NAME1|2 NAME1|70 4"));
    EXPECT_EQ(build_block(drawing, L"kvo0001"), Acad::eDuplicateRecordName);
    EXPECT_EQ(block_name(drawing.block(L"kvo0001")), L"KVO0001");

    const AcDbObjectPointer<AcDbBlockTableRecord> block(drawing.block(L"KVO0001"), AcDb::kForWrite);
    EXPECT_EQ(block->erase(), Acad::eOk);
    EXPECT_EQ(difference(before, plain(drawing.saved())), "");
    EXPECT_TRUE(drawing.block(L"KVO0001").isNull());
}

TEST(DatabaseChanges, RecordsOfLaterVersionsHaveHandlesOwnersAndMarkers) {
    const std::string before =
        section("HEADER", groups("9 $ACADVER|1 AC1015|9 $HANDSEED|5 40")) +
        section("TABLES",
                groups("0 TABLE|2 STYLE|5 3|330 0|100 AcDbSymbolTable|70 0|0 ENDTAB|0 TABLE|2 BLOCK_RECORD|5 1|"
                       "330 0|100 AcDbSymbolTable|70 0|0 ENDTAB")) +
        section("BLOCKS", "") + section("ENTITIES", "") + end_of_file();
    const OpenDrawing drawing(before);
    AcDbObjectId found;
    EXPECT_EQ(drawing->getAcDbObjectId(found, false, AcDbHandle(L"41")), Acad::eUnknownHandle);
    AcDbTextStyleTable* records = nullptr;
    auto style = std::make_unique<AcDbTextStyleTableRecord>();
    style->setName(L"early");
    ASSERT_EQ(drawing->getSymbolTable(records, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(records->add(style.get()), Acad::eNotOpenForWrite);
    EXPECT_EQ(records->close(), Acad::eOk);
    style = std::make_unique<AcDbTextStyleTableRecord>();
    ASSERT_EQ(drawing->getSymbolTable(records, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(records->add(style.get()), Acad::eInvalidInput) << "without a name";
    EXPECT_EQ(style->setName(L"a|b"), Acad::eInvalidInput);
    style->setName(L"KVOTABLE");
    style->setFileName(L"simpheb.shx");
    AcDbObjectId id;
    ASSERT_EQ(records->add(id, style.get()), Acad::eOk);
    EXPECT_EQ(records->add(style.get()), Acad::eAlreadyInDb);
    style.release()->close();
    records->close();
    ASSERT_EQ(build_block(drawing, L"B"), Acad::eOk);
    EXPECT_EQ(drawing->getAcDbObjectId(found, false, AcDbHandle(L"40")), Acad::eOk);
    EXPECT_EQ(found, id);
    EXPECT_EQ(drawing->getAcDbObjectId(found, false, AcDbHandle(L"41")), Acad::eOk);
    EXPECT_EQ(found, drawing.block(L"B"));
    EXPECT_EQ(
        plain(drawing.saved()),
        section("HEADER", groups("9 $ACADVER|1 AC1015|9 $HANDSEED|5 46")) +
            section("TABLES",
                    groups("0 TABLE|2 STYLE|5 3|330 0|100 AcDbSymbolTable|70 1|0 STYLE|5 40|330 3|"
                           "100 AcDbSymbolTableRecord|100 AcDbTextStyleTableRecord|2 KVOTABLE|70 0|40 0.0|41 1.0|"
                           "50 0.0|71 0|42 0.2|3 simpheb.shx|4 |0 ENDTAB|"
                           "0 TABLE|2 BLOCK_RECORD|5 1|330 0|100 AcDbSymbolTable|70 1|0 BLOCK_RECORD|5 41|330 1|"
                           "100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 B|340 0|0 ENDTAB")) +
            section("BLOCKS",
                    groups("0 BLOCK|5 42|330 41|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 B|70 2|10 0.0|20 2.0|"
                           "30 0.0|3 B|1 |0 LINE|5 44|330 41|100 AcDbEntity|8 0|100 AcDbLine|10 0.0|20 2.0|30 0.0|"
                           "11 9.6|21 2.0|31 0.0|0 ATTDEF|5 45|330 41|100 AcDbEntity|8 0|100 AcDbText|10 1.0|20 0.0|"
                           "30 0.0|40 1.0|1 \\U+05E9\\U+05DD|72 1|11 4.8|21 0.0|31 0.0|"
                           "100 AcDbAttributeDefinition|3 NAME1|2 NAME1|70 4|0 ENDBLK|5 43|330 41|100 AcDbEntity|"
                           "8 0|100 AcDbBlockEnd")) +
            section("ENTITIES", "") + end_of_file());
}

TEST(DatabaseChanges, AChangedRecordKeepsItsOtherBytes) {
    const std::string odd_layer = "  8\n  0 \n";
    const std::string before =
        drawing_r12(groups("0 INSERT") + odd_layer + groups("2 tag|39 1.5|10 1.50|20 +2|30 0.|50 45|1001 APP|41 7") +
                    groups("999 remark|0 TEXT|8 0|10 0|20 0|40 1|1 x|50 30|51 5"));
    const OpenDrawing drawing(before);
    {
        const AcDbObjectPointer<AcDbBlockReference> reference(drawing.entity(0), AcDb::kForWrite);
        reference->setRotation(std::acos(0.0));
        reference->setScaleFactors(AcGeScale3d(1, 2, 1));
        EXPECT_EQ(reference->setScaleFactors(AcGeScale3d(0, 1, 1)), Acad::eInvalidInput);
        const AcDbObjectPointer<AcDbText> text(drawing.entity(1), AcDb::kForWrite);
        text->setTextString(L"y");
        EXPECT_EQ(text->setAlignmentPoint({1, 1, 1}), Acad::eNotApplicable);
        EXPECT_EQ(text->setTextStyle(drawing.entity(0)), Acad::eWrongObjectType);
    }
    EXPECT_EQ(drawing.saved(),
              drawing_r12(groups("0 INSERT") + odd_layer + groups("2 tag|39 1.5|10 1.50|20 +2|30 0.") +
                          groups("42 2.0|50 90.0", 3) + groups("1001 APP|41 7") +
                          groups("999 remark|0 TEXT|8 0|10 0|20 0|40 1") + groups("1 y", 3) + groups("50 30|51 5")));
    {
        const AcDbObjectPointer<AcDbBlockReference> reference(drawing.entity(0), AcDb::kForWrite);
        reference->setScaleFactors(AcGeScale3d());
        const AcDbObjectPointer<AcDbLayerTableRecord> layer(
            drawing.store().table_entry_named(host::TableKind::layers, L"walls"), AcDb::kForWrite);
        EXPECT_EQ(layer->erase(), Acad::eCannotBeErasedByCaller);
        EXPECT_EQ(layer->setName(L"other"), Acad::eNotApplicable);
    }
    EXPECT_NE(plain(drawing.saved()).find(groups("42 1.0|50 90.0")), std::string::npos);
}

TEST(DatabaseChanges, InsertingABlockMakesItsAttributes) {
    const std::string before = drawing_r12("");
    const OpenDrawing drawing(before);
    AcDbObjectId id;
    EXPECT_EQ(host::insert_block(*drawing, L"none", {}, id), Acad::eKeyNotFound);
    EXPECT_EQ(host::insert_block(*drawing, L"tag", {{10, 20, 0}, AcGeScale3d(0, 1, 1), 0}, id), Acad::eInvalidInput);
    EXPECT_EQ(host::insert_block(*drawing, ACDB_MODEL_SPACE, {}, id), Acad::eInvalidInput);
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> being_written(drawing.block(L"TAG"), AcDb::kForWrite);
        EXPECT_EQ(host::insert_block(*drawing, L"tag", {}, id), Acad::eWasOpenForWrite);
    }
    EXPECT_EQ(drawing.drawing().edited(), false);
    ASSERT_EQ(host::insert_block(*drawing, L"tag", {{10, 20, 0}, AcGeScale3d(2, 4, 1), 0}, id), Acad::eOk);
    EXPECT_EQ(difference(before, plain(drawing.saved())),
              groups("0 INSERT|8 walls|66 1|2 TAG|10 10.0|20 20.0|30 0.0|41 2.0|42 4.0|"
                     "0 ATTRIB|8 0|10 10.0|20 28.0|30 0.0|40 2.0|1 none|41 0.5|72 1|11 14.0|21 28.0|31 0.0|2 MARK|70 1|"
                     "0 SEQEND|8 walls"));
    EXPECT_EQ(host::open_object_report(), L"");
    const AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForRead);
    EXPECT_EQ(block_name(reference->blockTableRecord()), L"TAG");
    EXPECT_EQ(drawing.drawing().view(drawing.drawing().entities()[0]).parts().size(), 2U);
}

TEST(DatabaseChanges, ValuesThatAreNoUtf8KeepTheirBytes) {
    const std::string ga = "\xB0\xA1";
    const std::string before =
        section("HEADER", groups("9 $ACADVER|1 AC1021|9 $DWGCODEPAGE|3 ANSI_949")) +
        section("TABLES", table("LAYER", {"2 " + ga + "|70 0|62 3|6 CONTINUOUS"})) +
        section("BLOCKS", groups("0 BLOCK|8 0|2 " + ga + "|70 0|10 0.0|20 0.0|30 0.0|0 ENDBLK|8 0")) +
        section("ENTITIES", groups("0 TEXT|8 " + ga + "|10 0.0|20 0.0|40 1.0|1 " + ga + "|0 INSERT|8 0|2 " + ga)) +
        end_of_file();
    const OpenDrawing drawing(before);
    {
        const AcDbObjectPointer<AcDbText> text(drawing.entity(0), AcDb::kForWrite);
        EXPECT_EQ(take(text->textString()), L"\uAC00");
        EXPECT_EQ(take(text->layer()), L"\uAC00");
        text->setHeight(2.0);
        const AcDbObjectPointer<AcDbBlockReference> reference(drawing.entity(1), AcDb::kForRead);
        EXPECT_EQ(block_name(reference->blockTableRecord()), L"\uAC00");
    }
    EXPECT_EQ(difference(before, plain(drawing.saved())), groups("40 2.0"));
}

TEST(DatabaseChanges, AttributesMayOutliveTheirReference) {
    const OpenDrawing drawing(drawing_r12(""));
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(acdbOpenObject(space, drawing->currentSpaceId(), AcDb::kForWrite), Acad::eOk);
    auto owned = std::make_unique<AcDbBlockReference>(AcGePoint3d(), drawing.block(L"TAG"));
    auto attribute = std::make_unique<AcDbAttribute>(AcGePoint3d(), L"v", L"MARK");
    EXPECT_EQ(owned->appendAttribute(attribute.get()), Acad::eNotApplicable) << "not yet in the drawing";
    ASSERT_EQ(space->appendAcDbEntity(owned.get()), Acad::eOk);
    EXPECT_EQ(space->appendAcDbEntity(owned.get()), Acad::eAlreadyInDb);
    EXPECT_EQ(space->appendAcDbEntity(nullptr), Acad::eNullEntityPointer);
    space->close();
    AcDbBlockReference& reference = *owned.release();
    ASSERT_EQ(reference.appendAttribute(attribute.get()), Acad::eOk);
    attribute->setTextString(L"w");
    EXPECT_EQ(reference.close(), Acad::eOk);
    EXPECT_EQ(attribute.release()->close(), Acad::eOk);
    EXPECT_NE(plain(drawing.saved()).find(groups("1 w|2 MARK|70 0|0 SEQEND|8 walls")), std::string::npos);
}

TEST(ResultBuffers, PrintingFormatsOfAnyLength) {
    host::ListPerson person;
    const std::wstring wide(3000, L'x');
    EXPECT_EQ(acutPrintf(L"\n%i %ls!", 7, wide.c_str()), RTNORM);
    EXPECT_EQ(person.said, L"\n7 " + wide + L"!");
    EXPECT_EQ(acutPrintf(nullptr), RTERROR);
}
