// The linked list of typed values in which the host takes and gives arguments, and the C types around it.
#pragma once
#include "AdeskTypes.h"
#include "adscodes.h"

typedef double ads_real;
typedef ads_real ads_point[3];
typedef ads_real ads_matrix[4][4];
typedef Adesk::IntPtr ads_name[2];

enum { X = 0, Y = 1, Z = 2 };   // components of an ads_point

struct ads_binary {
    short clen;
    char* buf;
};

union ads_u_val {
    ads_real rreal;
    ads_real rpoint[3];
    short rint;
    ACHAR* rstring;   // owned, from malloc
    Adesk::IntPtr rlname[2];
    Adesk::Int32 rlong;
    Adesk::Int64 mnInt64;
    ads_binary rbinary;   // its bytes are owned, from malloc
    unsigned char ihandle[8];
};

struct resbuf {
    resbuf* rbnext;
    short restype;
    ads_u_val resval;
};

inline void ads_name_set(const ads_name from, ads_name to)
{
    to[0] = from[0];
    to[1] = from[1];
}
inline void ads_name_clear(ads_name name)
{
    name[0] = name[1] = 0;
}
inline bool ads_name_nil(const ads_name name)
{
    return name[0] == 0 && name[1] == 0;
}
inline bool ads_name_equal(const ads_name left, const ads_name right)
{
    return left[0] == right[0] && left[1] == right[1];
}
inline void ads_point_set(const ads_point from, ads_point to)
{
    to[0] = from[0];
    to[1] = from[1];
    to[2] = from[2];
}
