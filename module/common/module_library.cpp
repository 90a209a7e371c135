// The functions that every module exports as a library: it joins the framework when it is loaded, and says which
// interface it was built for. Each module compiles this source itself, because a static library would not export them.
#include <afxwin.h>
#include <rxdefs.h>

#include "common/extension_module.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    return corvanes::extension_module().follow_library(instance, reason);
}

extern "C" int acrxGetApiVersion() {
    return 18;
}
