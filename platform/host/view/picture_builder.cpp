#include "platform/host/view/picture_builder.h"

#include "platform/host/view/text_metrics.h"

namespace host {

namespace {

bool finite(const Box2& box) {
    return host::finite(box.low) && host::finite(box.high);
}

}  // namespace

void PictureBuilder::reserve(size_t primitives, size_t instances) {
    picture_.primitives.reserve(primitives);
    picture_.instances.reserve(instances);
}

void PictureBuilder::begin_entity(dxf::RecordId entity, Ink ink, bool on_layer_zero, uint16_t pattern) {
    entity_ = entity;
    ink_ = ink;
    on_layer_zero_ = on_layer_zero;
    pattern_ = pattern;
}

Primitive& PictureBuilder::add(Primitive::Kind kind, size_t first, size_t count, const Box2& box) {
    Primitive primitive;
    primitive.box = box;
    primitive.first = static_cast<uint32_t>(first);
    primitive.count = static_cast<uint32_t>(count);
    primitive.entity = entity_;
    primitive.ink = ink_;
    primitive.kind = kind;
    primitive.on_layer_zero = on_layer_zero_;
    primitive.pattern = pattern_;
    picture_.primitives.push_back(primitive);
    return picture_.primitives.back();
}

void PictureBuilder::add_points(Primitive::Kind kind, const std::vector<Vec2>& points) {
    Box2 box;
    for (const Vec2 point : points) {
        if (!host::finite(point)) {
            return;
        }
        box.add(point);
    }
    if (!points.empty()) {
        add(kind, picture_.points.size(), points.size(), box);
        picture_.points.insert(picture_.points.end(), points.begin(), points.end());
    }
}

void PictureBuilder::strip(const std::vector<Vec2>& points) {
    add_points(points.size() == 1 ? Primitive::Kind::dot : Primitive::Kind::strip, points);
}

void PictureBuilder::endless_line(Vec2 from, Vec2 to) {
    const size_t before = size();
    strip({from, to});
    if (size() != before) {
        picture_.primitives.back().endless = true;
    }
}

void PictureBuilder::arc(const Arc& arc) {
    const Box2 box = arc.box();
    if (finite(box) && std::isfinite(arc.start) && std::isfinite(arc.sweep)) {
        add(Primitive::Kind::arc, picture_.arcs.size(), 1, box);
        picture_.arcs.push_back(arc);
    }
}

void PictureBuilder::fill(const std::vector<Vec2>& polygon, bool bridged) {
    const size_t before = size();
    if (polygon.size() > 2) {
        add_points(Primitive::Kind::fill, polygon);
    }
    if (size() != before) {
        picture_.primitives.back().bridged = bridged;
    }
}

void PictureBuilder::dot(Vec2 point) {
    add_points(Primitive::Kind::dot, {point});
}

void PictureBuilder::text(TextItem item) {
    const Box2 box = image(item.frame, text_area(item));
    if (!item.text.empty() && finite(box)) {
        add(Primitive::Kind::text, picture_.texts.size(), 1, box);
        picture_.texts.push_back(std::move(item));
    }
}

void PictureBuilder::instance(const Instance& instance, const Picture& placed) {
    const Box2 box = image(instance.placement, placed.endless() ? placed.reach : placed.box);
    if (box.empty() || !finite(box)) {
        return;
    }
    const Ink first = placed.primitives.front().ink;
    Primitive& primitive = add(Primitive::Kind::instance, picture_.instances.size(), 1, box);
    primitive.on_layer_zero = false;
    primitive.endless = placed.endless();
    primitive.ink = first == Ink::by_block()         ? instance.ink
                    : first == Ink::by_block_layer() ? instance.layer_ink
                                                     : first;
    picture_.instances.push_back(instance);
}

Picture PictureBuilder::take() {
    Picture picture = std::move(picture_);
    picture_ = Picture();
    picture.finish();
    return picture;
}

}  // namespace host
