// Builds the display list of any drawing, paints it at several scales, picks from it and writes it as SVG: all of that
// must keep to the limits of time and memory, whatever numbers and names the entities hold.
#include <algorithm>
#include <vector>

#include "fuzz/fuzz_input.h"
#include "platform/host/view/hit_test.h"
#include "platform/host/view/list_painter.h"
#include "platform/host/view/svg_writer.h"

namespace {

constexpr int width = 64;
constexpr int height = 48;

void look_at(const host::DisplayList& list) {
    std::vector<uint32_t> pixels(static_cast<size_t>(width) * height);
    host::Raster raster(pixels.data(), width, height);
    host::ViewTransform view(width, height);
    view.show(list.extents(), 0.05);
    for (const double factor : {1.0, 1000.0, 1e-6}) {
        view.zoom_about({10, 10}, factor);
        raster.clear(0);
        host::ListPainter painter(list, view, raster);
        painter.paint(host::PaintColours());
    }
    const host::HitTest hits(list);
    const host::Box2 seen = view.visible();
    const std::vector<dxf::RecordId> crossing = hits.crossing(seen);
    for (const dxf::RecordId id : hits.window(seen)) {
        fuzz::require(std::find(crossing.begin(), crossing.end(), id) != crossing.end(),
                      "what is inside a window touches it");
    }
    hits.pick({{-1, -1}, {1, 1}});
}

/// Whether every element is closed, and XML can hold the text.
bool well_formed(const std::string& svg) {
    ptrdiff_t depth = 0;
    for (size_t at = 0; at < svg.size(); ++at) {
        if (static_cast<unsigned char>(svg[at]) < ' ' && svg[at] != '\n') {
            return false;
        }
        if (svg[at] == '<' && svg[at + 1] == '/') {
            --depth;
        } else if (svg[at] == '<') {
            depth += svg[svg.find_first_of("<>", at + 1) - 1] == '/' ? 0 : 1;
        }
    }
    return depth == 0;
}

void look_at(const host::DisplayList& list, const dxf::Drawing& drawing) {
    look_at(list);
    const host::SvgPicture picture = host::svg_picture(list, drawing, 20'000);
    fuzz::require(well_formed(picture.text), "an SVG file is well-formed");
    fuzz::require(picture.elements <= 20'000 || picture.text.empty(), "an SVG file is no larger than asked for");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const dxf::OpenResult opened = dxf::Drawing::from_bytes(std::string(fuzz::bytes_of(data, size)), "fuzz.dxf");
    if (opened) {
        const host::PictureLimits limits{8 << 20, 20'000'000};
        look_at(host::DisplayList::build(**opened, host::DisplayList::Space::model, limits), **opened);
        look_at(host::DisplayList::build(**opened, host::DisplayList::Space::paper, limits), **opened);
    }
    return 0;
}
