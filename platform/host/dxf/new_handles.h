// Where a drawing's new handles begin.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/host/dxf/index.h"

namespace dxf {

/// The first of a run of handles that no record of the drawing has, sub-records and what the index leaves out included:
/// more of them than a drawing can have records. `seed` is what $HANDSEED says; it counts unless it is behind the
/// drawing's handles or nonsense. `bytes` are the drawing's; they are read again where its handles leave no room.
uint64_t first_new_handle(uint64_t seed, const DrawingIndex& index, std::string_view bytes);

}  // namespace dxf
