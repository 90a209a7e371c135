#include "dialog_template.h"

#include <cstring>
#include <cwchar>

#include "afxapp_.h"

namespace framework {
namespace {

/// The head of the extended form of a template, which no system header declares.
#pragma pack(push, 2)
struct ExtendedHead {
    WORD version;
    WORD signature;
    DWORD help_id;
    DWORD ex_style;
    DWORD style;
    WORD item_count;
    short x, y, width, height;
};
#pragma pack(pop)

}  // namespace

DialogTemplate find_dialog_template(LPCWSTR name) {
    const auto type = reinterpret_cast<LPCWSTR>(RT_DIALOG);
    const HINSTANCE module = AfxFindResourceHandle(name, type);
    const HRSRC resource = ::FindResourceW(module, name, type);
    if (!resource) {
        return {nullptr, module};
    }
    return {static_cast<const DLGTEMPLATE*>(::LockResource(::LoadResource(module, resource))), module};
}

bool wants_centering(const DLGTEMPLATE* dialog) {
    constexpr DWORD placed = DS_CENTER | DS_CENTERMOUSE | DS_ABSALIGN;
    ExtendedHead head;
    std::memcpy(&head, dialog, sizeof(dialog->style));
    if (head.version != 1 || head.signature != 0xffff) {
        return !(dialog->style & placed) && dialog->x == 0 && dialog->y == 0;
    }
    std::memcpy(&head, dialog, sizeof(head));
    return !(head.style & placed) && head.x == 0 && head.y == 0;
}

bool is_multiline_edit(HWND window) {
    wchar_t name[8] = {};
    ::GetClassNameW(window, name, 8);
    return _wcsicmp(name, L"Edit") == 0 && (::GetWindowLongPtrW(window, GWL_STYLE) & ES_MULTILINE);
}

}  // namespace framework
