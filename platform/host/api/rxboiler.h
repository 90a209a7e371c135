// Definitions that go with ACRX_DECLARE_MEMBERS, once for each class in a source file.
#pragma once

#include "rxclass.h"

// NOLINTBEGIN(bugprone-macro-parentheses): classes' names stand for themselves
#define ACRX_DEFINE_MEMBERS_WITH(CLASS_NAME, PARENT_CLASS, DXF_NAME, CONSTRUCTOR)                      \
    AcRxClass* CLASS_NAME::desc() {                                                                    \
        static AcRxClass descriptor(ACRX_T(#CLASS_NAME), PARENT_CLASS::desc(), DXF_NAME, CONSTRUCTOR); \
        return &descriptor;                                                                            \
    }                                                                                                  \
    AcRxClass* CLASS_NAME::isA() const {                                                               \
        return CLASS_NAME::desc();                                                                     \
    }

/// For a class that cannot be constructed by its descriptor.
#define ACRX_NO_CONS_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS) \
    ACRX_DEFINE_MEMBERS_WITH(CLASS_NAME, PARENT_CLASS, nullptr, nullptr)

#define ACRX_CONS_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS, VERNO) \
    ACRX_DEFINE_MEMBERS_WITH(CLASS_NAME, PARENT_CLASS, nullptr, []() -> AcRxObject* { return new CLASS_NAME; })

/// For a class with a name of its own in DXF files, given without quotes.
#define ACRX_DXF_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS, DWG_VERSION, MAINT_VERSION, PROXY_FLAGS, DXF_NAME, APP) \
    ACRX_DEFINE_MEMBERS_WITH(CLASS_NAME, PARENT_CLASS, ACRX_T(#DXF_NAME),                                         \
                             []() -> AcRxObject* { return new CLASS_NAME; })
// NOLINTEND(bugprone-macro-parentheses)
