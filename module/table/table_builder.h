// The table as a block of the drawing: rules and attribute definitions whose defaults are the report's texts.
#pragma once

#include <string>
#include <vector>

#include "table/table_layout.h"

class CalcPriceDialog;

namespace corvanes {

/// Does what "&Insert" in the BOM Report asks for: closes the dialog as its Close does, builds the table block under
/// the next free name, and ends the dialog again, with IDOK when the block is there and with IDCANCEL otherwise.
void insert_table_requested(CalcPriceDialog& dialog);

/// Makes the text style "KVOTABLE" when the drawing lacks it. True when the drawing had it already.
bool ensure_table_text_style();

/// Appends the table to the block of that name, which is made when it is not there. The texts take the style, or
/// "Standard" when it is missing. False after an alert.
bool build_table_block(const TableLayout& layout, const std::wstring& block_name, const wchar_t* style_name);

/// The drawing's text height, the system variable "TEXTSIZE", in drawing units.
double current_text_size();

}  // namespace corvanes
