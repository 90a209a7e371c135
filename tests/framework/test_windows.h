// Helpers of the framework's tests: a list of reported exceptions, and an owner that drives modal dialogs.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "afxwin.h"

/// Collects the reports of exceptions that a message box would show.
class ExceptionReports {
  public:
    ExceptionReports() : before_(AfxSetExceptionReport([](const wchar_t* text) { texts().push_back(text); })) {
        texts().clear();
    }
    ~ExceptionReports() { AfxSetExceptionReport(before_); }
    static std::vector<std::wstring>& texts() {
        static std::vector<std::wstring> the_texts;
        return the_texts;
    }

  private:
    AFX_EXCEPTION_REPORT before_;
};

/// An invisible top-level window. While a modal dialog that it owns has nothing to do, it calls `on_idle`.
class OwnerWindow : public CWnd {
  public:
    OwnerWindow();
    std::function<void(CWnd& dialog)> on_idle;

  protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};

/// Runs what is in the thread's queue, up to a thousand messages.
void run_waiting_messages();
