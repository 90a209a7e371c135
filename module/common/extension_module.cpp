#include "common/extension_module.h"

#include <acui.h>

#include "common/module_path.h"

namespace corvanes {
namespace {

std::wstring file_name_of(HINSTANCE instance) {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetModuleFileNameW(instance, path.data(), MAX_PATH));
    return path;
}

}  // namespace

BOOL ExtensionModule::follow_library(HINSTANCE instance, DWORD reason) {
    if (reason == DLL_PROCESS_ATTACH) {
        attach(instance);
    } else if (reason == DLL_PROCESS_DETACH) {
        detach();
    }
    return TRUE;
}

void ExtensionModule::attach(HINSTANCE instance) {
    if (attached_ || !AfxInitExtensionModule(extension_, instance)) {
        return;
    }
    default_resources_ = AfxGetResourceHandle();
    module_resources_ = instance;
    // The framework owns the record from here on and drops it when the extension module is terminated.
    new CDynLinkLibrary(extension_);
    set_module_path(file_name_of(instance));
    InitAcUiDLL();
    attached_ = true;
}

void ExtensionModule::detach() {
    if (attached_) {
        AfxTermExtensionModule(extension_);
        attached_ = false;
    }
}

ExtensionModule& extension_module() {
    static ExtensionModule module;
    return module;
}

}  // namespace corvanes
