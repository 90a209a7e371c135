#include "grid/memory_dialog.h"

#include <cwchar>
#include <initializer_list>

namespace corvanes {

namespace {

void append_text(std::vector<WORD>& words, const wchar_t* text) {
    words.insert(words.end(), text, text + std::wcslen(text) + 1);
}

// A dialog template without controls, in the form that the system reads.
std::vector<WORD> template_of(const wchar_t* caption, CSize size) {
    constexpr DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT;
    constexpr WORD points = 8;
    std::vector<WORD> words{LOWORD(style), HIWORD(style), 0, 0, 0, 0, 0};
    for (const WORD word : {static_cast<WORD>(size.cx), static_cast<WORD>(size.cy), WORD{0}, WORD{0}}) {
        words.push_back(word);
    }
    append_text(words, caption);
    words.push_back(points);
    append_text(words, L"MS Sans Serif");
    return words;
}

}  // namespace

bool MemoryDialog::CreateOver(CWnd& owner, const wchar_t* caption, CSize size, std::vector<DialogControl> controls) {
    controls_ = std::move(controls);
    const std::vector<WORD> words = template_of(caption, size);
    CWnd* const below = CWnd::FromHandle(::GetAncestor(owner.m_hWnd, GA_ROOT));
    return CreateIndirect(reinterpret_cast<const DLGTEMPLATE*>(words.data()), below) != FALSE;
}

BOOL MemoryDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    const LRESULT font = SendMessage(WM_GETFONT);
    for (const DialogControl& control : controls_) {
        RECT place{control.x, control.y, control.x + control.width, control.y + control.height};
        ::MapDialogRect(m_hWnd, &place);
        HWND window = nullptr;
        if (control.window_class == nullptr) {
            window = MakeControl(control, place);
        } else {
            window =
                ::CreateWindowExW(0, control.window_class, control.caption, control.style | WS_CHILD | WS_VISIBLE,
                                  place.left, place.top, place.right - place.left, place.bottom - place.top, m_hWnd,
                                  reinterpret_cast<HMENU>(static_cast<INT_PTR>(control.id)), nullptr, nullptr);
        }
        ::SendMessageW(window, WM_SETFONT, static_cast<WPARAM>(font), FALSE);
    }
    return FALSE;  // the derived class sets the focus
}

}  // namespace corvanes
