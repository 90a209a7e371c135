#include "platform/host/view/proxy_traits.h"

namespace host {

namespace {

constexpr uint32_t of_block = 0;
constexpr uint32_t of_layer = 256;
constexpr size_t most_matrices = 64;

}  // namespace

ProxyTraits::ProxyTraits(const EntityScope& scope)
    : scope_(scope),
      own_ink_(scope.out.ink()),
      own_pattern_(scope.out.pattern()),
      own_weight_(scope.out.weight()),
      layer_(scope.drawing.layer_names().find(scope.fields.text(8))) {}

bool ProxyTraits::take(ProxyPart part, ProxyStream body) {
    switch (part) {
        case ProxyPart::colour:
            set_colour(body.word());
            return true;
        case ProxyPart::true_colour:
            set_true_colour(body.word());
            return true;
        case ProxyPart::layer:
            set_layer(body.word());
            return true;
        case ProxyPart::line_type:
            set_line_type(body.word());
            return true;
        case ProxyPart::line_weight:
            set_line_weight(static_cast<int32_t>(body.word()));
            return true;
        case ProxyPart::line_type_scale:
            line_type_scale_ = body.real();
            return true;
        case ProxyPart::fill:
            filled_ = body.word() == 1;
            return true;
        case ProxyPart::push_matrix:
        case ProxyPart::push_other_matrix:
            push_matrix(body);
            return true;
        case ProxyPart::pop_matrix:
            if (!matrices_.empty()) {
                matrices_.pop_back();
            }
            return true;
        default:
            return false;
    }
}

/// The colour of the block stands for that of the entity.
void ProxyTraits::set_colour(uint32_t index) {
    colour_ = index;
    scope_.out.set_ink(index == of_block   ? own_ink_
                       : index >= of_layer ? scope_.layers.ink(layer_)
                                           : indexed_ink(static_cast<int>(index)));
}

/// The highest byte tells what the other three are.
void ProxyTraits::set_true_colour(uint32_t colour) {
    switch (colour >> 24) {
        case 0xC0:
            set_colour(of_layer);
            break;
        case 0xC1:
            set_colour(of_block);
            break;
        case 0xC2:
            colour_ = 1;  // of its own
            scope_.out.set_ink(Ink::rgb(colour));
            break;
        case 0xC3:
            set_colour(colour & 0xFF);
            break;
        default:
            break;
    }
}

/// Layers and linetypes are named by their places in the tables.
void ProxyTraits::set_layer(uint32_t number) {
    const dxf::Table* const table = scope_.drawing.table("LAYER");
    if (table != nullptr && number < table->entries.size()) {
        layer_ = scope_.drawing.record(table->entries[number]).layer;
        if (colour_ == of_layer) {
            set_colour(of_layer);
        }
    }
}

void ProxyTraits::set_line_type(uint32_t number) {
    const dxf::Table* const table = scope_.drawing.table("LTYPE");
    const bool known = table != nullptr && number < table->entries.size();
    const std::wstring name = known ? scope_.text_of(table->entries[number], 2) : std::wstring();
    const bool inherited = !known || name.starts_with(L"By") || name.starts_with(L"BY");
    scope_.out.set_pattern(inherited ? own_pattern_ : scope_.line_types.pattern(name, line_type_scale_));
}

/// The weight of the layer or the block stands for that of the entity.
void ProxyTraits::set_line_weight(int32_t weight) {
    scope_.out.set_weight(weight < 0 ? own_weight_ : LineWeight::in_pixels(weight));
}

/// A matrix is four rows of four numbers, of which the last row says nothing.
void ProxyTraits::push_matrix(ProxyStream body) {
    Vec3 rows[3];
    double moved[3];
    for (size_t i = 0; i < 3; ++i) {
        rows[i] = body.point();
        moved[i] = body.real();
    }
    const Transform3 pushed{{rows[0].x, rows[1].x, rows[2].x},
                            {rows[0].y, rows[1].y, rows[2].y},
                            {rows[0].z, rows[1].z, rows[2].z},
                            {moved[0], moved[1], moved[2]}};
    if (matrices_.size() < most_matrices) {
        matrices_.push_back(matrices_.empty() ? pushed : matrices_.back() * pushed);
    }
}

}  // namespace host
