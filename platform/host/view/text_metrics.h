// How wide text is, without a device: for line breaks, boxes and picking.
#pragma once

#include <string_view>

#include "platform/host/view/text_item.h"

namespace host {

/// The width of a line in heights of its capitals, for a common sans-serif face. An estimate for any other font.
double estimated_width(std::wstring_view text);

/// Whether a line begins at the right: its first letter is of Hebrew, Arabic or their neighbours.
bool runs_from_right(std::wstring_view text);

/// The area of an item's line in its own plane, from a little under the base line to the height of the capitals.
Box2 text_area(const TextItem& item);

}  // namespace host
