// Points, entity names and result buffers.
#pragma once

#include "adesk.h"

typedef double ads_real;
typedef ads_real ads_point[3];
typedef ads_real ads_matrix[4][4];
/// An entity's or a selection set's name: valid while its drawing is open.
typedef Adesk::LongPtr ads_name[2];

struct ads_binary {
    short clen;
    char* buf;
};

union ads_u_val {
    ads_real rreal;
    ads_real rpoint[3];
    short rint;
    ACHAR* rstring;
    Adesk::LongPtr rlname[2];
    Adesk::Int32 rlong;
    Adesk::Int64 mnInt64;
    struct ads_binary rbinary;
    unsigned char ihandle[8];
};

/// One value of a list. `restype` is an RT code or a DXF group code and says which member of `resval` holds it.
struct resbuf {
    struct resbuf* rbnext;
    short restype;
    union ads_u_val resval;
};

#define ads_name_clear(name) ((name)[0] = (name)[1] = 0)

enum { X = 0, Y = 1, Z = 2 };
