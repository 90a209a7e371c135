// AcRxObject: the root of the host's classes, and the macros that give a class its descriptor.
#pragma once

#include "adesk.h"

class AcRxClass;

// NOLINTBEGIN(bugprone-macro-parentheses): classes' names stand for themselves
/// The class's members for run-time typing: isA(), cast() and desc(), which makes the descriptor when it is first asked
/// for.
#define ACRX_DECLARE_MEMBERS(CLASS_NAME)                                       \
    virtual AcRxClass* isA() const override;                                   \
    static CLASS_NAME* cast(const AcRxObject* object) {                        \
        return object != nullptr && object->isKindOf(CLASS_NAME::desc())       \
                   ? static_cast<CLASS_NAME*>(const_cast<AcRxObject*>(object)) \
                   : nullptr;                                                  \
    }                                                                          \
    static AcRxClass* desc()
// NOLINTEND(bugprone-macro-parentheses)

class AcRxObject {
  public:
    virtual ~AcRxObject() = default;
    AcRxObject(const AcRxObject&) = delete;
    AcRxObject& operator=(const AcRxObject&) = delete;

    /// The object's own class.
    virtual AcRxClass* isA() const;
    static AcRxClass* desc();
    static AcRxObject* cast(const AcRxObject* object) { return const_cast<AcRxObject*>(object); }

    /// Whether the object is of that class or of one derived from it.
    inline bool isKindOf(const AcRxClass* parent) const;

  protected:
    AcRxObject() = default;
};
