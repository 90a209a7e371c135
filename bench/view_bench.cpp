// Pans and zooms a drawing of 100,000 entities. Beside each figure stands that of the plain way: a GDI call for every
// line of every entity.
#include <windows.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <random>
#include <string>

#include "platform/host/view/drawing_frame.h"

namespace {

using host::Affine2;
using host::DisplayList;
using host::DrawingFrame;
using host::Picture;
using host::Primitive;
using host::Vec2;
using host::ViewTransform;

constexpr int entity_count = 100'000;
constexpr int width = 1280;
constexpr int height = 800;
constexpr int frames = 20;

double milliseconds(const std::chrono::steady_clock::time_point since) {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - since).count();
}

/// Lines, circles, block references of thirteen parts, polylines and texts, scattered.
std::string drawing_of_many() {
    std::string text = "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n8\n0\n2\nPART\n70\n0\n10\n0\n20\n0\n";
    char group[200];
    for (int i = 0; i < 12; ++i) {
        std::snprintf(group, sizeof group, "0\nLINE\n8\n0\n10\n%d\n20\n0\n11\n%d\n21\n10\n", i, 12 - i);
        text += group;
    }
    text += "0\nCIRCLE\n8\n0\n10\n5\n20\n5\n40\n4\n0\nENDBLK\n8\n0\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n";
    std::mt19937 random(1);
    std::uniform_real_distribution<double> place(0, 3000);
    std::uniform_real_distribution<double> size(-20, 20);
    const char* const forms[] = {"0\nLINE\n8\n0\n62\n%d\n10\n%.3f\n20\n%.3f\n11\n%.3f\n21\n%.3f\n",
                                 "0\nCIRCLE\n8\n0\n62\n%d\n10\n%.3f\n20\n%.3f\n40\n5\n",
                                 "0\nINSERT\n8\n0\n62\n%d\n2\nPART\n10\n%.3f\n20\n%.3f\n",
                                 "0\nLWPOLYLINE\n8\n0\n62\n%d\n10\n%.3f\n20\n%.3f\n42\n0.5\n10\n%.3f\n20\n%.3f\n",
                                 "0\nTEXT\n8\n0\n62\n%d\n10\n%.3f\n20\n%.3f\n40\n4\n1\nText\n"};
    for (int i = 0; i < entity_count; ++i) {
        const double x = place(random);
        const double y = place(random);
        std::snprintf(group, sizeof group, forms[i % 5], i % 250, x, y, x + size(random), y + size(random));
        text += group;
    }
    return text + "0\nENDSEC\n0\nEOF\n";
}

/// Paints every line by GDI, without any index.
void paint_plainly(const DisplayList& list, const Picture& picture, const Affine2& map, HDC context) {
    std::vector<POINT> pixels;
    for (const Primitive& primitive : picture.primitives) {
        std::vector<Vec2> points;
        if (primitive.kind == Primitive::Kind::instance) {
            const host::Instance& instance = picture.instances[primitive.first];
            paint_plainly(list, list.pictures[instance.picture], map * instance.placement, context);
        } else if (primitive.kind == Primitive::Kind::arc) {
            image(map, picture.arcs[primitive.first]).flatten(0.3, points);
        } else if (primitive.kind == Primitive::Kind::strip) {
            for (uint32_t i = 0; i < primitive.count; ++i) {
                points.push_back(map(picture.points[primitive.first + i]));
            }
        }
        pixels.clear();
        for (const Vec2 point : points) {
            pixels.push_back({static_cast<LONG>(point.x), static_cast<LONG>(point.y)});
        }
        Polyline(context, pixels.data(), static_cast<int>(pixels.size()));
    }
}

template <class Move>
void measure(const char* what, DrawingFrame& frame, ViewTransform view, Move move) {
    double ours = 0;
    double slowest = 0;
    double theirs = 0;
    host::FrameBitmap plain(width, height);
    for (int i = 0; i < frames; ++i) {
        auto start = std::chrono::steady_clock::now();
        frame.set_view(view);
        frame.picture();
        const double taken = milliseconds(start);
        ours += taken;
        slowest = std::max(slowest, taken);
        start = std::chrono::steady_clock::now();
        paint_plainly(frame.list(), frame.list().top, view.to_pixels(), plain.context());
        GdiFlush();
        theirs += milliseconds(start);
        move(view);
    }
    std::printf("%-28s %7.1f ms a frame (at most %.1f)   plainly %7.1f ms   ratio %.3f\n", what, ours / frames, slowest,
                theirs / frames, ours / theirs);
}

}  // namespace

int main() {
    const dxf::OpenResult opened = dxf::Drawing::from_bytes(drawing_of_many(), "many.dxf");
    if (!opened) {
        std::fprintf(stderr, "%s\n", opened.reason().message().c_str());
        return 1;
    }
    DrawingFrame frame(DrawingFrame::texts_in_motion);
    const auto start = std::chrono::steady_clock::now();
    frame.set_list(std::make_shared<const DisplayList>(DisplayList::build(**opened)));
    std::printf("%d entities, %dx%d pixels; made ready in %.1f ms\n", entity_count, width, height, milliseconds(start));
    ViewTransform whole(width, height);
    whole.show(frame.list().extents(), 0.02);
    frame.set_view(whole);
    frame.picture();  // makes the fonts
    measure("panning the whole drawing", frame, whole, [](ViewTransform& view) { view.pan({7, 3}); });
    measure("zooming in by the wheel", frame, whole, [](ViewTransform& view) { view.zoom_about({500, 300}, 1.2); });
    return 0;
}
