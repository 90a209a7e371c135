// AcRxClass: the descriptor of a class.
#pragma once

#include "rxobject.h"

/// Descriptors live as long as the host. Only the ACRX_..._DEFINE_MEMBERS macros make them.
class AcRxClass : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcRxClass);

    typedef AcRxObject* (*Constructor)();

    AcRxClass(const ACHAR* className, AcRxClass* parent, const ACHAR* dxfName, Constructor constructor);

    const ACHAR* name() const { return name_; }
    /// The name in DXF files (of the nearest class that has one); null without one.
    const ACHAR* dxfName() const { return dxf_name_; }
    AcRxClass* myParent() const { return parent_; }
    bool isDerivedFrom(const AcRxClass* other) const {
        const AcRxClass* step = this;
        while (step != nullptr && step != other) {
            step = step->parent_;
        }
        return step != nullptr;
    }
    /// A new object of the class; null for an abstract one.
    AcRxObject* create() const { return constructor_ != nullptr ? constructor_() : nullptr; }

  private:
    const ACHAR* name_;
    AcRxClass* parent_;
    const ACHAR* dxf_name_;
    Constructor constructor_;
};

inline bool AcRxObject::isKindOf(const AcRxClass* parent) const {
    return isA()->isDerivedFrom(parent);
}
