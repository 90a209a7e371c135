#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "base/progress.h"
#include "drawing_text.h"
#include "platform/host/dxf/edits.h"
#include "tests/support/rows.h"

namespace {

using dxf::Place;
using dxf_test::contents;
using dxf_test::drawing_text;

TEST(EditList, AppliesPiecesInOrder) {
    const std::string original = "abcdefgh";
    dxf::EditList edits;
    EXPECT_TRUE(edits.empty());
    const Place end = edits.insert_before(Place::original(8), "END");
    edits.insert_before(end, "1");
    edits.insert_before(end, "2");
    const Place replaced = edits.replace(Place::original(2), 2, "CD!");
    edits.insert_before(replaced, "<");
    edits.insert_before(Place::original(2), "-");
    edits.replace(replaced, 3, "C");
    edits.erase(Place::original(5), 1);
    edits.erase(edits.insert_before(Place::original(0), "gone"), 4);
    std::string result;
    ASSERT_TRUE(edits.apply(original, [&](std::string_view bytes, Place) {
        result += bytes;
        return true;
    }));
    EXPECT_EQ(result, "ab<-Cegh12END");
    EXPECT_FALSE(edits.apply(original, [](std::string_view, Place) { return false; }));
}

/// A drawing of a few records in the given encoding, so that each edit has neighbours.
std::string small_drawing(const dxf::Manner& manner, const wchar_t* version) {
    dxf::RecordWriter writer(manner);
    writer.raw(manner.encoding == dxf::Encoding::ascii ? "" : std::string("AutoCAD Binary DXF\r\n\x1a\0", 22));
    writer.type(L"SECTION").text(2, L"HEADER").text(9, L"$ACADVER").text(1, version);
    writer.text(9, L"$HANDSEED").text(5, L"0040").type(L"ENDSEC");
    writer.type(L"SECTION").text(2, L"TABLES").type(L"TABLE").text(2, L"STYLE").integer(70, 1);
    writer.type(L"STYLE").handle(5, 0x11).text(2, L"Standard").text(3, L"txt").type(L"ENDTAB").type(L"ENDSEC");
    writer.type(L"SECTION").text(2, L"BLOCKS").type(L"BLOCK").handle(5, 0x12).text(2, L"A").type(L"LINE");
    writer.type(L"ENDBLK").type(L"ENDSEC").type(L"SECTION").text(2, L"ENTITIES");
    writer.type(L"INSERT").text(8, L"0").text(2, L"A").real(50, 90.0).type(L"POINT").type(L"ENDSEC");
    return writer.type(L"EOF").raw("trash").take();
}

std::string entity(const dxf::Drawing& drawing, const wchar_t* type, uint64_t handle, const wchar_t* name = L"") {
    dxf::RecordWriter writer(drawing.manner());
    writer.type(type).handle(5, handle).text(8, L"New");
    return *name == 0 ? writer.take() : writer.text(2, name).take();
}

/// Makes every kind of edit that only adds: a style, a block with its contents, references and an object.
void add_things(dxf::Drawing& drawing) {
    drawing.append_entry("STYLE", dxf::RecordWriter(drawing.manner())
                                      .type(L"STYLE")
                                      .handle(5, drawing.allocate_handle())
                                      .text(2, L"TABLE\u05D0")
                                      .take());
    drawing.append_entry("APPID", entity(drawing, L"APPID", drawing.allocate_handle(), L"NEW"));
    const dxf::BlockId block = drawing.append_block(entity(drawing, L"BLOCK", drawing.allocate_handle(), L"B"),
                                                    entity(drawing, L"ENDBLK", drawing.allocate_handle()));
    drawing.append_to_block(block, entity(drawing, L"LINE", drawing.allocate_handle()));
    drawing.append_to_block(block, entity(drawing, L"ATTDEF", drawing.allocate_handle(), L"TAG"));
    drawing.append_to_block(0, entity(drawing, L"CIRCLE", drawing.allocate_handle()));
    drawing.append_entity(entity(drawing, L"INSERT", drawing.allocate_handle(), L"b"));
    drawing.append_entity(entity(drawing, L"INSERT", drawing.allocate_handle(), L"a") +
                          entity(drawing, L"ATTRIB", drawing.allocate_handle()) + entity(drawing, L"SEQEND", 0));
    drawing.append_object(entity(drawing, L"DICTIONARY", drawing.allocate_handle()));
}

const char* const added_text =
    "STYLE: Standard TABLE\xD7\x90\n"
    "APPID: NEW\n"
    "block A: LINE CIRCLE@New\n"
    "block B: LINE@New ATTDEF@New\n"
    "entities: INSERT(A)@0 POINT INSERT(B)@New INSERT(A)@New+parts\n"
    "objects: DICTIONARY@New\n";

struct Kind {
    const char* name;
    dxf::Manner manner;
    const wchar_t* version;
};

class DrawingEdit : public testing::TestWithParam<Kind> {
  protected:
    std::string original_ = small_drawing(GetParam().manner, GetParam().version);
    std::unique_ptr<dxf::Drawing> drawing_ = dxf_test::read(original_);
    dxf_test::TemporaryFolder folder_{std::string("corvanes_dxf_edit_") + GetParam().name};
};

TEST_P(DrawingEdit, AddsRecordsThatReadBackAndChangesNothingElse) {
    ASSERT_TRUE(drawing_);
    EXPECT_FALSE(drawing_->edited());
    add_things(*drawing_);
    const std::string seen = drawing_text(*drawing_);
    EXPECT_EQ(seen.substr(seen.find('\n') + 1), added_text);
    ASSERT_TRUE(drawing_->save(folder_ / "new.dxf"));
    const auto again = dxf::Drawing::open(folder_ / "new.dxf");
    ASSERT_TRUE(again) << again.reason().message();
    EXPECT_EQ(drawing_text(**again), seen);
    EXPECT_EQ((*again)->view((*again)->table("STYLE")->head).integer(70), 2);
    const auto seed = (*again)->view((*again)->header_variable("$HANDSEED"));
    EXPECT_EQ(seed.handle(5), 0x40 + 11U + (GetParam().version[2] == L'1' && (*again)->version() > "AC1012" ? 1 : 0));
    // The new file must hold all bytes of the original in their order, except for the two values below.
    std::string expected = original_;
    const auto table = [this](int64_t count) {
        return dxf::RecordWriter(drawing_->manner()).text(2, L"STYLE").integer(70, count).take();
    };
    expected.replace(expected.find("0040"), 4, seed.group(5)->value);
    expected.replace(expected.find(table(1)), table(1).size(), table(2));
    size_t matched = 0;
    const std::string saved = contents(folder_ / "new.dxf");
    for (const char byte : saved) {
        matched += matched < expected.size() && expected[matched] == byte ? 1 : 0;
    }
    EXPECT_EQ(matched, expected.size()) << "bytes of the original were lost or moved";
    EXPECT_EQ(saved.substr(saved.size() - 5), "trash");
}

TEST_P(DrawingEdit, GoesOnWhenSavedOverItself) {
    std::ofstream(folder_ / "own.dxf", std::ios::binary) << original_;
    auto opened = dxf::Drawing::open(folder_ / "own.dxf");
    ASSERT_TRUE(opened);
    dxf::Drawing& drawing = **opened;
    const dxf::RecordId point = drawing.entities()[1];
    add_things(drawing);
    drawing.erase(point);
    const std::string seen = drawing_text(drawing);
    ASSERT_TRUE(drawing.save(folder_ / "own.dxf"));
    EXPECT_EQ(drawing_text(drawing), seen);
    EXPECT_EQ(contents(folder_ / "own.dxf").find("POINT"), std::string::npos);
    std::filesystem::resize_file(folder_ / "own.dxf",
                                 10);  // another program cuts the file; the open drawing stays whole
    EXPECT_EQ(drawing.view(drawing.entities()[0]).real(50), 90.0);
    drawing.append_to_block(1, entity(drawing, L"ARC", drawing.allocate_handle()));
    drawing.rewrite(drawing.entities()[2], entity(drawing, L"INSERT", 0x77, L"renamed"));
    const std::string changed = drawing_text(drawing);
    ASSERT_TRUE(drawing.save(folder_ / "own.dxf"));
    std::string without_erased = changed;
    const std::string gone = " POINT-erased";
    without_erased.erase(without_erased.find(gone), gone.size());
    EXPECT_EQ(drawing_text(**dxf::Drawing::open(folder_ / "own.dxf")), without_erased);
    EXPECT_EQ(drawing_text(drawing), changed);
}

TEST_P(DrawingEdit, UndoesStepsOneByOne) {
    const std::string before = drawing_text(*drawing_);
    const dxf::RecordId insert = drawing_->entities()[0];
    const dxf::RecordId point = drawing_->entities()[1];
    EXPECT_FALSE(drawing_->undo());
    drawing_->history().begin_step(L"ADD");
    add_things(*drawing_);
    const uint64_t added = drawing_->history().state();
    drawing_->history().begin_step(L"CHANGE");
    ASSERT_TRUE(drawing_->replace_value(insert, 50, 45.5));
    ASSERT_TRUE(drawing_->replace_value(insert, 50, 30.0));
    ASSERT_TRUE(drawing_->replace_value(point, 0, std::wstring(L"LINE")));
    drawing_->erase(point);
    drawing_->history().begin_step();  // of a command that changes nothing
    const uint64_t made = drawing_->edits_made();
    EXPECT_EQ(drawing_->undo(), L"CHANGE");
    EXPECT_GT(drawing_->edits_made(), made);
    EXPECT_EQ(drawing_->history().state(), added) << "as it was then";
    ASSERT_TRUE(drawing_->save(folder_ / "elsewhere.dxf"));  // a save takes handles, which is no step
    EXPECT_EQ(drawing_->undo(), L"ADD");
    EXPECT_FALSE(drawing_->undo());
    EXPECT_EQ(drawing_->view(insert).real(50), 90.0);
    ASSERT_TRUE(drawing_->save(folder_ / "new.dxf"));
    std::string undone = drawing_text(**dxf::Drawing::open(folder_ / "new.dxf"));
    const std::string empty_table = "APPID:\n";
    undone.erase(undone.find(empty_table), empty_table.size());
    EXPECT_EQ(undone, before);

    drawing_->history().begin_step();
    add_things(*drawing_);  // the names of undone things can be used again
    ASSERT_TRUE(drawing_->save(folder_ / "new.dxf"));
    const std::string again = drawing_text(**dxf::Drawing::open(folder_ / "new.dxf"));
    EXPECT_EQ(again.substr(again.find('\n') + 1), added_text);
}

INSTANTIATE_TEST_SUITE_P(
    Encodings, DrawingEdit,
    testing::Values(Kind{"text", {dxf::Encoding::ascii, "\n", dxf::TextCodec(1252)}, L"AC1015"},
                    Kind{"text_crlf_r12", {dxf::Encoding::ascii, "\r\n", dxf::TextCodec(1252)}, L"AC1009"},
                    Kind{"utf8", {dxf::Encoding::ascii, "\r\n", dxf::TextCodec(65001)}, L"AC1027"},
                    Kind{"binary_r12", {dxf::Encoding::binary_r12, "\n", dxf::TextCodec(1252)}, L"AC1009"},
                    Kind{"binary", {dxf::Encoding::binary, "\n", dxf::TextCodec(1252)}, L"AC1018"}),
    [](const testing::TestParamInfo<Kind>& param) { return param.param.name; });

/// New handles are free whatever $HANDSEED says, and however high the drawing's handles are (one is an attribute's).
TEST(DrawingEditAtEdges, GivesHandlesThatNobodyHas) {
    // $HANDSEED, the handles of points, the first new handle, and $HANDSEED after three new handles.
    const auto rows = test_support::rows_of(
        "100=20=100=103|1=20=51=54|=20=51=54|00000000000000000100=20=51=54|"
        "234567890ABCDEF0=20=234567890ABCDEF0=234567890ABCDEF3|FFFFFFFFFFFFFFFF=20=51=54|"
        "FFFFFFFFFFFFFFFE=4000000000000000=51=4000000000000001|4000000000000001=4000000000000001=51=4000000000000002|"
        "60=FFFFFFFFFFFFFFFF=60=63|60=3FFFFFFFFFFFFFFF=4000000000000000=4000000000000003|"
        "60=3FFFFFFFFFFFFFFF A000000000000000=4000000000000000=A000000000000001|"
        "60=3FFFFFFFFFFFFFFF 7FFFFFFFFFFFFFFF BFFFFFFFFFFFFFFF FFFFFFFFFFFFFFF0=4000000000000000=FFFFFFFFFFFFFFF1");
    const dxf_test::TemporaryFolder folder("corvanes_dxf_handles");
    for (const auto& row : rows) {
        std::string points;
        for (const std::string& handle : test_support::split<char>(row[1], ' ')) {
            points += "|0 POINT|5 " + handle;
        }
        const auto drawing = dxf_test::read(groups(
            "0 SECTION|2 HEADER|9 $ACADVER|1 AC1015|9 $HANDSEED|5 " + row[0] +
            "|0 ENDSEC|0 SECTION|2 ENTITIES|0 INSERT|5 10|66 1|0 ATTRIB|5 50|0 SEQEND" + points + "|0 ENDSEC|0 EOF"));
        ASSERT_TRUE(drawing);
        for (uint64_t i = 0; i < 3; ++i) {
            EXPECT_EQ(drawing->allocate_handle(), std::stoull(row[2], nullptr, 16) + i) << row[0] << " " << row[1];
        }
        ASSERT_TRUE(drawing->save(folder / "new.dxf"));
        const auto again = dxf_test::read(contents(folder / "new.dxf"));
        EXPECT_EQ(again->view(again->header_variable("$HANDSEED")).handle(5), std::stoull(row[3], nullptr, 16))
            << row[0];
    }
}

TEST(DrawingEditAtEdges, MakesWhatIsMissing) {
    const auto drawing = dxf_test::read("0\nSECTION\n2\nOBJECTS\n0\nENDSEC");
    ASSERT_TRUE(drawing);
    EXPECT_EQ(drawing->allocate_handle(), 0U) << "a drawing without handles gets none";
    drawing->append_entity("0\nPOINT\n");
    drawing->append_entry("STYLE", "0\nSTYLE\n2\nA\n");
    drawing->append_block("0\nBLOCK\n2\nB\n", "0\nENDBLK\n");
    const dxf_test::TemporaryFolder folder("corvanes_dxf_missing");
    ASSERT_TRUE(drawing->save(folder / "new.dxf"));
    EXPECT_EQ(contents(folder / "new.dxf"),
              "  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\nSTYLE\n 70\n1\n0\nSTYLE\n2\nA\n  0\nENDTAB\n  0\nENDSEC\n"
              "  0\nSECTION\n  2\nBLOCKS\n0\nBLOCK\n2\nB\n0\nENDBLK\n  0\nENDSEC\n"
              "  0\nSECTION\n  2\nENTITIES\n0\nPOINT\n  0\nENDSEC\n0\nSECTION\n2\nOBJECTS\n0\nENDSEC");
    const auto last = dxf_test::read("0\nSECTION\n2\nTABLES\n0\nENDSEC");
    last->append_object("0\nDICTIONARY\n");
    last->append_entity("0\nPOINT\n");
    ASSERT_TRUE(last->save(folder / "last.dxf"));
    EXPECT_EQ(contents(folder / "last.dxf"),
              "0\nSECTION\n2\nTABLES\n0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n0\nPOINT\n  0\nENDSEC\n"
              "  0\nSECTION\n  2\nOBJECTS\n0\nDICTIONARY\n  0\nENDSEC\n");
    EXPECT_FALSE(last->save(folder / "no" / "such.dxf"));
}

TEST(DrawingEditAtEdges, AddsToTablesAndBlocksThatAreNotClosed) {
    const std::string tables = "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n70\n0\n";
    const std::string blocks = "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n2\nA\n";
    const auto drawing = dxf_test::read(tables + "0\nENDSEC\n" + blocks + "0\nENDSEC\n0\nEOF\n");
    ASSERT_TRUE(drawing);
    drawing->append_to_block(0, "0\nLINE\n");
    drawing->append_entry("STYLE", "0\nSTYLE\n2\nS\n");
    drawing->append_entry("LAYER", "0\nLAYER\n2\nL\n");
    drawing->append_block("0\nBLOCK\n2\nB\n", "0\nENDBLK\n");
    drawing->append_to_block(0, "0\nARC\n");
    const dxf_test::TemporaryFolder folder("corvanes_dxf_open");
    ASSERT_TRUE(drawing->save(folder / "new.dxf"));
    EXPECT_EQ(contents(folder / "new.dxf"),
              "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n70\n1\n0\nLAYER\n2\nL\n"
              "  0\nTABLE\n  2\nSTYLE\n 70\n1\n0\nSTYLE\n2\nS\n  0\nENDTAB\n0\nENDSEC\n" +
                  blocks + "0\nLINE\n0\nARC\n0\nBLOCK\n2\nB\n0\nENDBLK\n0\nENDSEC\n0\nEOF\n");
}

TEST(Drawing, StopsWhenNobodyWaitsAndLeavesTheOldFile) {
    const dxf_test::TemporaryFolder folder("corvanes_dxf_stopped");
    const std::string bytes = groups("0 SECTION|2 ENTITIES|0 TEXT|8 0|10 0|20 0|40 1") + "1\n" +
                              std::string(17'000'000, 'x') + "\n" + groups("0 ENDSEC|0 EOF");
    folder.write("old.dxf", "old");
    std::vector<double> heard;
    bool wanted = true;
    const base::ProgressWatch watch([&](double part) {
        heard.push_back(part);
        return wanted;
    });
    const auto drawing = dxf::Drawing::from_bytes(bytes, "long.dxf");
    ASSERT_TRUE(drawing);
    EXPECT_TRUE((*drawing)->save(folder / "new.dxf"));
    ASSERT_EQ(heard.size(), 3U);
    EXPECT_TRUE(heard[0] < heard[1] && heard[1] < heard[2] && heard[2] > 0.9);
    wanted = false;
    EXPECT_EQ((*drawing)->save(folder / "old.dxf").reason(), "Writing it was stopped");
    EXPECT_EQ(folder.read("old.dxf"), "old");
    const auto stopped = dxf::Drawing::from_bytes(bytes, "long.dxf");
    ASSERT_FALSE(stopped);
    EXPECT_EQ(stopped.reason().message(), "long.dxf:5: reading it was stopped here");
}

}  // namespace
