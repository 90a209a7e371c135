#include <gtest/gtest.h>

#include <map>

#include "drawing_text.h"
#include "platform/host/dxf/entities.h"

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

/// Every record is replaced by its own bytes: what is saved is then put together from records and what lies between.
void rewrite_all(dxf::Drawing& drawing) {
    for (dxf::RecordId id = 0; id < drawing.record_count(); ++id) {
        drawing.rewrite(id, std::string(drawing.view(id).bytes()));
    }
}

/// Saves each drawing elsewhere, as it is and put together again, and compares; returns how many could be opened.
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
    // Over a thousand parts of another program, where they are installed: all are opened, some are saved.
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

/// Model space, paper space and inside blocks, as "12/1/9", with the version before it.
std::string counts_of(const fs::path& path) {
    const auto opened = dxf::Drawing::open(path);
    if (!opened) {
        return opened.reason().reason;
    }
    const dxf::Drawing& drawing = **opened;
    int counts[3] = {};
    for (const dxf::RecordId id : drawing.entities()) {
        const dxf::Record& record = drawing.record(id);
        counts[record.is(dxf::Record::paper_space) ? 1 : 0] += record.type == dxf::type_insert ? 1 : 0;
    }
    for (const dxf::Block& block : drawing.blocks()) {
        for (const dxf::RecordId id : block.entities) {
            counts[2] += drawing.record(id).type == dxf::type_insert ? 1 : 0;
        }
    }
    return drawing.version() + " " + std::to_string(counts[0]) + "/" + std::to_string(counts[1]) + "/" +
           std::to_string(counts[2]);
}

TEST(DrawingCounts, AreThoseThatOthersFound) {
    const std::map<std::string, std::string> expected = {
        {"samples/house_plan.dxf", "AC1027 98/1/9"},
        {"samples/house_plan_r2000.dxf", "AC1015 98/1/9"},
        {"samples/house_plan_r12.dxf", "AC1009 98/1/9"},
        {"samples/house_plan_r12_binary.dxf", "AC1009 98/1/9"},
        {"tests/dxf/data/attribute_of_lines.dxf", "AC1032 1/0/0"},
        {"tests/dxf/data/binary_r12.dxf", "AC1009 0/0/0"},
        {"tests/dxf/data/blocks_with_no_names.dxf", "AC1009 0/0/0"},
        {"tests/dxf/data/empty_handles.dxf", "AC1009 0/0/0"},
        {"tests/dxf/data/insert_colcount_zero.dxf", "AC1009 1/0/0"},
        {"tests/dxf/data/minsert_attribs.dxf", "AC1027 1/0/0"},
        {"tests/dxf/data/no_layouts.dxf", "AC1021 0/0/0"},
        {"tests/dxf/data/sections_missing.dxf", "SECTION or EOF was expected here"},
        {"tests/dxf/data/trash_beyond_eof.dxf", "AC1009 0/0/0"},
    };
    std::map<std::string, std::string> found;
    for (const auto& [name, counts] : expected) {
        found[name] = counts_of(source / name);
    }
    EXPECT_EQ(found, expected);
}

TEST(DrawingCounts, SampleTellsItsNamesAlikeInEveryVersion) {
    for (const char* const name : {"house_plan.dxf", "house_plan_r2000.dxf", "house_plan_r12_binary.dxf"}) {
        const auto opened = dxf::Drawing::open(source / "samples" / name);
        ASSERT_TRUE(opened) << name;
        const dxf::Drawing& drawing = **opened;
        const dxf::NameId wardrobe = drawing.block_names().find(
            drawing.version() == "AC1009" ? L"\u05D0\u05E8\u05D5\u05DF_\u05D1\u05D2\u05D3\u05D9\u05DD"
                                          : L"\u05D0\u05E8\u05D5\u05DF \u05D1\u05D2\u05D3\u05D9\u05DD");
        EXPECT_NE(drawing.block_named(wardrobe), dxf::no_block) << name;
        size_t wardrobes = 0;
        for (const dxf::RecordId id : drawing.entities()) {
            wardrobes += drawing.record(id).block_name == wardrobe ? 1 : 0;
        }
        EXPECT_EQ(wardrobes, 3U) << name;
        EXPECT_TRUE(
            dxf::read<dxf::Layer>(dxf::RecordFields(drawing.view(drawing.table_entry("LAYER", L"variant")))).frozen());
        EXPECT_FALSE(
            dxf::read<dxf::Layer>(dxf::RecordFields(drawing.view(drawing.table_entry("LAYER", L"Construction")))).on());
    }
}

}  // namespace
