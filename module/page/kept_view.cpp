#include "page/kept_view.h"

#include <acutads.h>

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
    if (acDocManagerPtr()->curDocument() == nullptr) {
        acutPrintf(L"\nNo drawing is open.");
        return;
    }
    svg_ = hostDrawingAsSvg(std::move(memory_));
    acutPrintf(svg_ ? L"\nThe next page shows the drawing as it looks now."
                    : L"\nThe drawing has too many parts for a browser; a page shows it as a picture.");
}

std::optional<std::string> KeptView::take() {
    return std::exchange(svg_, std::nullopt);
}

}  // namespace corvanes
