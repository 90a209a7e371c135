#include "pricelist/price_list_file.h"

#include <afxwin.h>
#include <aced.h>

#include "pricelist/module_path.h"
#include "pricelist/settings_files.h"
#include "pricelist/text_file.h"

namespace corvanes {

void alert_cannot_open(const wchar_t* path) {
    CString message;
    message.Format(L"File %s could  not be opened", path);
    acedAlert(message);
}

std::optional<std::wstring> read_price_list(const wchar_t* path) {
    auto text = read_text_file(path);
    if (!text) {
        alert_cannot_open(path);
    }
    return text;
}

int LoadPriceList(const wchar_t* path, [[maybe_unused]] const wchar_t* mode, const std::function<void()>& opened,
                  const std::function<void(const PriceListEntry&)>& handler) {
    ASSERT(mode[0] == L'r');
    const auto text = read_price_list(path);
    if (!text) {
        return 0;
    }
    opened();
    read_entries(*text, handler);
    return 1;
}

int SavePriceList(const wchar_t* path, const std::vector<PriceListEntry>& rows) {
    std::wstring text;
    for (const PriceListEntry& row : rows) {
        append_entry(text, row);
    }
    if (!write_text_file(path, text)) {
        alert_cannot_open(path);
        return 0;
    }
    return 1;
}

void GetSettingsPaths(const wchar_t* settings_file_name, std::wstring& settings_path, std::wstring& last_file_path) {
    SettingsPaths paths = settings_paths(module_path(), settings_file_name);
    settings_path = std::move(paths.settings);
    last_file_path = std::move(paths.last_file);
}

}  // namespace corvanes
