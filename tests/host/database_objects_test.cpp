#include <sstream>

#include "platform/host/database/result_buffer.h"
#include "tests/host/database_fixture.h"

namespace {

/// Two blocks, one anonymous and one with a Hebrew name in code page 1255, four references (the last one of a block
/// that is not there), a line, a text; layer "walls" and no layer "0".
std::string small_drawing(const std::string& header = "9 $TILEMODE|70 1") {
    const std::string shalom = "\xf9\xec\xe5\xed";
    return section("HEADER", groups("9 $ACADVER|1 AC1009|9 $DWGCODEPAGE|3 ANSI_1255|" + header)) +
           section("TABLES", table("LAYER", {"2 walls|70 0|62 3|6 CONTINUOUS"})) +
           section("BLOCKS", groups("0 BLOCK|8 0|2 Bolt|70 0|10 1.0|20 2.0|30 0.0|0 LINE|8 0|10 0|20 0|11 1|21 0|"
                                    "0 INSERT|8 0|2 NUT|10 0|20 0|0 ENDBLK|0 BLOCK|8 0|2 *U7|70 1|10 0|20 0|0 ENDBLK|"
                                    "0 BLOCK|8 0|2 Nut|70 0|10 0|20 0|0 ENDBLK|0 BLOCK|8 0|2 " +
                                    shalom + "|70 0|10 0|20 0|0 ENDBLK")) +
           section("ENTITIES",
                   groups("0 INSERT|5 1A|8 walls|2 BOLT|10 5.5|20 6.5|30 7.5|41 2.0|42 3.0|43 4.0|50 90.0|"
                          "0 INSERT|5 1B|8 walls|2 *U7|10 0|20 0|0 INSERT|5 1C|8 0|2 " +
                          shalom +
                          "|10 0|20 0|0 INSERT|5 1D|8 0|2 GONE|10 0|20 0|0 LINE|5 1E|8 walls|62 1|10 1|20 2|"
                          "30 3|11 4|21 5|31 6|0 TEXT|5 1F|8 0|67 1|10 1|20 1|40 2.5|1 %%c5|0 CIRCLE|5 20|8 0|"
                          "10 0|20 0|40 9")) +
           end_of_file();
}

using Names = std::vector<std::wstring>;

/// Tells each entity in a block by its handle and its block or class.
std::wstring contents_of(AcDbObjectId block) {
    const AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForRead);
    AcDbBlockTableRecordIterator* made = nullptr;
    EXPECT_EQ(record->newIterator(made), Acad::eOk);
    const std::unique_ptr<AcDbBlockTableRecordIterator> iterator(made);
    std::wostringstream text;
    for (; !iterator->done(); iterator->step()) {
        AcDbObjectId id;
        iterator->getEntityId(id);
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        const auto* const reference = AcDbBlockReference::cast(entity);
        text << std::hex << Adesk::UInt64{id.handle()} << L' '
             << (reference != nullptr ? block_name(reference->blockTableRecord()) : entity->isA()->name()) << L'|';
        EXPECT_EQ(entity->ownerId(), block);
    }
    return text.str();
}

}  // namespace

TEST(DatabaseObjects, OpeningFollowsTheRulesOfTheHost) {
    const OpenDrawing drawing(small_drawing());
    const AcDbObjectId bolt = drawing.entity(0);
    const AcDbObjectId line = drawing.entity(4);
    AcDbObject* object = nullptr;
    AcDbObject* again = nullptr;

    EXPECT_EQ(acdbOpenAcDbObject(object, AcDbObjectId(), AcDb::kForRead), Acad::eNullObjectId);
    EXPECT_EQ(acdbOpenAcDbObject(object, drawing.store().id_of_record(99999), AcDb::kForRead), Acad::eUnknownHandle);
    AcDbObjectId foreign;
    foreign.setFromOldId(line.asOldId() + (Adesk::IntDbId{1} << 34));
    EXPECT_EQ(acdbOpenAcDbObject(object, foreign, AcDb::kForRead), Acad::eUnknownHandle);
    EXPECT_EQ(acdbOpenAcDbObject(object, line, AcDb::kForNotify), Acad::eInvalidInput);

    AcDbLine* as_line = nullptr;
    EXPECT_EQ(acdbOpenObject(as_line, bolt, AcDb::kForRead), Acad::eNotThatKindOfClass);
    EXPECT_EQ(as_line, nullptr);
    EXPECT_EQ(host::open_object_count(), 0U);

    // Readers share one instance; a writer is alone.
    ASSERT_EQ(acdbOpenAcDbObject(object, line, AcDb::kForRead), Acad::eOk);
    ASSERT_EQ(acdbOpenAcDbObject(again, line, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(object, again);
    EXPECT_EQ(acdbOpenAcDbObject(again, line, AcDb::kForWrite), Acad::eWasOpenForRead);
    EXPECT_EQ(again, nullptr);
    EXPECT_EQ(object->erase(), Acad::eNotOpenForWrite);
    EXPECT_EQ(host::open_object_report(), L"AcDbLine handle 1E open for read by 2\n");
    EXPECT_EQ(object->close(), Acad::eOk);
    EXPECT_EQ(object->close(), Acad::eOk);
    ASSERT_EQ(acdbOpenAcDbObject(object, line, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(acdbOpenAcDbObject(again, line, AcDb::kForRead), Acad::eWasOpenForWrite);
    EXPECT_EQ(acdbOpenAcDbObject(again, line, AcDb::kForWrite), Acad::eWasOpenForWrite);
    EXPECT_EQ(host::open_object_report(), L"AcDbLine handle 1E open for write\n");
    EXPECT_EQ(object->erase(), Acad::eOk);
    EXPECT_EQ(object->erase(), Acad::eWasErased);
    EXPECT_EQ(object->close(), Acad::eOk);
    EXPECT_EQ(host::open_object_count(), 0U);

    EXPECT_EQ(acdbOpenAcDbObject(object, line, AcDb::kForRead), Acad::eWasErased);
    ASSERT_EQ(acdbOpenAcDbObject(object, line, AcDb::kForRead, true), Acad::eOk);
    EXPECT_EQ(object->close(), Acad::eOk);

    const auto alone = std::make_unique<AcDbLine>();
    EXPECT_EQ(alone->close(), Acad::eNotInDatabase);
}

TEST(DatabaseObjects, IdsEndWithTheirDrawing) {
    AcDbObjectId kept;
    ads_name name = {0, 0};
    {
        const OpenDrawing drawing(small_drawing());
        kept = drawing.entity(0);
        EXPECT_EQ(acdbGetAdsName(name, kept), Acad::eOk);
        AcDbObjectId back;
        EXPECT_EQ(acdbGetObjectId(back, name), Acad::eOk);
        EXPECT_EQ(back, kept);
        AcDbObject* left_open = nullptr;
        EXPECT_EQ(acdbOpenAcDbObject(left_open, kept, AcDb::kForRead), Acad::eOk);
        EXPECT_EQ(host::open_object_count(), 1U);
    }
    EXPECT_EQ(host::open_object_count(), 0U);
    AcDbObject* object = nullptr;
    EXPECT_FALSE(kept.isValid());
    EXPECT_EQ(acdbOpenAcDbObject(object, kept, AcDb::kForRead), Acad::eUnknownHandle);
    EXPECT_EQ(acdbGetObjectId(kept, name), Acad::eInvalidAdsName);
    const ads_name none = {0, 0};
    EXPECT_EQ(acdbGetObjectId(kept, none), Acad::eInvalidAdsName);
    EXPECT_EQ(acdbGetAdsName(name, AcDbObjectId()), Acad::eNullObjectId);
}

TEST(DatabaseObjects, BlocksHoldTheirEntities) {
    const OpenDrawing drawing(small_drawing());
    EXPECT_EQ(blocks(drawing, true, true), (Names{L"*Model_Space", L"*Paper_Space", L"Bolt", L"*U7", L"Nut", L"שלום"}));
    EXPECT_EQ(contents_of(drawing.block(L"*Model_Space")),
              L"1a Bolt|1b *U7|1c שלום|1d (17)|1e AcDbLine|20 AcDbEntity|");
    EXPECT_EQ(contents_of(drawing.block(L"*Paper_Space")), L"1f AcDbText|");
    EXPECT_EQ(contents_of(drawing.block(L"bolt")), L"0 AcDbLine|0 Nut|");
    EXPECT_EQ(drawing->currentSpaceId(), drawing.block(L"*MODEL_SPACE"));

    AcDbBlockTable* table = nullptr;
    ASSERT_EQ(drawing->getSymbolTable(table, AcDb::kForRead), Acad::eOk);
    EXPECT_TRUE(table->has(L"bOLT") && table->has(ACDB_MODEL_SPACE) && table->has(drawing.block(L"NUT")));
    EXPECT_FALSE(table->has(L"gone") || table->has(drawing.entity(0)));
    AcDbBlockTableRecord* record = nullptr;
    EXPECT_EQ(table->getAt(L"gone", record, AcDb::kForRead), Acad::eKeyNotFound);
    EXPECT_EQ(static_cast<int>(Acad::eKeyNotFound), 22);
    ASSERT_EQ(table->getAt(L"bolt", record, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(record->origin(), AcGePoint3d(1, 2, 0));
    EXPECT_FALSE(record->isLayout());
    record->close();
    table->close();
    EXPECT_EQ(host::open_object_count(), 0U);

    const OpenDrawing paper(small_drawing("9 $TILEMODE|70 0"));
    EXPECT_EQ(paper->currentSpaceId(), paper.block(L"*paper_space"));
}

TEST(DatabaseObjects, EntitiesReadTheirFields) {
    const OpenDrawing drawing(small_drawing());
    AcDbBlockReference* reference = nullptr;
    ASSERT_EQ(acdbOpenObject(reference, drawing.entity(0), AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(reference->position(), AcGePoint3d(5.5, 6.5, 7.5));
    EXPECT_EQ(reference->scaleFactors(), AcGeScale3d(2, 3, 4));
    EXPECT_NEAR(reference->rotation(), 1.5707963267948966, 1e-15);
    EXPECT_EQ(take(reference->layer()), L"walls");
    // The base point (1, 2) falls on the insertion point.
    const AcGePoint3d moved = reference->blockTransform() * AcGePoint3d(1, 3, 0);
    EXPECT_NEAR(moved.x, 2.5, 1e-12);
    EXPECT_NEAR(moved.y, 6.5, 1e-12);
    reference->close();

    const AcDbObjectPointer<AcDbLine> line(drawing.entity(4), AcDb::kForRead);
    EXPECT_EQ(take(line->layer()), L"walls");

    const AcDbObjectPointer<AcDbText> text(drawing.entity(5), AcDb::kForRead);
    EXPECT_EQ(take(text->textString()), L"%%c5");
    EXPECT_EQ(text->height(), 2.5);

    AcDbObjectId circle;
    EXPECT_EQ(drawing->getAcDbObjectId(circle, false, AcDbHandle(L"20")), Acad::eOk);
    EXPECT_EQ(circle, drawing.entity(6));
    EXPECT_EQ(drawing->getAcDbObjectId(circle, false, AcDbHandle(L"FFFF")), Acad::eUnknownHandle);
}

TEST(DatabaseObjects, ReferencesReadAheadSayTheSame) {
    constexpr size_t count = 3000;
    std::string entities;
    for (size_t i = 0; i < count; ++i) {
        entities += groups(i % 5 == 4 ? "0 LINE|10 7|20 8|11 9|21 9"
                                      : "0 INSERT|2 BOLT|10 " + std::to_string(i) + "|20 " + std::to_string(i * 3 % 7));
    }
    const OpenDrawing drawing(section("ENTITIES", entities) + end_of_file());
    const auto expect_position = [&drawing](size_t i, double x) {
        const AcDbObjectPointer<AcDbBlockReference> reference(drawing.entity(i), AcDb::kForRead);
        ASSERT_EQ(reference.openStatus(), i % 5 == 4 ? Acad::eNotThatKindOfClass : Acad::eOk);
        if (i % 5 != 4) {
            EXPECT_EQ(reference->position(), AcGePoint3d(x, static_cast<double>(i * 3 % 7), 0)) << i;
        }
    };
    for (size_t i = 0; i < count / 2; ++i) {
        expect_position(i, static_cast<double>(i));
    }
    // Another one, in the midst of the walk, and one that was read ahead and has changed since.
    expect_position(3, 3);
    drawing.drawing().replace_value(drawing.drawing().entities()[count / 2 + 1], 10, -1.0);
    for (size_t i = count / 2; i < count; ++i) {
        expect_position(i, i == count / 2 + 1 ? -1 : static_cast<double>(i));
    }
}

TEST(DatabaseObjects, ADrawingHasTheRecordsThatItsFileLacks) {
    const OpenDrawing drawing(section("ENTITIES", groups("0 LINE|10 0|20 0|11 1|21 1")) + end_of_file());
    EXPECT_EQ(blocks(drawing, true, true), (Names{L"*Model_Space", L"*Paper_Space"}));
    EXPECT_EQ(layers(drawing, true, true), Names{L"0"});
    EXPECT_EQ(styles(drawing, true, true), Names{L"Standard"});
    EXPECT_EQ(drawing.store().table_entry_named(host::TableKind::text_styles, L"standard").handle(), AcDbHandle());
}

TEST(DatabaseObjects, ListTheirGroups) {
    const OpenDrawing drawing(
        section("HEADER", groups("9 $ACADVER|1 AC1015")) +
        section("TABLES", table("BLOCK_RECORD", {"5 20|2 *Model_Space", "5 21|2 Bolt|1001 OURS|1005 1A|1070 7"})) +
        section("BLOCKS", groups("0 BLOCK|2 *Model_Space|0 ENDBLK|0 BLOCK|2 Bolt|0 ENDBLK")) +
        section("ENTITIES",
                groups("0 INSERT|5 1A|102 {ACAD_XDICTIONARY|360 30|102 }|8 0|2 Bolt|10 1.5|20 2|30 3|70 4|50 90|101 "
                       "Embedded Object|40 9|1001 OTHERS|1040 5|1001 OURS|1010 7|1020 8|1030 9")) +
        section("OBJECTS", groups("0 DICTIONARY|5 30|3 name|360 1A")) + end_of_file());
    const auto listed = [](AcDbObjectId id, const wchar_t* application) {
        ads_name name;
        EXPECT_EQ(acdbGetAdsName(name, id), Acad::eOk);
        const List applications = application != nullptr ? list(RTSTR, application) : list();
        const List found(acdbEntGetX(name, applications.get()), acutRelRb);
        std::ostringstream out;
        for (const resbuf* group = found.get(); group != nullptr; group = group->rbnext) {
            const ads_u_val& value = group->resval;
            out << group->restype << ' ';
            switch (host::kind_of_result(group->restype)) {
                case host::ResultKind::text:
                    out << base::utf8_from_wide(value.rstring);
                    break;
                case host::ResultKind::real:
                    out << value.rreal;
                    break;
                case host::ResultKind::point:
                    out << value.rpoint[X] << ',' << value.rpoint[Y] << ',' << value.rpoint[Z];
                    break;
                case host::ResultKind::short_integer:
                    out << value.rint;
                    break;
                case host::ResultKind::name: {
                    AcDbObjectId named;
                    EXPECT_EQ(acdbGetObjectId(named, value.rlname), Acad::eOk);
                    out << std::hex << named.handle() << std::dec;
                    break;
                }
                default:
                    break;
            }
            out << '|';
        }
        return out.str();
    };
    const std::string reference =
        "-1 1a|0 INSERT|5 1A|102 {ACAD_XDICTIONARY|360 30|102 }|8 0|2 Bolt|10 1.5,2,3|70 4|50 90|";
    EXPECT_EQ(listed(drawing.entity(0), nullptr), reference);
    EXPECT_EQ(listed(drawing.entity(0), L"OURS"), reference + "-3 |1001 OURS|1010 7,8,9|");
    EXPECT_EQ(listed(drawing.entity(0), L"*"), reference + "-3 |1001 OTHERS|1040 5|1001 OURS|1010 7,8,9|");
    EXPECT_EQ(listed(drawing.block(L"bolt"), L"OURS"),
              "-1 21|0 BLOCK_RECORD|5 21|2 Bolt|-3 |1001 OURS|1005 1A|1070 7|");
    EXPECT_EQ(listed(drawing.store().with_handle(0x30), nullptr), "-1 30|0 DICTIONARY|5 30|3 name|360 1a|");
    const ads_name nothing = {12345, 0};
    EXPECT_EQ(acdbEntGetX(nothing, nullptr), nullptr);
}
