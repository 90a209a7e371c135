#include "afxdll_.h"

#include <memory>

#include <gtest/gtest.h>

#include "afxwin.h"
#include "test_resources.h"

namespace {

struct FreeModule {
    void operator()(HMODULE module) const { ::FreeLibrary(module); }
};
using Module = std::unique_ptr<std::remove_pointer_t<HMODULE>, FreeModule>;

template <class Function>
Function* function_of(const Module& module, const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(::GetProcAddress(module.get(), name)));
}

HINSTANCE module_of_dialog(UINT id) {
    return AfxFindResourceHandle(MAKEINTRESOURCEW(id), reinterpret_cast<LPCWSTR>(RT_DIALOG));
}

/// The program and the extension both have the first block of strings.
HINSTANCE module_of_strings() {
    return AfxFindResourceHandle(MAKEINTRESOURCEW(1), reinterpret_cast<LPCWSTR>(RT_STRING));
}

TEST(ExtensionModule, ItsResourcesAreFoundWhileItIsLoaded) {
    const HINSTANCE program = AfxGetInstanceHandle();
    {
        const Module module(::LoadLibraryW(L"framework_test_extension.dll"));
        ASSERT_NE(module, nullptr);
        EXPECT_EQ(module_of_strings(), program);
        EXPECT_EQ(module_of_dialog(IDD_EXTENSION), module.get());
        EXPECT_EQ(module_of_dialog(IDD_FIELDS), program);
        AfxSetResourceHandle(module.get());
        EXPECT_EQ(module_of_strings(), module.get());
        EXPECT_EQ(function_of<int()>(module, "run_dialog")(), IDC_PRESS);
        EXPECT_TRUE(function_of<BOOL(HMODULE)>(module, "attach_again")(module.get()));
        EXPECT_FALSE(function_of<BOOL(HMODULE)>(module, "attach_again")(program));
    }
    EXPECT_EQ(AfxGetResourceHandle(), program);
    EXPECT_EQ(module_of_dialog(IDD_EXTENSION), program);
    EXPECT_EQ(module_of_strings(), program);
}

}  // namespace
