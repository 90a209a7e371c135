#include "page/kept_view.h"

#include "hostpicture.h"

namespace corvanes {

KeptView::KeptView() {
    acDocManagerPtr()->addReactor(this);
}

KeptView::~KeptView() {
    if (AcApDocManager* const manager = acDocManagerPtr()) {
        manager->removeReactor(this);
    }
}

void KeptView::keep() {
    svg_ = hostDrawingAsSvg(std::move(memory_));
}

std::optional<std::string> KeptView::take() {
    return std::exchange(svg_, std::nullopt);
}

}  // namespace corvanes
