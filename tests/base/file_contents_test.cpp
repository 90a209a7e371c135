#include "base/file_contents.h"

#include <gtest/gtest.h>

#include <fstream>

namespace fs = std::filesystem;
using base::FileContents;

namespace {

std::string reason_for(const fs::path& path) {
    std::string reason;
    EXPECT_FALSE(FileContents::read(path, reason));
    return reason;
}

TEST(FileContents, AreWhatTheFileHeldWhateverBecomesOfIt) {
    const fs::path file = fs::temp_directory_path() / "file_contents_test";
    std::string written(3'000'000, 'x');
    written[0] = '\0';
    std::ofstream(file, std::ios::binary) << written;
    std::string reason;
    const auto contents = FileContents::read(file, reason);
    ASSERT_TRUE(contents) << reason;
    fs::resize_file(file, 10);
    EXPECT_TRUE(contents->bytes() == written);
    fs::resize_file(file, 0);
    const auto nothing = FileContents::read(file, reason);
    ASSERT_TRUE(nothing) << reason;
    EXPECT_EQ(nothing->bytes(), "");
    fs::remove(file);
    EXPECT_EQ(reason_for(file), "no such file");
    EXPECT_EQ(reason_for(file / "in a file"), "no such file");
    EXPECT_EQ(reason_for(fs::temp_directory_path()), "is a directory");
}

#ifndef _WIN32
TEST(FileContents, RefuseAFileThatHoldsMoreThanItSaidAtFirst) {
    EXPECT_EQ(reason_for("/proc/self/maps"), "was changed while it was read");
    EXPECT_EQ(reason_for("/dev/null"), "is not a regular file");
}
#endif

}  // namespace
