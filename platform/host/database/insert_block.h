// Inserting a block as the INSERT command does.
#pragma once

#include <string>
#include <vector>

#include "dbents.h"

namespace host {

/// Where and how a block is put.
struct Insertion {
    AcGePoint3d position;
    AcGeScale3d scale;
    double rotation = 0.0;  ///< radians
};

/// An attribute that a reference gets.
struct AttributeValue {
    std::wstring prompt;  ///< what to ask for; the tag where the definition has no prompt
    std::wstring text;    ///< the definition's default
    bool preset = false;  ///< not to be asked for
};

/// What attributes a reference to the block gets: one for each definition that is not constant, in order. None for an
/// unknown block.
std::vector<AttributeValue> attributes_of_block(AcDbDatabase& database, const ACHAR* block);

/// Adds a reference to the current space, with its attributes. Their texts are `values`, as attributes_of_block()
/// counts them, and the definitions' defaults where that ends. eKeyNotFound for an unknown block, eInvalidInput for the
/// block of a layout and for a scale of 0. On any failure the drawing is as it was.
Acad::ErrorStatus insert_block(AcDbDatabase& database, const ACHAR* block, const Insertion& insertion,
                               AcDbObjectId& reference, const std::vector<AttributeValue>& values = {});

}  // namespace host
