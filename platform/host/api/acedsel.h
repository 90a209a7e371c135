// Selection sets.
#pragma once

#include "adsdef.h"
#include "adscodes.h"

/// Makes a selection set. `mode` null asks the user ("Select objects: "), or takes what is at `pt1` (a point) when that
/// is given; "A" everything of the current space that is not on a frozen layer, "X" everything of the drawing, "L" the
/// last entity, "P" the previous selection, "W" and "C" a window or crossing with the corners `pt1` and `pt2`. ":S" has
/// the question take one answer. A leading "_" is allowed. `filter` is a list of DXF groups with the operators
/// "<AND" "AND>" "<OR" "OR>" "<NOT" "NOT>" "<XOR" "XOR>" and relations at code -4; texts are wildcard patterns and case
/// does not matter in them. RTNORM, RTERROR for an empty selection or a bad argument, RTCAN when the user cancelled.
/// A set lives until acedSSFree, or until its drawing is closed. Entities stand in drawing order.
int acedSSGet(const ACHAR* mode, const void* pt1, const void* pt2, const struct resbuf* filter, ads_name set);

/// The number of entities in a set; RTERROR, and 0, for no set.
int acedSSLength(const ads_name set, long* length);
/// The entity at `index` from 0; RTERROR outside of the set.
int acedSSName(const ads_name set, long index, ads_name entity);
/// Ends a set; RTERROR for no set.
int acedSSFree(const ads_name set);

/// Makes the entities of a set the implied selection, which is seen as selected and which commands that work on
/// selected things take; null for none. The second set is not used. RTERROR for no set.
int acedSSSetFirst(const ads_name set, const ads_name unused);
