// What the header names besides the values of variables: tables, dictionaries and records that every drawing has.
#pragma once
#include "HeaderSection.h"

namespace KxPlat {

// Null for the dictionaries that stand in the root dictionary.
uint64_t* RootOf(DwgRoots& roots, std::string_view name);
// The key of such a dictionary; null for the roots themselves.
const wchar_t* DictionaryKeyOf(std::string_view name);

// Entries of CELWEIGHT, ENDCAPS and other variables that share one number.
struct FlagRow {
    std::string_view name;
    int code;   // of the group
    int shift;
    int mask;   // after shifting
    bool isInverted;
};
inline constexpr FlagRow kFlagRows[] = {
    {"CELWEIGHT", 370, 0, 31, false},  {"ENDCAPS", 280, 5, 3, false},     {"JOINSTYLE", 280, 7, 3, false},
    {"LWDISPLAY", 290, 9, 1, true},    {"XEDIT", 290, 10, 1, true},       {"EXTNAMES", 290, 11, 1, false},
    {"PSTYLEMODE", 290, 13, 1, false}, {"OLESTARTUP", 290, 14, 1, false},
};

// Lineweights in hundredths of a millimetre and their numbers in DWG files.
int LineWeightOf(int number);
int NumberOfLineWeight(int weight);

}   // namespace KxPlat
