// Making, joining and freeing chains of result buffers; text that the host allocates.
#pragma once
#include "acadstrc.h"
#include "adsdef.h"

// A zeroed buffer of a type. The caller frees it with acutRelRb, which frees the whole chain and its texts.
resbuf* acutNewRb(int restype);
int acutRelRb(resbuf* chain);
// Pairs of type and value, ended by 0 or RTNONE; types such as RTLB have no value. Texts, points and names are copied.
// Null when a type is unknown.
resbuf* acutBuildList(int restype, ...);

// A copy that acutDelString frees.
Acad::ErrorStatus acutNewString(const ACHAR* source, ACHAR*& copy);
void acutDelString(ACHAR*& text);
// Replaces `target`, freeing what it held.
Acad::ErrorStatus acutUpdString(const ACHAR* source, ACHAR*& target);
