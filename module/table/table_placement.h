// Places the table: asks for its corner, sizes it by a rubber band, and inserts it by the host's INSERT command.
#pragma once

#include <adsdef.h>
#include <gepnt3d.h>

#include <string>

namespace corvanes {

/// Asks for the corner and the size and inserts the block, which is `width` by `height` drawing units large at scale 1.
/// Attribute prompts, command echo, snap and object snap are off meanwhile; afterwards object snap holds what
/// snap held before. Cancelling at the corner inserts nothing; cancelling at the size inserts at scale 1.
void place_table(const std::wstring& block_name, double width, double height);

/// Gives the insertion point of a block reference, with z = 0. False, after an alert, when it cannot be opened.
bool GetInsertPoint(const ads_name reference, AcGePoint3d& point);

}  // namespace corvanes
