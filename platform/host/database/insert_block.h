// Inserting a block as the INSERT command does.
#pragma once

#include "dbents.h"

namespace host {

/// Where and how a block is put.
struct Insertion {
    AcGePoint3d position;
    AcGeScale3d scale;
    double rotation = 0.0;  ///< radians
};

/// Adds a reference to the current space, with an attribute for each definition of the block that is not constant; the
/// texts are the definitions' defaults. eKeyNotFound for an unknown block, eInvalidInput for a scale of 0.
Acad::ErrorStatus insert_block(AcDbDatabase& database, const ACHAR* block, const Insertion& insertion,
                               AcDbObjectId& reference);

}  // namespace host
