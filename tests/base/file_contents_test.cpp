#include "base/file_contents.h"

#include <gtest/gtest.h>

#include <fstream>

namespace fs = std::filesystem;
using base::FileContents;

namespace {

std::string reason_for(const fs::path& path) {
    const auto contents = FileContents::read(path);
    EXPECT_FALSE(contents);
    return contents.reason();
}

TEST(FileContents, AreWhatTheFileHeldWhateverBecomesOfIt) {
    const fs::path file = fs::temp_directory_path() / "file_contents_test";
    std::string written(3'000'000, 'x');
    written[0] = '\0';
    std::ofstream(file, std::ios::binary) << written;
    const auto contents = FileContents::read(file);
    ASSERT_TRUE(contents) << contents.reason();
    fs::resize_file(file, 10);
    EXPECT_TRUE(contents->bytes() == written);
    fs::resize_file(file, 0);
    const auto nothing = FileContents::read(file);
    ASSERT_TRUE(nothing) << nothing.reason();
    EXPECT_EQ(nothing->bytes(), "");
    fs::remove(file);
    EXPECT_EQ(reason_for(file), "no such file");
    EXPECT_EQ(reason_for(file / "in a file"), "no such file");
    EXPECT_EQ(reason_for(fs::temp_directory_path()), "is a directory");
}

}  // namespace
