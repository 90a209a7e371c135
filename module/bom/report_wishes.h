// ReportWishes, what a person wants of the report besides its dialog: values of the environment ask for notes and a
// JSON file.
#pragma once

#include <future>
#include <string>

#include "bom/bill_json.h"
#include "bom/block_selection.h"

class MyCug2;

namespace corvanes {

struct ReportWishes {
    bool print_notes = false;    ///< CORVANES_NOTES=1: the notes at the command line, after counting
    bool dynamic_names = false;  ///< CORVANES_DYNAMIC_NAMES=1: dynamic blocks count under their true names
    std::wstring json_file;      ///< CORVANES_JSON=FILE: the bill and its notes as JSON, when the command ends
    std::wstring source_file;    ///< CORVANES_SOURCE=FILE: Bill::made_from, a line an item

    bool any_notes() const { return print_notes || !json_file.empty(); }
};

/// Nothing is wanted unless the environment says so.
ReportWishes report_wishes();

/// Prints the notes of a count at the command line, a line each, when they are wanted.
void print_notes(const ReportWishes& wishes, const BlockCount& count);

/// Writes the file that CORVANES_JSON names. From its construction on it computes the checksum of the drawing's file on
/// another thread.
class BillFile {
  public:
    /// Without a wanted file nothing is computed and nothing written.
    explicit BillFile(const ReportWishes& wishes);
    /// Writes what the report showed, and the notes; an alert when the file cannot be written.
    void write(BlockCount&& count, MyCug2& grid);

  private:
    std::wstring path_;
    std::vector<std::string> made_from_;
    std::future<BillSource> drawing_;
};

}  // namespace corvanes
