#include "platform/host/view/picture_builder.h"

#include "platform/host/view/text_item.h"

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

void PictureBuilder::begin_entity(dxf::RecordId entity, Ink ink, bool on_layer_zero, uint16_t pattern, uint8_t weight) {
    entity_ = entity;
    ink_ = ink;
    on_layer_zero_ = on_layer_zero;
    pattern_ = pattern;
    weight_ = weight;
}

Primitive* PictureBuilder::add(Primitive::Kind kind, size_t first, size_t count, const Box2& box, size_t bytes) {
    if (!budget_.take(sizeof(Primitive) + BoxTree::bytes_per_box + bytes)) {
        return nullptr;
    }
    Primitive primitive;
    primitive.box = box;
    primitive.first = static_cast<uint32_t>(first);
    primitive.count = static_cast<uint32_t>(count);
    primitive.entity = entity_;
    primitive.ink = ink_;
    primitive.kind = kind;
    primitive.on_layer_zero = on_layer_zero_;
    primitive.pattern = pattern_;
    primitive.weight = weight_;
    picture_.primitives.push_back(primitive);
    return &picture_.primitives.back();
}

Primitive* PictureBuilder::add_points(Primitive::Kind kind, const Vec2* points, size_t count) {
    Box2 box;
    for (const Vec2* point = points; point != points + count; ++point) {
        if (!host::finite(*point)) {
            return nullptr;
        }
        box.add(*point);
    }
    Primitive* const added = count == 0 ? nullptr : add(kind, picture_.points.size(), count, box, count * sizeof(Vec2));
    if (added != nullptr) {
        picture_.points.insert(picture_.points.end(), points, points + count);
    }
    return added;
}

void PictureBuilder::strip(const std::vector<Vec2>& points) {
    add_points(points.size() == 1 ? Primitive::Kind::dot : Primitive::Kind::strip, points.data(), points.size());
}

void PictureBuilder::line(Vec2 from, Vec2 to) {
    const Vec2 ends[] = {from, to};
    add_points(Primitive::Kind::strip, ends, 2);
}

void PictureBuilder::endless_line(Vec2 from, Vec2 to) {
    const Vec2 ends[] = {from, to};
    if (Primitive* const added = add_points(Primitive::Kind::strip, ends, 2)) {
        added->endless = true;
    }
}

void PictureBuilder::arc(const Arc& arc) {
    const Box2 box = arc.box();
    if (finite(box) && std::isfinite(arc.start) && std::isfinite(arc.sweep) &&
        add(Primitive::Kind::arc, picture_.arcs.size(), 1, box, sizeof arc) != nullptr) {
        picture_.arcs.push_back(arc);
    }
}

void PictureBuilder::fill(const std::vector<Vec2>& polygon, bool bridged) {
    if (Primitive* const added =
            polygon.size() > 2 ? add_points(Primitive::Kind::fill, polygon.data(), polygon.size()) : nullptr) {
        added->bridged = bridged;
    }
}

void PictureBuilder::dot(Vec2 point) {
    add_points(Primitive::Kind::dot, &point, 1);
}

void PictureBuilder::text(TextItem item) {
    const Box2 box = image(item.frame, text_area(item));
    const size_t bytes = sizeof item + (item.text.size() + 1) * sizeof(wchar_t);
    if (!item.text.empty() && finite(box) &&
        add(Primitive::Kind::text, picture_.texts.size(), 1, box, bytes) != nullptr) {
        picture_.texts.push_back(std::move(item));
    }
}

void PictureBuilder::instance(const Instance& instance, const Picture& placed) {
    add_instance(instance, placed, image(instance.placement, placed.endless() ? placed.reach : placed.box));
}

void PictureBuilder::instances(Instance instance, const Picture& placed, const Repeats& repeats) {
    const Box2 one = image(instance.placement, placed.endless() ? placed.reach : placed.box);
    instance.repeats = static_cast<uint32_t>(picture_.repeats.size());
    if (budget_.take(sizeof repeats) && add_instance(instance, placed, repeats.around(one)) != nullptr) {
        picture_.repeats.push_back(repeats);
    }
}

Primitive* PictureBuilder::add_instance(const Instance& instance, const Picture& placed, const Box2& box) {
    if (box.empty() || !finite(box)) {
        return nullptr;
    }
    const Ink first = placed.primitives.front().ink;
    Primitive* const added = add(Primitive::Kind::instance, picture_.instances.size(), 1, box, sizeof instance);
    if (added != nullptr) {
        added->on_layer_zero = false;
        added->endless = placed.endless();
        added->ink = first == Ink::by_block()         ? instance.ink
                     : first == Ink::by_block_layer() ? instance.layer_ink
                                                      : first;
        picture_.instances.push_back(instance);
    }
    return added;
}

Picture PictureBuilder::take() {
    Picture picture = std::move(picture_);
    picture_ = Picture();
    picture.finish();
    return picture;
}

}  // namespace host
