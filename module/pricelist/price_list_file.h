// The reader and the writer of price lists, which tell the user what cannot be opened.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "common/text_conversion.h"
#include "pricelist/price_list_lines.h"

namespace corvanes {

/// Calls back once for each accepted line, in file order. Only the mode "r" exists. Returns 1; or 0, after an alert and
/// without any call, when the file cannot be opened or is of another kind. `opened` is called before the first entry,
/// with the encoding in which the list is to be saved again.
int LoadPriceList(const wchar_t* path, const wchar_t* mode, const std::function<void(TextEncoding)>& opened,
                  const std::function<void(const PriceListEntry&)>& handler);

/// The whole text of a price list, for read_entries; nothing after an alert when the file cannot be opened or is of
/// another kind.
std::optional<std::wstring> read_price_list(const wchar_t* path);

/// Replaces the file by one line for each row; rows whose texts are all empty are left out. Returns 1; or 0, after an
/// alert, when the file cannot be written, in which case the old file is still there.
int SavePriceList(const wchar_t* path, const std::vector<PriceListEntry>& rows,
                  TextEncoding encoding = TextEncoding::system_code_page);

/// Shows that a file cannot be opened, in the words that every reader and writer of the module uses.
void alert_cannot_open(const wchar_t* path);

}  // namespace corvanes
