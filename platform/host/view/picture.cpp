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
        std::vector<Box2> boxes;
        boxes.reserve(primitives.size());
        for (const Primitive& primitive : primitives) {
            boxes.push_back(primitive.box);
        }
        tree = BoxTree(boxes);
    }
}

}  // namespace host
