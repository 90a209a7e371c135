// AcRxObject: the root of the host's classes, and the macros that give a class its descriptor.
#pragma once

#include "adesk.h"

class AcRxClass;

// NOLINTBEGIN(bugprone-macro-parentheses): classes' names stand for themselves
/// The class's members for run-time typing: desc(), isA(), cast() and rxInit(). desc() makes the descriptor when it is
/// first asked for; rxInit() asks for it, so that the class is known by name from then on.
#define ACRX_DECLARE_MEMBERS(CLASS_NAME)                                       \
    virtual AcRxClass* isA() const override;                                   \
    static AcRxClass* desc();                                                  \
    static CLASS_NAME* cast(const AcRxObject* object) {                        \
        return object != nullptr && object->isKindOf(CLASS_NAME::desc())       \
                   ? static_cast<CLASS_NAME*>(const_cast<AcRxObject*>(object)) \
                   : nullptr;                                                  \
    }                                                                          \
    static void rxInit()
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
    static void rxInit();

    /// Whether the object is of that class or of one derived from it.
    inline bool isKindOf(const AcRxClass* parent) const;

  protected:
    AcRxObject() = default;
};
