// "Save to file": the report as a text file.
#pragma once

class MyCug2;

namespace corvanes {

/// Asks for a file, proposing a name beside the price list, and writes the report. The dialog stays open.
void SaveReportToFile(MyCug2& grid);

/// Writes what the grid shows, in its order; only the mode "w" exists. False, after an alert, when the file cannot be
/// written.
bool WriteReportFile(MyCug2& grid, const wchar_t* path, const wchar_t* mode);

}  // namespace corvanes
