#include "pricelist/status_label.h"

namespace {

constexpr UINT_PTR blink_timer = 0;
constexpr UINT_PTR end_timer = 1;

}  // namespace

BEGIN_MESSAGE_MAP(CStaticEx, CStatic)
    ON_WM_TIMER()
END_MESSAGE_MAP()

void CStaticEx::ShowMessage(int duration, int interval, const wchar_t* text) {
    SetWindowText(text);
    blink_state_ = 1;
    SetTimer(blink_timer, static_cast<UINT>(interval), nullptr);
    if (duration >= 1) {
        SetTimer(end_timer, static_cast<UINT>(duration), nullptr);
    }
}

void CStaticEx::Clear() {
    KillTimer(end_timer);
    KillTimer(blink_timer);
    EnableWindow(TRUE);
    if (GetWindowTextLength() > 0) {
        SetWindowText(L"");
        CRect covered;
        GetWindowRect(&covered);
        GetParent()->ScreenToClient(&covered);
        GetParent()->InvalidateRect(&covered);
    }
}

void CStaticEx::OnTimer(UINT_PTR id) {
    constexpr DWORD beep_pitch = 100;
    constexpr DWORD beep_milliseconds = 100;
    if (id == end_timer) {
        Clear();
    } else if (id == blink_timer && blink_state_ == 1) {
        EnableWindow(TRUE);
        blink_state_ = 0;
        Beep(beep_pitch, beep_milliseconds);
    } else if (id == blink_timer) {
        EnableWindow(FALSE);
        blink_state_ = 1;
    }
    CStatic::OnTimer(id);
}
