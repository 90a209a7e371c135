// ModuleLoader, which loads modules, sends them messages, and unloads them.
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

    /// Loads a module by its path, or the one of that name beside the program. Does nothing for a module that is loaded
    /// already. The reason of a failure names the file.
    base::Outcome<> load(const std::wstring& file);
    /// Unloads a module. Fails when it is not loaded, is locked, or runs a command.
    base::Outcome<> unload(const std::wstring& file);
    /// Sends a message to every module, in the order of loading.
    void tell_all(AcRx::AppMsgCode message);
    /// To be called at the host's end: sends the quit message and unloads all modules, the locked ones too, the last
    /// one first.
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
