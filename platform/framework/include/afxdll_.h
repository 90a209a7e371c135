// Extension modules: DLLs that share the program's framework, and whose resources are found with the program's.
#pragma once

#include "afx.h"

/// One static object in each extension module.
struct AFX_EXTENSION_MODULE {
    BOOL bInitialized;
    HMODULE hModule;
    HMODULE hResource;
};

/// Registers the module; to be called at process attach. A second call for the same module does nothing and returns
/// TRUE; one for another module returns FALSE.
AFX_PUBLIC BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module);
/// To be called at process detach: deletes the module's CDynLinkLibrary objects, and takes its resources out of use.
AFX_PUBLIC void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL all = FALSE);

/// Puts a module into the chain that AfxFindResourceHandle searches. To be made with `new` after
/// AfxInitExtensionModule; the framework owns it.
class AFX_PUBLIC CDynLinkLibrary : public CObject {
  public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL system = FALSE);
    ~CDynLinkLibrary() override;

    HMODULE m_hModule;
    HMODULE m_hResource;
};
