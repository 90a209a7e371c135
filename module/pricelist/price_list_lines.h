// The price-list format: one entry a line, "block name|price|description", without quoting and without a header.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace corvanes {

/// One entry; its texts are views into the text that they were cut from.
struct PriceListEntry {
    std::wstring_view name;         ///< the name of a block; compared without regard to case
    std::wstring_view price;        ///< as the person typed it
    std::wstring_view description;  ///< may be empty
};

/// How many characters one read takes at most, the line end included. A longer line falls apart into pieces, each of
/// which loses its last character and counts as a line of its own.
constexpr size_t longest_line = 999;

/// Cuts one field from the front of `cursor`: the characters up to the separator, the terminator or a line feed become
/// `destination`. When the separator ended it, the cursor steps past it and the result is 1; otherwise the cursor stays
/// on the stop character and the result is 0.
int TakeField(std::wstring_view& cursor, std::wstring_view& destination, wchar_t separator);

/// How many lines a reading handed on, and how many it dropped.
struct PriceListCounts {
    size_t entries = 0;  ///< handed on
    size_t dropped = 0;  ///< lines without a name or a price, and a last line without a line end
};

/// Hands on the entries of a price list in file order. CR LF and LF both end a line; a last line without a line end is
/// dropped. The entries are views into `text`.
PriceListCounts read_entries(std::wstring_view text, const std::function<void(const PriceListEntry&)>& handler);

/// What becomes of a line: an entry, or why it is none. A piece of a line that was too long may hold an entry too.
enum class LineFate { entry, blank, no_separator, no_name, no_price, too_long, no_line_end };

struct PriceListLine {
    size_t number;         ///< from 1, as an editor counts
    PriceListEntry entry;  ///< empty for a last line without a line end, which is not read
    LineFate fate;
};

/// Calls back for every line, with what read_entries makes of it, in file order. The texts are views into `text`.
void read_lines(std::wstring_view text, const std::function<void(const PriceListLine&)>& handler);

/// What of an entry the format cannot write, so that it would be lost when the line is read again.
enum class EntryLoss { nothing, separator, line_end, length };
EntryLoss loss_on_reading(const PriceListEntry& entry);

/// Appends "name|price|description" and CR LF; an entry whose three texts are all empty is left out.
void append_entry(std::wstring& text, const PriceListEntry& entry);

}  // namespace corvanes
