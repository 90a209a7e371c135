#include "pricelist/price_list_file.h"

#include <afxwin.h>
#include <aced.h>

#include "base/file_contents.h"
#include "common/text_file.h"
#include "pricelist/foreign_file.h"

namespace corvanes {
namespace {

/// The text of a price list; nothing after an alert, which names the file and the reason.
std::optional<DecodedText> decoded_price_list(const wchar_t* path) {
    const auto contents = base::FileContents::read(path);
    if (!contents) {
        alert_cannot_open(path);
        return std::nullopt;
    }
    const std::wstring kind(foreign_kind(contents->bytes()));
    if (!kind.empty()) {
        acedAlert(CString(L"File ") + path + L" is not a price list: " + kind.c_str());
        return std::nullopt;
    }
    return decoded_text(contents->bytes());
}

}  // namespace

void alert_cannot_open(const wchar_t* path) {
    acedAlert(CString(L"File ") + path + L" could  not be opened");
}

std::optional<std::wstring> read_price_list(const wchar_t* path) {
    auto list = decoded_price_list(path);
    return list ? std::optional(std::move(list->text)) : std::nullopt;
}

int LoadPriceList(const wchar_t* path, [[maybe_unused]] const wchar_t* mode,
                  const std::function<void(TextEncoding)>& opened,
                  const std::function<void(const PriceListEntry&)>& handler) {
    ASSERT(mode[0] == L'r');
    const auto list = decoded_price_list(path);
    if (!list) {
        return 0;
    }
    opened(list->encoding);
    read_entries(list->text, handler);
    return 1;
}

int SavePriceList(const wchar_t* path, const std::vector<PriceListEntry>& rows, TextEncoding encoding) {
    std::wstring text;
    for (const PriceListEntry& row : rows) {
        append_entry(text, row);
    }
    if (!write_text_file(path, text, encoding)) {
        alert_cannot_open(path);
        return 0;
    }
    return 1;
}

}  // namespace corvanes
