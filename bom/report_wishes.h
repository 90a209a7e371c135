// What a person wants of the report beside its dialog, told by values of the host's environment.
#pragma once

#include <string>

class CalcPriceDialog;

namespace corvanes {

struct ReportWishes {
    bool print_notes = false;    ///< CORVANES_NOTES=1: the notes at the command line, after counting
    bool dynamic_names = false;  ///< CORVANES_DYNAMIC_NAMES=1: dynamic blocks count under their true names
    std::wstring json_file;      ///< CORVANES_JSON=FILE: the bill and its notes as JSON, when the command ends

    bool any_notes() const { return print_notes || !json_file.empty(); }
};

/// Nothing is wanted unless the environment says so.
ReportWishes report_wishes();

/// The notes of a count, a line each.
void print_notes(CalcPriceDialog& dialog);

/// Writes what the report showed, and the notes; an alert when the file cannot be written. Nothing when it is not
/// wanted.
void write_bill_json(CalcPriceDialog& dialog);

}  // namespace corvanes
