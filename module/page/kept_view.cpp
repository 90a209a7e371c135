#include "page/kept_view.h"

#include <acutads.h>

#include <utility>

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
    auto svg = hostDrawingAsSvg(std::move(text_));
    is_kept_ = svg.has_value();
    text_ = std::move(svg).value_or("");
    acutPrintf(is_kept_ ? L"\nThe next page shows the drawing as it looks now."
                        : L"\nThe drawing has too many parts for a browser; a page shows it as a picture.");
}

}  // namespace corvanes
