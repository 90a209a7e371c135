// Loads modules, tells them what happens, and unloads them.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/loaded_library.h"
#include "base/result.h"
#include "rxdlinkr.h"

namespace host {

class CommandProcessor;
class CommandStack;
class DocumentManager;

class ModuleLoader final : public AcRxDynamicLinker {
  public:
    ModuleLoader(CommandStack& commands, CommandProcessor& processor, const DocumentManager& documents);
    ~ModuleLoader() override;

    /// Loads a module: by path, or one of that name beside the program. One that is loaded stays.
    base::Outcome<> load(const std::wstring& file);
    /// Fails when it is not loaded, locked, or running a command.
    base::Outcome<> unload(const std::wstring& file);
    /// Sends a message to every module, in the order of loading.
    void tell_all(AcRx::AppMsgCode message);
    /// At the host's end: the quit message, then everything is unloaded, locked or not, the last one first.
    void quit();

    /// The paths of the modules, in the order of loading.
    std::vector<std::wstring> loaded_files() const;

    bool unlockApplication(void* application) const override;
    bool registerAppMDIAware(void* application) const override;

  private:
    struct Module;
    using Modules = std::vector<std::unique_ptr<Module>>;

    Modules::const_iterator find(const std::wstring& file) const;
    /// The module that an application id stands for, or null.
    Module* application(void* id) const;
    base::Outcome<> send(Module& module, AcRx::AppMsgCode message);
    void release(Modules::const_iterator module);

    CommandStack& commands_;
    CommandProcessor& processor_;
    const DocumentManager& documents_;
    Modules modules_;
};

}  // namespace host
