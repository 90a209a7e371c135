// Compares the pictures of whole drawings with the ink that they had when somebody checked them by eye.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <sstream>

#include "platform/host/view/list_painter.h"
#include "tests/view/described_list.h"

namespace host {

namespace {

const char* const drawings[] = {"samples/house_plan.dxf",
                                "samples/house_plan_r12.dxf",
                                "samples/house_plan_r12_binary.dxf",
                                "samples/house_plan_r2000.dxf",
                                "tests/dxf/data/minsert_attribs.dxf",
                                "tests/view/data/acad_table_with_blockref_AC1032.dxf",
                                "tests/view/data/acadsharp_sample_AC1009_binary.dxf",
                                "tests/view/data/bricscad_nested_AC1027.dxf",
                                "tests/view/data/dimension_in_nested_blocks.dxf",
                                "tests/view/data/minsert_array_rotated_AC1021.dxf"};

constexpr int cell = 20;  // pixels
constexpr int columns = 32;
constexpr int rows = 24;

/// For each cell of the picture, the square root of its share of ink in ninths; "." for none.
std::string ink_of(const std::string& drawing) {
    const auto opened = dxf::Drawing::open(CORVANES_SOURCE_DIR "/" + drawing);
    const DisplayList list = DisplayList::build(**opened);
    std::vector<uint32_t> pixels(static_cast<size_t>(columns) * rows * cell * cell);
    Raster raster(pixels.data(), columns * cell, rows * cell);
    ViewTransform view(raster.width(), raster.height());
    view.show(list.extents(), 0.02);
    BoxLetters letters;
    ListPainter(list, view, raster, &letters).paint({0xFFFFFF});
    std::string ink;
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x < columns; ++x) {
            int marked = 0;
            for (int pixel = 0; pixel < cell * cell; ++pixel) {
                marked += raster.at(x * cell + pixel % cell, y * cell + pixel / cell) != 0xFFFFFF ? 1 : 0;
            }
            const auto ninths = static_cast<int>(std::ceil(9 * std::sqrt(marked / double{cell * cell})));
            ink += marked == 0 ? '.' : static_cast<char>('0' + ninths);
        }
        ink += '\n';
    }
    return ink;
}

/// The cells, those marked with "!" that differ by more than rounding at the edges of lines can explain.
std::string differences(const std::string& measured, const std::string& stored) {
    std::string marks = measured;
    bool any = measured.size() != stored.size();
    for (size_t i = 0; i < std::min(measured.size(), stored.size()); ++i) {
        const auto level = [](char mark) { return mark == '.' ? 0 : mark - '0'; };
        if (measured[i] != '\n' && std::abs(level(measured[i]) - level(stored[i])) > 1) {
            marks[i] = '!';
            any = true;
        }
    }
    return any ? marks : "";
}

}  // namespace

TEST(Pictures, OfWholeDrawingsHaveTheirInkWhereItWas) {
    std::ifstream file(CORVANES_SOURCE_DIR "/tests/view/data/pictures.txt");
    std::stringstream stored;
    stored << file.rdbuf();
    std::string all;
    bool same = true;
    for (const char* const drawing : drawings) {
        const std::string ink = ink_of(drawing);
        const std::string name = std::string(drawing) + "\n";
        all += name + ink;
        const size_t at = stored.str().find(name);
        const std::string before = at == std::string::npos ? "" : stored.str().substr(at + name.size(), ink.size());
        same = same && differences(ink, before).empty();
        EXPECT_EQ("", differences(ink, before)) << drawing << "\n" << before;
    }
    if (!same) {
        const std::string path = testing::TempDir() + "pictures.txt";
        std::ofstream(path) << all;
        ADD_FAILURE() << "once they have been looked at, " << path << " may become tests/view/data/pictures.txt";
    }
}

}  // namespace host
