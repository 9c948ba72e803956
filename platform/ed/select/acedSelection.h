// Selection sets and the choosing of objects, as the host's C interface has them.
// A name that acedSSGet or acedSSAdd made is freed with acedSSFree.
#pragma once
#include "../../rx/adsdef.h"

// `mode`: null asks the user; a point in `point1` alone picks there; "W" "C" with two points, "WP" "CP" "F" with a
// chain of points (a resbuf*) in `point1`; "X" the whole drawing, "A" all that is not frozen or locked, "L" the last
// object, "P" the previous set, "I" the objects selected before the command. Behind a colon "S" ends after one choice,
// "L" leaves out objects on locked layers, "$" takes an array of two prompts in `point1`. RTERROR, with ERRNO 52 after
// Enter, when nothing was chosen.
int acedSSGet(const ACHAR* mode, const void* point1, const void* point2, const resbuf* filter, ads_name set);
int acedSSFree(const ads_name set);
int acedSSLength(const ads_name set, Adesk::Int32* length);
int acedSSName(const ads_name set, Adesk::Int32 index, ads_name entity);
// A null `set` makes a new one; a null `entity` as well gives an empty one.
int acedSSAdd(const ads_name entity, const ads_name set, ads_name result);
int acedSSDel(const ads_name entity, const ads_name set);
int acedSSMemb(const ads_name entity, const ads_name set);
// How each member was chosen: a chain of lists (method, entity, mark); the caller frees it.
int acedSSNameX(resbuf** result, const ads_name set, Adesk::Int32 index);
// The objects selected while no command runs. Both results may be null pointers; the chains hold one RTPICKS each.
int acedSSGetFirst(resbuf** gripSet, resbuf** pickFirstSet);
int acedSSSetFirst(const ads_name gripSet, const ads_name pickFirstSet);
// One entity inside insertions and dimensions, at `picked` where `pickFlag` is nonzero, else where the user picks.
// `xform` takes points of its definition to the world; `containers` names what it lies in, innermost first, and is null
// for an entity that lies in nothing; the caller frees it.
int acedNEntSelP(const ACHAR* prompt, ads_name entity, ads_point picked, int pickFlag, ads_matrix xform,
                 resbuf** containers);
