// The windows that a modal dialog takes the input from.
#pragma once

#include "afxver_.h"

namespace framework {

/// Disables the dialog's owner, and the top-level window behind it, until `enable` or the end of the scope.
class ModalOwner {
  public:
    /// Without a parent the owner is the main window's last active popup.
    explicit ModalOwner(HWND parent);
    ~ModalOwner() { enable(nullptr); }
    ModalOwner(const ModalOwner&) = delete;
    ModalOwner& operator=(const ModalOwner&) = delete;

    /// The dialog's owner; null when there is none.
    HWND window() const { return owner_; }

    /// Restores the state that the windows had, and makes the owner active when the dialog was.
    void enable(HWND dialog);

  private:
    HWND owner_ = nullptr;
    HWND top_ = nullptr;
    bool owner_was_enabled_ = false;
    bool top_was_enabled_ = false;
    bool done_ = false;
};

}  // namespace framework
