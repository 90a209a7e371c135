// The entry point that the host calls in this module, and its commands.
#include <afxwin.h>
#include <aced.h>
#include <rxdlinkr.h>

#include <memory>

#include "page/kept_view.h"
#include "page/last_bill.h"
#include "page/page_command.h"

namespace {

constexpr const wchar_t* command_group = L"Page";

/// What the module remembers between its commands.
struct Memory {
    corvanes::LastBill bill;
    corvanes::KeptView view;
};

std::unique_ptr<Memory>& memory() {
    static std::unique_ptr<Memory> memory;
    return memory;
}

void add_command(const wchar_t* name, AcRxFunctionPtr function) {
    acedRegCmds->addCommand(command_group, name, name, ACRX_CMD_MODAL, function);
}

}  // namespace

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* application) {
    if (message == AcRx::kInitAppMsg) {
        acrxDynamicLinker->unlockApplication(application);
        memory() = std::make_unique<Memory>();
        add_command(L"PAGEOUT", [] { corvanes::save_page(memory()->bill, memory()->view); });
        add_command(L"-PAGEOUT", [] { corvanes::save_page_with_picture(memory()->bill, memory()->view); });
        add_command(L"PAGEVIEW", [] { memory()->view.keep(); });
    } else if (message == AcRx::kUnloadAppMsg) {
        acedRegCmds->removeGroup(command_group);
        memory().reset();
    }
    return AcRx::kRetOK;
}
