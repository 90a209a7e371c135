#include "platform/host/editor/command_stack.h"

#include <algorithm>

#include "base/case_folding.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcEdCommand, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcEdCommandIterator, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcEdCommandStack, AcRxObject)

namespace host {
namespace {

bool same_name(std::wstring_view left, std::wstring_view right) {
    return base::compare_ignoring_case(left, right) == 0;
}

bool is_missing(const ACHAR* text) {
    return text == nullptr || *text == 0;
}

AcEdCommand* find_command(const CommandGroup& group, std::wstring_view name, bool global) {
    for (const auto& command : group.commands) {
        if (same_name(global ? command->globalName() : command->localName(), name)) {
            return command.get();
        }
    }
    return nullptr;
}

/// The name that a command is given by a string resource; the name itself where there is none to load.
std::wstring localized(const ACHAR* local_name, int string_id, HINSTANCE resources) {
    constexpr int longest_name = 64;
    wchar_t text[longest_name];
    if (string_id == -1 || resources == nullptr ||
        LoadStringW(resources, static_cast<UINT>(string_id), text, longest_name) == 0) {
        return local_name;
    }
    return text;
}

class GroupIterator final : public AcEdCommandIterator {
  public:
    explicit GroupIterator(const std::vector<CommandGroup>& groups) : groups_(groups) { skip_empty_groups(); }

    bool done() const override { return group_ == groups_.size(); }
    bool next() override {
        if (!done()) {
            ++command_;
            skip_empty_groups();
        }
        return !done();
    }
    const AcEdCommand* command() const override { return done() ? nullptr : groups_[group_].commands[command_].get(); }
    const ACHAR* commandGroup() const override { return done() ? nullptr : groups_[group_].name.c_str(); }

  private:
    void skip_empty_groups() {
        while (group_ < groups_.size() && command_ == groups_[group_].commands.size()) {
            ++group_;
            command_ = 0;
        }
    }

    const std::vector<CommandGroup>& groups_;
    size_t group_ = 0;
    size_t command_ = 0;
};

}  // namespace

RegisteredCommand::RegisteredCommand(std::wstring global_name, std::wstring local_name, Adesk::Int32 flags,
                                     AcRxFunctionPtr function)
    : global_name_(std::move(global_name)), local_name_(std::move(local_name)), flags_(flags), function_(function) {}

Acad::ErrorStatus CommandStack::addCommand(const ACHAR* group_name, const ACHAR* global_name, const ACHAR* local_name,
                                           Adesk::Int32 flags, AcRxFunctionPtr function, AcEdUIContext*, int string_id,
                                           HINSTANCE resources, AcEdCommand** added) {
    if (is_missing(group_name) || is_missing(global_name) || is_missing(local_name) || function == nullptr) {
        return Acad::eInvalidInput;
    }
    const std::wstring shown_name = localized(local_name, string_id, resources);
    auto group = find_group(group_name);
    if (group == groups_.end()) {
        group = groups_.insert(groups_.begin(), CommandGroup{group_name, {}});
    } else if (find_command(*group, global_name, true) != nullptr ||
               find_command(*group, shown_name, false) != nullptr) {
        return Acad::eDuplicateKey;
    }
    group->commands.push_back(std::make_unique<RegisteredCommand>(global_name, shown_name, flags, function));
    if (added != nullptr) {
        *added = group->commands.back().get();
    }
    return Acad::eOk;
}

Acad::ErrorStatus CommandStack::removeCmd(const ACHAR* group_name, const ACHAR* global_name) {
    const auto group = find_group(group_name);
    if (group == groups_.end() || is_missing(global_name)) {
        return Acad::eKeyNotFound;
    }
    auto& commands = group->commands;
    const auto removed = std::find_if(commands.begin(), commands.end(), [&](const auto& command) {
        return same_name(command->globalName(), global_name);
    });
    if (removed == commands.end()) {
        return Acad::eKeyNotFound;
    }
    commands.erase(removed);
    if (commands.empty()) {
        groups_.erase(group);
    }
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

Acad::ErrorStatus CommandStack::popGroupToTop(const ACHAR* group_name) {
    const auto group = find_group(group_name);
    if (group == groups_.end()) {
        return Acad::eKeyNotFound;
    }
    std::rotate(groups_.begin(), group, group + 1);
    return Acad::eOk;
}

AcEdCommand* CommandStack::lookupCmd(const ACHAR* name, bool global) {
    if (is_missing(name)) {
        return nullptr;
    }
    for (const CommandGroup& group : groups_) {
        if (AcEdCommand* const command = find_command(group, name, global)) {
            return command;
        }
    }
    return nullptr;
}

AcEdCommand* CommandStack::lookupCmd(const ACHAR* name, bool global, const ACHAR* group_name) {
    const auto group = find_group(group_name);
    return group == groups_.end() || is_missing(name) ? nullptr : find_command(*group, name, global);
}

AcEdCommandIterator* CommandStack::iterator() {
    return new GroupIterator(groups_);
}

size_t CommandStack::remove_commands_of(HMODULE library) {
    size_t removed = 0;
    for (CommandGroup& group : groups_) {
        auto& commands = group.commands;
        const auto kept = std::remove_if(commands.begin(), commands.end(), [&](const auto& command) {
            return is_function_of(library, command->functionAddr());
        });
        removed += static_cast<size_t>(commands.end() - kept);
        commands.erase(kept, commands.end());
    }
    groups_.erase(
        std::remove_if(groups_.begin(), groups_.end(), [](const auto& group) { return group.commands.empty(); }),
        groups_.end());
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
