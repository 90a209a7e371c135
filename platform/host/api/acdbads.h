// What entities and objects hold, as lists of their groups.
#pragma once

#include "adsdef.h"

/// The groups of an entity or object in the order of the file, behind its name (-1): points are one buffer, pointers
/// (330 to 369, 390 to 399) are names, lists of applications between 102 and 102 are among them. The extended data of
/// the applications whose names the list `apps` holds ("*" for all; null asks for none) follows a buffer -3. The caller
/// releases the list with acutRelRb. Null for a name that names nothing.
struct resbuf* acdbEntGetX(const ads_name ent, const struct resbuf* apps);
