// AcRxDictionary: objects by name; the system registry is one.
#pragma once

#include "rxboiler.h"

class AcRxDictionary : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcRxDictionary);

    /// The object under this name, or null. Names are compared without regard to case.
    virtual AcRxObject* at(const ACHAR* key) const = 0;
};

AcRxDictionary* acrxSysRegistry();
