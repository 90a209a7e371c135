// The class that a record of each type opens as.
#pragma once

#include <string_view>

#include "dbmain.h"

namespace host {

/// AcDbEntity for a type that has no class of its own.
AcRxClass* class_of_dxf_name(std::wstring_view type);

/// A new instance of a class that class_of_dxf_name() gives or that stands for a table.
inline AcDbObject* new_instance(const AcRxClass* type) {
    return static_cast<AcDbObject*>(type->create());
}

}  // namespace host
