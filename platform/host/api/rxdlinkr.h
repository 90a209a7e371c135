// AcRxDynamicLinker: what modules say of themselves. The one object is acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER).
#pragma once

#include "rxdefs.h"
#include "rxobject.h"
#include "rxregsvc.h"

class AcRxDynamicLinker : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcRxDynamicLinker);

    /// A module is locked in memory when its kInitAppMsg comes; these take the application id of that message.
    virtual bool unlockApplication(void* appId) const = 0;
    virtual bool registerAppMDIAware(void* appId) const = 0;
};

#define acrxDynamicLinker AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER))
