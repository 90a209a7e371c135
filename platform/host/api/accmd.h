// AcEdCommandStack: the commands that modules register. The one object is acrxSysRegistry()->at(ACRX_COMMAND_DOCK).
#pragma once

#include <windows.h>

#include "acadstrc.h"
#include "rxdefs.h"
#include "rxboiler.h"
#include "rxregsvc.h"

#define ACRX_CMD_MODAL 0x00000000
#define ACRX_CMD_TRANSPARENT 0x00000001
#define ACRX_CMD_USEPICKSET 0x00000002
#define ACRX_CMD_REDRAW 0x00000004
#define ACRX_CMD_NOPERSPECTIVE 0x00000008
#define ACRX_CMD_NOMULTIPLE 0x00000010
#define ACRX_CMD_NOTILEMODE 0x00000020
#define ACRX_CMD_NOPAPERSPACE 0x00000040
#define ACRX_CMD_PLAINOLE 0x00000080
#define ACRX_CMD_NOOEM 0x00000100
#define ACRX_CMD_UNDEFINED 0x00000200
#define ACRX_CMD_INPROGRESS 0x00000400
#define ACRX_CMD_DEFUN 0x00000800
#define ACRX_CMD_SESSION 0x00200000

class AcEdUIContext;

class AcEdCommand : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcEdCommand);

    virtual const ACHAR* globalName() const = 0;
    virtual const ACHAR* localName() const = 0;
    virtual Adesk::Int32 commandFlags() const = 0;
    virtual AcRxFunctionPtr functionAddr() const = 0;
};

class AcEdCommandIterator : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcEdCommandIterator);

    virtual bool done() const = 0;
    virtual bool next() = 0;
    virtual const AcEdCommand* command() const = 0;
    virtual const ACHAR* commandGroup() const = 0;
};

class AcEdCommandStack : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcEdCommandStack);

    /// Adds a command to a group, which is made when it is not there. `fcode` -1 leaves the local name as it is given;
    /// otherwise it is the number of a string in `hResourceHandle`. Acad::eDuplicateKey when the group has that global
    /// or local name, Acad::eInvalidInput for missing names or function.
    virtual Acad::ErrorStatus addCommand(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName,
                                         const ACHAR* cmdLocalName, Adesk::Int32 commandFlags,
                                         AcRxFunctionPtr functionAddr, AcEdUIContext* UIContext = nullptr,
                                         int fcode = -1, HINSTANCE hResourceHandle = nullptr,
                                         AcEdCommand** cmdPtrRet = nullptr) = 0;
    /// Acad::eKeyNotFound when there is none. A command that is running ends normally.
    virtual Acad::ErrorStatus removeCmd(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName) = 0;
    virtual Acad::ErrorStatus removeGroup(const ACHAR* groupName) = 0;
    virtual Acad::ErrorStatus popGroupToTop(const ACHAR* groupName) = 0;

    /// The first group from the top of the stack that has the name answers. Case does not matter.
    virtual AcEdCommand* lookupGlobalCmd(const ACHAR* cmdName) = 0;
    virtual AcEdCommand* lookupLocalCmd(const ACHAR* cmdName) = 0;
    virtual AcEdCommand* lookupCmd(const ACHAR* cmdName, bool globalLookup) = 0;
    virtual AcEdCommand* lookupCmd(const ACHAR* cmdName, bool globalLookup, const ACHAR* groupName) = 0;

    /// The caller deletes the iterator, and uses it only while commands are neither added nor removed.
    virtual AcEdCommandIterator* iterator() = 0;
};

#define acedRegCmds AcEdCommandStack::cast(acrxSysRegistry()->at(ACRX_COMMAND_DOCK))
