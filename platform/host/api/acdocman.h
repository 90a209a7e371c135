// Documents: the open drawing, the manager that owns it, and the reactors that hear of it.
#pragma once

#include <windows.h>

#include "acadstrc.h"
#include "rxboiler.h"

class AcDbDatabase;

class AcApDocument : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcApDocument);

    /// The drawing's full path; the bare name for a drawing that was never saved. Valid while the document lives.
    virtual const ACHAR* fileName() const = 0;
    /// What title bars show. Valid until the drawing is saved under another name.
    virtual const ACHAR* docTitle() const = 0;
    virtual AcDbDatabase* database() const = 0;
};

/// Hears what happens to documents. A module overrides what is of interest; every operation does nothing by itself.
class AcApDocManagerReactor : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcApDocManagerReactor);

    virtual void documentToBeDestroyed(AcApDocument* pDocToDestroy);
    virtual void documentActivated(AcApDocument* pActivatedDoc);
    virtual void documentTitleUpdated(AcApDocument* pDoc);
};

class AcApDocManager : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcApDocManager);

    /// Null while no drawing is open.
    virtual AcApDocument* curDocument() const = 0;

    /// A reactor is told from now on; adding it twice tells it once. It must be removed before it dies.
    virtual void addReactor(AcApDocManagerReactor* pReactor) = 0;
    virtual void removeReactor(AcApDocManagerReactor* pReactor) = 0;

    /// Makes a module's resources current (AfxGetResourceHandle) until the matching pop. Pairs nest.
    virtual void pushResourceHandle(HINSTANCE hInst) = 0;
    virtual void popResourceHandle() = 0;
};

AcApDocManager* acDocManagerPtr();
#define acDocManager acDocManagerPtr()
