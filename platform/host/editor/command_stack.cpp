#include "platform/host/editor/command_stack.h"

#include <algorithm>

#include "base/case_folding.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcEdCommandStack, AcRxObject)

namespace host {
namespace {

bool same_name(std::wstring_view left, std::wstring_view right) {
    return base::compare_ignoring_case(left, right) == 0;
}

bool is_missing(const ACHAR* text) {
    return text == nullptr || *text == 0;
}

using Name = std::wstring RegisteredCommand::*;

const RegisteredCommand* find(const CommandGroup& group, Name kind, std::wstring_view name) {
    const auto found = std::find_if(group.commands.begin(), group.commands.end(),
                                    [&](const RegisteredCommand& command) { return same_name(command.*kind, name); });
    return found == group.commands.end() ? nullptr : &*found;
}

const RegisteredCommand* find(const std::vector<CommandGroup>& groups, Name kind, std::wstring_view name) {
    for (const CommandGroup& group : groups) {
        if (const RegisteredCommand* const command = find(group, kind, name)) {
            return command;
        }
    }
    return nullptr;
}

}  // namespace

Acad::ErrorStatus CommandStack::addCommand(const ACHAR* group_name, const ACHAR* global_name, const ACHAR* local_name,
                                           Adesk::Int32 flags, AcRxFunctionPtr function, AcEdUIContext* context,
                                           int string_id, HINSTANCE resources, AcEdCommand** added) {
    if (is_missing(group_name) || is_missing(global_name) || is_missing(local_name) || function == nullptr ||
        context != nullptr || string_id != -1 || resources != nullptr || added != nullptr) {
        return Acad::eInvalidInput;
    }
    auto group = find_group(group_name);
    if (group == groups_.end()) {
        group = groups_.insert(groups_.begin(), CommandGroup{group_name, {}});
    } else if (find(*group, &RegisteredCommand::global_name, global_name) != nullptr ||
               find(*group, &RegisteredCommand::local_name, local_name) != nullptr) {
        return Acad::eDuplicateKey;
    }
    group->commands.push_back({global_name, local_name, flags, function});
    return Acad::eOk;
}

Acad::ErrorStatus CommandStack::removeGroup(const ACHAR* group_name) {
    const auto group = find_group(group_name);
    if (group == groups_.end()) {
        return Acad::eKeyNotFound;
    }
    groups_.erase(group);
    return Acad::eOk;
}

const RegisteredCommand* CommandStack::with_local_name(std::wstring_view name) const {
    return find(groups_, &RegisteredCommand::local_name, name);
}

const RegisteredCommand* CommandStack::with_global_name(std::wstring_view name) const {
    return find(groups_, &RegisteredCommand::global_name, name);
}

size_t CommandStack::remove_commands_of(HMODULE library) {
    size_t removed = 0;
    for (CommandGroup& group : groups_) {
        removed += std::erase_if(group.commands, [&](const RegisteredCommand& command) {
            return is_function_of(library, command.function);
        });
    }
    std::erase_if(groups_, [](const auto& group) { return group.commands.empty(); });
    return removed;
}

std::vector<CommandGroup>::iterator CommandStack::find_group(const ACHAR* name) {
    return std::find_if(groups_.begin(), groups_.end(),
                        [&](const CommandGroup& group) { return name != nullptr && same_name(group.name, name); });
}

bool is_function_of(HMODULE library, AcRxFunctionPtr function) {
    HMODULE owner = nullptr;
    return GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                              reinterpret_cast<LPCWSTR>(function), &owner) != 0 &&
           owner == library;
}

}  // namespace host
