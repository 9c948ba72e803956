// How the objects of each class stand in a DWG file: one table of rows, read by reader and writer alike. What a value
// means is told by its DXF group code; where the value lives in memory is the business of the class's field list.
//
// The text of a row lists the values in the order of the stream:
//   BD 40            a bit code and a group code; 3BD 10 takes the groups 10, 20, 30
//   BD 50a           an angle: radians in the file, degrees in memory
//   B 70&4  B 70&!4  one bit of a group, or its opposite
//   BS 70#3  280^2   the group of the class's third section; the second group of that code
//   BD 30,31         the value is kept under further codes when read
//   BL n:90  BL n    a value with a name, with or without a group
//   RC 70=5          written as 5 when it is missing;  RC 70~5: and left out in memory when it is 5
//   DD 11(10)        the value of group 10 is the one that it is told apart from
//   2RD[n] 11        n times the same; for n { ... } n times several
//   if v>=2000 {} else {}   if flag&4 {}   if !df&2 {}   if kind==3 {}
//   RC df auto       a set of bits, each of which says whether an `if` over it holds; where the values in it are all at
//                    their defaults, they are left out. map(512=70&1) ties further bits to bits of groups
//   use NAME(x)      the text of that name, with x for each $
// A name without a group that is written is 0, or what stands behind =. Words in capitals that are no bit codes are
// values in a form of their own, see SpecialItems.h.
#pragma once
#include <string_view>

namespace KxPlat {

struct Layout {
    const char* dxfName;
    int type;   // the number of a built-in type; 0: known by its class's DXF name
    bool isEntity;
    const wchar_t* className;   // in the database; null, or a class that it does not have: a proxy
    const char* text;
    const char* order = "";   // of the groups of a proxy, markers with an @ before them
    bool isKept = false;      // beside what is read, the bits are kept
};

// Null when nobody knows the type, or the class.
const Layout* LayoutOfType(int type);
const Layout* LayoutOfName(std::string_view dxfName);
const Layout* LayoutOfClass(std::wstring_view className);
// The text of a part that several layouts have in common.
std::string_view SharedLayout(std::string_view name);

}   // namespace KxPlat
