// The entry point that the host calls in this module.
#include <windows.h>
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
