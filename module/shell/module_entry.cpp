// The entry points that the operating system and the host call in this module.
#include <afxwin.h>
#include <rxdefs.h>
#include <rxdlinkr.h>
#include <rxregsvc.h>

#include "common/extension_module.h"
#include "shell/command_registration.h"
#include "shell/document_data.h"

namespace {

AsdkDataManager<CDocData> document_data;

void initialise_application(void* application) {
    if (auto* linker = AcRxDynamicLinker::cast(acrxSysRegistry()->at(L"DynamicLinker"))) {
        linker->unlockApplication(application);
        linker->registerAppMDIAware(application);
    }
    corvanes::register_commands();
}

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    return corvanes::extension_module().follow_library(instance, reason);
}

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* application) {
    switch (message) {
        case AcRx::kInitAppMsg:
            initialise_application(application);
            break;
        case AcRx::kUnloadAppMsg:
            corvanes::remove_commands();
            break;
        default:
            break;
    }
    return AcRx::kRetOK;
}

extern "C" int acrxGetApiVersion() {
    return 18;
}
