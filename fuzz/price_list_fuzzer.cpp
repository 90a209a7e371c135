// Takes any bytes as a price list: every line must be an entry or be counted as dropped, and entries, written, must
// read back the same.
#include <vector>

#include "common/price_text.h"
#include "common/text_conversion.h"
#include "fuzz/fuzz_input.h"
#include "pricelist/price_list_lines.h"

namespace {

using corvanes::PriceListEntry;
using fuzz::require;

using Fields = std::vector<std::wstring>;

/// The fields of all entries, and the text that writing them gives.
Fields fields_of(std::wstring_view text, std::wstring& written, corvanes::PriceListCounts& counts) {
    Fields fields;
    counts = corvanes::read_entries(text, [&](const PriceListEntry& entry) {
        require(!entry.name.empty() && !entry.price.empty(), "an entry has a name and a price");
        for (const std::wstring_view field : {entry.name, entry.price, entry.description}) {
            require(field.find_first_of(std::wstring_view(L"|\n\0", 3)) == std::wstring_view::npos,
                    "a field holds no separator");
            fields.emplace_back(field);
        }
        corvanes::append_entry(written, entry);
    });
    require(counts.entries * 3 == fields.size(), "all entries are counted");
    return fields;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const auto [text, encoding] = corvanes::decoded_text(fuzz::bytes_of(data, size));
    require(corvanes::text_from_file_bytes(corvanes::file_bytes_from_text(text)) == text,
            "a text file reads as it was written");
    require(corvanes::text_from_file_bytes(corvanes::file_bytes_from_text(text, encoding)) == text,
            "a text file reads as it was written in its own encoding");

    std::wstring written;
    corvanes::PriceListCounts counts;
    const Fields fields = fields_of(text, written, counts);
    const auto feeds = static_cast<size_t>(std::count(text.begin(), text.end(), L'\n'));
    require(counts.entries + counts.dropped >= feeds, "no line passes unseen");

    // A field may hold a carriage return of its own, and a line of the longest kind has no room for its end.
    const bool plain = text.find(L'\r') == std::wstring::npos && text.size() < corvanes::longest_line;
    std::wstring twice;
    require(!plain || fields_of(written, twice, counts) == fields, "written entries read back the same");
    return 0;
}
