#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "base/replace_file.h"
#include "tests/support/temporary_folder.h"

namespace fs = std::filesystem;

namespace {

class ReplaceFile : public testing::Test {
  protected:
    void TearDown() override { fs::permissions(folder_.path(), fs::perms::owner_all, fs::perm_options::add); }

    static void put(const fs::path& path, const std::string& bytes) { std::ofstream(path, std::ios::binary) << bytes; }
    static std::string bytes_of(const fs::path& path) { return test_support::contents(path); }
    /// The names in the folder, or in one within it.
    std::vector<std::string> names(const char* within = "") const {
        std::vector<std::string> result;
        for (const auto& entry : fs::directory_iterator(folder_ / within)) {
            result.push_back(entry.path().filename().string());
        }
        std::sort(result.begin(), result.end());
        return result;
    }

    const test_support::TemporaryFolder folder_{
        "replace_file_" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name())};
};

TEST_F(ReplaceFile, PutsTheNewContentsInPlaceOnlyAtCommit) {
    const auto target = folder_ / "list.prc";
    put(target, "old");
    {
        base::FileReplacement abandoned(target);
        EXPECT_TRUE(abandoned.write("new"));
    }
    EXPECT_EQ(bytes_of(target), "old");
    base::FileReplacement replacement(target);
    EXPECT_TRUE(replacement.write(std::string_view("n\0w", 3)));
    EXPECT_EQ(bytes_of(target), "old");
    EXPECT_TRUE(replacement.commit());
    EXPECT_EQ(bytes_of(target), std::string("n\0w", 3));
    EXPECT_EQ(names(), std::vector<std::string>{"list.prc"}) << "nothing may be left beside the file";
}

/// Sets an environment value of this process; "" removes it.
void set_environment(const char* name, const char* value) {
#ifdef _WIN32
    _putenv_s(name, value);
#else
    *value != '\0' ? setenv(name, value, 1) : unsetenv(name);
#endif
}

TEST_F(ReplaceFile, WritesUnderTheFilesOwnNameWhereAnotherProgramDelivers) {
    fs::create_directory(folder_ / "results");
    set_environment("CORVANES_DELIVERED_LATER", (folder_ / "results").string().c_str());
    put(folder_ / "results" / "old.txt", "old");
    {
        base::FileReplacement made(folder_ / "results" / "made.txt");
        base::FileReplacement abandoned(folder_ / "results" / "abandoned.txt");
        base::FileReplacement elsewhere(folder_ / "elsewhere.txt");
        EXPECT_TRUE(made.write("all") && abandoned.write("half") && elsewhere.write("all"));
        EXPECT_EQ(names("results"), (std::vector<std::string>{"abandoned.txt", "made.txt", "old.txt"}));
        EXPECT_FALSE(fs::exists(folder_ / "elsewhere.txt"));
        EXPECT_TRUE(made.commit());
        EXPECT_TRUE(base::replace_file(folder_ / "results" / "old.txt", "new"));
    }
    set_environment("CORVANES_DELIVERED_LATER", "");
    EXPECT_EQ(names("results"), (std::vector<std::string>{"made.txt", "old.txt"}));
    EXPECT_EQ(bytes_of(folder_ / "results" / "made.txt") + bytes_of(folder_ / "results" / "old.txt"), "allnew");
}

TEST_F(ReplaceFile, RemovesWhatAKilledWriterLeftBehind) {
    const auto target = folder_ / "list.prc";
    const std::vector<std::string> others = {"list.prc.0123456789abcde.tmp",   "list.prc.tmp",
                                             "list.prc.0123456789abcdeg.tmp",  "list.prc.0123456789abcdef.tmp2",
                                             "list.prc2.0123456789abcdef.tmp", "my list.prc.0123456789abcdef.tmp",
                                             "list.prc.0123456789abcdef",      "list.prc.32-1.tmp"};
    for (const std::string& name : others) {
        put(folder_ / name, "somebody else's");
    }
    put(folder_ / "list.prc.0123456789abcdef.tmp", "half");
    put(folder_ / "list.prc.fedcba9876543210.tmp", "");
    base::FileReplacement running(target);  // a living writer keeps its file, which it has locked
    EXPECT_TRUE(base::replace_file(target, "new"));
    EXPECT_EQ(names().size(), others.size() + 2);
    EXPECT_FALSE(fs::exists(folder_ / "list.prc.0123456789abcdef.tmp"));
    EXPECT_TRUE(running.write("newer"));
    EXPECT_TRUE(running.commit());
    EXPECT_EQ(bytes_of(target), "newer");
    EXPECT_EQ(names().size(), others.size() + 1);
}

TEST_F(ReplaceFile, SaysWhyItCannotWrite) {
    const auto locked = folder_ / "locked.prc";
    put(locked, "old");
    fs::permissions(locked, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
#ifdef _WIN32
    const auto refused = base::replace_file(locked, "new");
    EXPECT_FALSE(refused);
    EXPECT_FALSE(refused.reason().empty());
    EXPECT_EQ(bytes_of(locked), "old");
#endif
    fs::permissions(locked, fs::perms::owner_all, fs::perm_options::add);
    for (const auto& target : {folder_.path(), folder_ / "missing" / "list.prc"}) {
        const auto status = base::replace_file(target, "new");
        EXPECT_FALSE(status) << target;
        EXPECT_FALSE(status.reason().empty()) << target;
    }
    EXPECT_EQ(names(), std::vector<std::string>{"locked.prc"});
}

TEST_F(ReplaceFile, TakesTheLongestNames) {
    const auto target = folder_ / (std::string(251, 'n') + ".prc");
    EXPECT_TRUE(base::replace_file(target, "old"));
    EXPECT_TRUE(base::replace_file(target, "new"));
    EXPECT_EQ(bytes_of(target), "new");
    EXPECT_EQ(names().size(), 1U);
}

#ifdef _WIN32
TEST_F(ReplaceFile, WritesIntoAFileThatAReaderHasOpen) {
    const auto target = folder_ / "list.prc";
    put(target, "old");
    std::ifstream reader(target, std::ios::binary);  // so that it can be written, but neither deleted nor replaced
    for (const std::string text : {"longer than before", "short", ""}) {
        const auto status = base::replace_file(target, text);
        EXPECT_TRUE(status) << status.reason();
        EXPECT_EQ(bytes_of(target), text);
    }
    EXPECT_EQ(names(), std::vector<std::string>{"list.prc"});
}
#endif

}  // namespace
