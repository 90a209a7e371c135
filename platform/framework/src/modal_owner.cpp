#include "modal_owner.h"

#include "afxapp_.h"

namespace framework {

ModalOwner::ModalOwner(HWND parent) {
    const CWnd* const main = AfxGetMainWnd();
    owner_ = parent || !main ? parent : main->m_hWnd;
    while (owner_ && (::GetWindowLongPtrW(owner_, GWL_STYLE) & WS_CHILD)) {
        owner_ = ::GetParent(owner_);
    }
    for (HWND window = owner_; window; window = ::GetParent(window)) {
        top_ = window;
    }
    if (!parent && owner_) {
        owner_ = ::GetLastActivePopup(owner_);
    }
    if (!owner_) {
        return;
    }
    owner_was_enabled_ = ::IsWindowEnabled(owner_);
    top_was_enabled_ = ::IsWindowEnabled(top_);
    ::EnableWindow(top_, FALSE);
    ::EnableWindow(owner_, FALSE);
}

void ModalOwner::enable(HWND dialog) {
    if (!owner_ || done_) {
        return;
    }
    done_ = true;
    // The system enables a dialog's owner by itself, even one that was disabled before.
    ::EnableWindow(top_, top_was_enabled_);
    ::EnableWindow(owner_, owner_was_enabled_);
    if (dialog && ::GetActiveWindow() == dialog) {
        ::SetActiveWindow(owner_);
    }
}

}  // namespace framework
