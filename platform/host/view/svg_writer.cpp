#include "platform/host/view/svg_writer.h"

#include <map>
#include <span>
#include <tuple>
#include <unordered_map>

#include "platform/host/view/areas.h"
#include "platform/host/view/svg_looks.h"
#include "platform/host/view/svg_text.h"
#include "platform/host/view/view_transform.h"

namespace host {

namespace {

constexpr uint64_t most_drawn = 4'000'000;  // elements; blocks nested like a bomb are cut off here
constexpr size_t longest_text = size_t{512} << 20;
constexpr size_t longest_path = 512;  // points; what is not seen is skipped path by path
constexpr double margin = 0.02;       // around the drawing, of its size
constexpr double narrowest = 200;     // pixels

/// How many elements cost a viewer as much as one of so many points or letters.
double weight_of(size_t points) {
    constexpr size_t as_another = 32;
    const size_t others = points / as_another;
    return static_cast<double>(1 + others);
}

/// The frame of a symbol: about 0, and of a size that a few decimals are enough for.
SvgFrame symbol_frame(const Picture& picture) {
    constexpr double size = 1000;
    constexpr int decimals = 3;
    const Box2& box = picture.box.empty() ? picture.reach : picture.box;
    const double scale = size / std::max(box.width(), box.height());
    return {box.empty() ? Vec2{} : box.centre(), std::isfinite(scale) && scale > 0 ? scale : 1, {}, decimals};
}

SvgFrame space_frame(const ViewTransform& view) {
    constexpr int decimals = 4;
    return {view.centre(), view.pixels_per_unit(), {view.width() / 2.0, view.height() / 2.0}, decimals};
}

class SvgWriter {
  public:
    SvgWriter(const DisplayList& list, const dxf::Drawing& drawing, const ViewTransform& view,
              std::optional<uint64_t> most)
        : list_(list),
          drawing_(drawing),
          view_(view),
          most_(most),
          inherited_(list),
          looks_(list, drawing, view.pixels_per_unit()),
          last_symbol_(list.pictures.size()) {}

    SvgPicture write(std::string memory);

  private:
    struct Symbol {
        std::string target;  ///< "#" and its id
        SvgFrame frame;
        double elements = 0;
    };
    struct Reference {
        const Instance& instance;
        Surroundings inside;
        const Symbol& symbol;
        Affine2 placed;       ///< from the symbol to what holds the reference
        double elements = 0;  ///< of all its copies
    };
    /// A picture with all that its look depends on, beside the colours that elements inherit.
    struct Key {
        uint32_t picture;
        Surroundings around;
        bool operator==(const Key& other) const = default;
        auto tie() const {
            return std::tuple(picture, around.ink.value, around.layer_zero_shown, around.pattern, around.layer_pattern,
                              around.weight, around.layer_weight);
        }
        bool operator<(const Key& other) const { return tie() < other.tie(); }
    };
    using DefinedSymbol = std::pair<const Key, Symbol>;
    /// The elements of a picture while they are written.
    struct Content {
        Content(const Picture& shown, const Surroundings& surroundings, const SvgFrame& where)
            : picture(shown), around(surroundings), frame(where), path(where) {}
        const Picture& picture;
        const Surroundings around;
        const SvgFrame frame;
        std::string text;
        double elements = 0;
        SvgPath path;                 ///< of what looks alike and stands together
        std::string path_attributes;  ///< of it
    };

    void add_all(Content& content);
    void add(Content& content, const Primitive& primitive);
    void add_to_path(Content& content, const Primitive& primitive);
    void end_path(Content& content);
    void add_area(Content& content, const Primitive& primitive);
    void add_text(Content& content, const Primitive& primitive);
    /// Nothing for one that shows nothing. Defines its symbol.
    std::optional<Reference> reference_of(const Content& content, const Primitive& primitive);
    bool has_too_many_references(const Content& space);
    void add_reference(Content& content, const Primitive& primitive);
    std::string array_of(const Content& content, const Instance& instance, const std::string& cell);
    std::string define(const std::string& elements, const Box2& box, int decimals);
    std::string attributes(const Content& content, const Primitive& primitive, const std::string& more = {});
    void append_data_of(std::string& out, dxf::RecordId entity);
    const std::string& escaped_name(dxf::NameId block);
    const Symbol& symbol_of(uint32_t picture, const Surroundings& around);
    const DefinedSymbol* define(const Key& key);
    std::string clipped(const Content& content);
    std::string next_id(const char* prefix) { return prefix + std::to_string(ids_++); }
    bool in_space(const Content& content) const { return &content.picture == &list_.top; }
    bool too_much(const Content& content) const;
    Box2 seen() const;

    const DisplayList& list_;
    const dxf::Drawing& drawing_;
    const ViewTransform& view_;
    const std::optional<uint64_t> most_;
    InheritedLooks inherited_;
    SvgLooks looks_;
    std::map<Key, Symbol> symbols_;
    std::vector<const DefinedSymbol*> last_symbol_;  ///< that was asked for, of each picture
    SvgTransforms transforms_;
    std::unordered_map<dxf::NameId, std::string> escaped_names_;  ///< of blocks
    std::string definitions_;
    size_t ids_ = 0;
    size_t left_out_ = 0;
};

bool SvgWriter::too_much(const Content& content) const {
    const bool many = in_space(content) && most_ && content.elements > static_cast<double>(*most_);
    return many || definitions_.size() + content.text.size() > longest_text;
}

void SvgWriter::add_all(Content& content) {
    for (const Primitive& primitive : content.picture.primitives) {
        if (content.around.shows(primitive)) {
            add(content, primitive);
        }
        if (too_much(content)) {
            return;
        }
    }
    end_path(content);
}

void SvgWriter::add(Content& content, const Primitive& primitive) {
    using Kind = Primitive::Kind;
    if (primitive.kind == Kind::strip || primitive.kind == Kind::arc || primitive.kind == Kind::dot) {
        add_to_path(content, primitive);
        return;
    }
    end_path(content);
    if (primitive.kind == Kind::instance) {
        add_reference(content, primitive);
    } else if (primitive.kind == Kind::text) {
        add_text(content, primitive);
    } else {
        add_area(content, primitive);
    }
}

/// The class of a shape; with the reference's data for what stands beside its block, as attributes do.
std::string SvgWriter::attributes(const Content& content, const Primitive& primitive, const std::string& more) {
    std::string words = looks_.of_shape(primitive, content.around);
    words += words.empty() || more.empty() ? more : " " + more;
    const bool of_reference = in_space(content) && primitive.entity != dxf::no_record &&
                              drawing_.record(primitive.entity).type == dxf::type_insert;
    std::string text = svg_attribute("class", words);
    if (of_reference) {
        append_data_of(text, primitive.entity);
    }
    return text;
}

void SvgWriter::add_to_path(Content& content, const Primitive& primitive) {
    const std::string own = attributes(content, primitive);
    if (own != content.path_attributes || content.path.points() > longest_path) {
        end_path(content);
        content.path_attributes = own;
    }
    const Picture& picture = content.picture;
    const auto point = [&](uint32_t number) { return picture.points[primitive.first + number]; };
    if (primitive.kind == Primitive::Kind::arc) {
        content.path.arc(picture.arcs[primitive.first]);
    } else if (primitive.kind == Primitive::Kind::dot) {
        content.path.dot(point(0));
    } else if (primitive.endless) {
        content.path.endless_line(point(0), point(1));
    } else {
        content.path.move_to(point(0));
        for (uint32_t number = 1; number < primitive.count; ++number) {
            content.path.line_to(point(number));
        }
    }
}

void SvgWriter::end_path(Content& content) {
    if (!content.path.empty()) {
        content.text += "<path" + content.path_attributes + " d=\"" + content.path.data() + "\"/>\n";
        content.elements += weight_of(content.path.points());
        content.path.clear();
    }
}

void SvgWriter::add_area(Content& content, const Primitive& primitive) {
    const auto corners = std::span(content.picture.points).subspan(primitive.first, primitive.count);
    content.text +=
        "<polygon" + attributes(content, primitive) + " points=\"" + svg_points(corners, content.frame) + "\"/>\n";
    content.elements += weight_of(primitive.count);
}

void SvgWriter::add_text(Content& content, const Primitive& primitive) {
    const TextItem& item = content.picture.texts[primitive.first];
    const SvgFrame letters{{}, SvgLooks::capitals, {}, 0};
    const Affine2 placed = content.frame.around(letters, item.frame);
    if (!inverse(placed)) {
        return;  // flattened to a line
    }
    content.text += "<text" + attributes(content, primitive, looks_.of_text(item));
    transforms_.append(content.text, placed);
    if (item.fit_width > 0) {
        content.text += " lengthAdjust=\"spacingAndGlyphs\" textLength=\"";
        append_coordinate(content.text, item.fit_width * SvgLooks::capitals, 2);
        content.text += '"';
    }
    content.text += ">" + svg_escaped(item.text) + "</text>\n";
    content.elements += weight_of(item.text.size());
}

std::optional<SvgWriter::Reference> SvgWriter::reference_of(const Content& content, const Primitive& primitive) {
    const Instance& instance = content.picture.instances[primitive.first];
    const Surroundings inside = content.around.inside(instance);
    const Symbol& symbol = symbol_of(instance.picture, inside);
    const Affine2 placed = content.frame.around(symbol.frame, instance.placement);
    if (symbol.elements == 0 || !inverse(placed)) {
        return std::nullopt;
    }
    const bool single = instance.repeats == Instance::once;
    const Repeats copies = single ? Repeats() : content.picture.repeats[instance.repeats];
    return Reference{instance, inside, symbol, placed, 1 + symbol.elements * copies.columns * copies.rows};
}

/// Adds up the elements of the references before any is written.
bool SvgWriter::has_too_many_references(const Content& space) {
    double elements = 0;
    for (const Primitive& primitive : space.picture.primitives) {
        if (primitive.kind == Primitive::Kind::instance && space.around.shows(primitive)) {
            const auto reference = reference_of(space, primitive);
            elements += reference ? reference->elements : 0;
        }
    }
    return elements > static_cast<double>(*most_);
}

void SvgWriter::add_reference(Content& content, const Primitive& primitive) {
    const auto reference = reference_of(content, primitive);
    if (!reference) {
        return;
    }
    if (!most_ && in_space(content) && content.elements + reference->elements > most_drawn) {
        ++left_out_;
        return;
    }
    content.elements += reference->elements;
    const auto& [instance, inside, symbol, placed, elements] = *reference;
    std::string& text = content.text;
    text += "<use";
    append_svg_attribute(text, "class", looks_.of_reference(primitive.entity, inside.ink, inside.layer_ink));
    append_data_of(text, primitive.entity);
    if (instance.repeats == Instance::once) {
        append_svg_attribute(text, "href", symbol.target);
        transforms_.append(text, placed);
    } else {
        std::string cell = "<use" + svg_attribute("href", symbol.target);
        transforms_.append(cell, placed);
        append_svg_attribute(text, "href", "#" + array_of(content, instance, cell + "/>"));
    }
    text += "/>\n";
}

/// A symbol of rows, which are a symbol of cells: as many elements as there are rows and columns, not cells.
std::string SvgWriter::array_of(const Content& content, const Instance& instance, const std::string& cell) {
    const Repeats& copies = content.picture.repeats[instance.repeats];
    const int decimals = content.frame.decimals;
    const auto in_line = [&](const std::string& id, Vec2 step, uint32_t count) {
        std::string uses;
        for (uint32_t number = 0; number < count; ++number) {
            uses += "<use href=\"#" + id + "\" transform=\"translate(";
            append_point(uses, content.frame.vector(step) * static_cast<double>(number), decimals);
            uses += ")\"/>";
        }
        return uses;
    };
    const Box2 one = image(instance.placement, list_.pictures[instance.picture].box);
    const std::string row = in_line(define(cell, {}, decimals), copies.column_step, copies.columns);
    const std::string rows = in_line(define(row, {}, decimals), copies.row_step, copies.rows);
    return define(rows, content.frame(copies.around(one)), decimals);
}

/// The id of a new symbol.
std::string SvgWriter::define(const std::string& elements, const Box2& box, int decimals) {
    std::string id = next_id("s");
    definitions_ += "<symbol id=\"" + id + "\"" + svg_attribute("data-box", box.empty() ? "" : svg_box(box, decimals)) +
                    ">" + elements + "</symbol>\n";
    return id;
}

void SvgWriter::append_data_of(std::string& out, dxf::RecordId entity) {
    if (entity == dxf::no_record || drawing_.record(entity).type != dxf::type_insert) {
        return;
    }
    const dxf::Record& record = drawing_.record(entity);
    out.append(" data-block=\"").append(escaped_name(record.block_name)).append("\"");
    append_svg_attribute(out, "data-handle", dxf::handle_text(record.handle));
}

const std::string& SvgWriter::escaped_name(dxf::NameId block) {
    const auto [known, is_new] = escaped_names_.try_emplace(block);
    if (is_new && block != dxf::no_name) {
        known->second = svg_escaped(drawing_.block_names().name(block));
    }
    return known->second;
}

const SvgWriter::Symbol& SvgWriter::symbol_of(uint32_t number, const Surroundings& around) {
    const Key key{number, inherited_.reduced(number, around)};
    auto& last = last_symbol_[number];
    if (last == nullptr || !(last->first == key)) {
        last = define(key);
    }
    return last->second;
}

/// Defines the symbol unless that is done.
const SvgWriter::DefinedSymbol* SvgWriter::define(const Key& key) {
    const auto known = symbols_.find(key);
    if (known != symbols_.end()) {
        return &*known;
    }
    const Picture& picture = list_.pictures[key.picture];
    Content content(picture, key.around, symbol_frame(picture));
    add_all(content);
    const Box2& box = picture.box.empty() ? picture.reach : picture.box;
    const std::string id =
        define(picture.clip.empty() ? content.text : clipped(content), content.frame(box), content.frame.decimals);
    return &*symbols_.emplace(key, Symbol{"#" + id, content.frame, content.elements}).first;
}

std::string SvgWriter::clipped(const Content& content) {
    const std::string id = next_id("p");
    definitions_ += "<clipPath id=\"" + id + "\"><polygon clip-rule=\"evenodd\" points=\"" +
                    svg_points(content.picture.clip, content.frame) + "\"/></clipPath>\n";
    return "<g clip-path=\"url(#" + id + ")\">" + content.text + "</g>";
}

/// The drawing with a little around it.
Box2 SvgWriter::seen() const {
    const Box2& extents = list_.extents();
    if (extents.empty()) {
        return {{0, 0}, {static_cast<double>(view_.width()), static_cast<double>(view_.height())}};
    }
    const Box2 drawn = space_frame(view_)(extents);
    const Vec2 half{std::max(drawn.width() * (0.5 + margin), narrowest / 2),
                    std::max(drawn.height() * (0.5 + margin), narrowest / 2)};
    return {drawn.centre() - half, drawn.centre() + half};
}

SvgPicture SvgWriter::write(std::string memory) {
    Surroundings around = list_.surroundings;
    around.layer_ink = Ink::by_block_layer();  // which the group around everything gives
    Content content(list_.top, around, space_frame(view_));
    if (most_ && 2 * list_.top.instances.size() > *most_ && has_too_many_references(content)) {
        return {{}, *most_ + 1, 0};
    }
    constexpr size_t usual_reference = 160;  // characters
    content.text = std::move(memory);
    content.text.clear();
    content.text.reserve(std::min(usual_reference * list_.top.instances.size(), longest_text));
    add_all(content);
    const auto elements = static_cast<uint64_t>(std::min(content.elements, 1e18));
    if (too_much(content)) {
        return {{}, elements, left_out_};
    }
    const Box2 box = seen();
    constexpr int decimals = 2;
    std::string size;
    append_coordinate(size += " width=\"", box.width(), decimals);
    append_coordinate(size += "\" height=\"", box.height(), decimals);
    const std::string space = looks_.of_space();
    std::string head = "<svg xmlns=\"http://www.w3.org/2000/svg\" xml:space=\"preserve\"" + size + "\" viewBox=\"" +
                       svg_box(box, decimals) + "\">\n";
    head += "<style>" + looks_.style_sheet() + "</style>\n<metadata>" + looks_.layers() + "</metadata>\n";
    head += "<defs>\n" + definitions_ + "</defs>\n<g class=\"" + space + "\">\n";
    std::string text = std::move(content.text);
    text.insert(0, head);
    text += "</g>\n</svg>\n";
    return {std::move(text), elements, left_out_};
}

}  // namespace

SvgPicture svg_picture(const DisplayList& list, const dxf::Drawing& drawing, std::optional<uint64_t> most_elements,
                       std::string memory) {
    if (most_elements && list.top.instances.size() > *most_elements) {
        return {{}, list.top.instances.size(), 0};
    }
    ViewTransform view(picture_width, picture_height);
    view.show(list.extents(), margin);
    return SvgWriter(list, drawing, view, most_elements).write(std::move(memory));
}

bool has_more_elements(const dxf::Drawing& drawing, uint64_t most_elements) {
    const LayerStates layers(drawing);
    uint64_t elements = 0;
    for (const dxf::RecordId id : drawing.entities()) {
        const dxf::Record& record = drawing.record(id);
        const bool drawn =
            !record.is(dxf::Record::erased) && !record.is(dxf::Record::paper_space) && !layers.of(record.layer).frozen;
        const dxf::BlockId block =
            record.type == dxf::type_insert && drawn ? drawing.block_named(record.block_name) : dxf::no_block;
        const bool shows_something = block != dxf::no_block && !drawing.blocks()[block].entities.empty();
        elements += shows_something ? 2 : 0;
    }
    return elements > most_elements;
}

}  // namespace host
