// Takes any bytes as the label and the text of a cell with a control: reading them must keep within bounds.
#include <algorithm>
#include <cmath>
#include <string>

#include "common/text_conversion.h"
#include "fuzz/fuzz_input.h"
#include "grid/control_layout.h"
#include "grid/gauge_scale.h"
#include "grid/pie_slices.h"
#include "grid/text_runs.h"
#include "grid/value_range.h"

using namespace corvanes;
using fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::wstring bytes = decoded_text(fuzz::bytes_of(data, size)).text;
    const std::size_t middle = std::min(bytes.find(L'|'), bytes.size());
    const std::wstring label = bytes.substr(0, middle);
    const std::wstring text = bytes.substr(std::min(middle + 1, bytes.size()));

    const ValueRange range = range_from_label(label);
    require(std::isfinite(range.least) && range.least <= range.most && range.step > 0,
            "a range has its limits in order");
    for (const double part : {0.0, 0.3, 1.0}) {
        const double value = value_at(range, part);
        require(value >= range.least && value <= range.most, "a value is within its range");
        const double fraction = fraction_of(range, value);
        require(fraction >= 0 && fraction <= 1, "and its place on the control");
    }
    for (const int steps : {-1, 1, steps_a_page(range)}) {
        require(stepped_text(label, text, steps).size() < 64, "a step gives a number");
    }
    const auto bands = bands_from_label(label, range);
    require(std::is_sorted(bands.begin(), bands.end(), [](auto& left, auto& right) { return left.end < right.end; }),
            "bands follow each other");
    require(scale_marks(range, range.step, 100).size() <= 100, "a scale has no more marks than asked for");
    double end = 0;
    for (const PieSlice& slice : pie_slices(numbers_in(text), range.most)) {
        require(slice.start >= end && slice.end >= slice.start && slice.end <= 1 + 1e-9, "slices follow each other");
        end = slice.end;
    }
    std::size_t next = 0;
    for (const TextRun& run : runs_from_label(label, text.size())) {
        require(run.start == next && run.length > 0, "runs leave no gap");
        next += run.length;
    }
    require(next == text.size(), "runs cover the text");
    return 0;
}
