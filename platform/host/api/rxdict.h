// AcRxDictionary: objects by name; the system registry is one.
#pragma once

#include "rxboiler.h"

class AcRxDictionary : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcRxDictionary);

    /// The object under this name, or null. Names are compared without regard to case.
    virtual AcRxObject* at(const ACHAR* key) const = 0;
    /// Puts an object under a name and returns the one that was there (null: none). The dictionary owns nothing.
    virtual AcRxObject* atPut(const ACHAR* key, AcRxObject* object) = 0;
    /// Takes a name out and returns what was there.
    virtual AcRxObject* remove(const ACHAR* key) = 0;
    virtual bool has(const ACHAR* key) const = 0;
    virtual Adesk::UInt32 numEntries() const = 0;
};

AcRxDictionary* acrxSysRegistry();
