// Any drawing can be looked at: its display list is built, painted at several scales, and picked from, within its
// limits of time and memory, whatever numbers its entities hold.
#include <algorithm>
#include <vector>

#include "fuzz/fuzz_input.h"
#include "platform/host/view/hit_test.h"
#include "platform/host/view/list_painter.h"

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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const dxf::OpenResult opened = dxf::Drawing::from_bytes(std::string(fuzz::bytes_of(data, size)), "fuzz.dxf");
    if (opened) {
        const host::PictureLimits limits{8 << 20, 20'000'000};
        look_at(host::DisplayList::build(**opened, host::DisplayList::Space::model, limits));
        look_at(host::DisplayList::build(**opened, host::DisplayList::Space::paper, limits));
    }
    return 0;
}
