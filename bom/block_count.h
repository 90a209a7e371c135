// Counting block references by name and joining them with the priced rows.
#pragma once

#include "bom/result_string.h"

namespace corvanes {

/// Begins a count: lowers the names of all rows in place and indexes them. Of rows with the same name the last is
/// found.
void index_rows(RowList& rows, NameIndex& index);

/// Counts one reference of the block `lower_name`: its row gets one more piece and its price once more. A block without
/// a row gets one, unpriced, at the end, unless a price list is attached: then it is not reported.
void count_reference(RowList& rows, NameIndex& index, const wchar_t* lower_name, bool price_list_attached);

}  // namespace corvanes
