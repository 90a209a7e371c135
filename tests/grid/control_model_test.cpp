#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "grid/control_layout.h"
#include "grid/fitted_text.h"
#include "grid/gauge_scale.h"
#include "grid/label_fields.h"
#include "grid/pie_slices.h"
#include "grid/text_runs.h"
#include "grid/value_range.h"

using namespace corvanes;

namespace {

std::string narrow(std::wstring_view text) {
    return std::string(text.begin(), text.end());
}

TEST(CellControls, StepsThroughTheRangeOfTheLabel) {
    const struct {
        const wchar_t* label;
        const wchar_t* text;
        int steps;
        const wchar_t* after;
    } cases[] = {
        {L"", L"", 1, L"1"},
        {L"", L"100", 1, L"100"},
        {L"", L"-5", -1, L"0"},
        {L"", L"99.5", 3, L"100.0"},
        {L"MIN = -1 ; Step=.25\nmax=1", L"0", 1, L"0.25"},
        {L"step=0.1", L"0.2", 1, L"0.3"},
        {L"max=1; min=3", L"2", 5, L"3"},
        {L"min=200", L"", 1, L"200"},
        {L"wrap; max=3", L"3", 1, L"0"},
        {L"wrap; max=3", L"0", -1, L"3"},
        {L"wrap; max=3", L"2", 5, L"3"},
        {L"wrap; max=0", L"0", 1, L"0"},
        {L"step=0; max=x; ;=;;wrapped=1", L"100", 1, L"100"},
        {L"step=-4; max=1e999", L"7", 1, L"8"},
        {L"min=-1e308; max=1e308; step=1e308", L"1e308", 3, L"1e+308"},
        {L"min=-5", L"1e999", -1, L"100"},
        {L"max=1e20", L"1e17", 1, L"1e+17"},
        {L"min=-1; step=0.5", L"-0.2", 0, L"-0.2"},
        {L"min=-1", L"-1.0", 1, L"0.0"},
        {L"step=1e-3", L"nan", 1, L"0.001"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(narrow(stepped_text(c.label, c.text, c.steps)), narrow(c.after))
            << narrow(c.label) << ' ' << narrow(c.text);
    }
    EXPECT_EQ(steps_a_page(range_from_label(L"max=1e300; step=1e-300")), 1000000);
    EXPECT_EQ(steps_a_page(range_from_label(L"max=3")), 1);
}

TEST(CellControls, PlacesAValueBetweenItsLimitsAndBack) {
    const struct {
        const wchar_t* label;
        double fraction;
        double value;
        double fraction_back;
    } cases[] = {
        {L"max=10; step=3", 0.52, 6, 0.6},
        {L"max=10; step=3", 1.5, 10, 1},
        {L"min=-1e308; max=1e308", 0.5, 0, 0.5},
        {L"min=-1e308; max=1e308; step=1e308", 0.7, 0, 0.5},
        {L"min=5; max=5", 0.5, 5, 0},
        {L"max=10", -0.5, 0, 0},
        {L"max=10", std::numeric_limits<double>::quiet_NaN(), 0, 0},
    };
    for (const auto& c : cases) {
        const ValueRange range = range_from_label(c.label);
        EXPECT_EQ(value_at(range, c.fraction), c.value) << narrow(c.label);
        EXPECT_EQ(fraction_of(range, c.value), c.fraction_back) << narrow(c.label);
    }
    EXPECT_EQ(fraction_of(ValueRange(), 1e300), 1);
    const Box cell{100, 0, 200, 20};
    for (const double fraction : {0.0, 0.25, 1.0}) {
        const Box thumb = slider_boxes(cell, fraction).thumb;
        EXPECT_NEAR(slider_fraction(cell, thumb.left), fraction, 0.01);
        EXPECT_GE(thumb.left, cell.left);
        EXPECT_LE(thumb.right, cell.right);
    }
    EXPECT_EQ(slider_boxes({5, 5, 6, 6}, 1).thumb.right, 6) << "a cell of one pixel";
}

// The column and row of each choice, as "0:0 0:1 …".
std::string choices(int count, int height, int width) {
    std::string places;
    for (const Box& box : choice_boxes({10, 0, 10 + width, height}, count, 10, [](int) { return 20; })) {
        places += std::to_string((box.left - 10) / 20) + ':' + std::to_string(box.top) + ' ';
    }
    return places;
}

TEST(CellControls, LaysChoicesOutInColumns) {
    EXPECT_EQ(choices(3, 30, 90), "0:0 0:10 0:20 ");
    EXPECT_EQ(choices(3, 40, 90), "0:5 0:15 0:25 ");
    EXPECT_EQ(choices(3, 29, 90), "0:4 0:14 1:4 ");
    EXPECT_EQ(choices(3, 10, 90), "0:0 1:0 2:0 ");
    EXPECT_EQ(choices(3, 1, 30), "0:0 1:0 ") << "what lies beyond the cell is left out";
    EXPECT_EQ(choices(0, 30, 90), "");
    const struct {
        int height;
        int now;
        int columns;
        int rows;
        int next;
    } cases[] = {{30, -1, 0, 1, 0}, {30, 4, 0, 1, 0}, {30, 0, 0, -1, 4}, {30, 0, 1, 0, 3}, {30, 3, 1, 0, 0},
                 {30, 2, 1, 0, 2},  {10, 4, 1, 0, 0}, {10, 0, 0, 1, 0},  {50, 1, 1, 0, 1}, {50, -1, 1, 0, -1}};
    for (const auto& c : cases) {
        EXPECT_EQ(next_choice(choice_grid(5, c.height, 10), 5, c.now, c.columns, c.rows), c.next)
            << c.height << ' ' << c.now << ' ' << c.columns;
    }
}

std::string marks(std::wstring_view label, double distance, int most) {
    std::string text;
    for (const double mark : scale_marks(range_from_label(label), distance, most)) {
        text += narrow(number_text(mark, 1)) + ' ';
    }
    return text;
}

TEST(CellControls, ReadsTheScaleOfAGauge) {
    std::string bands;
    const ValueRange range = range_from_label(L"max=90");
    for (const GaugeBand& band : bands_from_label(L"bands=80 RED, 40 #0102fF, x green, 50 nocolor,,500 blue", range)) {
        bands += narrow(number_text(band.end, 0)) + ' ' + std::to_string(band.color) + "; ";
    }
    EXPECT_EQ(bands, "40 16712193; 80 1316060; 90 14438430; ");
    const std::vector<GaugeBand> two = bands_from_label(L"bands=40 red,80 green", range);
    EXPECT_EQ(std::to_string(band_at(two, -9)) + std::to_string(band_at(two, 40)) + std::to_string(band_at(two, 41)) +
                  std::to_string(band_at(two, 99)),
              "0011");
    EXPECT_EQ(marks(L"max=0.3", 0.1, 9), "0.0 0.1 0.2 0.3 ") << "the last in spite of rounding";
    EXPECT_EQ(marks(L"min=-10; max=10", 1, 5), "-10.0 -5.0 0.0 5.0 10.0 ");
    EXPECT_EQ(marks(L"", 1e-300, 4), "0.0 33.3 66.7 100.0 ");
    EXPECT_EQ(marks(L"", 0, 4) + marks(L"", 10, 1) + marks(L"min=-1e308;max=1e308", 1, 9), "");
}

std::string pie(std::wstring_view text, double whole) {
    std::string slices;
    for (const PieSlice& slice : pie_slices(numbers_in(text), whole)) {
        slices += std::to_string(slice.number) + ':' + narrow(number_text(slice.start, 2)) + '-' +
                  narrow(number_text(slice.end, 2)) + ' ';
    }
    return slices;
}

TEST(CellControls, CutsAPieIntoSlices) {
    EXPECT_EQ(pie(L"25", 100), "0:0.00-0.25 ");
    EXPECT_EQ(pie(L"250", 100) + pie(L"5", -1) + pie(L"1e999", 100), "0:0.00-1.00 0:0.00-1.00 0:0.00-1.00 ");
    EXPECT_EQ(pie(L"2;x 1,-7 , 1", 100), "0:0.00-0.50 1:0.50-0.75 3:0.75-1.00 ");
    EXPECT_EQ(pie(L"1e999 4", 100), "0:0.00-1.00 ");
    EXPECT_EQ(pie(L"1e308 1e308", 100), "0:0.00-0.50 1:0.50-1.00 ");
    EXPECT_EQ(pie(L"", 100) + pie(L"0 0", 100) + pie(L"-3", 100), "");
    const auto slices = pie_slices({2, 1, 1}, 100);
    EXPECT_EQ(slice_at(slices, 3, 0, 10), 0U);
    EXPECT_EQ(slice_at(slices, -1, 3, 10), 1U);
    EXPECT_EQ(slice_at(slices, -1, -3, 10), 2U);
    EXPECT_EQ(slice_at(slices, -9, -9, 10), std::nullopt);
    EXPECT_EQ(slice_at({{0, 0, 0.25}}, -1, 1, 10), std::nullopt);
    EXPECT_EQ(slice_outline({10, 10}, 2, {0, 0, 0.25}),
              (std::vector<PixelPoint>{{10, 10}, {10, 8}, {11, 9}, {12, 10}}));
}

TEST(CellControls, ReadsTheRunsOfAText) {
    const std::wstring_view label =
        L"5 Bold RED underline; x; -3 bold; 2.9 size=14 font=Courier New\n1e99 #010203 size=1e9";
    RunStyle bold;
    bold.bold = true;
    bold.underline = true;
    bold.color = color_from_text(L"red");
    RunStyle courier;
    courier.points = 14;
    courier.font = L"Courier New";
    RunStyle rest;
    rest.color = 0x030201;
    rest.points = 200;
    EXPECT_EQ(runs_from_label(label, 20), (std::vector<TextRun>{{0, 5, bold}, {5, 2, courier}, {7, 13, rest}}));
    EXPECT_EQ(runs_from_label(label, 3), (std::vector<TextRun>{{0, 3, bold}}));
    EXPECT_EQ(runs_from_label(L"nonsense", 3), (std::vector<TextRun>{{0, 3, {}}}));
    EXPECT_EQ(runs_from_label(label, 0), std::vector<TextRun>());
}

TEST(CellControls, FindsTheLargestFontAndAReadableColor) {
    std::string found;
    for (const int limit : {0, 6, 7, 39, 40, 99}) {
        found += std::to_string(largest_fitting(6, 40, [limit](int size) { return size <= limit; })) + ' ';
    }
    EXPECT_EQ(found, "6 6 7 39 40 40 ");
    EXPECT_EQ(readable_on(0xFFFFFF) + readable_on(0x00FFFF) + readable_on(0x32C832), 0U) << "white, yellow, green";
    EXPECT_EQ(readable_on(0xD77800) & readable_on(0) & readable_on(0x0000C0), 0xFFFFFFU) << "blue, black, red";
    EXPECT_EQ(color_from_text(L"#12345G"), std::nullopt);
}

}  // namespace
