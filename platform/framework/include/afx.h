// The framework's base services: the root class, checks, and what happens to an exception that a handler throws.
#pragma once

#include <cassert>

#include "afxstr.h"
#include "afxver_.h"

#define ASSERT(condition) assert(condition)

class AFX_PUBLIC CObject {
  public:
    virtual ~CObject();
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;

  protected:
    CObject() = default;
};

/// Shows the text of an exception that left a handler; no exception goes further than the framework's own callbacks. It
/// must not throw.
using AFX_EXCEPTION_REPORT = void (*)(const wchar_t* text);

/// Replaces the report, by default an AfxMessageBox; null sets the default again. Returns the one before.
AFX_PUBLIC AFX_EXCEPTION_REPORT AfxSetExceptionReport(AFX_EXCEPTION_REPORT report);

/// To be called while an exception is being handled, in a callback of one's own that the system calls.
AFX_PUBLIC void AfxReportCurrentException() noexcept;

/// Throws std::runtime_error: the system could not create the object.
[[noreturn]] AFX_PUBLIC void AfxThrowResourceException();
