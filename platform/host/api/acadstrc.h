// Status codes of the host interface. The numbers are part of the interface: modules compare with them.
#pragma once

#include "adesk.h"

namespace Acad {

enum ErrorStatus {
    eOk = 0,
    eNotApplicable = 2,
    eInvalidInput = 3,
    eOutOfMemory = 6,
    eNullHandle = 12,
    eUnknownHandle = 14,
    eNullObjectPointer = 16,
    eNullObjectId = 17,
    eNullEntityPointer = 20,
    eIllegalEntityType = 21,
    eKeyNotFound = 22,
    eDuplicateKey = 23,
    eInvalidIndex = 24,
    eAlreadyInDb = 27,
    eInvalidAdsName = 32,
    eWrongObjectType = 35,
    eNotOpenForWrite = 46,
    eNotThatKindOfClass = 47,
    eWasErased = 81,
    eWasOpenForRead = 83,
    eWasOpenForWrite = 84,
    eAtMaxReaders = 91,
    eIsWriteProtected = 92,
    eDuplicateRecordName = 96,
    eInvalidLayer = 110,
    eCannotBeErasedByCaller = 119,
    eNoDatabase = 143,
    eNotInDatabase = 150
};

}  // namespace Acad
