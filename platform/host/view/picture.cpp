#include "platform/host/view/picture.h"

namespace host {

void Picture::finish() {
    box = Box2();
    reach = Box2();
    for (const Primitive& primitive : primitives) {
        reach.add(primitive.box);
        if (!primitive.endless) {
            box.add(primitive.box);
        }
    }
    tree_ = BoxTree();
}

}  // namespace host
