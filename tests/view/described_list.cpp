#include "tests/view/described_list.h"

#include <cmath>
#include <cstdio>
#include <stdexcept>

#include "base/code_page.h"
#include "tests/support/drawing_groups.h"

namespace host {

namespace {

std::string number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.3f", std::fabs(value) < 0.0005 ? 0.0 : value);
    std::string digits = text;
    digits.erase(digits.find_last_not_of('0') + 1);
    return digits.back() == '.' ? digits.substr(0, digits.size() - 1) : digits;
}

std::string pair(Vec2 v) {
    return " " + number(v.x) + "," + number(v.y);
}

std::string colour(Ink ink) {
    char text[16];
    std::snprintf(text, sizeof text, "%06x", ink.value);
    return ink == Ink::foreground() ? "------" : ink == Ink::background() ? "  mask" : text;
}

class Describer {
  public:
    explicit Describer(const DisplayList& list) : list_(list) {}

    std::string describe() {
        add(list_.top, {}, list_.surroundings);
        return std::move(text_);
    }

  private:
    void add(const Picture& picture, const Affine2& map, const Surroundings& around) {
        for (const Primitive& primitive : picture.primitives) {
            if (!around.shows(primitive)) {
                continue;
            }
            if (primitive.kind == Primitive::Kind::instance) {
                add_copies(picture, picture.instances[primitive.first], map, around);
            } else {
                text_ += colour(around.resolve(primitive.ink)) + " ";
                add_shape(picture, primitive, map);
                text_ += "\n";
            }
        }
    }

    void add_copies(const Picture& holder, Instance instance, const Affine2& map, const Surroundings& around) {
        const Repeats copies = instance.repeats == Instance::once ? Repeats() : holder.repeats[instance.repeats];
        const Vec2 first = instance.placement.origin;
        for (uint32_t row = 0; row < copies.rows; ++row) {
            for (uint32_t column = 0; column < copies.columns; ++column) {
                instance.placement.origin = first + copies.offset(column, row);
                add(list_.pictures[instance.picture], map * instance.placement, around.inside(instance));
            }
        }
    }

    void add_shape(const Picture& picture, const Primitive& primitive, const Affine2& map) {
        if (primitive.kind == Primitive::Kind::arc) {
            const Arc arc = image(map, picture.arcs[primitive.first]);
            text_ += "arc" + pair(arc.centre) + " u" + pair(arc.u) + " v" + pair(arc.v) + " from " +
                     number(arc.start * 180 / pi) + " by " + number(arc.sweep * 180 / pi);
        } else if (primitive.kind == Primitive::Kind::text) {
            const TextItem& item = picture.texts[primitive.first];
            const Affine2 frame = map * item.frame;
            const char* const anchors[] = {"left", "centre", "right"};
            text_ += "text \"" + base::utf8_from_wide(item.text) + "\" " + anchors[static_cast<int>(item.anchor)] +
                     pair(frame.origin) + " x" + pair(frame.x) + " y" + pair(frame.y);
            text_ += item.from_right ? " from right" : "";
            text_ += item.fit_width > 0 ? " fit " + number(item.fit_width) : "";
        } else {
            text_ += primitive.kind == Primitive::Kind::fill  ? "fill"
                     : primitive.kind == Primitive::Kind::dot ? "dot"
                     : primitive.endless                      ? "endless"
                                                              : "strip";
            for (uint32_t i = 0; i < primitive.count; ++i) {
                text_ += pair(map(picture.points[primitive.first + i]));
            }
        }
    }

    const DisplayList& list_;
    std::string text_;
};

std::string section(const std::string& name, const std::string& groups) {
    return "0 SECTION|2 " + name + "|" + groups + "|0 ENDSEC|";
}

}  // namespace

std::unique_ptr<dxf::Drawing> drawing_of(const std::string& groups) {
    dxf::OpenResult opened = dxf::Drawing::from_bytes(::groups(groups + "0 EOF"), "test.dxf");
    if (!opened) {
        throw std::runtime_error(opened.reason().message());
    }
    return *std::move(opened);
}

std::string entities(const std::string& groups) {
    return section("ENTITIES", groups);
}

std::string blocks(const std::string& groups) {
    return section("BLOCKS", groups);
}

std::string tables(const std::string& groups) {
    return section("TABLES", groups);
}

std::string block(const std::string& name, const std::string& groups) {
    return "0 BLOCK|8 0|2 " + name + "|70 0|10 0|20 0|30 0|" + groups + "|0 ENDBLK|8 0";
}

std::string layer(const std::string& name, int colour, int flags) {
    return "0 LAYER|2 " + name + "|70 " + std::to_string(flags) + "|62 " + std::to_string(colour);
}

std::string described(const DisplayList& list) {
    return Describer(list).describe();
}

std::string described(const std::string& groups) {
    return described(DisplayList::build(*drawing_of(groups)));
}

}  // namespace host
