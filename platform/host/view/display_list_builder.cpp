#include "platform/host/view/display_list_builder.h"

#include <algorithm>
#include <future>
#include <utility>

#include "base/background.h"
#include "base/case_folding.h"
#include "base/progress.h"

namespace host {

namespace {

constexpr EntityKind kinds[] = {
    {L"LINE", draw_line},
    {L"CIRCLE", draw_circle},
    {L"ARC", draw_arc},
    {L"ELLIPSE", draw_ellipse},
    {L"SPLINE", draw_spline},
    {L"POINT", draw_point},
    {L"RAY", draw_ray},
    {L"XLINE", draw_construction_line},
    {L"LEADER", draw_leader},
    {L"MULTILEADER", draw_multileader},
    {L"MLEADER", draw_multileader},
    {L"TOLERANCE", draw_tolerance},
    {L"MESH", draw_subdivision_mesh},
    {L"MLINE", draw_multiline},
    {L"IMAGE", draw_image},
    {L"PDFUNDERLAY", draw_underlay},
    {L"DGNUNDERLAY", draw_underlay},
    {L"DWFUNDERLAY", draw_underlay},
    {L"WIPEOUT", draw_wipeout},
    {L"LWPOLYLINE", draw_light_polyline},
    {L"POLYLINE", draw_polyline},
    {L"SOLID", draw_solid},
    {L"TRACE", draw_solid},
    {L"3DFACE", draw_face},
    {L"HATCH", draw_hatch},
    {L"TEXT", draw_text},
    {L"ATTRIB", draw_attribute},
    {L"ATTDEF", draw_attribute_definition},
    {L"MTEXT", draw_paragraphs},
    {L"DIMENSION", draw_dimension, true},
    {L"ARC_DIMENSION", draw_dimension, true},
    {L"LARGE_RADIAL_DIMENSION", draw_dimension, true},
    {L"ACAD_TABLE", draw_table, true},
    {L"VIEWPORT", [](const EntityScope&) {}},
};

/// Group 62: 0 is the block's colour, 256 (or nothing) the layer's.
constexpr int64_t colour_of_block = 0;
constexpr int64_t colour_of_layer = 256;

PictureLimits limits_for(const dxf::Drawing& drawing) {
    return PictureLimits::for_drawing(drawing.size());
}

using ListOnTheWay = std::shared_future<std::shared_ptr<const DisplayList>>;

ListOnTheWay& list_on_the_way() {
    static ListOnTheWay list;
    return list;
}

constexpr wchar_t by_layer[] = L"ByLayer";
constexpr wchar_t by_block[] = L"ByBlock";

}  // namespace

DisplayList DisplayList::build(const dxf::Drawing& drawing, Space space) {
    return build(drawing, space, limits_for(drawing));
}

DisplayList DisplayList::build(const dxf::Drawing& drawing, Space space, const PictureLimits& limits) {
    return DisplayListBuilder(drawing, blank(space, limits)).build();
}

void DisplayList::begin(dxf::Drawing& drawing, Space space) {
    const ListOnTheWay begun = base::run_beside([&drawing, space] {
                                   auto list = std::make_shared<const DisplayList>(build(drawing, space));
                                   list->top.settle_tree();
                                   return list;
                               }).share();
    list_on_the_way() = begun;
    drawing.let_read(begun);
}

std::shared_ptr<const DisplayList> DisplayList::shared(const dxf::Drawing& drawing, Space space,
                                                       std::shared_ptr<const DisplayList> former) {
    static std::weak_ptr<const DisplayList> known;
    const DrawnState state = DrawnState::of(drawing);
    if (const ListOnTheWay begun = std::exchange(list_on_the_way(), {}); begun.valid()) {
        former = begun.get();
        known = former;
    }
    std::shared_ptr<const DisplayList> list = known.lock();
    if (list == nullptr || list->state != state || list->space != space || list->stopped) {
        list.reset();
        const bool grows = former.use_count() == 1 && !former->stopped && former->space == space &&
                           former->state.still_holds(drawing, former->lacking);
        DisplayList begun =
            grows ? std::move(*std::const_pointer_cast<DisplayList>(former)) : blank(space, limits_for(drawing));
        former.reset();
        list = std::make_shared<DisplayList>(DisplayListBuilder(drawing, std::move(begun)).build());
        known = list;
    }
    return list;
}

DisplayListBuilder::DisplayListBuilder(const dxf::Drawing& drawing, DisplayList list)
    : drawing_(drawing),
      layers_(drawing),
      line_types_(drawing, std::move(list.patterns)),
      styles_(drawing, std::move(list.fonts)),
      settings_(drawing),
      order_(drawing, settings_),
      kinds_(drawing.type_names().size()),
      base_of_block_(drawing.blocks().size()),
      being_drawn_(drawing.blocks().size(), false),
      list_(std::move(list)) {
    list_.picture_of_block.resize(drawing.blocks().size(), DisplayList::no_picture);
}

DisplayList DisplayListBuilder::build() {
    const bool paper = list_.space == DisplayList::Space::paper;
    PictureBuilder out(list_.budget, std::move(list_.top));
    const Target target{out, {}, false};
    const auto stands_here = [&](dxf::RecordId id) {
        return id >= list_.state.records && drawing_.record(id).is(dxf::Record::paper_space) == paper;
    };
    size_t entities = 0;
    size_t references = 0;
    for (const dxf::RecordId id : drawing_.entities()) {
        entities += stands_here(id) ? 1 : 0;
        references += stands_here(id) && drawing_.record(id).type == dxf::type_insert ? 1 : 0;
    }
    const auto room = static_cast<size_t>(list_.budget.bytes_left() / 4 / sizeof(Primitive));
    constexpr size_t few_more = 256;                // that may come later
    const size_t parts = entities / 16 + few_more;  // of entities that have several, as references with attributes
    out.reserve(std::min(entities + parts, room), std::min(references + few_more, room));
    constexpr size_t step = 1U << 12;  // entities between two words on the progress
    size_t drawn = 0;
    draw_all(paper ? L"*Paper_Space" : L"*Model_Space", drawing_.entities(), [&](dxf::RecordId id) {
        if (!stands_here(id)) {
            return;
        }
        if (++drawn % step == 0 &&
            !base::ProgressWatch::goes_on(static_cast<double>(drawn) / static_cast<double>(entities))) {
            list_.budget.spend();
            list_.stopped = true;
        }
        draw_record(id, target);
    });
    list_.top = out.take();
    list_.left_out = list_.budget.left_out();
    list_.state = DrawnState::of(drawing_);
    list_.lacking |= styles_.lacking();
    list_.fonts = styles_.fonts();
    list_.surroundings.layer_ink = layers_.zero_state().ink;
    list_.surroundings.layer_pattern = line_types_.pattern(layers_.zero_state().line_type, 1);
    list_.surroundings.layer_weight = layers_.zero_state().weight;
    list_.shows_weights = settings_.header_real("$LWDISPLAY", 290, 0) != 0;
    list_.surroundings.layer_zero_shown = layers_.zero_state().shown();
    list_.patterns = line_types_.take_patterns();
    return std::move(list_);
}

Box2 DisplayListBuilder::area_of(dxf::BlockId block) {
    return draw_block(block, Transform3::translation(base_of(block) * -1), false).box;
}

const EntityKind* DisplayListBuilder::kind_of(uint16_t type) {
    if (type >= kinds_.size()) {
        return nullptr;
    }
    if (!kinds_[type]) {
        const std::wstring& name = drawing_.type_names().name(type);
        const auto* const found = std::find_if(std::begin(kinds), std::end(kinds),
                                               [&name](const EntityKind& kind) { return kind.type == name; });
        kinds_[type] = found == std::end(kinds) ? nullptr : found;
    }
    return *kinds_[type];
}

EntityScope DisplayListBuilder::scope_of(const dxf::RecordView& record, const Target& target, BlockPlacer& blocks) {
    return {drawing_, record,      fields_, target.space, styles_,        settings_,
            layers_,  line_types_, blocks,  target.out,   target.in_block};
}

bool DisplayListBuilder::visible(dxf::NameId layer, bool in_block) const {
    return layers_.is_zero(layer) ? in_block || layers_.zero_state().shown() : layers_.of(layer).shown();
}

/// The colour of the entity in `fields_`.
Ink DisplayListBuilder::ink_of(dxf::NameId layer) const {
    if (const dxf::Group* const true_colour = fields_.group(420)) {
        return Ink::rgb(static_cast<uint32_t>(true_colour->integer()));
    }
    const int64_t index = fields_.integer(62, colour_of_layer);
    if (index == colour_of_block) {
        return Ink::by_block();
    }
    if (index == colour_of_layer) {
        return layers_.ink(layer);
    }
    return indexed_ink(static_cast<int>(std::abs(index) % colour_of_layer));
}

/// The linetype of the entity in `fields_`.
uint16_t DisplayListBuilder::pattern_of(dxf::NameId layer) {
    const double scale = fields_.real(48, 1);
    if (fields_.has(6)) {
        const std::wstring name = fields_.text(6);
        if (base::compare_ignoring_case(name, by_block) == 0) {
            return LinePattern::of_block;
        }
        if (base::compare_ignoring_case(name, by_layer) != 0) {
            return line_types_.pattern(name, scale);
        }
    }
    return layers_.is_zero(layer) ? LinePattern::of_block_layer
                                  : line_types_.pattern(layers_.of(layer).line_type, scale);
}

/// The line weight of the entity in `fields_`: group 370, where -1 is the layer's and -2 the block's.
uint8_t DisplayListBuilder::weight_of(dxf::NameId layer) const {
    constexpr int64_t of_layer = -1;
    constexpr int64_t of_block = -2;
    const int64_t said = fields_.integer(370, of_layer);
    return said == of_layer   ? layers_.weight(layer)
           : said == of_block ? LineWeight::of_block
                              : LineWeight::in_pixels(said);
}

void DisplayListBuilder::draw_record(dxf::RecordId id, const Target& target) {
    const dxf::Record& entry = drawing_.record(id);
    if (entry.is(dxf::Record::erased)) {
        return;
    }
    if (!target.anew) {
        list_.budget.begin_entity();
    }
    if (list_.budget.spent() || !list_.budget.work(entry.length)) {
        list_.budget.leave_out();
        return;
    }
    const dxf::RecordView record = drawing_.view(id);
    fields_.read(record);
    if (fields_.integer(60) != 0) {
        return;
    }
    if (entry.type == dxf::type_insert) {
        draw_insert(id, record, entry.layer, target);
    } else if (visible(entry.layer, target.in_block) && !draw_own_block(id, entry.layer, target)) {
        draw_plain(id, record, target);
    }
}

/// Draws the entity in `fields_` by its geometry alone.
void DisplayListBuilder::draw_plain(dxf::RecordId id, const dxf::RecordView& record, const Target& target) {
    const dxf::Record& entry = drawing_.record(id);
    const EntityKind* const kind = kind_of(entry.type);
    const bool dashed = kind == nullptr || kind->draw != draw_hatch;
    target.out.begin_entity(id, ink_of(entry.layer), layers_.is_zero(entry.layer),
                            dashed ? pattern_of(entry.layer) : LinePattern::continuous, weight_of(entry.layer));
    PartPlacer blocks(*this, id, target);
    const EntityScope scope = scope_of(record, target, blocks);
    if (kind != nullptr) {
        kind->draw(scope);
    } else if (!(record.type() == "SHAPE" ? draw_shape(scope) : draw_proxy_graphics(scope))) {
        ++list_.not_shown[drawing_.type_names().name(entry.type)];
    }
}

/// The ATTRIBs that follow an INSERT, which stand in the same coordinates as the INSERT itself but look like a part of
/// its block.
void DisplayListBuilder::draw_attributes(dxf::RecordId id, const dxf::RecordView& record, const Instance& look,
                                         const Target& target) {
    if (!drawing_.record(id).is(dxf::Record::has_parts)) {
        return;
    }
    const Surroundings inside{look.ink, look.layer_ink};
    for (const dxf::RecordView& part : record.parts()) {
        if (part.type() != "ATTRIB") {
            continue;
        }
        fields_.read(part);
        const dxf::NameId layer = drawing_.layer_names().find(fields_.text(8));
        const bool like_reference = layers_.is_zero(layer);
        const bool shown = like_reference ? look.layer_zero != Instance::LayerZero::hidden : layers_.of(layer).shown();
        if (fields_.integer(60) == 0 && shown) {
            target.out.begin_entity(id, inside.resolve(ink_of(layer)),
                                    like_reference && look.layer_zero == Instance::LayerZero::inherited);
            PartPlacer blocks(*this, id, target);
            draw_attribute(scope_of(part, target, blocks));
        }
    }
}

}  // namespace host
