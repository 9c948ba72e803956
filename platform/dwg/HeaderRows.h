// The variables of the header section: how each is stored, and in which versions.
#pragma once
#include "DwgVersion.h"
#include <cstdint>
#include <span>
#include <string_view>

namespace KxPlat {

enum class HeaderBits : uint8_t {
    Bit,
    Byte,
    Short,
    Long,
    Long64,
    Real,
    Text,
    Point2,
    Point3,
    Time,   // day and millisecond
    Color,
    OwnHandle,   // of no object: in the data even where references stand apart
    // References, by what the variable calls its object.
    Layer,
    TextStyle,
    Linetype,
    DimStyle,
    MlineStyle,
    Ucs,
    Block,
    Id,            // by its handle
    PlotStyleId,   // the same; there only when $CEPSNTYPE is 3
    Root,          // a table, a dictionary or a record that every drawing has
    NullHandle     // without a meaning
};

struct HeaderRow {
    // With a "$" before it in drawing exchange files, if these have it at all.
    std::string_view name;
    HeaderBits bits;
    double byDefault = 0;
    DwgVersion since = kR13;
    int until = 1000;

    bool isIn(DwgVersion version) const { return version >= since && version < until; }
};

// In the order of the section. A name may be there several times, for different versions.
std::span<const HeaderRow> HeaderRows();

// The variables of drawing exchange files in their order there, with the code of their first group.
struct DxfVarRow {
    std::string_view name;
    int code;
};
std::span<const DxfVarRow> DxfVarRows();
// 0 for a name that is in no drawing exchange file.
int DxfCodeOf(std::string_view name);

}   // namespace KxPlat
