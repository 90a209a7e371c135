#include "platform/host/editor/module_loader.h"

#include <algorithm>
#include <exception>

#include "base/case_folding.h"
#include "base/code_page.h"
#include "platform/host/editor/command_processor.h"
#include "platform/host/editor/command_stack.h"
#include "platform/host/editor/document_manager.h"
#include "platform/host/prompt/person.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcRxDynamicLinker, AcRxObject)

namespace host {
namespace {

using EntryPoint = AcRx::AppRetCode(AcRx::AppMsgCode, void*);
using VersionQuery = int();

constexpr std::wstring_view extension = L".arx";

/// The name without folders, with the extension.
std::wstring file_name(std::wstring_view path) {
    const size_t slash = path.find_last_of(L"\\/");
    std::wstring name(slash == std::wstring_view::npos ? path : path.substr(slash + 1));
    const std::wstring lowered = base::lower(name);
    const bool has_extension = name.size() > extension.size() &&
                               lowered.compare(name.size() - extension.size(), extension.size(), extension) == 0;
    return has_extension ? name : name + std::wstring(extension);
}

/// What a module is known by: any path to it, in any case, gives the same.
std::wstring base_name(std::wstring_view path) {
    return base::lower(file_name(path));
}

std::wstring full_path(const std::wstring& file) {
    wchar_t path[MAX_PATH * 4];
    const DWORD length = GetFullPathNameW(file.c_str(), static_cast<DWORD>(std::size(path)), path, nullptr);
    return length == 0 || length >= std::size(path) ? file : std::wstring(path, length);
}

std::wstring beside_program(const std::wstring& file) {
    wchar_t program[MAX_PATH * 4];
    const DWORD length = GetModuleFileNameW(nullptr, program, static_cast<DWORD>(std::size(program)));
    const std::wstring path(program, length);
    return path.substr(0, path.find_last_of(L'\\') + 1) + file_name(file);
}

bool exists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

/// The path as it was given; where there is no such file, one of the same name beside the program.
std::wstring locate(const std::wstring& file) {
    const std::wstring here = full_path(file);
    const std::wstring there = beside_program(file);
    return !exists(here) && exists(there) ? there : here;
}

}  // namespace

/// A loaded module; its address is its application id.
struct ModuleLoader::Module {
    std::wstring name;
    std::wstring path;
    base::LoadedLibrary library;
    EntryPoint* entry_point = nullptr;
    bool locked = true;
};

ModuleLoader::ModuleLoader(CommandStack& commands, CommandProcessor& processor, const DocumentManager& documents)
    : commands_(commands), processor_(processor), documents_(documents) {}

ModuleLoader::~ModuleLoader() = default;

base::Outcome<> ModuleLoader::load(const std::wstring& file) {
    if (find(file) != modules_.end()) {
        return {};
    }
    auto module = std::make_unique<Module>();
    module->name = base_name(file);
    module->path = locate(file);
    module->library = base::LoadedLibrary::load(module->path);
    if (!module->library) {
        return base::Failure{module->path + L" could not be loaded: " + base::system_message(GetLastError())};
    }
    module->entry_point = module->library.function<EntryPoint>("acrxEntryPoint");
    VersionQuery* const version = module->library.function<VersionQuery>("acrxGetApiVersion");
    if (module->entry_point == nullptr || version == nullptr) {
        return base::Failure{module->path +
                             L" is not a module: it does not export acrxEntryPoint and acrxGetApiVersion"};
    }
    const int built_for = version();
    if (built_for != ACRX_API_VERSION) {
        return base::Failure{module->path + L" is built for interface version " + std::to_wstring(built_for) +
                             L", not " + std::to_wstring(ACRX_API_VERSION)};
    }
    modules_.push_back(std::move(module));
    base::Outcome<> begun = send(*modules_.back(), AcRx::kInitAppMsg);
    if (!begun) {
        release(modules_.end() - 1);
        return begun;
    }
    return documents_.document() != nullptr ? send(*modules_.back(), AcRx::kLoadDwgMsg) : base::Outcome<>();
}

base::Outcome<> ModuleLoader::unload(const std::wstring& file) {
    const auto module = find(file);
    if (module == modules_.end()) {
        return base::Failure{file + L" is not loaded"};
    }
    if ((*module)->locked) {
        return base::Failure{(*module)->name + L" cannot be unloaded: it is locked"};
    }
    if (processor_.runs_function_of((*module)->library.handle())) {
        return base::Failure{(*module)->name + L" cannot be unloaded: one of its commands is active"};
    }
    base::Outcome<> ended = send(**module, AcRx::kUnloadAppMsg);
    release(module);
    return ended;
}

void ModuleLoader::release(Modules::const_iterator module) {
    if (const size_t left = commands_.remove_commands_of((*module)->library.handle())) {
        person().print(L"\n" + (*module)->name + L" left " + std::to_wstring(left) + L" command(s) registered.");
    }
    modules_.erase(module);
}

void ModuleLoader::tell_all(AcRx::AppMsgCode message) {
    for (const auto& module : modules_) {
        succeeded(send(*module, message));
    }
}

void ModuleLoader::quit() {
    tell_all(AcRx::kQuitMsg);
    while (!modules_.empty()) {
        succeeded(send(*modules_.back(), AcRx::kUnloadAppMsg));
        release(modules_.end() - 1);
    }
}

base::Outcome<> ModuleLoader::send(Module& module, AcRx::AppMsgCode message) {
    const std::wstring subject = module.name + L": message " + std::to_wstring(message);
    try {
        if (module.entry_point(message, &module) != AcRx::kRetError) {
            return {};
        }
        return base::Failure{subject + L" was answered with an error"};
    } catch (const std::exception& exception) {
        return base::Failure{subject + L" ended with an exception: " + base::wide_from_utf8(exception.what())};
    } catch (...) {  // a module may throw anything; the caller reports it
        return base::Failure{subject + L" ended with an exception of a kind that the host does not know"};
    }
}

std::vector<std::wstring> ModuleLoader::loaded_files() const {
    std::vector<std::wstring> files;
    for (const auto& module : modules_) {
        files.push_back(module->path);
    }
    return files;
}

ModuleLoader::Modules::const_iterator ModuleLoader::find(const std::wstring& file) const {
    return std::find_if(modules_.begin(), modules_.end(),
                        [name = base_name(file)](const auto& module) { return module->name == name; });
}

ModuleLoader::Module* ModuleLoader::application(void* id) const {
    const auto found =
        std::find_if(modules_.begin(), modules_.end(), [&](const auto& module) { return module.get() == id; });
    return found == modules_.end() ? nullptr : found->get();
}

bool ModuleLoader::unlockApplication(void* id) const {
    Module* const module = application(id);
    const bool was_locked = module != nullptr && module->locked;
    if (was_locked) {
        module->locked = false;
    }
    return was_locked;
}

bool ModuleLoader::registerAppMDIAware(void* id) const {
    return application(id) != nullptr;
}

}  // namespace host
