#include "afx.h"

#include <stdexcept>
#include <string>

#include "afxapp_.h"
#include "base/code_page.h"

namespace {

AFX_EXCEPTION_REPORT current_report = nullptr;

std::wstring current_exception_text() {
    try {
        throw;
    } catch (const std::exception& exception) {
        return base::wide_from_bytes(exception.what(), base::system_code_page());
    } catch (...) {
        return L"An unknown error occurred.";
    }
}

void report(const wchar_t* text) {
    if (current_report) {
        current_report(text);
    } else {
        AfxMessageBox(text, MB_OK | MB_ICONSTOP);
    }
}

}  // namespace

CObject::~CObject() = default;

AFX_EXCEPTION_REPORT AfxSetExceptionReport(AFX_EXCEPTION_REPORT new_report) {
    const AFX_EXCEPTION_REPORT before = current_report;
    current_report = new_report;
    return before;
}

void AfxReportCurrentException() noexcept {
    try {
        report(current_exception_text().c_str());
    } catch (const std::bad_alloc&) {
        report(L"Out of memory.");
    }
}

void AfxThrowResourceException() {
    throw std::runtime_error("The system could not create a resource (error " + std::to_string(::GetLastError()) +
                             ").");
}
