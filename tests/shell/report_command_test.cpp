// "QXBOMC" from the drawing to the saved report, through the module as it is built and the host's own windows.
#include <gmock/gmock.h>

#include <algorithm>
#include <sstream>

#include "tests/shell/small_drawing.h"
#include "tests/support/host_program.h"

namespace fs = std::filesystem;
using test_support::Outcome;
using testing::HasSubstr;

namespace {

constexpr char prices[] =
    "Door|1250|\xe3\xec\xfa\r\n"
    "BOLT|0.104|steel\r\n"
    "unused|7|x\r\n";

class ReportCommand : public test_support::HostProgram {
  protected:
    ReportCommand() {
        // Its settings files stand beside the module.
        fs::copy_file(program_folder() / "Corvanes.arx", folder_ / "Corvanes.arx");
        write("House.dxf",
              test_support::drawing_of({"DOOR", "bolt", "door", "*U3", "Bolt", "\xe3\xec\xfa 80", "bolt"}));
        write("list.prc", prices);
    }

    Outcome run(const std::string& script) const {
        write("a.scr", script);
        return start("House.dxf --load Corvanes.arx --script a.scr");
    }
    /// A run that must succeed.
    void succeed(const std::string& script) const {
        const Outcome outcome = run(script);
        EXPECT_EQ(outcome.status, 0U) << outcome.said;
    }
};

TEST_F(ReportCommand, SavesWhatTheGridShows) {
    succeed(
        "QXBOMC\nlist.prc\nALL\n\n"
        "@press \"Save to file\"\npriced.txt\n"
        "@click-heading 2\n@click-heading 2\n"
        "@press \"Save to file\"\nsorted.txt\n"
        "@tick \"Show Price\" off\n"
        "@press \"Save to file\"\nhidden.txt\n"
        "@press \"Close\"\nQUIT\n");
    const std::string heading = "Block name Item Price   Quantity          Description      Total\r\n";
    const std::string door = "      door    1250.00          2                  \xe3\xec\xfa    2500.00\r\n";
    const std::string bolt = "      bolt       0.10          3                steel       0.31\r\n";
    const std::string summary = "  Summary:                                               2500.31\r\n";
    EXPECT_EQ(read("priced.txt"), heading + door + bolt + summary);
    EXPECT_EQ(read("sorted.txt"), heading + bolt + door + summary);
    EXPECT_EQ(read("hidden.txt"),
              "Block name   Quantity          Description\r\n"
              "      bolt          3                steel\r\n"
              "      door          2                  \xe3\xec\xfa\r\n");
}

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
    // So does the report in whose selection another report was looked at.
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

TEST_F(ReportCommand, EndsWhenThereIsNothingToReport) {
    succeed("QXBOMC\nlist.prc\n\nQUIT\n");
    succeed("QXBOMC\nlist.prc\n^C\nQUIT\n");
    write("House.dxf", test_support::drawing_of({}));
    succeed("QXBOMC\nlist.prc\nALL\n\nQUIT\n");
}

TEST_F(ReportCommand, SaysWhichPriceListCannotBeOpened) {
    fs::create_directory(folder_ / "folder.prc");
    for (const std::string name : {"missing.prc", "folder.prc"}) {
        succeed("QXBOMC\n" + name + "\n@alert \"File *" + name + " could  not be opened\"\nQUIT\n");
    }
}

TEST_F(ReportCommand, TakesPriceListsOfAnyShape) {
    write("zero.prc", std::string("DOOR|2|\0x\r\nbo\0lt|1|\r\nBolt|1|y\r\n", 31));
    write("line.prc", std::string(10'000'000, 'x') + "\r\nDOOR|2|\r\nbolt|1|y\r\n");
    write("utf8.prc",
          "\xef\xbb\xbf"
          "door|2|\xeb\xac\xb8\r\nbolt|1|y\r\n");
    for (const std::string name : {"zero", "line", "utf8"}) {
        succeed("QXBOMC\n" + name + ".prc\nALL\n\n@press \"Save to file\"\n" + name + ".txt\n@press \"Close\"\nQUIT\n");
        EXPECT_THAT(read((name + ".txt").c_str()),
                    HasSubstr("  Summary:                                                  7.00"));
    }
    EXPECT_EQ(read("utf8.txt").substr(0, 3), "\xef\xbb\xbf") << "a Korean description on a Hebrew system";
}

TEST_F(ReportCommand, KeepsTheReportThatItCannotReplace) {
    write("locked.txt", "old");
    fs::permissions(folder_ / "locked.txt", fs::perms::owner_read);
    succeed(
        "QXBOMC\nlist.prc\nALL\n\n"
        "@press \"Save to file\"\nlocked.txt\n@alert \"*locked.txt*\" YES\n"
        "@alert \"File *locked.txt could  not be opened\"\n"
        "@press \"Save to file\"\nno such folder\\a.txt\n@alert \"File *a.txt could  not be opened\"\n"
        "@press \"Save to file\"\n^C\n"
        "@press \"Close\"\nQUIT\n");
    fs::permissions(folder_ / "locked.txt", fs::perms::owner_all);
    EXPECT_EQ(read("locked.txt"), "old");
}

TEST_F(ReportCommand, ComesBackAfterUnloading) {
    succeed(
        "ARX\nUnload\nCorvanes\nARX\nLoad\nCorvanes.arx\n"
        "QXBOMC\nlist.prc\nALL\n\n@press \"Close\"\nARX\nUnload\nCorvanes\nQUIT\n");
    const Outcome outcome = run("ARX\nUnload\nCorvanes\nQXBOMC\nQUIT\n");
    EXPECT_NE(outcome.status, 0U) << "an unloaded command is unknown";
}

}  // namespace
