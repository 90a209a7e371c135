#include "platform/host/view/hit_test.h"

#include <algorithm>

#include "platform/host/view/text_item.h"

namespace host {

namespace {

constexpr size_t points_at_once = 32;  // which take as long as one more primitive

bool between(double value, double a, double b) {
    return std::min(a, b) <= value && value <= std::max(a, b);
}

bool segment_touches(Vec2 from, Vec2 to, const Box2& box) {
    if (box.contains(from) || box.contains(to)) {
        return true;
    }
    if (!Box2::between(from, to).intersects(box)) {
        return false;
    }
    const Vec2 run = to - from;
    const double sides[] = {cross(run, box.low - from), cross(run, box.high - from),
                            cross(run, Vec2{box.low.x, box.high.y} - from),
                            cross(run, Vec2{box.high.x, box.low.y} - from)};
    const auto [least, most] = std::minmax_element(std::begin(sides), std::end(sides));
    return between(0, *least, *most);
}

bool strip_touches(const std::vector<Vec2>& points, const Box2& box) {
    for (size_t i = 1; i < points.size(); ++i) {
        if (segment_touches(points[i - 1], points[i], box)) {
            return true;
        }
    }
    return points.size() == 1 && box.contains(points.front());
}

std::vector<Vec2> corners(const Affine2& map, const Box2& box) {
    return {map(box.low), map({box.high.x, box.low.y}), map(box.high), map({box.low.x, box.high.y}), map(box.low)};
}

/// A primitive's outline in world coordinates; of an arc close enough for boxes of this size.
std::vector<Vec2> outline(const Picture& picture, const Primitive& primitive, const Affine2& to_world,
                          const Box2& box) {
    constexpr double part_of_box = 1.0 / 50;
    std::vector<Vec2> points;
    if (primitive.kind == Primitive::Kind::arc) {
        const double size = std::max(box.width(), box.height());
        image(to_world, picture.arcs[primitive.first]).flatten(size * part_of_box, points);
    } else if (primitive.kind == Primitive::Kind::text) {
        const TextItem& item = picture.texts[primitive.first];
        points = corners(to_world * item.frame, text_area(item));
    } else {
        for (uint32_t i = 0; i < primitive.count; ++i) {
            points.push_back(to_world(picture.points[primitive.first + i]));
        }
        if (primitive.kind == Primitive::Kind::fill) {
            points.push_back(points.front());
        }
    }
    return points;
}

bool has_area(const Primitive& primitive) {
    const bool mask = primitive.ink == Ink::background();  // seen by its frame alone
    return (primitive.kind == Primitive::Kind::fill && !mask) || primitive.kind == Primitive::Kind::text;
}

/// How many primitives inside of blocks are looked at before blocks nested like a bomb are cut off: several times what
/// the drawing holds.
size_t effort_worth(const DisplayList& list) {
    size_t primitives = list.top.primitives.size();
    for (const Picture& picture : list.pictures) {
        primitives += picture.primitives.size();
    }
    return 500'000 + 4 * primitives;
}

/// One box held against the top picture's primitives. When what is inside of blocks has taken too much effort,
/// references count by their boxes alone.
class BoxProbe {
  public:
    BoxProbe(const DisplayList& list, const Box2& box) : list_(list), box_(box), most_effort_(effort_worth(list)) {}

    bool touches(const Primitive& primitive) { return touches(list_.top, primitive, {{}, list_.surroundings}); }
    bool encloses_all(const Primitive& primitive) { return inside(list_.top, primitive, {{}, list_.surroundings}); }

  private:
    struct Placing {
        Affine2 to_world;
        Surroundings surroundings;
        bool in_block = false;
    };
    Placing within(const Instance& instance, const Placing& placing) const {
        return {placing.to_world * instance.placement, placing.surroundings.inside(instance), true};
    }

    bool touches(const Picture& picture, const Primitive& primitive, const Placing& placing);
    bool any_touches(const Picture& holder, const Instance& instance, const Placing& placing);
    bool copy_touches(const Instance& instance, const Placing& placing);
    bool meets_clip(const Picture& picture, const Placing& placing) const;
    bool inside(const Picture& picture, const Primitive& primitive, const Placing& placing);
    bool all_inside(const Picture& holder, const Instance& instance, const Placing& placing);
    bool copy_inside(const Instance& instance, const Placing& placing);

    const DisplayList& list_;
    const Box2 box_;
    const size_t most_effort_;
    // Apart, so that a window never gives up looking for what touches it before a crossing box would.
    size_t effort_touching_ = 0;
    size_t effort_inside_ = 0;
};

bool BoxProbe::touches(const Picture& picture, const Primitive& primitive, const Placing& placing) {
    if (!placing.surroundings.shows(primitive)) {
        return false;
    }
    if (primitive.kind == Primitive::Kind::instance) {
        return effort_touching_ < most_effort_ ? any_touches(picture, picture.instances[primitive.first], placing)
                                               : image(placing.to_world, primitive.box).intersects(box_);
    }
    const std::vector<Vec2> points = outline(picture, primitive, placing.to_world, box_);
    effort_touching_ += placing.in_block ? points.size() / points_at_once : 0;
    return strip_touches(points, box_) || (has_area(primitive) && encloses(points, box_.centre()));
}

bool BoxProbe::any_touches(const Picture& holder, const Instance& instance, const Placing& placing) {
    const std::optional<Affine2> to_holder = inverse(placing.to_world);
    if (instance.repeats == Instance::once || !to_holder) {
        return copy_touches(instance, placing);
    }
    const Box2 one = image(instance.placement, list_.pictures[instance.picture].reach);
    Instance copy = instance;
    bool found = false;
    holder.repeats[instance.repeats].visit(one, image(*to_holder, box_), 0, [&](Vec2 offset) {
        copy.placement.origin = instance.placement.origin + offset;
        found = image(placing.to_world, Box2{one.low + offset, one.high + offset}).intersects(box_) &&
                (++effort_touching_ >= most_effort_ || copy_touches(copy, placing));
        return !found;
    });
    return found;
}

bool BoxProbe::copy_touches(const Instance& instance, const Placing& placing) {
    const Picture& picture = list_.pictures[instance.picture];
    const Placing inner = within(instance, placing);
    const std::optional<Affine2> to_picture = inverse(inner.to_world);
    if (!to_picture || !meets_clip(picture, inner)) {
        return false;
    }
    bool found = false;
    picture.visit(image(*to_picture, box_), 0, [&](uint32_t number) {
        effort_touching_ += found ? 0 : 1;
        found = found || touches(picture, picture.primitives[number], inner);
    });
    return found;
}

/// Whether some of the box is inside of the picture's clipping boundary.
bool BoxProbe::meets_clip(const Picture& picture, const Placing& placing) const {
    std::vector<Vec2> boundary;
    for (const Vec2 corner : picture.clip) {
        boundary.push_back(placing.to_world(corner));
    }
    if (boundary.empty() || encloses(boundary, box_.centre())) {
        return true;
    }
    boundary.push_back(boundary.front());
    return strip_touches(boundary, box_);
}

bool BoxProbe::inside(const Picture& picture, const Primitive& primitive, const Placing& placing) {
    if (!placing.surroundings.shows(primitive) || box_.contains(image(placing.to_world, primitive.box))) {
        return true;
    }
    switch (primitive.kind) {
        case Primitive::Kind::instance:
            return effort_inside_ < most_effort_ && all_inside(picture, picture.instances[primitive.first], placing);
        case Primitive::Kind::arc:
            return box_.contains(image(placing.to_world, picture.arcs[primitive.first]).box());
        default: {
            const std::vector<Vec2> points = outline(picture, primitive, placing.to_world, box_);
            effort_inside_ += placing.in_block ? points.size() / points_at_once : 0;
            return std::all_of(points.begin(), points.end(), [this](Vec2 point) { return box_.contains(point); });
        }
    }
}

/// All copies are inside of the box when those in the corners are.
bool BoxProbe::all_inside(const Picture& holder, const Instance& instance, const Placing& placing) {
    if (instance.repeats == Instance::once) {
        return copy_inside(instance, placing);
    }
    const Repeats& repeats = holder.repeats[instance.repeats];
    Instance copy = instance;
    for (const uint32_t row : {uint32_t{0}, repeats.rows - 1}) {
        for (const uint32_t column : {uint32_t{0}, repeats.columns - 1}) {
            copy.placement.origin = instance.placement.origin + repeats.offset(column, row);
            if (!copy_inside(copy, placing)) {
                return false;
            }
        }
    }
    return true;
}

bool BoxProbe::copy_inside(const Instance& instance, const Placing& placing) {
    const Picture& picture = list_.pictures[instance.picture];
    const Placing inner = within(instance, placing);
    return std::all_of(picture.primitives.begin(), picture.primitives.end(), [&](const Primitive& primitive) {
        ++effort_inside_;
        return inside(picture, primitive, inner);
    });
}

}  // namespace

/// The numbers of the top picture's primitives near the box, in drawing order.
std::vector<uint32_t> HitTest::candidates(const Box2& box) const {
    std::vector<uint32_t> numbers;
    list_.top.visit(box, 0, [&numbers](uint32_t number) { numbers.push_back(number); });
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

dxf::RecordId HitTest::pick(const Box2& pick_box) const {
    BoxProbe probe(list_, pick_box);
    const std::vector<uint32_t> numbers = candidates(pick_box);
    for (auto number = numbers.rbegin(); number != numbers.rend(); ++number) {
        const Primitive& primitive = list_.top.primitives[*number];
        if (probe.touches(primitive)) {
            return primitive.entity;
        }
    }
    return dxf::no_record;
}

std::vector<dxf::RecordId> HitTest::crossing(const Box2& box) const {
    BoxProbe probe(list_, box);
    std::vector<dxf::RecordId> found;
    for (const uint32_t number : candidates(box)) {
        const Primitive& primitive = list_.top.primitives[number];
        if ((found.empty() || found.back() != primitive.entity) && probe.touches(primitive)) {
            found.push_back(primitive.entity);
        }
    }
    return found;
}

std::vector<dxf::RecordId> HitTest::window(const Box2& box) const {
    const std::vector<Primitive>& all = list_.top.primitives;
    BoxProbe probe(list_, box);
    std::vector<dxf::RecordId> found;
    size_t next = 0;
    for (const uint32_t number : candidates(box)) {
        if (number < next) {
            continue;
        }
        size_t first = number;
        while (first > 0 && all[first - 1].entity == all[number].entity) {
            --first;
        }
        bool whole = true;
        for (next = first; next < all.size() && all[next].entity == all[number].entity; ++next) {
            whole = whole && probe.encloses_all(all[next]);
        }
        bool seen = false;
        for (size_t i = first; i < next && whole && !seen; ++i) {
            seen = all[i].box.intersects(box) && probe.touches(all[i]);
        }
        if (seen) {
            found.push_back(all[number].entity);
        }
    }
    return found;
}

}  // namespace host
