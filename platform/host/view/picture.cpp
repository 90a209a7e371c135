#include "platform/host/view/picture.h"

namespace host {

namespace {

/// Narrows [low, high] to the numbers k for which [from + k * step, to + k * step] touches [area_low, area_high].
void narrow(double from, double to, double step, double area_low, double area_high, double& low, double& high) {
    if (step == 0) {
        high = from <= area_high && area_low <= to ? high : -1;
        return;
    }
    const double one = (area_low - to) / step;
    const double other = (area_high - from) / step;
    low = std::max(low, std::floor(std::min(one, other)));
    high = std::min(high, std::ceil(std::max(one, other)));
}

}  // namespace

Box2 Repeats::around(const Box2& one) const {
    Box2 all = one;
    for (const Vec2 corner : {offset(columns - 1, 0), offset(0, rows - 1), offset(columns - 1, rows - 1)}) {
        all.add(Box2{one.low + corner, one.high + corner});
    }
    return all;
}

uint32_t Repeats::stride(Vec2 step, uint32_t count, double detail) {
    const double length = std::max(std::fabs(step.x), std::fabs(step.y));
    const double copies = length > 0 ? std::ceil(detail / length) : count;
    return copies > 1 ? static_cast<uint32_t>(std::min<double>(copies, count)) : 1;
}

Repeats::Range Repeats::seen(const Box2& first, Vec2 step, uint32_t count, const Box2& area) {
    double low = 0;
    double high = static_cast<double>(count) - 1;
    narrow(first.low.x, first.high.x, step.x, area.low.x, area.high.x, low, high);
    narrow(first.low.y, first.high.y, step.y, area.low.y, area.high.y, low, high);
    return low <= high ? Range{static_cast<uint32_t>(low), static_cast<uint32_t>(high) + 1} : Range{};
}

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
