#include "afxdd_.h"

#include <cerrno>
#include <climits>
#include <cwchar>
#include <stdexcept>
#include <string>

#include "afxapp_.h"
#include "data_exchange_refused.h"

namespace {

/// False unless the text is one decimal integer, with blanks around it at most.
bool read_integer(CString text, int& value) {
    text.Trim();
    wchar_t* end = nullptr;
    errno = 0;
    const long long read = std::wcstoll(text, &end, 10);
    if (text.IsEmpty() || *end != 0 || errno != 0 || read < INT_MIN || read > INT_MAX) {
        return false;
    }
    value = static_cast<int>(read);
    return true;
}

CString text_of(HWND control) {
    CString text;
    const int length = ::GetWindowTextLengthW(control);
    ::GetWindowTextW(control, text.GetBuffer(length + 1), length + 1);
    text.ReleaseBuffer();
    return text;
}

}  // namespace

HWND CDataExchange::PrepareCtrl(int id) {
    last_control_ = ::GetDlgItem(m_pDlgWnd->m_hWnd, id);
    last_is_edit_ = false;
    if (!last_control_) {
        throw std::logic_error("The dialog has no control " + std::to_string(id) + ".");
    }
    return last_control_;
}

HWND CDataExchange::PrepareEditCtrl(int id) {
    PrepareCtrl(id);
    last_is_edit_ = true;
    return last_control_;
}

void CDataExchange::Fail() {
    if (m_bSaveAndValidate && last_control_) {
        ::SetFocus(last_control_);
        if (last_is_edit_) {
            ::SendMessageW(last_control_, EM_SETSEL, 0, -1);
        }
    }
    throw framework::DataExchangeRefused();
}

void DDX_Control(CDataExchange* exchange, int id, CWnd& control) {
    if (control.m_hWnd) {
        return;
    }
    if (!control.SubclassWindow(exchange->PrepareCtrl(id))) {
        throw std::logic_error("Control " + std::to_string(id) + " belongs to another object.");
    }
}

void DDX_Check(CDataExchange* exchange, int id, int& value) {
    const HWND control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate) {
        value = static_cast<int>(::SendMessageW(control, BM_GETCHECK, 0, 0));
    } else {
        ::SendMessageW(control, BM_SETCHECK, static_cast<WPARAM>(value), 0);
    }
}

void DDX_Text(CDataExchange* exchange, int id, CString& value) {
    const HWND control = exchange->PrepareEditCtrl(id);
    if (exchange->m_bSaveAndValidate) {
        value = text_of(control);
    } else if (text_of(control) != value) {
        ::SetWindowTextW(control, value);
    }
}

void DDX_Text(CDataExchange* exchange, int id, int& value) {
    if (!exchange->m_bSaveAndValidate) {
        CString text;
        text.Format(L"%d", value);
        DDX_Text(exchange, id, text);
        return;
    }
    if (!read_integer(text_of(exchange->PrepareEditCtrl(id)), value)) {
        AfxMessageBox(L"Please enter an integer.");
        exchange->Fail();
    }
}
