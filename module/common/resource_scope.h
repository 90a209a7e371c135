// ResourceScope: while it lives, dialog templates and strings come from this module.
#pragma once

#include <afxwin.h>
#include <acdocman.h>

#include "common/extension_module.h"

namespace corvanes {

class ResourceScope {
  public:
    ResourceScope() { acDocManagerPtr()->pushResourceHandle(extension_module().resource_handle()); }
    ~ResourceScope() { acDocManagerPtr()->popResourceHandle(); }
    ResourceScope(const ResourceScope&) = delete;
    ResourceScope& operator=(const ResourceScope&) = delete;
};

}  // namespace corvanes
