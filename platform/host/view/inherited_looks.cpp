#include "platform/host/view/inherited_looks.h"

namespace host {

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

}  // namespace host
