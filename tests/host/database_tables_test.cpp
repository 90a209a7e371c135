#include "tests/host/database_fixture.h"

namespace {

using Names = std::vector<std::wstring>;

std::string styled_drawing() {
    return section("HEADER", groups("9 $ACADVER|1 AC1015|9 $CLAYER|8 Walls|9 $TEXTSTYLE|7 notes|9 $HANDSEED|5 100")) +
           section("TABLES",
                   table("LAYER", {"5 10|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 0|70 0|62 7|6 Continuous",
                                   "5 11|2 walls|70 4|62 -30|6 Dashed", "5 12|2 ice|70 1|62 5|6 Continuous",
                                   "5 13|2 A$C|70 16|62 1|6 Continuous"}) +
                       table("STYLE", {"5 20|2 Standard|70 0|40 0.0|41 1.0|50 0.0|71 0|42 2.5|3 txt|4 ",
                                       "5 21|2 Notes|70 0|40 3.0|41 0.8|50 15.0|71 0|42 3.0|3 romans.shx|4 bigfont.shx",
                                       "5 22|2 |70 1|40 0.0|41 1.0|50 0.0|71 0|42 2.5|3 ltypeshp.shx|4 "}) +
                       table("BLOCK_RECORD",
                             {"5 30|2 *MODEL_SPACE", "5 31|2 *Paper_Space", "5 32|2 Part", "5 33|2 *Paper_Space0"})) +
           section("BLOCKS", groups("0 BLOCK|5 40|330 30|8 0|2 *MODEL_SPACE|70 0|10 0|20 0|3 *MODEL_SPACE|0 ENDBLK|"
                                    "0 BLOCK|5 41|330 32|8 0|2 PART|70 0|10 0|20 0|0 POINT|5 42|8 0|10 1|20 1|0 POINT|"
                                    "5 43|8 0|10 2|20 2|0 POINT|5 44|8 0|10 3|20 3|0 ENDBLK|0 BLOCK|5 45|8 0|"
                                    "2 *Paper_Space0|70 0|0 LINE|5 46|8 0|10 0|20 0|11 1|21 1|0 ENDBLK|"
                                    "0 BLOCK|5 47|8 0|2 part|70 0|10 9|20 9|0 ENDBLK")) +
           section("ENTITIES", groups("0 INSERT|5 50|330 30|8 walls|2 part|10 0|20 0")) + end_of_file();
}

AcDbObjectId by_handle(const OpenDrawing& drawing, const ACHAR* handle) {
    AcDbObjectId id;
    EXPECT_EQ(drawing->getAcDbObjectId(id, false, AcDbHandle(handle)), Acad::eOk);
    return id;
}

Acad::ErrorStatus erase(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbObject> object(id, AcDb::kForWrite);
    return object.openStatus() == Acad::eOk ? object->erase() : object.openStatus();
}

}  // namespace

TEST(DatabaseTables, IteratorsWalkBothWays) {
    const OpenDrawing drawing(styled_drawing());
    EXPECT_EQ(layers(drawing, true, true), (Names{L"0", L"walls", L"ice", L"A$C"}));
    EXPECT_EQ(layers(drawing, false, true), (Names{L"A$C", L"ice", L"walls", L"0"}));
    EXPECT_EQ(styles(drawing, true, true), (Names{L"Standard", L"Notes", L""}));
    // No reference can name the second "part", so it is left out. The spaces come first, wherever the file has them.
    EXPECT_EQ(blocks(drawing, true, true), (Names{L"*MODEL_SPACE", L"*Paper_Space", L"PART", L"*Paper_Space0"}));
    EXPECT_EQ(blocks(drawing, false, true), (Names{L"*Paper_Space0", L"PART", L"*Paper_Space", L"*MODEL_SPACE"}));
}

TEST(DatabaseTables, ErasedRecordsAreSkippedUnlessAskedFor) {
    const OpenDrawing drawing(styled_drawing());
    const AcDbObjectId part = drawing.block(L"part");
    EXPECT_EQ(erase(by_handle(drawing, L"12")), Acad::eOk);
    EXPECT_EQ(erase(by_handle(drawing, L"12")), Acad::eWasErased);
    EXPECT_EQ(erase(part), Acad::eOk);
    EXPECT_EQ(layers(drawing, true, true), (Names{L"0", L"walls", L"A$C"}));
    EXPECT_EQ(layers(drawing, true, false), (Names{L"0", L"walls", L"ice", L"A$C"}));
    EXPECT_EQ(blocks(drawing, true, true), (Names{L"*MODEL_SPACE", L"*Paper_Space", L"*Paper_Space0"}));

    const AcDbObjectPointer<AcDbBlockReference> reference(drawing.entity(0), AcDb::kForRead);
    EXPECT_EQ(reference->blockTableRecord(), part);
    EXPECT_EQ(block_name(part), L"(81)");
    EXPECT_TRUE(part.isErased());
    EXPECT_TRUE(by_handle(drawing, L"43").isErased()) << "what stood in the block went with it";

    const std::pair<const ACHAR*, Acad::ErrorStatus> needed[] = {
        {L"10", Acad::eCannotBeErasedByCaller},
        {L"11", Acad::eCannotBeErasedByCaller},
        {L"30", Acad::eCannotBeErasedByCaller},
        {L"33", Acad::eCannotBeErasedByCaller},
    };
    for (const auto& [handle, status] : needed) {
        EXPECT_EQ(erase(by_handle(drawing, handle)), status);
    }
    EXPECT_EQ(erase(drawing->layerTableId()), Acad::eCannotBeErasedByCaller);
}

TEST(DatabaseTables, ABlockIsKnownByTheHandleOfItsRecord) {
    const OpenDrawing drawing(styled_drawing());
    EXPECT_EQ(by_handle(drawing, L"32"), drawing.block(L"PART"));
    EXPECT_EQ(by_handle(drawing, L"30"), drawing.block(L"*Model_Space"));
    EXPECT_EQ(drawing.block(L"*Paper_Space").handle(), AcDbHandle(L"31"));
    EXPECT_STREQ(by_handle(drawing, L"32").objectClass()->name(), L"AcDbBlockTableRecord");
    EXPECT_EQ(by_handle(drawing, L"43").database(), &*drawing);

    const AcDbObjectPointer<AcDbBlockTableRecord> part(drawing.block(L"part"), AcDb::kForRead);
    AcDbBlockTableRecordIterator* made = nullptr;
    ASSERT_EQ(part->newIterator(made, false), Acad::eOk);
    const std::unique_ptr<AcDbBlockTableRecordIterator> iterator(made);
    ASSERT_EQ(erase(by_handle(drawing, L"43")), Acad::eOk);
    std::vector<Adesk::UInt32> handles;
    for (; !iterator->done(); iterator->step(false)) {
        AcDbObjectId id;
        iterator->getEntityId(id);
        handles.push_back(id.handle().low());
    }
    EXPECT_EQ(handles, (std::vector<Adesk::UInt32>{0x44, 0x42}));

    ACHAR text[AcDbHandle::kStrSiz];
    EXPECT_TRUE(AcDbHandle(0x89ABCDEF, 0x1234567).getIntoAsciiBuffer(text));
    EXPECT_STREQ(text, L"123456789ABCDEF");
    EXPECT_EQ(AcDbHandle(L"123456789abcdef"), AcDbHandle(0x89ABCDEF, 0x1234567));
    EXPECT_TRUE(AcDbHandle(L"12G").isNull());
}
