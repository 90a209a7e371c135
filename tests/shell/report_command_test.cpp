// Tests "QXBOMC" from the drawing to the saved report, with the built module in the host.
#include <windows.h>

#include <algorithm>
#include <sstream>

#include "tests/shell/module_program.h"

namespace fs = std::filesystem;
using testing::HasSubstr;

namespace {

constexpr char prices[] =
    "Door|1250|\xe3\xec\xfa\r\n"
    "BOLT|0.104|steel\r\n"
    "unused|7|x\r\n";

class ReportCommand : public test_support::ModuleProgram {
  protected:
    ReportCommand() {
        write("House.dxf",
              test_support::drawing_of({"DOOR", "bolt", "door", "*U3", "Bolt", "\xe3\xec\xfa 80", "bolt"}));
        write("list.prc", prices);
    }
};

TEST_F(ReportCommand, GoesOnWithoutAPriceListWhenNoneIsChosen) {
    write("filename.set", "remembered.prc");
    succeed("QXBOMC\n^C\nALL\n\n@expect-text 214 \"\"\n@press \"Save to file\"\n\n@press \"Close\"\nQUIT\n");
    EXPECT_EQ(read("House.txt"),
              "Block name Item Price   Quantity          Description      Total\r\n"
              "      door       0.00          2                            0.00\r\n"
              "      bolt       0.00          3                            0.00\r\n"
              "       *u3       0.00          1                            0.00\r\n"
              "    \xe3\xec\xfa 80       0.00          1                            0.00\r\n"
              "  Summary:                                                  0.00\r\n");
    EXPECT_EQ(read("filename.set"), "") << "the remembered price list is forgotten";
}

TEST_F(ReportCommand, RemembersWidthsAndThePriceList) {
    succeed("QXBOMC\nlist.prc\nALL\n\n@drag-border 0 30\n@tick \"Show Price\" off\n@press \"Close\"\nQUIT\n");
    const std::string widths = read("corvane2.set");
    std::istringstream numbers(widths);
    int width[5] = {};
    numbers >> width[0] >> width[1] >> width[2] >> width[3] >> width[4];
    EXPECT_GT(width[1], 30) << widths;
    EXPECT_EQ(width[0], width[1] + 30) << "the dragged column";
    EXPECT_EQ(width[4], width[1]) << "hidden columns keep the width that they had";
    EXPECT_EQ(widths.back(), ' ');
    EXPECT_THAT(read("filename.set"), testing::EndsWith("list.prc"));
    // Return takes the remembered list; Escape in the grid stores the settings too.
    write("corvane2.set", "60 50 40 30 20 ");
    succeed("QXBOMC\n\nALL\n\n@click-cell 0 0\n@key RETURN\n@press \"Save to file\"\nagain.txt\n@key ESCAPE\nQUIT\n");
    EXPECT_THAT(read("again.txt"), HasSubstr("2500.31"));
    EXPECT_EQ(read("corvane2.set"), "60 50 40 30 20 ");
    // So it does for a report during whose selection another report was opened.
    succeed("QXBOMC\nlist.prc\n'QXBOMC\n\nALL\n\n@press \"Close\"\nALL\n\n@click-cell 0 0\n@key ESCAPE\nQUIT\n");
    fs::remove(folder_ / "corvane2.set");
    succeed("QXBOMC\nlist.prc\nALL\n\n@press \"Close\"\nQUIT\n");
    const std::string without_settings = read("corvane2.set");
    for (const char* garbage : {"abc", "", "\xff\xfe", "99999999999999999999 -5 0 7 6 9"}) {
        write("corvane2.set", garbage);
        write("filename.set", garbage);
        succeed("QXBOMC\nlist.prc\nALL\n\n@press \"Close\"\nQUIT\n");
        const std::string stored = read("corvane2.set");
        EXPECT_EQ(stored, without_settings) << garbage;
        EXPECT_THAT(read("filename.set"), testing::EndsWith("list.prc"));
    }
}

TEST_F(ReportCommand, IsPrintedBesideTheWindowForFinding) {
    succeed(
        "QXBOMC\nlist.prc\nALL\n\n@click-cell 0 0\n@key CTRL+F\n@type \"bolt\"\n@key RETURN\n"
        "@type \"s\"\n@key RETURN\n@alert \"Item not found\"\n@key ESCAPE\n@print \"page.png\"\n"
        "@key CTRL+F\n@key ESCAPE\n@press \"Close\"\nQUIT\n");
    EXPECT_EQ(read("page.png").substr(0, 8), "\x89PNG\r\n\x1A\n");
}

TEST_F(ReportCommand, ComesBackAfterUnloading) {
    succeed(
        "ARX\nUnload\nCorvanes\nARX\nLoad\nCorvanes.arx\n"
        "QXBOMC\nlist.prc\nALL\n\n@press \"Close\"\nARX\nUnload\nCorvanes\nQUIT\n");
    const test_support::Outcome outcome = run("ARX\nUnload\nCorvanes\nQXBOMC\nQUIT\n");
    EXPECT_NE(outcome.status, 0U) << "an unloaded command is unknown";
}

/// A drawing with two forms of the dynamic block WINDOW: *U3 names WINDOW itself, and for *U4 its reference does. DOOR
/// is on a frozen layer, and twice in one place; two more are inside *U3.
std::string dynamic_drawing() {
    std::string bytes;
    const auto add = [&bytes](const std::string& more) { bytes += groups(more); };
    const auto insert = [&add](const std::string& handle, const std::string& name, const std::string& layer,
                               const std::string& x) {
        add("0 INSERT|5 " + handle + (handle == "40" ? "|102 {ACAD_XDICTIONARY|360 50|102 }" : "") +
            "|100 AcDbEntity|8 " + layer + "|100 AcDbBlockReference|2 " + name + "|10 " + x + "|20 0");
    };
    add("0 SECTION|2 HEADER|9 $ACADVER|1 AC1015|0 ENDSEC|0 SECTION|2 TABLES|0 TABLE|2 LAYER|0 LAYER|5 10|2 0|70 0");
    add("0 LAYER|5 11|2 COLD|70 1|0 ENDTAB|0 TABLE|2 BLOCK_RECORD");
    int handle = 20;
    for (const std::string name : {"*Model_Space", "*U3", "*U4", "WINDOW", "DOOR"}) {
        add("0 BLOCK_RECORD|5 " + std::to_string(handle++) + "|100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 " +
            name);
        add(name == "*U3" ? "1001 AcDbBlockRepBTag|1070 1|1005 23" : "");
    }
    add("0 ENDTAB|0 ENDSEC|0 SECTION|2 BLOCKS");
    for (const std::string name : {"*Model_Space", "*U3", "*U4", "WINDOW", "DOOR"}) {
        add("0 BLOCK|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 " + name);
        add(name == "*U3" ? "0 INSERT|100 AcDbEntity|8 0|2 DOOR|0 INSERT|100 AcDbEntity|8 0|2 DOOR" : "");
        add("0 ENDBLK|100 AcDbEntity|8 0");
    }
    add("0 ENDSEC|0 SECTION|2 ENTITIES");
    insert("30", "*U3", "0", "0");
    insert("40", "*U4", "0", "0");
    insert("31", "DOOR", "0", "5");
    insert("32", "DOOR", "0", "5");
    insert("34", "DOOR", "0", "-5|210 0|220 0|230 -1");  // at the same point, but mirrored
    insert("33", "DOOR", "COLD", "6");
    add("0 ENDSEC|0 SECTION|2 OBJECTS|0 DICTIONARY|5 50|3 AcDbBlockRepresentation|360 51");
    add("0 DICTIONARY|5 51|3 AcDbRepData|360 52|0 ACDB_BLOCKREPRESENTATION_DATA|5 52|340 23|0 ENDSEC|0 EOF");
    return bytes;
}

TEST_F(ReportCommand, SaysWhatItLeavesOutWhenAskedTo) {
    write("House.dxf", dynamic_drawing());
    write("list.prc", "window|100|\r\n");
    const std::string script = "QXBOMC\nlist.prc\nALL\n\n@press \"Save to file\"\nreport.txt\n@press \"Close\"\nQUIT\n";
    const auto said_with = [&](std::initializer_list<const wchar_t*> names) {
        fs::remove(folder_ / "report.txt");
        fs::remove(folder_ / "bill.json");
        for (const wchar_t* name : names) {
            ::SetEnvironmentVariableW(name, name == std::wstring_view(L"CORVANES_JSON") ? L"bill.json" : L"1");
        }
        const std::string said = succeed(script);
        for (const wchar_t* name : names) {
            ::SetEnvironmentVariableW(name, nullptr);
        }
        return said;
    };
    EXPECT_THAT(said_with({}), testing::Not(HasSubstr("No price")));
    EXPECT_FALSE(fs::exists(folder_ / "bill.json"));
    const std::string silent = read("report.txt");
    const std::string said = said_with({L"CORVANES_NOTES", L"CORVANES_JSON"});
    EXPECT_EQ(read("report.txt"), silent);
    for (const char* line : {"No price for 5 references of 3 blocks: DOOR 3, *U3 1, *U4 1",
                             "Not counted, on frozen layers (1 reference): DOOR 1",
                             "Not counted, inside other blocks (2 references): DOOR 2",
                             "In the place of another of their block (1 reference): DOOR 1",
                             "Dynamic blocks under anonymous names (2 references): *U3 is WINDOW 1, *U4 is WINDOW 1"}) {
        EXPECT_THAT(said, HasSubstr(line));
    }
    EXPECT_THAT(read("bill.json"), HasSubstr("{\"code\": \"stacked\", \"text\": \"DOOR 1\", \"block\": \"DOOR\", "
                                             "\"handles\": [\"32\"], \"number\": 1}"));
    said_with({L"CORVANES_DYNAMIC_NAMES", L"CORVANES_JSON"});
    EXPECT_THAT(read("report.txt"), HasSubstr("    window     100.00          2                          200.00\r\n"));
    EXPECT_THAT(read("bill.json"), HasSubstr("\"handles\": [\"30\", \"40\"]}]"));
}

}  // namespace
