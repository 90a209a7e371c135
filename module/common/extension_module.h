// The module as a framework extension: its resources, its file name, and its life as a library.
#pragma once

#include <afxwin.h>
#include <afxdllx.h>

namespace corvanes {

class ExtensionModule {
  public:
    /// Joins the framework and the host's dialog library; a second call while attached does nothing.
    void attach(HINSTANCE instance);
    /// Leaves the framework; does nothing when not attached.
    void detach();

    /// What the commands make current so that dialog templates and strings come from the module.
    HINSTANCE resource_handle() const { return module_resources_; }
    /// What was current when the module attached.
    HINSTANCE default_resource_handle() const { return default_resources_; }

  private:
    bool attached_ = false;
    HINSTANCE default_resources_ = nullptr;
    HINSTANCE module_resources_ = nullptr;
    AFX_EXTENSION_MODULE extension_{};
};

/// The one module.
ExtensionModule& extension_module();

}  // namespace corvanes
