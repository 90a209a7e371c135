// AcRxService: what modules offer to each other under a registry name.
#pragma once

#include "rxboiler.h"

class AcRxService : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcRxService);
};
