// The bill of materials as JSON, for programs; docs/report-json.md describes it. Pure.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bom/bill_notes.h"
#include "bom/report_columns.h"

namespace corvanes {

/// A file that the bill was made from.
struct BillSource {
    std::wstring name;  ///< without its folder
    std::uint64_t size = 0;
    std::string sha256;  ///< hexadecimal; empty when the file could not be read, in which case the size means nothing
};

struct Bill {
    BillSource drawing;
    /// Lines of JSON for a drawing that was made from another file; empty for other drawings. The first stands for that
    /// file in the member "drawing". The others are notes on the making (objects) and lines that tell them to people
    /// (texts), which come before those on the bill.
    std::vector<std::string> made_from;
    std::optional<BillSource> price_list;
    std::vector<ReportCells> rows;  ///< the rows as the report showed them, the summary row last
    bool with_prices = true;
    std::vector<BlockReferences> counted;
    std::vector<Note> notes;
};

/// Receives the text piece by piece.
using BillSink = std::function<void(std::string_view)>;

/// Writes the bill in UTF-8. A row belongs to the references whose block has the row's name, without regard to case.
void write_bill_json(Bill bill, const BillSink& sink);

}  // namespace corvanes
