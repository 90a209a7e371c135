// Counting block references by name, and joining what was counted with a price list.
#pragma once

#include <string_view>

#include "bom/result_string.h"

namespace corvanes {

/// Empties the rows and the index, to begin a count.
void begin_count(RowList& rows, NameIndex& index);

/// The row of the block `lower_name`. A block without a row gets one at the end, unpriced and with no reference
/// counted.
int row_of_block(RowList& rows, NameIndex& index, const wchar_t* lower_name);

/// Turns the rows that were counted into those of the report: one for each entry of the price list, in its order. A
/// name without regard to case is priced by its last entry, whose row gets the price once for each reference; earlier
/// entries of the name count nothing. When the price list is attached, only rows with references are made (the others
/// would never be shown) and blocks without an entry are left out; else these follow, unpriced. The index ends empty.
void join_prices(RowList& rows, NameIndex& index, std::wstring_view price_list, bool price_list_attached);

}  // namespace corvanes
