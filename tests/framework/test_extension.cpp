// A module as a user of the framework writes it: it registers itself at attach, and has a class of its own.
#include "afxdllx.h"

#include "test_resources.h"

namespace {

AFX_EXTENSION_MODULE this_module = {};

class ExtensionDialog : public CDialog {
    DECLARE_MESSAGE_MAP()

  public:
    ExtensionDialog() : CDialog(IDD_EXTENSION) {}
    BOOL OnInitDialog() override {
        GetWindowText(caption);
        PostMessage(WM_COMMAND, IDC_PRESS);
        return CDialog::OnInitDialog();
    }

    CString caption;

  private:
    void OnPress() { EndDialog(caption == L"From the extension" ? IDC_PRESS : -2); }
};

BEGIN_MESSAGE_MAP(ExtensionDialog, CDialog)
    ON_BN_CLICKED(IDC_PRESS, &ThisClass::OnPress)
END_MESSAGE_MAP()

}  // namespace

extern "C" __declspec(dllexport) int run_dialog() {
    return static_cast<int>(ExtensionDialog().DoModal());
}

extern "C" __declspec(dllexport) BOOL attach_again(HMODULE module) {
    return AfxInitExtensionModule(this_module, module);
}

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH) {
        if (!AfxInitExtensionModule(this_module, module)) {
            return FALSE;
        }
        new CDynLinkLibrary(this_module);
    } else if (reason == DLL_PROCESS_DETACH) {
        AfxTermExtensionModule(this_module);
    }
    return TRUE;
}
