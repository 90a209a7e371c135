// The part of the builder that draws block references.
#include "platform/host/view/display_list_builder.h"

namespace host {

namespace {

constexpr int64_t most_copies_in_line = 32767;  // what the format's 16 bits can say
constexpr size_t deepest_nesting = 100;
constexpr size_t steps_of_a_copy = 1000;

bool is_zero(const Vec3& step) {
    return step.x == 0 && step.y == 0 && step.z == 0;
}

uint32_t copies_in_line(int64_t count, const Vec3& step) {
    return is_zero(step) ? 1 : static_cast<uint32_t>(std::clamp<int64_t>(count, 1, most_copies_in_line));
}

}  // namespace

dxf::BlockId DisplayListBuilder::block_named(const std::wstring& name) const {
    const dxf::NameId found = drawing_.block_names().find(name);
    return found == dxf::no_name ? dxf::no_block : drawing_.block_named(found);
}

const Vec3& DisplayListBuilder::base_of(dxf::BlockId block) {
    std::optional<Vec3>& base = base_of_block_[block];
    if (!base) {
        base.emplace();
        const dxf::RecordId head = drawing_.blocks()[block].head;
        if (head != dxf::no_record) {
            base = dxf::read<dxf::BlockHead>(dxf::RecordFields(drawing_.view(head))).base;
        }
    }
    return *base;
}

/// How the block reference in `fields_` colours, dashes and shows what is inside of it.
Instance DisplayListBuilder::look_of(dxf::NameId layer) {
    Instance look;
    look.ink = ink_of(layer);
    look.pattern = pattern_of(layer);
    look.weight = weight_of(layer);
    look.layer_weight = layers_.weight(layer);
    if (layers_.is_zero(layer)) {
        look.layer_ink = Ink::by_block_layer();
        look.layer_pattern = LinePattern::of_block_layer;
        look.layer_zero = Instance::LayerZero::inherited;
    } else {
        look.layer_ink = layers_.of(layer).ink;
        look.layer_pattern = line_types_.pattern(layers_.of(layer).line_type, 1);
        look.layer_zero = layers_.of(layer).shown() ? Instance::LayerZero::shown : Instance::LayerZero::hidden;
    }
    return look;
}

/// The places of the INSERT in `fields_`, for a block with this base point.
DisplayListBuilder::Copies DisplayListBuilder::read_copies(const Vec3& base) const {
    const auto insert = dxf::read<dxf::Insert>(fields_);
    Copies copies;
    copies.first = placement_of(insert, base);
    if (insert.columns <= 1 && insert.rows <= 1) {
        return copies;
    }
    const Transform3 turned = Transform3::extrusion(insert.extrusion) * Transform3::rotation(insert.rotation);
    copies.column_step = turned.vector({insert.column_spacing, 0, 0});
    copies.row_step = turned.vector({0, insert.row_spacing, 0});
    copies.columns = copies_in_line(insert.columns, copies.column_step);
    copies.rows = copies_in_line(insert.rows, copies.row_step);
    return copies;
}

void DisplayListBuilder::draw_insert(dxf::RecordId id, const dxf::RecordView& record, dxf::NameId layer,
                                     const Target& target) {
    const bool zero = layers_.is_zero(layer);
    if (zero ? !target.in_block && layers_.zero_state().frozen : layers_.of(layer).frozen) {
        return;
    }
    const dxf::NameId name = drawing_.record(id).block_name;
    const dxf::BlockId block = name == dxf::no_name ? dxf::no_block : drawing_.block_named(name);
    const Copies copies = read_copies(block == dxf::no_block ? Vec3{} : base_of(block));
    place_block(id, block, copies, look_of(layer), target, record);
}

/// Dimensions and tables show a block of their own. False where there is none.
bool DisplayListBuilder::draw_own_block(dxf::RecordId id, dxf::NameId layer, const Target& target) {
    const EntityKind* const kind = kind_of(drawing_.record(id).type);
    if (kind == nullptr || !kind->has_block) {
        return false;
    }
    const dxf::BlockId block = block_named(fields_.text(2));
    if (block == dxf::no_block) {
        list_.lacking = true;
        return false;
    }
    Copies copies;
    copies.first = Transform3::translation(base_of(block) * -1);
    if (kind->draw == draw_table) {
        const Vec3 along = fields_.point(11, {1, 0, 0});
        copies.first = Transform3::translation(fields_.point(10)) * Transform3::rotation(std::atan2(along.y, along.x)) *
                       copies.first;
    }
    place_block(id, block, copies, look_of(layer), target, drawing_.view(id));
    return true;
}

bool DisplayListBuilder::PartPlacer::place(const std::wstring& name, const Transform3& where) {
    const dxf::BlockId block = builder_.block_named(name);
    if (block == dxf::no_block) {
        builder_.list_.lacking = true;
        return false;
    }
    if (!builder_.list_.budget.work(steps_of_a_copy)) {
        return true;
    }
    dxf::RecordFields& fields = builder_.fields_;
    const dxf::NameId layer = builder_.drawing_.record(id_).layer;
    const Ink ink = target_.out.ink();
    const uint16_t pattern = target_.out.pattern();
    const uint8_t weight = target_.out.weight();
    Instance look = builder_.look_of(layer);
    look.ink = ink;
    Copies copies;
    copies.first = where * Transform3::translation(builder_.base_of(block) * -1);
    dxf::RecordFields kept;  // drawing the block reads other entities
    std::swap(kept, fields);
    builder_.place_block(id_, block, copies, look, target_, builder_.drawing_.view(id_));
    std::swap(kept, fields);
    target_.out.begin_entity(id_, ink, builder_.layers_.is_zero(layer), pattern, weight);
    return true;
}

void DisplayListBuilder::place_block(dxf::RecordId id, dxf::BlockId block, const Copies& copies, const Instance& look,
                                     const Target& target, const dxf::RecordView& record) {
    const bool single = copies.columns == 1 && copies.rows == 1;
    const Transform3 placement = target.space * copies.first;
    if (block != dxf::no_block && (!placement.flat() || !target.space.flat())) {
        target.out.begin_entity(id, look.ink, false);
        place_tilted(block, copies, look, target, record);
        draw_attributes(id, record, look, target);
        return;
    }
    Instance placed = look;
    placed.picture = block == dxf::no_block ? DisplayList::no_picture : picture_of(block);
    placed.placement = placement.plan();
    if (single && placed.picture != DisplayList::no_picture) {
        clip(id, placed, clip_in(placement, record));
    }
    const bool has_parts = drawing_.record(id).is(dxf::Record::has_parts);
    PictureBuilder cell(list_.budget);
    PictureBuilder& out = single || !has_parts ? target.out : cell;
    const Repeats repeats{target.space.vector(copies.column_step).plan(), target.space.vector(copies.row_step).plan(),
                          copies.columns, copies.rows};
    out.begin_entity(id, look.ink, false);
    if (placed.picture != DisplayList::no_picture && !single && !has_parts) {
        out.instances(placed, list_.pictures[placed.picture], repeats);
    } else if (placed.picture != DisplayList::no_picture) {
        out.instance(placed, list_.pictures[placed.picture]);
    }
    draw_attributes(id, record, look, {out, target.space, target.in_block});
    if (!single && has_parts) {
        Instance whole = look;
        whole.placement = Affine2();
        whole.picture = add_picture(cell.take());
        target.out.begin_entity(id, look.ink, false);
        target.out.instances(whole, list_.pictures[whole.picture], repeats);
    }
}

/// The boundary that clips the reference, for a block placed so.
std::vector<Vec2> DisplayListBuilder::clip_in(const Transform3& placement, const dxf::RecordView& record) {
    const std::vector<Vec3>& clip = settings_.clip_of(record);
    std::vector<Vec2> boundary;
    if (clip.empty() || !list_.budget.take(clip.size() * sizeof(Vec2))) {
        return boundary;
    }
    boundary.reserve(clip.size());
    for (const Vec3& corner : clip) {
        boundary.push_back(placement(corner).plan());
    }
    const bool usable = std::all_of(boundary.begin(), boundary.end(), [](Vec2 corner) { return finite(corner); });
    return usable ? boundary : std::vector<Vec2>();
}

/// Puts a placed block into a clipped picture, which then stands in its place.
void DisplayListBuilder::clip(dxf::RecordId id, Instance& placed, std::vector<Vec2> boundary) {
    if (boundary.empty() || !list_.budget.take(sizeof(Picture))) {
        return;
    }
    PictureBuilder whole(list_.budget);
    whole.begin_entity(id, placed.ink, false);
    whole.instance(placed, list_.pictures[placed.picture]);
    Picture clipped = whole.take();
    clipped.clip_to(std::move(boundary));
    placed.picture = add_picture(std::move(clipped));
    placed.placement = Affine2();
}

/// A block seen askew is drawn anew for each reference: heights inside of it move what is seen from above.
void DisplayListBuilder::place_tilted(dxf::BlockId block, const Copies& copies, const Instance& look,
                                      const Target& target, const dxf::RecordView& record) {
    for (uint32_t row = 0; row < copies.rows; ++row) {
        for (uint32_t column = 0; column < copies.columns; ++column) {
            if (being_drawn_[block] || depth_ >= deepest_nesting || !list_.budget.take(sizeof(Picture)) ||
                !list_.budget.work(steps_of_a_copy)) {
                return;
            }
            const Vec3 step =
                copies.column_step * static_cast<double>(column) + copies.row_step * static_cast<double>(row);
            Instance placed = look;
            placed.placement = Affine2();
            const Transform3 placement = target.space * Transform3::translation(step) * copies.first;
            Picture picture = draw_block(block, placement, true);
            if (const std::vector<Vec2> boundary = clip_in(placement, record); !boundary.empty()) {
                picture.clip_to(boundary);
            }
            placed.picture = add_picture(std::move(picture));
            target.out.instance(placed, list_.pictures[placed.picture]);
        }
    }
}

uint32_t DisplayListBuilder::add_picture(Picture picture) {
    list_.pictures.push_back(std::move(picture));
    return static_cast<uint32_t>(list_.pictures.size() - 1);
}

uint32_t DisplayListBuilder::picture_of(dxf::BlockId block) {
    if (being_drawn_[block] || depth_ >= deepest_nesting) {
        return DisplayList::no_picture;
    }
    if (list_.picture_of_block[block] == DisplayList::no_picture) {
        Picture picture = draw_block(block, {}, false);
        list_.picture_of_block[block] = add_picture(std::move(picture));
    }
    return list_.picture_of_block[block];
}

Picture DisplayListBuilder::draw_block(dxf::BlockId block, const Transform3& space, bool anew) {
    PictureBuilder out(list_.budget);
    being_drawn_[block] = true;
    ++depth_;
    const dxf::Block& drawn = drawing_.blocks()[block];
    draw_all(drawn.name == dxf::no_name ? std::wstring() : drawing_.block_names().name(drawn.name), drawn.entities,
             [&](dxf::RecordId id) {
                 draw_record(id, {out, space, true, anew});
             });
    --depth_;
    being_drawn_[block] = false;
    return out.take();
}

}  // namespace host
