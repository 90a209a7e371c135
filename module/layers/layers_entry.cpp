// The entry point that the host calls in this module, and its one command.
#include <afxwin.h>
#include <aced.h>
#include <rxdlinkr.h>

#include "common/drawing_objects.h"
#include "common/resource_scope.h"
#include "layers/layers_dialog.h"

namespace {

constexpr const wchar_t* command_group = L"Layers";

void layers_command() {
    if (corvanes::working_database() == nullptr) {
        acutPrintf(L"\nNo drawing is open.");
        return;
    }
    const corvanes::ResourceScope resources;
    LayersDialog(CWnd::FromHandle(adsw_acadMainWnd())).DoModal();
}

}  // namespace

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* application) {
    if (message == AcRx::kInitAppMsg) {
        acrxDynamicLinker->unlockApplication(application);
        acedRegCmds->addCommand(command_group, L"LAYERS", L"LAYERS", ACRX_CMD_MODAL, layers_command);
    } else if (message == AcRx::kUnloadAppMsg) {
        acedRegCmds->removeGroup(command_group);
    }
    return AcRx::kRetOK;
}
