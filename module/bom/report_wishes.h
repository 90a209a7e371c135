// ReportWishes: what a person asks of the report, besides its dialog, by environment variables: notes and a JSON file.
#pragma once

#include <future>
#include <string>

#include "bom/bill_json.h"
#include "bom/block_selection.h"

class MyCug2;

namespace corvanes {

struct ReportWishes {
    bool print_notes = false;    ///< CORVANES_NOTES=1: print the notes at the command line, after counting
    bool dynamic_names = false;  ///< CORVANES_DYNAMIC_NAMES=1: dynamic blocks count under their true names
    std::wstring json_file;      ///< CORVANES_JSON=FILE: write the bill and its notes as JSON when the command ends
    std::wstring source_file;    ///< CORVANES_SOURCE=FILE: read Bill::made_from from it, one item in each line

    bool any_notes() const { return print_notes || !json_file.empty(); }
};

/// Reads the wishes from the environment; without its variables nothing is wanted.
ReportWishes report_wishes();

/// Prints the notes of a count at the command line when they are wanted, each in its line.
void print_notes(const ReportWishes& wishes, const BlockCount& count);

/// Writes the file that CORVANES_JSON names. From its construction on it computes the checksum of the drawing's file on
/// another thread.
class BillFile {
  public:
    /// When no file is wanted, nothing is computed or written.
    explicit BillFile(const ReportWishes& wishes);
    /// Writes what the report showed, and the notes. Shows an alert when the file cannot be written.
    void write(BlockCount&& count, MyCug2& grid);

  private:
    std::wstring path_;
    std::vector<std::string> made_from_;
    std::future<BillSource> drawing_;
};

}  // namespace corvanes
