#include "platform/host/view/picture.h"

namespace host {

void Picture::finish() {
    for (; finished_ < primitives.size(); ++finished_) {
        const Primitive& primitive = primitives[finished_];
        reach.add(primitive.box);
        if (!primitive.endless) {
            box.add(primitive.box);
        }
    }
}

void Picture::clip_to(std::vector<Vec2> polygon) {
    Box2 seen;
    for (const Vec2 corner : polygon) {
        seen.add(corner);
    }
    box = box.common(seen);
    reach = reach.common(seen);
    clip = std::move(polygon);
}

}  // namespace host
