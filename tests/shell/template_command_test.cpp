// Tests "QXBOMT": sorts and saves price lists in the real dialog.
#include <cstdio>

#include "tests/shell/module_program.h"

namespace {

class TemplateCommand : public test_support::ModuleProgram {
  protected:
    TemplateCommand() { write("House.dxf", test_support::drawing_of({"DOOR"})); }
};

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

/// A script that does not fit the module's dialog is refused.
TEST_F(TemplateCommand, IsNotDrivenByScriptsThatDoNotFit) {
    const std::string open = "QXBOMT\n@press \"Open\"\nnone.prc\n";
    const std::string alert = "\"File " + (folder_ / "none.prc").string() + " could  not be opened\"\n";
    const std::pair<std::string, std::string> failing[] = {
        {"QXBOMT\n", "1: the script ended with a dialog open: \"BOM Template\"\n"},
        {"QXBOMT\nQUIT\n", "2: a dialog is open, which this line does not drive: \"BOM Template\"\n"},
        {"QXBOMT\n@press \"Print\"\n", "2: the dialog \"BOM Template\" shows no button \"Print\"\n"},
        {"QXBOMT\n@print a.png\n", "2: the dialog \"BOM Template\" has nothing to print\n"},
        {"QXBOMT\n@press 204\n", "2: the control 204 is disabled\n"},
        {"QXBOMT\n@click-cell 3 0\n", "2: the dialog \"BOM Template\" shows no cell in column 3, row 0\n"},
        {"QXBOMT\n@expect-text 1001 \"x\"\n", "2: the control 1001 has the text \"\"\n"},
        {"QXBOMT\n@alert \"x\"\n", "2: no alert is up, but the dialog \"BOM Template\"\n"},
        {open + "@close\n", "4: an alert waits for an answer: " + alert},
        {open + "@alert \"Stop?\"\n", "4: the alert says " + alert},
        {open + "@alert \"File *\" RETRY\n", "4: the alert has no button RETRY\n"},
        {open, "3: the script ended with a dialog open: " + alert},
    };
    for (const auto& [script, line] : failing) {
        write("a.scr", script);
        EXPECT_EQ(start("House.dxf --load Corvanes.arx --script a.scr --hidden").said, "script a.scr:" + line);
    }
}

/// Uses the script actions that no other test uses.
TEST_F(TemplateCommand, TakesKeysClicksAndAnswersOfAllKinds) {
    write("list.prc", "a|1|x\r\nb|2|y\r\n");
    write("taken.prc", "old");
    succeed(
        "QXBOMT\n@press \"Open\"\nlist.prc\n@double-click-cell 2 1\n@key SHIFT+HOME\n@type \"New\"\n@key TAB\n"
        "@press 204\ntaken.prc\n@alert \"*already exists.\\nDo you want to replace it?\" NO\nfree.txt\n"
        "@press \"Save As\"\ntaken.prc\n@alert \"*replace it?\" YES\n@press \"Save As\"\nbare\n"
        "@press \"Open\"\n^C\n@picture dialog.png\n@press \"Open\"\nnone.prc\n@picture box.png\n@alert \"File*\"\n"
        "@key ESCAPE\nQUIT\n");
    for (const char* list : {"free.txt", "taken.prc", "bare.prc"}) {
        EXPECT_EQ(read(list), "a|1|x\r\nb|2|New\r\n") << list;
    }
    for (const char* picture : {"box.png", "dialog.png"}) {
        EXPECT_EQ(read(picture).substr(0, 8), "\x89PNG\r\n\x1A\n") << picture;
    }
}

}  // namespace
