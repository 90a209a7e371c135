#include "bom/row_highlight.h"

#include <aced.h>

#include "common/drawing_objects.h"

namespace corvanes {

void RowHighlight::show(const std::wstring& block) {
    clear();
    if (::IsWindowVisible(adsw_acadMainWnd()) == 0) {
        return;
    }
    wchar_t block_reference[] = L"INSERT";
    std::wstring pattern = literal_pattern(block);
    resbuf name{};
    name.restype = 2;
    name.resval.rstring = pattern.data();
    resbuf kind{};
    kind.restype = 0;
    kind.resval.rstring = block_reference;
    kind.rbnext = &name;
    ads_name set;
    if (acedSSGet(L"P", nullptr, nullptr, &kind, set) == RTNORM) {
        lit_ = acedSSSetFirst(set, nullptr) == RTNORM;
        acedSSFree(set);
    }
}

void RowHighlight::clear() {
    if (lit_) {
        acedSSSetFirst(nullptr, nullptr);
        lit_ = false;
    }
}

void RowHighlight::zoom() const {
    if (lit_) {
        acedCommand(RTSTR, L"ZOOM", RTSTR, L"Object", RTNONE);
        acedUpdateDisplay();
    }
}

}  // namespace corvanes
