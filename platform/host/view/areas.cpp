#include "platform/host/view/areas.h"

#include <algorithm>

#include "platform/host/view/display_list_builder.h"

namespace host {

namespace {

constexpr double gap = 0.05;  // between the drawing and a block beside it, of the drawing's size

/// By how much a picture enlarges an area that it shows whole.
double zoom(double width, double height) {
    return std::min(picture_width / width, picture_height / height);
}

/// One side of a drawing: what a block there makes of the picture.
struct Side {
    Box2 drawing;
    Vec2 size;
    bool right;

    double zoom_at(double scale) const {
        const double across = right ? drawing.width() * (1 + gap) + scale * size.x : drawing.width();
        const double down = right ? drawing.height() : drawing.height() * (1 + gap) + scale * size.y;
        return zoom(std::max(across, scale * size.x), std::max(down, scale * size.y));
    }
    /// The largest scale that fits; 0 when none does.
    double best_scale() const {
        constexpr double kept = 0.7071;     // of the drawing's own zoom: half the area
        constexpr double easily_read = 16;  // pixels
        const double least_zoom = kept * zoom(drawing.width(), drawing.height());
        double fits = 0;
        double fits_not = std::max(drawing.width() / size.x, drawing.height() / size.y) * 4;
        for (int step = 0; step < 60; ++step) {
            const double scale = (fits + fits_not) / 2;
            const double zoomed = zoom_at(scale);
            (zoomed >= least_zoom && scale * zoomed <= easily_read ? fits : fits_not) = scale;
        }
        return fits;
    }
};

/// Calls visit(box) with the area of each entity; those that end nowhere have none.
template <typename Visit>
void visit_entities(const Picture& picture, Visit visit) {
    Box2 box;
    dxf::RecordId entity = dxf::no_record;
    for (const Primitive& primitive : picture.primitives) {
        if (primitive.endless || primitive.box.empty()) {
            continue;
        }
        if (primitive.entity != entity && !box.empty()) {
            visit(box);
            box = Box2();
        }
        box.add(primitive.box);
        entity = primitive.entity;
    }
    if (!box.empty()) {
        visit(box);
    }
}

/// The range that holds all but the outermost parts of the numbers.
std::pair<double, double> common_range(std::vector<double>& numbers) {
    constexpr double outside = 0.025;  // at each end
    const auto last = static_cast<double>(numbers.size() - 1);
    const auto at = [&](double part) {
        const auto place = numbers.begin() + static_cast<ptrdiff_t>(part * last);
        std::nth_element(numbers.begin(), place, numbers.end());
        return *place;
    };
    const double low = at(outside);
    return {low, at(1 - outside)};
}

}  // namespace

BesidePlace place_beside(const Box2& drawing, Vec2 size) {
    const Vec2 right{drawing.high.x + gap * drawing.width(), drawing.high.y};
    if (!(size.x > 0 && size.y > 0)) {
        return {right, 1};
    }
    const Side beside{drawing, size, true};
    const Side below{drawing, size, false};
    const double scale_beside = beside.best_scale();
    const double scale_below = below.best_scale();
    const double letters_beside = scale_beside * beside.zoom_at(scale_beside);
    const double letters_below = scale_below * below.zoom_at(scale_below);
    constexpr double alike = 0.01;  // pixels
    const bool takes_right = std::fabs(letters_beside - letters_below) > alike
                                 ? letters_beside > letters_below
                                 : beside.zoom_at(scale_beside) >= below.zoom_at(scale_below);
    return takes_right ? BesidePlace{right, scale_beside}
                       : BesidePlace{{drawing.low.x, drawing.low.y - gap * drawing.height()}, scale_below};
}

Box2 block_area(const dxf::Drawing& drawing, dxf::BlockId block) {
    return DisplayListBuilder(drawing, DisplayList::blank(DisplayList::Space::model, {})).area_of(block);
}

Box2 area_of(const DisplayList& list, const EntitySet& entities) {
    Box2 area;
    for (const Primitive& primitive : list.top.primitives) {
        if (entities.has(primitive.entity) && !primitive.endless) {
            area.add(primitive.box);
        }
    }
    return area;
}

LastArea last_area(const DisplayList& list) {
    LastArea last;
    const std::vector<Primitive>& all = list.top.primitives;
    for (auto primitive = all.rbegin(); primitive != all.rend() && primitive->entity == all.back().entity;
         ++primitive) {
        last.box.add(primitive->box);
        if (primitive->kind == Primitive::Kind::text) {
            const double height = list.top.texts[primitive->first].frame.y.length();
            last.letters = last.letters == 0 ? height : std::min(last.letters, height);
        }
    }
    return last;
}

std::optional<Box2> crowded_area(const DisplayList& list) {
    constexpr size_t few = 20;          // things, of which each may be what the drawing is about
    constexpr double speck = 4;         // times larger: worth a picture
    constexpr size_t enough = 100'000;  // things tell where most of them are
    const size_t every = list.top.primitives.size() / enough + 1;
    std::vector<double> x;
    std::vector<double> y;
    size_t things = 0;
    visit_entities(list.top, [&](const Box2& thing) {
        if (things++ % every == 0) {
            x.push_back(thing.centre().x);
            y.push_back(thing.centre().y);
        }
    });
    if (things < few) {
        return std::nullopt;
    }
    const auto [left, right] = common_range(x);
    const auto [low, high] = common_range(y);
    const Box2 centres{{left, low}, {right, high}};
    const Box2& whole = list.extents();
    const auto much_smaller = [&whole](const Box2& box) {
        return box.width() * speck < whole.width() && box.height() * speck < whole.height();
    };
    Box2 area;
    visit_entities(list.top, [&](const Box2& thing) {
        // What reaches across the drawing, as a frame does, says nothing about where its things are.
        if (centres.contains(thing.centre()) && much_smaller(thing)) {
            area.add(thing);
        }
    });
    const bool seen = !area.empty() && (area.width() > 0 || area.height() > 0);
    return seen && much_smaller(area) ? std::optional(area) : std::nullopt;
}

}  // namespace host
