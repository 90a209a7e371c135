// The report's rows: read from a price list, counted from the user's selection in the drawing.
#pragma once

class CalcPriceDialog;

namespace corvanes {

/// Empties the report's grid and rows and reads the price list that the next count joins its rows with. False, with
/// everything as it was, after an alert when the file cannot be opened.
bool LoadPriceRows(CalcPriceDialog& dialog, const wchar_t* path);

/// Counts the block references that the user selects, and joins them with the price list that was read: the report's
/// rows. False when nothing was selected, or after an alert when a selected object cannot be opened: what was counted
/// until then stays in the rows, without prices.
bool CountSelectedBlocks(CalcPriceDialog& dialog);

}  // namespace corvanes
