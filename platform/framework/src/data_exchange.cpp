#include "afxdd_.h"

#include <stdexcept>
#include <string>

HWND CDataExchange::PrepareCtrl(int id) {
    const HWND control = ::GetDlgItem(m_pDlgWnd->m_hWnd, id);
    if (!control) {
        throw std::logic_error("The dialog has no control " + std::to_string(id) + ".");
    }
    return control;
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
