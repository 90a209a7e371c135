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

CString string_of(UINT id) {
    CString text(L"left from before");
    return text.LoadString(id) ? text : CString(L"none, ") + text;
}

std::vector<CString> strings() {
    return {string_of(IDS_PROGRAM), string_of(IDS_BOTH), string_of(IDS_EXTENSION)};
}

HINSTANCE module_of_dialog(UINT id) {
    return AfxFindResourceHandle(MAKEINTRESOURCEW(id), reinterpret_cast<LPCWSTR>(RT_DIALOG));
}

TEST(ExtensionModule, ItsResourcesAreFoundWhileItIsLoaded) {
    const HINSTANCE program = AfxGetInstanceHandle();
    EXPECT_EQ(strings(), (std::vector<CString>{L"the program's", L"the program's own", L"none, "}));
    {
        const Module module(::LoadLibraryW(L"framework_test_extension.dll"));
        ASSERT_NE(module, nullptr);
        EXPECT_EQ(strings(), (std::vector<CString>{L"the program's", L"the program's own", L"the extension's"}));
        EXPECT_EQ(module_of_dialog(IDD_EXTENSION), module.get());
        EXPECT_EQ(module_of_dialog(IDD_FIELDS), program);
        AfxSetResourceHandle(module.get());
        EXPECT_EQ(string_of(IDS_BOTH), L"the extension's own");
        EXPECT_EQ(function_of<int()>(module, "run_dialog")(), IDC_PRESS);
        EXPECT_TRUE(function_of<BOOL(HMODULE)>(module, "attach_again")(module.get()));
        EXPECT_FALSE(function_of<BOOL(HMODULE)>(module, "attach_again")(program));
    }
    EXPECT_EQ(AfxGetResourceHandle(), program);
    EXPECT_EQ(module_of_dialog(IDD_EXTENSION), program);
    EXPECT_EQ(strings(), (std::vector<CString>{L"the program's", L"the program's own", L"none, "}));
}

}  // namespace
