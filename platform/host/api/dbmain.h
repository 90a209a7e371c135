// The database, its objects and entities, and how they are opened.
#pragma once

#include "acdb.h"
#include "adsdef.h"
#include "dbid.h"
#include "dbobject.h"
#include "dbdatabase.h"
#include "dbentity.h"

/// Opens the object for reading or writing and gives the one instance that stands for it while it is open. Each
/// successful open must be matched by a close(). On failure the pointer is null and the status one of
/// eNullObjectId, eUnknownHandle (no such object), eWasErased, eWasOpenForRead and eWasOpenForWrite (somebody else has
/// it open), eAtMaxReaders.
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErasedObject = false);
/// The same for an object of a class; eNotThatKindOfClass, and nothing opened, for another.
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, const AcRxClass* objectClass,
                                     AcDb::OpenMode mode, bool openErasedObject = false);
template <class T>
inline Acad::ErrorStatus acdbOpenObject(T*& object, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                        bool openErased = false) {
    AcDbObject* opened = nullptr;
    const Acad::ErrorStatus status = acdbOpenAcDbObject(opened, id, T::desc(), mode, openErased);
    object = static_cast<T*>(opened);
    return status;
}

/// Between ids and entity names; eInvalidAdsName for a name of no object, eNullObjectId for a null id.
Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name);
Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id);
