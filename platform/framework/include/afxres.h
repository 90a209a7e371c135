// Resource identifiers of the framework, for resource scripts and for code.
#ifndef AFXRES_H
#define AFXRES_H

#ifdef RC_INVOKED
#include <winresrc.h>
#endif

#ifndef IDC_STATIC
#define IDC_STATIC (-1)
#endif

#endif
