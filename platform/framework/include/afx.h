// The framework's base services: the root class, checks, and the report of exceptions that handlers throw.
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

/// The type of a function that shows the text of an exception which left a handler; no exception goes further than the
/// framework's own callbacks. The function must not throw.
using AFX_EXCEPTION_REPORT = void (*)(const wchar_t* text);

/// Sets the function that reports exceptions, by default an AfxMessageBox; null sets the default again. Returns the
/// former one.
AFX_PUBLIC AFX_EXCEPTION_REPORT AfxSetExceptionReport(AFX_EXCEPTION_REPORT report);

/// Reports the exception that is being handled. To be called in other callbacks of the system, which no exception may
/// leave either.
AFX_PUBLIC void AfxReportCurrentException() noexcept;

/// Throws std::runtime_error: the system could not create the object.
[[noreturn]] AFX_PUBLIC void AfxThrowResourceException();
