#include <algorithm>
#include <iterator>

#include "acadstrc.h"

namespace {

struct StatusName {
    Acad::ErrorStatus status;
    const ACHAR* name;
};

#define STATUS_NAME(status) \
    { Acad::status, ACRX_T(#status) }
constexpr StatusName status_names[] = {
    STATUS_NAME(eOk),
    STATUS_NAME(eNotImplementedYet),
    STATUS_NAME(eNotApplicable),
    STATUS_NAME(eInvalidInput),
    STATUS_NAME(eAmbiguousInput),
    STATUS_NAME(eAmbiguousOutput),
    STATUS_NAME(eOutOfMemory),
    STATUS_NAME(eNoInterface),
    STATUS_NAME(eBufferTooSmall),
    STATUS_NAME(eInvalidOpenState),
    STATUS_NAME(eEntityInInactiveLayout),
    STATUS_NAME(eHandleExists),
    STATUS_NAME(eNullHandle),
    STATUS_NAME(eBrokenHandle),
    STATUS_NAME(eUnknownHandle),
    STATUS_NAME(eHandleInUse),
    STATUS_NAME(eNullObjectPointer),
    STATUS_NAME(eNullObjectId),
    STATUS_NAME(eNullBlockName),
    STATUS_NAME(eContainerNotEmpty),
    STATUS_NAME(eNullEntityPointer),
    STATUS_NAME(eIllegalEntityType),
    STATUS_NAME(eKeyNotFound),
    STATUS_NAME(eDuplicateKey),
    STATUS_NAME(eInvalidIndex),
    STATUS_NAME(eCharacterNotFound),
    STATUS_NAME(eDuplicateIndex),
    STATUS_NAME(eAlreadyInDb),
    STATUS_NAME(eOutOfDisk),
    STATUS_NAME(eDeletedEntry),
    STATUS_NAME(eNegativeValueNotAllowed),
    STATUS_NAME(eInvalidExtents),
    STATUS_NAME(eInvalidAdsName),
    STATUS_NAME(eInvalidSymbolTableName),
    STATUS_NAME(eInvalidKey),
    STATUS_NAME(eWrongObjectType),
    STATUS_NAME(eWrongDatabase),
    STATUS_NAME(eObjectToBeDeleted),
    STATUS_NAME(eInvalidDwgVersion),
    STATUS_NAME(eAnonymousEntry),
    STATUS_NAME(eIllegalReplacement),
    STATUS_NAME(eEndOfObject),
    STATUS_NAME(eEndOfFile),
    STATUS_NAME(eIsReading),
    STATUS_NAME(eIsWriting),
    STATUS_NAME(eNotOpenForRead),
    STATUS_NAME(eNotOpenForWrite),
    STATUS_NAME(eNotThatKindOfClass),
    STATUS_NAME(eInvalidBlockName),
    STATUS_NAME(eInvalidResBuf),
    STATUS_NAME(eFileAccessErr),
    STATUS_NAME(eFileNotFound),
    STATUS_NAME(eWasErased),
    STATUS_NAME(ePermanentlyErased),
    STATUS_NAME(eWasOpenForRead),
    STATUS_NAME(eWasOpenForWrite),
    STATUS_NAME(eWasOpenForUndo),
    STATUS_NAME(eWasNotifying),
    STATUS_NAME(eWasOpenForNotify),
    STATUS_NAME(eOnLockedLayer),
    STATUS_NAME(eMustOpenThruOwner),
    STATUS_NAME(eSubentitiesStillOpen),
    STATUS_NAME(eAtMaxReaders),
    STATUS_NAME(eIsWriteProtected),
    STATUS_NAME(eIsXRefObject),
    STATUS_NAME(eNotAnEntity),
    STATUS_NAME(eHadMultipleReaders),
    STATUS_NAME(eDuplicateRecordName),
    STATUS_NAME(eXRefDependent),
    STATUS_NAME(eSelfReference),
    STATUS_NAME(eMissingSymbolTable),
    STATUS_NAME(eMissingSymbolTableRec),
    STATUS_NAME(eWasNotOpenForWrite),
    STATUS_NAME(eInvalidLayer),
    STATUS_NAME(eCannotBeErasedByCaller),
    STATUS_NAME(eNoDatabase),
    STATUS_NAME(eNotInBlock),
    STATUS_NAME(eNotInDatabase),
};
#undef STATUS_NAME

}  // namespace

const ACHAR* acadErrorStatusText(Acad::ErrorStatus es) {
    const auto* const found = std::find_if(std::begin(status_names), std::end(status_names),
                                           [es](const StatusName& known) { return known.status == es; });
    return found == std::end(status_names) ? ACRX_T("Unknown Error") : found->name;
}
