// AcRxDynamicLinker: loads and unloads modules. The one object is acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER).
#pragma once

#include "rxdefs.h"
#include "rxregsvc.h"
#include "rxsrvice.h"

class AcRxDynamicLinker : public AcRxService {
  public:
    ACRX_DECLARE_MEMBERS(AcRxDynamicLinker);

    virtual bool loadModule(const ACHAR* fileName, bool printit, bool asCmd = false) = 0;
    virtual bool unloadModule(const ACHAR* fileName, bool asCmd = false) = 0;

    /// A module is locked in memory when its kInitAppMsg comes; these take the application id of that message.
    virtual bool unlockApplication(void* appId) const = 0;
    virtual bool lockApplication(void* appId) const = 0;
    virtual bool isApplicationLocked(const ACHAR* name) const = 0;

    virtual bool registerAppMDIAware(void* appId) const = 0;
    virtual bool registerAppNotMDIAware(void* appId) const = 0;
    virtual bool isAppMDIAware(const ACHAR* moduleName) const = 0;
};

#define acrxDynamicLinker AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER))
