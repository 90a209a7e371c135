// The commands that modules have registered, in groups, the group added last on top.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "accmd.h"

namespace host {

struct RegisteredCommand {
    std::wstring global_name;
    std::wstring local_name;
    Adesk::Int32 flags;
    AcRxFunctionPtr function;
};

struct CommandGroup {
    std::wstring name;
    std::vector<RegisteredCommand> commands;
};

class CommandStack final : public AcEdCommandStack {
  public:
    Acad::ErrorStatus addCommand(const ACHAR* group, const ACHAR* global_name, const ACHAR* local_name,
                                 Adesk::Int32 flags, AcRxFunctionPtr function, AcEdUIContext* context, int string_id,
                                 HINSTANCE resources, AcEdCommand** added) override;
    Acad::ErrorStatus removeGroup(const ACHAR* group) override;

    /// The command of that name, in any case, from the first group that has one; null for none. Valid until the
    /// commands change.
    const RegisteredCommand* with_local_name(std::wstring_view name) const;
    const RegisteredCommand* with_global_name(std::wstring_view name) const;
    /// All groups, the top one first.
    const std::vector<CommandGroup>& groups() const { return groups_; }
    /// Removes the commands whose functions are in that library, and tells how many there were.
    size_t remove_commands_of(HMODULE library);

  private:
    std::vector<CommandGroup>::iterator find_group(const ACHAR* name);

    std::vector<CommandGroup> groups_;
};

/// Whether a function is part of a loaded library.
bool is_function_of(HMODULE library, AcRxFunctionPtr function);

}  // namespace host
