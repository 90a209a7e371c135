// Messages between the host and a module's acrxEntryPoint, and the entry points' types.
#pragma once

#include "adesk.h"

struct AcRx {
    enum AppMsgCode {
        kNullMsg = 0,
        kInitAppMsg = 1,
        kUnloadAppMsg = 2,
        kLoadDwgMsg = 3,
        kUnloadDwgMsg = 4,
        kInvkSubrMsg = 5,
        kCfgMsg = 6,
        kEndMsg = 7,
        kQuitMsg = 8,
        kSaveMsg = 9,
        kDependencyMsg = 10,
        kNoDependencyMsg = 11,
        kOleUnloadAppMsg = 12,
        kPreQuitMsg = 13,
        kInitDialogMsg = 14,
        kEndDialogMsg = 15
    };

    enum AppRetCode { kRetOK = 0, kRetError = 3 };
};

typedef void (*AcRxFunctionPtr)();

/// The interface version that this host offers; a module's acrxGetApiVersion must return it.
#define ACRX_API_VERSION 18

/// Every module exports these two. At kInitAppMsg the packet is the application id, which stays the module's name for
/// the dynamic linker until kUnloadAppMsg; kLoadDwgMsg and kUnloadDwgMsg carry it too.
extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* packet);
extern "C" int acrxGetApiVersion();
