#include <cmath>

#include "platform/host/dxf/field_writer.h"
#include "tests/host/database_fixture.h"

namespace {

using dxf::Field;

std::string merge(const std::string& record, const std::vector<Field>& fields, dxf::Manner manner = {}) {
    return dxf::merge_fields(dxf::RecordView(record, manner.encoding, manner.codec), fields, manner);
}

Field integer(int code, int64_t value, bool as_if_absent = false) {
    return {code, value, as_if_absent, Field::Presence::always};
}

Field real(int code, double value) {
    return {code, value, false, Field::Presence::always};
}

Field text(int code, const wchar_t* value) {
    return {code, std::wstring(value), false, Field::Presence::always};
}

}  // namespace

TEST(RecordMerge, ChangesWhatDiffersAndNothingElse) {
    struct Case {
        const char* name;
        std::string record;
        std::vector<Field> fields;
        std::string merged;
    };
    const Case cases[] = {
        {"equal values keep their spelling",
         groups("0 TEXT|40 +1.50E0|70   3|1 \\U+05D0"),
         {real(40, 1.5), integer(70, 3), text(1, L"א")},
         groups("0 TEXT|40 +1.50E0|70   3|1 \\U+05D0")},
        {"a value within the accuracy of angles is equal",
         groups("0 TEXT|50 30.0"),
         {real(50, 30.0 + 1e-14)},
         groups("0 TEXT|50 30.0")},
        {"what is no number keeps its spelling",
         groups("0 TEXT|40 -nan(ind)|41 inf|50 NaN"),
         {real(40, std::nan("")), real(41, HUGE_VAL), real(50, 1)},
         groups("0 TEXT|40 -nan(ind)|41 inf") + groups("50 1.0", 3)},
        {"a missing group comes behind the one before it",
         groups("0 TEXT|8 a|10 1|1 x"),
         {text(8, L"a"), integer(62, 3), real(10, 1), real(41, 2), text(1, L"x")},
         groups("0 TEXT|8 a") + groups("62 3", 3) + groups("10 1") + groups("41 2.0", 3) + groups("1 x")},
        {"what means the same is not put in, but is changed where it stands",
         groups("0 TEXT|62 5"),
         {integer(62, 256, true), integer(60, 0, true)},
         groups("0 TEXT") + groups("62 256", 3)},
        {"identity never changes",
         groups("0 TEXT|5 1A|330 2B|100 AcDbText|1 x"),
         {text(0, L"LINE"),
          {5, dxf::Handle{9}, false, {}},
          {330, dxf::Handle{9}, false, {}},
          text(100, L"AcDbLine"),
          text(1, L"y")},
         groups("0 TEXT|5 1A|330 2B|100 AcDbText") + groups("1 y", 3)},
        {"lists, embedded objects, extended data and parts are left alone",
         groups("0 INSERT|102 {APP|2 inner|102 }|2 B|101 Embedded Object|2 D|41 5|1001 APP|2 outer|0 ATTRIB|2 T"),
         {text(2, L"C"), real(41, 2)},
         groups("0 INSERT|102 {APP|2 inner|102 }") + groups("2 C|41 2.0", 3) +
             groups("101 Embedded Object|2 D|41 5|1001 APP|2 outer|0 ATTRIB|2 T")},
        {"a code of two classes is met in each",
         groups("0 DIM|100 A|70 1|100 B|70 2"),
         {text(100, L"A"), integer(70, 1), text(100, L"B"), integer(70, 3)},
         groups("0 DIM|100 A|70 1|100 B") + groups("70 3", 3)},
        {"groups in another order are found",
         groups("0 TEXT|1 x|40 2|8 a"),
         {text(8, L"b"), real(40, 3), text(1, L"y")},
         groups("0 TEXT") + groups("1 y|40 3.0|8 b", 3)},
        {"the last line may lack its end", "0\nTEXT\n1\nx", {text(1, L"x"), integer(62, 1)}, "0\nTEXT\n1\nx\n 62\n1\n"},
        {"line ends are the drawing's", "0\r\nTEXT\r\n1\r\nx\r\n", {text(1, L"y")}, "0\r\nTEXT\r\n  1\r\ny\r\n"},
    };
    for (const Case& one : cases) {
        dxf::Manner manner;
        manner.line_end = one.record.find('\r') == std::string::npos ? "\n" : "\r\n";
        EXPECT_EQ(merge(one.record, one.fields, manner), one.merged) << one.name;
    }
}

TEST(RecordMerge, BinaryRecordsAreChangedInTheirOwnForm) {
    dxf::Manner manner;
    manner.encoding = dxf::Encoding::binary;
    const auto record = [&](double height, const wchar_t* text_value) {
        return dxf::RecordWriter(manner).type(L"TEXT").text(8, L"0").real(40, height).text(1, text_value).take();
    };
    EXPECT_EQ(merge(record(1, L"x"), {real(40, 2.5), text(1, L"longer")}, manner), record(2.5, L"longer"));
    EXPECT_EQ(merge(record(1, L"x"), {real(40, 1), text(1, L"x")}, manner), record(1, L"x"));
}
