// Enumerations of the drawing database.
#pragma once

#include "acadstrc.h"
#include "adesk.h"

namespace AcDb {

enum OpenMode { kForRead = 0, kForWrite = 1, kForNotify = 2 };

enum Visibility { kInvisible = 1, kVisible = 0 };

enum TextHorzMode { kTextLeft = 0, kTextCenter = 1, kTextRight = 2, kTextAlign = 3, kTextMid = 4, kTextFit = 5 };

enum TextVertMode { kTextBase = 0, kTextBottom = 1, kTextVertMid = 2, kTextTop = 3 };

}  // namespace AcDb
