// The dimension variables that hold for one object: those that its extended data overrides, else those of its style,
// else what a style without them stands for.
#pragma once
#include "../AcDbObject.h"
#include "GroupValue.h"

class AcDbDimStyleTableRecord;

namespace KxPlat {

// By the group code of a style.
enum class DimVar : int16_t {
    Post = 3,
    Scale = 40,
    ArrowSize = 41,
    ExtensionOffset = 42,
    ExtensionBeyond = 44,
    Rounding = 45,
    LineBeyond = 46,
    TextInside = 73,    // horizontal between the extension lines
    TextOutside = 74,   // horizontal beyond them
    NoExtension1 = 75,
    NoExtension2 = 76,
    TextAbove = 77,   // 0 within the line, else above
    Zeros = 78,       // 4 leading, 8 trailing zeros are left out
    AngleZeros = 79,
    TextHeight = 140,
    CenterMark = 141,
    TickSize = 142,
    LinearFactor = 144,
    TextGap = 147,
    LineAlways = 172,
    TextAlways = 174,
    LineColor = 176,
    ExtensionColor = 177,
    TextColor = 178,
    AngleDecimals = 179,
    Decimals = 271,
    AngleUnits = 275,
    LinearUnits = 277,
    Separator = 278,
    TextStyle = 340,
    LeaderArrow = 341,
    Arrow = 342
};

class DimVars {
public:
    DimVars(const AcDbObject& object, AcDbObjectId style);

    double Real(DimVar which) const;
    int Integer(DimVar which) const { return int(Real(which)); }
    bool Is(DimVar which) const { return Real(which) != 0; }
    CString Text(DimVar which) const;
    AcDbObjectId Id(DimVar which) const;
    // A length of the style at the scale of the style.
    double Size(DimVar which) const { return Real(which) * Scale(); }
    double Scale() const;
    // The height of a text style that fixes it goes before the variable's.
    double TextHeight() const;

private:
    const GroupValue* Find(DimVar which) const;

    GroupList m_overrides;   // code as a value, then the value
    const AcDbDimStyleTableRecord* m_style = nullptr;
};

// The figure of a length or of an angle in radians, and the text around it.
CString DimFigure(const DimVars& vars, double value, bool isAngle);
// `own` may hold "<>" for the figure; empty it stands for it, a blank hides it.
CString DimText(const CString& figure, const CString& own);

}   // namespace KxPlat
