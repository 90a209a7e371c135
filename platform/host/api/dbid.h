// AcDbObjectId: the identity of an object of a drawing while the drawing is open.
#pragma once

#include <functional>

#include "acadstrc.h"
#include "adesk.h"
#include "dbhandle.h"

class AcDbDatabase;
class AcRxClass;

/// Cheap to copy and to compare. An id of a closed drawing is refused by every operation, not mistaken for another.
class AcDbObjectId {
  public:
    AcDbObjectId() = default;

    static const AcDbObjectId kNull;

    bool isNull() const { return id_ == 0; }
    void setNull() { id_ = 0; }
    /// Whether the id names an object (erased or not) of a drawing that is open.
    bool isValid() const;
    bool isErased() const;

    Adesk::IntDbId asOldId() const { return id_; }
    AcDbObjectId& setFromOldId(Adesk::IntDbId id) {
        id_ = id;
        return *this;
    }

    auto operator<=>(const AcDbObjectId&) const = default;

    /// Null for an id of no open drawing.
    AcDbDatabase* database() const;
    /// The handle, null for an object of a drawing without handles.
    AcDbHandle handle() const;
    /// The class that the object opens as, without opening it.
    AcRxClass* objectClass() const;

  private:
    Adesk::IntDbId id_ = 0;
};
