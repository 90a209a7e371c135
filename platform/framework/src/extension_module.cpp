// Extension modules and the search for resources.
#include "afxdll_.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "afxapp_.h"

namespace {

struct Resources {
    HINSTANCE program = ::GetModuleHandleW(nullptr);
    HINSTANCE current = program;
    std::vector<CDynLinkLibrary*> libraries;  // in the order in which they were made
};

Resources& resources() {
    static Resources the_resources;
    return the_resources;
}

/// The modules to search, in the order of the search.
std::vector<HINSTANCE> search_order() {
    std::vector<HINSTANCE> modules{resources().current};
    const auto& libraries = resources().libraries;
    for (auto library = libraries.rbegin(); library != libraries.rend(); ++library) {
        modules.push_back((*library)->m_hResource);
    }
    return modules;
}

}  // namespace

HINSTANCE AfxGetInstanceHandle() {
    return resources().program;
}

HINSTANCE AfxGetResourceHandle() {
    return resources().current;
}

void AfxSetResourceHandle(HINSTANCE module) {
    resources().current = module;
}

HINSTANCE AfxFindResourceHandle(LPCWSTR name, LPCWSTR type) {
    for (const HINSTANCE module : search_order()) {
        if (::FindResourceW(module, name, type)) {
            return module;
        }
    }
    return AfxGetResourceHandle();
}

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module) {
    if (state.bInitialized) {
        return state.hModule == module;
    }
    state = {TRUE, module, module};
    return TRUE;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL) {
    if (!state.bInitialized) {
        return;
    }
    const std::vector<CDynLinkLibrary*> libraries = resources().libraries;
    for (CDynLinkLibrary* library : libraries) {
        if (library->m_hModule == state.hModule) {
            std::unique_ptr<CDynLinkLibrary>{library}.reset();
        }
    }
    if (resources().current == state.hResource) {
        resources().current = resources().program;
    }
    state = {FALSE, nullptr, nullptr};
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL)
    : m_hModule(state.hModule), m_hResource(state.hResource) {
    resources().libraries.push_back(this);
}

CDynLinkLibrary::~CDynLinkLibrary() {
    auto& libraries = resources().libraries;
    std::erase(libraries, this);
}
