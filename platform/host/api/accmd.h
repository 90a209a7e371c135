// AcEdCommandStack: the commands that modules register. The one object is acrxSysRegistry()->at(ACRX_COMMAND_DOCK).
#pragma once

#include <windows.h>

#include "acadstrc.h"
#include "rxdefs.h"
#include "rxboiler.h"
#include "rxregsvc.h"

#define ACRX_CMD_MODAL 0x00000000
#define ACRX_CMD_TRANSPARENT 0x00000001

class AcEdCommand;
class AcEdUIContext;

class AcEdCommandStack : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcEdCommandStack);

    /// Adds a command to a group, which is made when it is not there. Acad::eDuplicateKey when the group has that
    /// global or local name, Acad::eInvalidInput for missing names or function. So are the arguments behind the
    /// function when they are not the default ones: this host has neither contexts nor names from resources.
    virtual Acad::ErrorStatus addCommand(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName,
                                         const ACHAR* cmdLocalName, Adesk::Int32 commandFlags,
                                         AcRxFunctionPtr functionAddr, AcEdUIContext* UIContext = nullptr,
                                         int fcode = -1, HINSTANCE hResourceHandle = nullptr,
                                         AcEdCommand** cmdPtrRet = nullptr) = 0;
    /// Acad::eKeyNotFound when there is none. A command that is running ends normally.
    virtual Acad::ErrorStatus removeGroup(const ACHAR* groupName) = 0;
};

#define acedRegCmds AcEdCommandStack::cast(acrxSysRegistry()->at(ACRX_COMMAND_DOCK))
