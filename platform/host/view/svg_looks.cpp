#include "platform/host/view/svg_looks.h"

#include <cstdio>

#include "platform/host/view/svg_text.h"

namespace host {

namespace {

constexpr char fixed_rules[] =
    "svg{background:#fff;background:var(--paper,#fff);direction:ltr;stroke-width:1px;stroke-linejoin:round}"
    "symbol{overflow:visible}"
    "path,polygon{vector-effect:non-scaling-stroke}"
    "path{fill:none!important}"
    "polygon{fill-rule:evenodd}"
    ".n,text{stroke:none!important}"
    ".o{stroke-linecap:square}"
    "text{font-size:100px;white-space:pre}"
    ".m{text-anchor:middle}"
    ".e{text-anchor:end}"
    ".r{direction:rtl;unicode-bidi:embed}";

/// Faces for viewers without the usual ones: as wide as those, and known to have Hebrew and other scripts.
constexpr char metric_compatible[] = R"(,"Liberation Sans",Arimo,FreeSans,sans-serif)";

std::string hexadecimal(uint32_t colour) {
    char text[16];
    std::snprintf(text, sizeof text, "%06x", colour & 0xFFFFFF);
    return text;
}

/// Declarations of properties that all take one colour; a viewer that does not know variables takes the first ones.
std::string declarations(std::initializer_list<const char*> properties, const std::string& value,
                         const std::string& variable = {}) {
    std::string text;
    for (const char* const property : properties) {
        text.append(property).append(":").append(value).append(";");
        if (!variable.empty()) {
            text.append(property).append(":var(").append(variable).append(",").append(value).append(");");
        }
    }
    return text;
}

std::string coloured(std::initializer_list<const char*> properties, Ink ink) {
    return ink == Ink::foreground()   ? declarations(properties, "#000", "--ink")
           : ink == Ink::background() ? declarations(properties, "#fff", "--paper")
                                      : declarations(properties, "#" + hexadecimal(ink.value));
}

/// Lines in the colour of the ground that the drawing may stand on are seen as colour 7 is.
Ink seen(Ink ink, bool area) {
    const bool like_ground = ink == Ink::rgb(0xFFFFFF) || ink == Ink::rgb(0) || ink == Ink::background();
    return !area && like_ground ? Ink::foreground() : ink;
}

void add_word(std::string& words, const std::string& word) {
    if (!words.empty() && !word.empty()) {
        words += ' ';
    }
    words += word;
}

/// Dashes and gaps in turn, as many of one as of the other; what stands twice is one.
std::string dash_lengths(const LinePattern& pattern) {
    std::string text;
    bool dash = true;
    double length = 0;
    const auto put = [&] {
        text += text.empty() ? "" : " ";
        append_coordinate(text, length, 3);
    };
    for (const double next : pattern.lengths) {
        if ((next >= 0) != dash) {
            put();
            dash = !dash;
            length = 0;
        }
        length += std::fabs(next);
    }
    put();
    if (dash) {
        text += " 0";
    }
    return text;
}

}  // namespace

void InheritedLooks::add(Uses& uses, const Instance& instance) {
    const Uses inner = of(instance.picture);
    uses.ink |= inner.ink && instance.ink == Ink::by_block();
    uses.layer_zero |= inner.layer_zero && instance.layer_zero == Instance::LayerZero::inherited;
    uses.pattern |= (inner.pattern && instance.pattern == LinePattern::of_block) ||
                    (inner.layer_pattern && instance.layer_pattern == LinePattern::of_block);
    uses.layer_pattern |= (inner.pattern && instance.pattern == LinePattern::of_block_layer) ||
                          (inner.layer_pattern && instance.layer_pattern == LinePattern::of_block_layer);
    uses.weight |= (inner.weight && instance.weight == LineWeight::of_block) ||
                   (inner.layer_weight && instance.layer_weight == LineWeight::of_block);
    uses.layer_weight |= (inner.weight && instance.weight == LineWeight::of_block_layer) ||
                         (inner.layer_weight && instance.layer_weight == LineWeight::of_block_layer);
}

const InheritedLooks::Uses& InheritedLooks::of(uint32_t number) {
    if (!of_picture_[number]) {
        const Picture& picture = list_.pictures[number];
        Uses uses;
        for (const Primitive& primitive : picture.primitives) {
            if (primitive.kind == Primitive::Kind::instance) {
                add(uses, picture.instances[primitive.first]);
                continue;
            }
            uses.ink |= primitive.ink == Ink::by_block();
            uses.layer_zero |= primitive.on_layer_zero;
            uses.pattern |= primitive.pattern == LinePattern::of_block;
            uses.layer_pattern |= primitive.pattern == LinePattern::of_block_layer;
            uses.weight |= primitive.weight == LineWeight::of_block;
            uses.layer_weight |= primitive.weight == LineWeight::of_block_layer;
        }
        of_picture_[number] = uses;
    }
    return *of_picture_[number];
}

Surroundings InheritedLooks::reduced(uint32_t picture, const Surroundings& around) {
    const Uses& uses = of(picture);
    Surroundings result;
    result.ink = uses.ink && around.ink == Ink::by_block_layer() ? Ink::by_block_layer() : Ink::by_block();
    result.layer_ink = Ink::by_block_layer();
    result.layer_zero_shown = !uses.layer_zero || around.layer_zero_shown;
    result.pattern = uses.pattern ? around.pattern : LinePattern::continuous;
    result.layer_pattern = uses.layer_pattern ? around.layer_pattern : LinePattern::continuous;
    result.weight = uses.weight ? around.weight : LineWeight::thin;
    result.layer_weight = uses.layer_weight ? around.layer_weight : LineWeight::thin;
    return result;
}

dxf::NameId SvgLooks::layer_of(dxf::RecordId entity) const {
    return entity == dxf::no_record ? dxf::no_name : drawing_.record(entity).layer;
}

std::string SvgLooks::layer_class(dxf::NameId layer) {
    if (layer == dxf::no_name) {
        return {};
    }
    used_layers_.insert(layer);
    return "l" + std::to_string(layer);
}

/// The colour that a layer's class gives; layer 0 gives none.
Ink SvgLooks::layer_ink(dxf::NameId layer) const {
    const Ink ink = layers_.ink(layer);
    return ink == Ink::by_block_layer() ? ink : seen(ink, true);
}

std::string SvgLooks::colour_class(Ink ink, const char* prefix) {
    const bool of_content = prefix[0] == 'u';
    std::string name = prefix;
    std::string rule;
    if (ink == Ink::by_block()) {
        name += "b";
        rule = of_content ? "color:inherit" : "color:inherit;stroke:currentColor;fill:currentColor";
    } else if (ink == Ink::by_block_layer()) {
        name += "i";
        rule = "stroke:inherit;fill:inherit";
    } else {
        name += ink == Ink::foreground() ? "f" : ink == Ink::background() ? "m" : hexadecimal(ink.value);
        rule = of_content ? coloured({"color"}, ink) : coloured({"stroke", "fill"}, ink);
    }
    colours_.emplace(name, rule);
    return name;
}

std::string SvgLooks::of_shape(const Primitive& primitive, const Surroundings& around) {
    const bool area = primitive.kind == Primitive::Kind::fill;
    const Ink ink = seen(around.resolve(primitive.ink), area);
    const dxf::NameId layer = layer_of(primitive.entity);
    std::string words = layer_class(layer);
    if (ink != layer_ink(layer)) {
        add_word(words, colour_class(ink, "c"));
    }
    if (area) {
        add_word(words, primitive.bridged || primitive.ink == Ink::background() ? "n" : "");
        return words;
    }
    const uint8_t weight = around.resolve_weight(primitive.weight);
    if (weight != LineWeight::thin && weight < LineWeight::of_block_layer) {
        weights_.insert(weight);
        add_word(words, "w" + std::to_string(weight));
    }
    const uint16_t pattern = around.resolve_pattern(primitive.pattern);
    if (pattern != LinePattern::continuous && pattern < list_.patterns.size()) {
        patterns_.insert(pattern);
        add_word(words, "d" + std::to_string(pattern));
    }
    add_word(words, primitive.kind == Primitive::Kind::dot ? "o" : "");
    return words;
}

std::string SvgLooks::of_text(const TextItem& item) {
    std::string words = "t" + std::to_string(item.font);
    using Anchor = TextItem::Anchor;
    if (item.anchor == Anchor::centre) {
        add_word(words, "m");
    } else if ((item.anchor == Anchor::right) != item.from_right) {
        add_word(words, "e");  // the end of a line that begins at the right is its left
    }
    add_word(words, item.from_right ? "r" : "");
    return words;
}

const std::string& SvgLooks::of_reference(dxf::RecordId entity, Ink ink, Ink layer_ink_inside) {
    const dxf::NameId layer = layer_of(entity);
    const auto [last, is_new] = last_reference_.try_emplace(layer);
    ReferenceLook& look = last->second;
    if (is_new || look.ink != ink || look.layer_ink != layer_ink_inside) {
        look = {ink, layer_ink_inside, classes_of_reference(layer, ink, layer_ink_inside)};
    }
    return look.classes;
}

std::string SvgLooks::classes_of_reference(dxf::NameId layer, Ink ink, Ink layer_ink_inside) {
    const Ink given = layer_ink(layer);
    std::string words = layer_class(layer);
    if (layer_ink_inside != given) {
        add_word(words, colour_class(layer_ink_inside, "c"));
    }
    if (ink != given && ink != Ink::by_block_layer()) {
        add_word(words, colour_class(seen(ink, false), "u"));
    }
    return words;
}

std::string SvgLooks::of_space() {
    return colour_class(list_.surroundings.layer_ink, "c");
}

std::string SvgLooks::style_sheet() const {
    constexpr double shortest_pattern = 3;  // pixels
    std::string sheet = fixed_rules;
    for (const dxf::NameId layer : used_layers_) {
        if (!layers_.is_zero(layer)) {
            sheet += ".l" + std::to_string(layer) + "{" + coloured({"color", "stroke", "fill"}, layer_ink(layer)) + "}";
        }
    }
    for (const auto& [name, rule] : colours_) {
        sheet.append(".").append(name).append("{").append(rule).append("}");
    }
    for (const uint8_t weight : weights_) {
        sheet += ".w" + std::to_string(weight) + "{stroke-width:" + std::to_string(weight) + "px}";
    }
    for (const uint16_t pattern : patterns_) {
        const LinePattern dashes = list_.patterns[pattern].in_pixels(pixels_per_unit_);
        const std::string lengths = dash_lengths(dashes);
        sheet += ".d" + std::to_string(pattern) +
                 "{stroke-linecap:square;stroke-dasharray:" + (dashes.total() < shortest_pattern ? "none" : lengths) +
                 ";--dashes:" + lengths + "}";
    }
    for (size_t number = 0; number < list_.fonts.size(); ++number) {
        const FontFace& face = list_.fonts[number];
        sheet += ".t" + std::to_string(number) + "{font-family:" + css_string(face.family) + metric_compatible +
                 (face.bold ? ";font-weight:bold" : "") + (face.italic ? ";font-style:italic" : "") + "}";
    }
    return sheet;
}

std::string SvgLooks::layers() const {
    std::string list;
    for (const dxf::NameId layer : used_layers_) {
        list += "<g class=\"l" + std::to_string(layer) + "\" data-layer=\"" +
                svg_escaped(drawing_.layer_names().name(layer)) + "\"/>";
    }
    return list;
}

}  // namespace host
