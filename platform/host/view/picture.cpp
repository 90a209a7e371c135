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

}  // namespace host
