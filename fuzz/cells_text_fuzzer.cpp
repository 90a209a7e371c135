// Takes any text as a clipboard's: every cell must be a part of it, and the cells, written, must read back the same.
#include "base/code_page.h"
#include "fuzz/fuzz_input.h"
#include "grid/cells_text.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::wstring text = base::wide_from_utf8(fuzz::bytes_of(data, size));
    const auto rows = corvanes::cells_of_text(text);
    size_t characters = 0;
    corvanes::TabSeparatedText written;
    corvanes::HtmlTable table;
    for (const auto& row : rows) {
        fuzz::require(!row.empty(), "a row has a cell");
        for (const std::wstring& cell : row) {
            characters += cell.size();
            written.add(cell);
            table.add(cell, corvanes::HtmlTable::Kind::text);
        }
        written.end_row();
        table.end_row();
    }
    fuzz::require(characters + rows.size() <= text.size() + 1, "nothing is added");
    fuzz::require(corvanes::cells_of_text(written.take()) == rows, "written cells read back");
    fuzz::require(base::valid_utf8(table.take()), "a table is UTF-8");
    return 0;
}
