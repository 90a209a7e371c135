#include "platform/host/view/outline.h"

namespace host {

void Outline::append(const Outline& other, double x) {
    const auto before = static_cast<uint32_t>(points.size());
    for (const Vec2 point : other.points) {
        points.push_back({point.x + x, point.y});
    }
    for (const uint32_t end : other.ends) {
        ends.push_back(before + end);
    }
}

}  // namespace host
