// Documents: the open drawing, the manager that owns it, and the reactors that hear of it.
#pragma once

#include <windows.h>

#include "acadstrc.h"
#include "rxboiler.h"

class AcDbDatabase;

struct AcAp {
    enum DocLockMode {
        kNone = 0x00,
        kAutoWrite = 0x01,
        kNotLocked = 0x02,
        kWrite = 0x04,
        kProtectedAutoWrite = 0x14,
        kRead = 0x20,
        kXWrite = 0x40
    };
};

class AcApDocument : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcApDocument);

    /// The drawing's full path; the bare name for a drawing that was never saved. Valid while the document lives.
    virtual const ACHAR* fileName() const = 0;
    virtual const ACHAR* docTitle() const = 0;
    virtual AcDbDatabase* database() const = 0;
    virtual AcAp::DocLockMode lockMode(bool includeMyLocks = false) const = 0;
    virtual AcAp::DocLockMode myLockMode() const = 0;
    virtual bool isQuiescent() const = 0;
    virtual bool isReadOnly() const = 0;
};

class AcApDocumentIterator : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcApDocumentIterator);

    virtual bool done() const = 0;
    virtual void step() = 0;
    virtual AcApDocument* document() = 0;
};

/// Override what is of interest; every operation does nothing by itself.
class AcApDocManagerReactor : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcApDocManagerReactor);

    virtual void documentCreateStarted(AcApDocument* pDocCreating);
    virtual void documentCreated(AcApDocument* pDocCreating);
    virtual void documentToBeDestroyed(AcApDocument* pDocToDestroy);
    virtual void documentDestroyed(const ACHAR* fileName);
    virtual void documentCreateCanceled(AcApDocument* pDocCreateCancelled);
    virtual void documentBecameCurrent(AcApDocument* pDoc);
    virtual void documentToBeActivated(AcApDocument* pActivatingDoc);
    virtual void documentToBeDeactivated(AcApDocument* pDeActivatedDoc);
    virtual void documentActivated(AcApDocument* pActivatedDoc);
    virtual void documentTitleUpdated(AcApDocument* pDoc);
};

class AcApDocManager : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcApDocManager);

    /// Null while no drawing is open.
    virtual AcApDocument* curDocument() const = 0;
    virtual AcApDocument* mdiActiveDocument() const = 0;
    virtual AcApDocument* document(const AcDbDatabase* database) const = 0;
    virtual int documentCount() const = 0;
    /// The caller deletes it.
    virtual AcApDocumentIterator* newAcApDocumentIterator() = 0;

    virtual Acad::ErrorStatus lockDocument(AcApDocument* pDoc, AcAp::DocLockMode mode = AcAp::kWrite,
                                           const ACHAR* pGlobalCmdName = nullptr, const ACHAR* pLocalCmdName = nullptr,
                                           bool prompt = true) = 0;
    virtual Acad::ErrorStatus unlockDocument(AcApDocument* pDoc) = 0;

    /// A reactor is told from now on; adding it twice tells it once. It must be removed before it dies.
    virtual void addReactor(AcApDocManagerReactor* pReactor) = 0;
    virtual void removeReactor(AcApDocManagerReactor* pReactor) = 0;

    /// Makes a module's resources current (AfxGetResourceHandle) until the matching pop. Pairs nest.
    virtual void pushResourceHandle(HINSTANCE hInst) = 0;
    virtual void popResourceHandle() = 0;

    virtual bool isApplicationContext() const = 0;
};

AcApDocManager* acDocManagerPtr();
#define acDocManager acDocManagerPtr()

AcApDocument* curDoc();
