#include <gtest/gtest.h>

#include "drawing_text.h"

namespace {

namespace fs = std::filesystem;

const fs::path source = CORVANES_SOURCE_DIR;

std::vector<fs::path> drawings_under(const fs::path& folder) {
    std::vector<fs::path> found;
    std::error_code error;
    for (fs::recursive_directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        if (at->path().extension() == ".dxf") {
            found.push_back(at->path());
        }
    }
    return found;
}

/// Replaces every record by its own bytes, so that a save puts the file together from records and the bytes between
/// them.
void rewrite_all(dxf::Drawing& drawing) {
    for (dxf::RecordId id = 0; id < drawing.record_count(); ++id) {
        drawing.rewrite(id, std::string(drawing.view(id).bytes()));
    }
}

/// Saves each drawing elsewhere, untouched and rewritten, and compares the files; returns how many could be opened.
size_t expect_identity(const std::vector<fs::path>& drawings) {
    const dxf_test::TemporaryFolder folder("corvanes_dxf_identity");
    size_t opened_count = 0;
    for (const fs::path& path : drawings) {
        const auto opened = dxf::Drawing::open(path);
        if (!opened) {
            continue;
        }
        ++opened_count;
        EXPECT_TRUE((*opened)->save(folder / "copy.dxf"));
        EXPECT_TRUE(dxf_test::contents(folder / "copy.dxf") == dxf_test::contents(path)) << path;
        rewrite_all(**opened);
        EXPECT_TRUE((*opened)->save(folder / "copy.dxf"));
        EXPECT_TRUE(dxf_test::contents(folder / "copy.dxf") == dxf_test::contents(path)) << path;
    }
    return opened_count;
}

TEST(DrawingIdentity, SavesUnchangedDrawingsByteForByte) {
    EXPECT_EQ(expect_identity(drawings_under(source / "samples")), 4U);
    EXPECT_EQ(expect_identity(drawings_under(source / "tests/dxf/data")), 8U) << "all but sections_missing.dxf";
    expect_identity(drawings_under(source / "../shared/drawings"));
    // The part library of another program (over a thousand files), where it is installed: all are opened, some are
    // saved.
    const auto parts = drawings_under("/usr/share/librecad");
    std::vector<fs::path> saved;
    for (size_t i = 0; i < parts.size(); ++i) {
        if (i % 10 == 0) {
            saved.push_back(parts[i]);
        } else {
            EXPECT_TRUE(dxf::Drawing::open(parts[i])) << parts[i];
        }
    }
    EXPECT_EQ(expect_identity(saved), saved.size());
}

}  // namespace
