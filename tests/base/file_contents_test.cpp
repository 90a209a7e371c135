#include "base/file_contents.h"

#include <gtest/gtest.h>

#include <fstream>

#include "tests/support/temporary_folder.h"

namespace fs = std::filesystem;
using base::FileContents;

namespace {

std::string reason_for(const fs::path& path) {
    const auto contents = FileContents::read(path);
    EXPECT_FALSE(contents);
    return contents.reason();
}

TEST(FileContents, StayWhenTheFileChanges) {
    const test_support::TemporaryFolder folder("file_contents_test");
    const fs::path file = folder / "file";
    std::string written(35'000'000, 'x');
    written[0] = '\0';
    written[20'000'001] = 'y';
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
