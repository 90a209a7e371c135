// The commands that modules have registered, in groups, the group added last on top.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "accmd.h"

namespace host {

class RegisteredCommand final : public AcEdCommand {
  public:
    RegisteredCommand(std::wstring global_name, std::wstring local_name, Adesk::Int32 flags, AcRxFunctionPtr function);

    const ACHAR* globalName() const override { return global_name_.c_str(); }
    const ACHAR* localName() const override { return local_name_.c_str(); }
    Adesk::Int32 commandFlags() const override { return flags_; }
    AcRxFunctionPtr functionAddr() const override { return function_; }

  private:
    const std::wstring global_name_;
    const std::wstring local_name_;
    const Adesk::Int32 flags_;
    const AcRxFunctionPtr function_;
};

struct CommandGroup {
    std::wstring name;
    std::vector<std::unique_ptr<RegisteredCommand>> commands;
};

class CommandStack final : public AcEdCommandStack {
  public:
    Acad::ErrorStatus addCommand(const ACHAR* group, const ACHAR* global_name, const ACHAR* local_name,
                                 Adesk::Int32 flags, AcRxFunctionPtr function, AcEdUIContext* context, int string_id,
                                 HINSTANCE resources, AcEdCommand** added) override;
    Acad::ErrorStatus removeCmd(const ACHAR* group, const ACHAR* global_name) override;
    Acad::ErrorStatus removeGroup(const ACHAR* group) override;
    Acad::ErrorStatus popGroupToTop(const ACHAR* group) override;
    AcEdCommand* lookupGlobalCmd(const ACHAR* name) override { return lookupCmd(name, true); }
    AcEdCommand* lookupLocalCmd(const ACHAR* name) override { return lookupCmd(name, false); }
    AcEdCommand* lookupCmd(const ACHAR* name, bool global) override;
    AcEdCommand* lookupCmd(const ACHAR* name, bool global, const ACHAR* group) override;
    AcEdCommandIterator* iterator() override;

    /// The top group first.
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
