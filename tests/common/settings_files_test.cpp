#include "common/settings_files.h"

#include <gtest/gtest.h>

#include "tests/support/temporary_folder.h"

namespace fs = std::filesystem;

namespace {

class SettingsFiles : public testing::Test {
  protected:
    void put(const std::string& bytes) const { folder_.write("corvane1.set", bytes); }
    std::string bytes() const { return folder_.read("corvane1.set"); }
    fs::path file() const { return folder_ / "corvane1.set"; }

    const test_support::TemporaryFolder folder_{
        "settings_" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name())};
};

TEST(SettingsPaths, StandBesideTheModule) {
    const struct {
        const wchar_t* module;
        const wchar_t* settings;
        const wchar_t* last_file;
    } cases[] = {
        {L"c:\\apps\\tool.arx", L"c:\\apps\\corvane1.set", L"c:\\apps\\filename.set"},
        {L"C:\\Apps\\Tool.ARX", L"c:\\apps\\corvane1.set", L"c:\\apps\\filename.set"},
        {L"tool.arx", L"corvane1.set", L"filename.set"},
        {L"c:\\a/b/tool.arx", L"c:\\a/b/corvane1.set", L"c:\\a/b/filename.set"},
        {L"c:/a\\tool.arx", L"c:/corvane1.set", L"c:/filename.set"},
        {L"c:\\tool.arx\\tool.arx", L"c:\\corvane1.set\\corvane1.set", L"c:\\filename.set\\filename.set"},
        {L"c:\\apps\\", L"c:\\apps\\", L"c:\\apps\\"},
    };
    for (const auto& c : cases) {
        const auto paths = corvanes::settings_paths(c.module, corvanes::template_settings_name);
        EXPECT_EQ(paths.settings, c.settings) << c.module;
        EXPECT_EQ(paths.last_file, c.last_file) << c.module;
    }
}

TEST_F(SettingsFiles, WidthsComeBackAndGarbageLeavesTheRest) {
    const int written[] = {150, 50, 200};
    corvanes::write_column_widths(file(), written);
    EXPECT_EQ(bytes(), "150 50 200 ");
    const struct {
        const char* bytes;
        int widths[3];
    } cases[] = {
        {"150 50 200 ", {150, 50, 200}}, {"0x20 010", {32, 8, -1}},      {"", {-1, -1, -1}},
        {"12 abc 7", {12, -1, -1}},      {"\xff\xfe\x31", {-1, -1, -1}},
    };
    for (const auto& c : cases) {
        put(c.bytes);
        int widths[] = {-1, -1, -1};
        corvanes::read_column_widths(file(), widths);
        EXPECT_TRUE(std::equal(widths, widths + 3, c.widths)) << c.bytes;
    }
    int kept[] = {1, 2, 3};
    corvanes::read_column_widths(folder_.path(), kept);
    corvanes::read_column_widths(folder_ / "missing", kept);
    EXPECT_EQ(kept[0] + kept[1] + kept[2], 6);
}

TEST_F(SettingsFiles, LastFileComesBackUpToItsFirstBlank) {
    corvanes::write_last_file(file(), L"c:\\my files\\a.prc");
    EXPECT_EQ(bytes(), "c:\\my files\\a.prc");
    EXPECT_EQ(corvanes::read_last_file(file()), L"c:\\my");
    corvanes::write_last_file(file(), L"c:\\\u05de\u05d7\u05d9\u05e8\u05d9\u05dd.prc");
    EXPECT_EQ(bytes(), "c:\\\xee\xe7\xe9\xf8\xe9\xed.prc");
    EXPECT_EQ(corvanes::read_last_file(file()), L"c:\\\u05de\u05d7\u05d9\u05e8\u05d9\u05dd.prc");
    const std::wstring long_path = L"c:\\" + std::wstring(300, L'x');
    corvanes::write_last_file(file(), long_path);
    EXPECT_EQ(corvanes::read_last_file(file()), long_path);
    corvanes::write_last_file(file(), L"");
    EXPECT_EQ(bytes(), "");
    EXPECT_EQ(corvanes::read_last_file(file()), std::nullopt);
    EXPECT_EQ(corvanes::read_last_file(folder_ / "missing"), std::nullopt);
    corvanes::write_last_file(folder_ / "missing" / "filename.set", L"x");
    EXPECT_FALSE(fs::exists(folder_ / "missing"));
}

}  // namespace
