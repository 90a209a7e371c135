#include "platform/host/view/picture.h"

namespace host {

void Picture::finish() {
    constexpr size_t few = 64;
    box = Box2();
    reach = Box2();
    for (const Primitive& primitive : primitives) {
        reach.add(primitive.box);
        if (!primitive.endless) {
            box.add(primitive.box);
        }
    }
    tree = BoxTree();
    if (primitives.size() > few) {
        tree = BoxTree(primitives.size(), [this](uint32_t number) -> const Box2& { return primitives[number].box; });
    }
}

}  // namespace host
