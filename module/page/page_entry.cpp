// The entry point that the host calls in this module, and its two commands.
#include <afxwin.h>
#include <aced.h>
#include <rxdlinkr.h>

#include <memory>

#include "page/last_bill.h"
#include "page/page_command.h"

namespace {

constexpr const wchar_t* command_group = L"Page";

std::unique_ptr<corvanes::LastBill>& last_bill() {
    static std::unique_ptr<corvanes::LastBill> bill;
    return bill;
}

void add_command(const wchar_t* name, AcRxFunctionPtr function) {
    acedRegCmds->addCommand(command_group, name, name, ACRX_CMD_MODAL, function);
}

}  // namespace

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* application) {
    if (message == AcRx::kInitAppMsg) {
        acrxDynamicLinker->unlockApplication(application);
        last_bill() = std::make_unique<corvanes::LastBill>();
        add_command(L"PAGEOUT", [] { corvanes::save_page(*last_bill()); });
        add_command(L"-PAGEOUT", [] { corvanes::save_page_with_picture(*last_bill()); });
    } else if (message == AcRx::kUnloadAppMsg) {
        acedRegCmds->removeGroup(command_group);
        last_bill().reset();
    }
    return AcRx::kRetOK;
}
