// Counting the block references that the user selects.
#pragma once

#include <adsdef.h>

#include <string_view>
#include <vector>

#include "bom/bill_notes.h"
#include "bom/result_string.h"

namespace corvanes {

/// The price list to join a count with, and how to name the blocks that are counted.
struct CountOrder {
    std::wstring_view price_list;      ///< the text that the count is joined with
    bool price_list_attached = false;  ///< blocks that the list lacks, and entries that nobody selected, are left out
    bool dynamic_names = false;        ///< dynamic blocks count under their true names
    bool with_notes = false;
};

/// What a count found.
struct BlockCount {
    RowList rows;
    NameIndex index{10};                   ///< of the rows, while they are counted
    std::vector<BlockReferences> counted;  ///< filled only when notes are wanted, as is the next
    std::vector<Note> notes;
};

/// Has the user select block references. False when nothing was selected.
bool SelectBlockReferences(ads_name selection_set);

/// Counts what the user selects and joins it with the price list, which gives the report's rows. False when nothing was
/// selected, and, after an alert, when a selected object cannot be opened; what was counted until then stays, without
/// prices.
bool CountSelectedBlocks(BlockCount& count, const CountOrder& order);

}  // namespace corvanes
