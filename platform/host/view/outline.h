// The outline of letters, and who gives it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/host/view/geometry.h"
#include "platform/host/view/text_item.h"

namespace host {

/// Closed contours. Inside is what they turn around; one that turns the other way is a hole.
struct Outline {
    std::vector<Vec2> points;    ///< of all contours, one after another
    std::vector<uint32_t> ends;  ///< for each contour, the number of points up to its last

    void clear() {
        points.clear();
        ends.clear();
    }
    /// Adds another one, moved along x.
    void append(const Outline& other, double x);
};

/// A line of text in its own plane: it begins at 0 on the base line and runs along x, capitals are 1 high.
struct TextShape {
    Outline outline;
    double width = 0;
};

/// Has the fonts. Where there is nobody who has, texts are painted as lines.
class Typesetter {
  public:
    virtual ~Typesetter() = default;
    /// The shape of an item's text, its letters in the order in which they are seen, neither placed nor stretched. Good
    /// until the next call.
    virtual const TextShape& shape(const TextItem& item, const FontFace& face) = 0;
};

}  // namespace host
