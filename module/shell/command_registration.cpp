#include "shell/command_registration.h"

#include <afxwin.h>
#include <accmd.h>

#include <iterator>

#include "shell/commands.h"

namespace corvanes {
namespace {

constexpr const wchar_t* command_group = L"BlockPrice_Group";
constexpr int local_name_as_given = -1;

AcEdCommandStack* command_stack() {
    return AcEdCommandStack::cast(acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS"));
}

}  // namespace

void register_command(const wchar_t* group, const wchar_t* global_name, const wchar_t* local_name, int flags,
                      AcRxFunctionPtr handler, int resource_string) {
    AcEdCommandStack* stack = command_stack();
    if (stack == nullptr) {
        return;
    }
    wchar_t localised[64] = L"";
    if (resource_string != local_name_as_given) {
        const HMODULE module = GetModuleHandleW(L"Corvanes.arx");
        LoadStringW(module, static_cast<UINT>(resource_string), localised, static_cast<int>(std::size(localised)));
        local_name = localised;
    }
    stack->addCommand(group, global_name, local_name, flags, handler, nullptr, -1, nullptr, nullptr);
}

void register_commands() {
    register_command(command_group, L"BlockPrice_Global", L"QXBOMT", ACRX_CMD_MODAL, template_command,
                     local_name_as_given);
    register_command(command_group, L"CalcPrice_Global", L"QXBOMC", ACRX_CMD_TRANSPARENT, report_command,
                     local_name_as_given);
}

void remove_commands() {
    if (AcEdCommandStack* stack = command_stack()) {
        stack->removeGroup(command_group);
    }
}

}  // namespace corvanes
