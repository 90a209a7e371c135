// The module as a framework extension: its resources, its file name, and its life as a library.
#pragma once

#include <afxdllx.h>
#include <afxwin.h>

namespace corvanes {

class ExtensionModule {
  public:
    /// What DllMain does: joins the framework and the host's dialog library when the library is loaded into a process,
    /// and leaves the framework when it is unloaded. Always TRUE.
    BOOL follow_library(HINSTANCE instance, DWORD reason);

    /// The instance that commands make current so that dialog templates and strings come from the module.
    HINSTANCE resource_handle() const { return module_resources_; }
    /// The instance that was current when the module was attached.
    HINSTANCE default_resource_handle() const { return default_resources_; }

  private:
    void attach(HINSTANCE instance);
    void detach();

    bool attached_ = false;
    HINSTANCE default_resources_ = nullptr;
    HINSTANCE module_resources_ = nullptr;
    AFX_EXTENSION_MODULE extension_{};
};

/// The module that this code is in.
ExtensionModule& extension_module();

}  // namespace corvanes
