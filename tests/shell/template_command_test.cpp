// "QXBOMT": price lists made, edited, checked and saved in the real dialog, as a person would.
#include <cstdio>

#include "tests/shell/module_program.h"

namespace fs = std::filesystem;

namespace {

class TemplateCommand : public test_support::ModuleProgram {
  protected:
    TemplateCommand() { write("House.dxf", test_support::drawing_of({"DOOR", "bolt", "*U3", "\xe3\xec\xfa 80"})); }
};

/// Types a text into a cell and ends the edit with Tab.
std::string fill(int column, int row, const std::string& text) {
    return "@click-cell " + std::to_string(column) + ' ' + std::to_string(row) + "\n@key CTRL+END\n@type \"" + text +
           "\"\n@key TAB\n";
}

TEST_F(TemplateCommand, KeepsAListThatTheReportThenUses) {
    succeed("QXBOMT\n@press \"New\"\nlist.prc\n" + fill(0, 0, "DOOR") + fill(1, 0, ".5") + fill(2, 0, "steel door") +
            "@press \"Insert Row\"\n" + fill(0, 1, "bolt") + fill(1, 1, "7") + fill(2, 1, "\xd7\x91\xd7\xa8\xd7\x92") +
            "@press \"Move Up\"\n@press \"Save\"\n@press \"Close\"\n"
            "QXBOMC\n\nALL\n\n@press \"Save to file\"\nreport.txt\n@press \"Close\"\nQUIT\n");
    EXPECT_EQ(read("list.prc"), "bolt|07|\xe1\xf8\xe2\r\nDOOR|0.5|steel door\r\n");
    EXPECT_THAT(read("report.txt"),
                testing::HasSubstr("  Summary:                                                  7.50\r\n"));
}

TEST_F(TemplateCommand, SortsAndKeepsWidthsAndTheLastFile) {
    write("list.prc", "a|10|x\r\nB|9.5|\r\nc|100|y\r\n");
    succeed(
        "QXBOMT\n@press \"Open\"\nlist.prc\n@click-heading 1\n@press \"Save As\"\nup.prc\n"
        "@click-heading 1\n@press \"Save As\"\ndown.prc\n"
        "@click-heading 2\n@press \"Save As\"\nwords.prc\n"
        "@click-heading 0\n@click-heading 0\n@press \"Save As\"\nnames.prc\n@press \"Close\"\nQUIT\n");
    EXPECT_EQ(read("up.prc"), "B|9.5|\r\na|10|x\r\nc|100|y\r\n");
    EXPECT_EQ(read("down.prc"), "c|100|y\r\na|10|x\r\nB|9.5|\r\n");
    EXPECT_EQ(read("words.prc"), "a|10|x\r\nc|100|y\r\nB|9.5|\r\n") << "an empty description stays last";
    EXPECT_EQ(read("names.prc"), "c|100|y\r\nB|9.5|\r\na|10|x\r\n");
    int widths[3] = {};
    EXPECT_EQ(std::sscanf(read("corvane1.set").c_str(), "%d %d %d", &widths[0], &widths[1], &widths[2]), 3);
    EXPECT_EQ(widths[0], 3 * widths[1]);
    EXPECT_EQ(widths[2], 4 * widths[1]);
    EXPECT_THAT(read("filename.set"), testing::EndsWith("names.prc"));
}

TEST_F(TemplateCommand, RefusesWhatWouldSpoilTheList) {
    write("list.prc", "DOOR|1|x\r\nb|2|y\r\n");
    succeed("QXBOMT\n@press \"Open\"\nlist.prc\n" +
            // A name that another row has: the edit goes on until Escape leaves it.
            std::string("@click-cell 0 1\n@key CTRL+END\n@key BACKSPACE\n@type \"door\"\n@key RETURN\n"
                        "@alert \"Block name door is not unique\"\n@key ESCAPE\n@press \"Save\"\n") +
            // Neither a name nor a price may be missing.
            "@press \"Insert Row\"\n" + fill(2, 2, "z") +
            "@press \"Save\"\n@expect-text 1001 \"Block name is absent\"\n@click-cell 0 0\n@key ESCAPE\n" +
            "@expect-text 1001 \"\"\n@press \"Close\"\n@alert \"Save changes to *list.prc\" YES\n"
            "@expect-text 1001 \"Block name is absent\"\n@press \"Close\"\n@alert \"Save changes to *\" CANCEL\n"
            "@press \"Close\"\n@alert \"Save changes to *\" NO\nQUIT\n");
    EXPECT_EQ(read("list.prc"), "DOOR|1|x\r\nb|2|y\r\n");
}

TEST_F(TemplateCommand, LeavesNoSettingsWhenNothingWasOpened) {
    succeed(
        "QXBOMT\n@press \"Close\"\nQXBOMT\n@press \"Open\"\nmissing.prc\n@alert \"File *missing.prc could  not be "
        "opened\"\n"
        "@press \"Close\"\nQXBOMT\n@close\nQUIT\n");
    EXPECT_FALSE(fs::exists(folder_ / "corvane1.set"));
    EXPECT_FALSE(fs::exists(folder_ / "filename.set"));
}

}  // namespace
