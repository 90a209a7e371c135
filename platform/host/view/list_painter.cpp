#include "platform/host/view/list_painter.h"

#include <algorithm>

#include "platform/host/view/text_item.h"

namespace host {

namespace {

constexpr double one_pixel = 1;
constexpr double few_pixels = 4;
constexpr double chord_error = 0.3;           // pixels
constexpr double readable_height = 2.5;       // pixels; smaller text is shown as a line
constexpr double easily_readable_height = 5;  // pixels
constexpr double dense_points = 0.5;          // pixels; nearer points of a strip are left out
constexpr size_t longest_shaped = 10'000;     // characters; nobody reads more in a line
constexpr double same_place = 0.4;            // pixels; of points of an outline
constexpr double shortest_pattern = 3;        // pixels; of a shorter one no dashes can be told apart
constexpr size_t most_effort = 4'000'000;     // blocks nested like a bomb are cut off here

/// The primitives of a large picture that are to be painted, by number and then in order.
template <typename Paint>
void paint_in_order(const Picture& picture, const Box2& area, double detail, Paint paint) {
    std::vector<uint64_t> wanted((picture.primitives.size() + 63) / 64);
    picture.visit(area, detail, [&wanted](uint32_t number) { wanted[number / 64] |= uint64_t{1} << number % 64; });
    for (size_t word = 0; word < wanted.size(); ++word) {
        for (uint64_t bits = wanted[word]; bits != 0; bits &= bits - 1) {
            paint(picture.primitives[word * 64 + static_cast<size_t>(__builtin_ctzll(bits))]);
        }
    }
}

}  // namespace

bool PaintColours::is_dark(uint32_t colour) {
    const uint32_t brightness = (colour >> 16 & 0xFF) * 30 + (colour >> 8 & 0xFF) * 59 + (colour & 0xFF) * 11;
    return brightness < 128 * 100;
}

uint32_t PaintColours::of_area(Ink ink) const {
    return ink == Ink::background() ? background : ink.value > 0xFFFFFF ? foreground() : ink.value;
}

uint32_t PaintColours::of_line(Ink ink) const {
    const uint32_t colour = of_area(ink);
    return colour == background ? foreground() : colour;
}

ListPainter::ListPainter(const DisplayList& list, const ViewTransform& view, Raster& raster, Typesetter* typesetter)
    : list_(list), view_(view), raster_(raster), weights_(list.shows_weights), typesetter_(typesetter) {
    for (const LinePattern& pattern : list.patterns) {
        patterns_.push_back(pattern.in_pixels(view.pixels_per_unit()));
    }
}

void ListPainter::paint(const PaintColours& colours, const EntitySet& highlighted, size_t most_small_texts) {
    colours_ = colours;
    highlighted_ = &highlighted;
    small_texts_left_ = most_small_texts;
    effort_ = 0;
    raster_.clear(colours.background);
    paint_picture(list_.top, {view_.to_pixels(), list_.surroundings});
}

/// Paints a picture inside of its clipping boundary, where it has one. Boundaries within many others cut nothing more
/// off.
void ListPainter::paint_picture(const Picture& picture, const Placing& placing) {
    constexpr size_t most_clips = 4;
    if (picture.clip.empty() || clips_ == most_clips) {
        paint_primitives(picture, placing);
        return;
    }
    std::vector<Vec2> boundary;
    for (const Vec2 corner : picture.clip) {
        boundary.push_back(placing.to_pixels(corner));
    }
    raster_.begin_clip(boundary);
    ++clips_;
    paint_primitives(picture, placing);
    --clips_;
    raster_.end_clip();
}

void ListPainter::paint_primitives(const Picture& picture, const Placing& placing) {
    const std::optional<Affine2> to_picture = inverse(placing.to_pixels);
    if (!to_picture) {
        return;  // flattened to a line: its box alone says where it would be
    }
    const Box2 area = image(*to_picture, raster_.box());
    const auto paint = [&](const Primitive& primitive) {
        if (depth_ == 0) {
            highlighting_ = highlighted_->has(primitive.entity);
        }
        if (placing.surroundings.shows(primitive)) {
            paint_primitive(picture, primitive, placing);
        }
    };
    if (!picture.many()) {
        for (const Primitive& primitive : picture.primitives) {
            if (primitive.box.intersects(area)) {
                paint(primitive);
            }
        }
        return;
    }
    paint_in_order(picture, area, one_pixel / placing.scale, paint);
}

void ListPainter::paint_primitive(const Picture& picture, const Primitive& primitive, const Placing& placing) {
    effort_ += depth_ > 0 ? 1 : 0;
    const Ink ink = placing.surroundings.resolve(primitive.ink);
    const uint32_t colour = primitive.kind == Primitive::Kind::fill ? colours_.of_area(ink) : colours_.of_line(ink);
    raster_.set_pen(colour, highlighting_);
    const double size = std::max(primitive.box.width(), primitive.box.height()) * placing.scale;
    if (size < one_pixel || effort_ > most_effort) {
        raster_.dot(placing.to_pixels(primitive.box.low));
        return;
    }
    switch (primitive.kind) {
        case Primitive::Kind::instance:
            paint_instances(picture, picture.instances[primitive.first], placing);
            break;
        case Primitive::Kind::arc:
            points_.clear();
            image(placing.to_pixels, picture.arcs[primitive.first]).flatten(chord_error, points_);
            paint_strip(primitive, placing.surroundings);
            break;
        case Primitive::Kind::text:
            paint_text(picture.texts[primitive.first], placing.to_pixels * picture.texts[primitive.first].frame);
            break;
        default:
            paint_points(picture, primitive, placing);
            break;
    }
}

/// A primitive's points in pixels, without those that would fall on the same place.
void ListPainter::project(const Picture& picture, const Primitive& primitive, const Affine2& to_pixels) {
    points_.clear();
    const Vec2* const points = picture.points.data() + primitive.first;
    points_.push_back(to_pixels(points[0]));
    for (uint32_t i = 1; i < primitive.count; ++i) {
        const Vec2 point = to_pixels(points[i]);
        const Vec2 gap = point - points_.back();
        if (i + 1 == primitive.count || std::fabs(gap.x) > dense_points || std::fabs(gap.y) > dense_points) {
            points_.push_back(point);
        }
    }
}

void ListPainter::paint_points(const Picture& picture, const Primitive& primitive, const Placing& placing) {
    project(picture, primitive, placing.to_pixels);
    if (primitive.kind == Primitive::Kind::fill) {
        raster_.fill(points_);
        if (!primitive.bridged && primitive.ink != Ink::background()) {
            points_.push_back(points_.front());
            raster_.strip(points_);  // so that narrow areas have no gaps
        }
    } else if (primitive.kind == Primitive::Kind::dot) {
        raster_.dot(points_.front());
    } else {
        paint_strip(primitive, placing.surroundings);
    }
}

/// Paints the line through `points_`. Dashes are as long inside a block as outside; where they would run together, or
/// the selection has dashes of its own, the line is painted whole.
void ListPainter::paint_strip(const Primitive& primitive, const Surroundings& surroundings) {
    if (weights_ && primitive.weight != LineWeight::thin) {
        raster_.set_width(surroundings.resolve_weight(primitive.weight));
    }
    const uint16_t pattern = surroundings.resolve_pattern(primitive.pattern);
    if (pattern >= patterns_.size() || highlighting_ || patterns_[pattern].total() < shortest_pattern) {
        raster_.strip(points_);
        return;
    }
    dashes_.clear();
    cut_by_pattern(points_, patterns_[pattern], raster_.box(), dashes_);
    for (size_t i = 0; i + 1 < dashes_.size(); i += 2) {
        raster_.line(dashes_[i], dashes_[i + 1]);
    }
}

void ListPainter::paint_instances(const Picture& holder, const Instance& instance, const Placing& placing) {
    const std::optional<Affine2> to_holder = inverse(placing.to_pixels);
    if (instance.repeats == Instance::once || !to_holder) {
        paint_instance(instance, placing);
        return;
    }
    Instance copy = instance;
    holder.repeats[instance.repeats].visit(image(instance.placement, list_.pictures[instance.picture].reach),
                                           image(*to_holder, raster_.box()), one_pixel / placing.scale,
                                           [&](Vec2 offset) {
                                               copy.placement.origin = instance.placement.origin + offset;
                                               paint_instance(copy, placing);
                                               return ++effort_ < most_effort;
                                           });
}

void ListPainter::paint_instance(const Instance& instance, const Placing& placing) {
    const Picture& picture = list_.pictures[instance.picture];
    const Placing inner{placing.to_pixels * instance.placement, placing.surroundings.inside(instance)};
    const double size = std::max(picture.reach.width(), picture.reach.height()) * inner.scale;
    ++depth_;
    if (size < few_pixels) {
        paint_sample(picture, inner);
    } else {
        paint_picture(picture, inner);
    }
    --depth_;
}

/// Paints a few primitives from all over a picture of which no more could be told apart.
void ListPainter::paint_sample(const Picture& picture, const Placing& placing) {
    constexpr size_t sample = 4;
    const size_t count = picture.primitives.size();
    for (size_t i = 0; i < std::min(count, sample); ++i) {
        const Primitive& primitive = picture.primitives[i * count / std::min(count, sample)];
        if (placing.surroundings.shows(primitive)) {
            paint_primitive(picture, primitive, placing);
        }
    }
}

/// Makes `outline_` of an outline in pixels, without points that would fall on the same place.
void ListPainter::project(const Outline& outline, const Affine2& to_pixels) {
    outline_.clear();
    uint32_t first = 0;
    for (const uint32_t end : outline.ends) {
        Vec2 last = to_pixels(outline.points[first]);
        outline_.points.push_back(last);
        for (uint32_t i = first + 1; i < end; ++i) {
            const Vec2 point = to_pixels(outline.points[i]);
            if (std::fabs(point.x - last.x) + std::fabs(point.y - last.y) > same_place) {
                outline_.points.push_back(point);
                last = point;
            }
        }
        outline_.ends.push_back(static_cast<uint32_t>(outline_.points.size()));
        first = end;
    }
}

void ListPainter::paint_text(const TextItem& item, const Affine2& to_pixels) {
    const double height = to_pixels.y.length();
    const bool small = height < easily_readable_height;
    if (typesetter_ == nullptr || height < readable_height || (small && small_texts_left_ == 0) ||
        item.text.size() > longest_shaped) {
        const Box2 area = text_area(item);
        raster_.line(to_pixels({area.low.x, 0.5}), to_pixels({area.high.x, 0.5}));
        return;
    }
    small_texts_left_ -= small ? 1 : 0;
    const TextShape& shape = typesetter_->shape(item, list_.fonts[item.font]);
    const double stretch = item.fit_width > 0 && shape.width > 0 ? item.fit_width / shape.width : 1;
    const double begin = shape.width * (item.anchor == TextItem::Anchor::left     ? 0
                                        : item.anchor == TextItem::Anchor::centre ? -0.5
                                                                                  : -1);
    Affine2 placed = to_pixels;
    placed.x = to_pixels.x * stretch;
    placed.origin = to_pixels({begin * stretch, 0});
    project(shape.outline, placed);
    smooth_.fill(raster_, outline_);
}

}  // namespace host
