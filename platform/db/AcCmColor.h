// A colour as drawings store it: ByLayer, ByBlock, an index of 1 to 255, or red, green and blue.
#pragma once
#include "../mfc/CString.h"
#include "../rx/acadstrc.h"
#include "../rx/AdeskTypes.h"

class AcCmEntityColor {
public:
    enum ColorMethod {
        kByLayer = 0xC0,
        kByBlock = 0xC1,
        kByColor = 0xC2,
        kByACI = 0xC3,
        kByPen = 0xC4,
        kForeground = 0xC5,
        kLayerOff = 0xC6,
        kLayerFrozen = 0xC7,
        kNone = 0xC8
    };
    enum ACIcolorMethod {
        kACIbyBlock = 0,
        kACIforeground = 7,
        kACIbyLayer = 256,
        kACIclear = 0,
        kACIstandard = 7,
        kACImaximum = 255,
        kACInone = 257
    };

    // The screen colour 0xRRGGBB of an index, from the host's standard table of 256 colours.
    static Adesk::UInt32 lookUpRGB(Adesk::UInt8 index);
    // The index whose screen colour comes closest.
    static Adesk::UInt8 lookUpACI(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue);
};

class AcCmColor {
public:
    AcCmColor() = default;

    AcCmEntityColor::ColorMethod colorMethod() const { return m_method; }
    Acad::ErrorStatus setColorMethod(AcCmEntityColor::ColorMethod method);
    bool isByColor() const { return m_method == AcCmEntityColor::kByColor; }
    bool isByLayer() const { return m_method == AcCmEntityColor::kByLayer; }
    bool isByBlock() const { return m_method == AcCmEntityColor::kByBlock; }
    bool isByACI() const { return m_method == AcCmEntityColor::kByACI; }
    bool isForeground() const { return isByACI() && m_index == 7; }
    bool isNone() const { return m_method == AcCmEntityColor::kNone; }

    Adesk::UInt16 colorIndex() const;   // 0 ByBlock, 256 ByLayer; the closest index for a true colour
    Acad::ErrorStatus setColorIndex(Adesk::UInt16 index);
    Acad::ErrorStatus setRGB(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue);
    Adesk::UInt8 red() const { return Adesk::UInt8(rgb() >> 16); }
    Adesk::UInt8 green() const { return Adesk::UInt8(rgb() >> 8); }
    Adesk::UInt8 blue() const { return Adesk::UInt8(rgb()); }

    bool operator==(const AcCmColor& other) const
    {
        return m_method == other.m_method && m_index == other.m_index && m_rgb == other.m_rgb;
    }
    bool operator!=(const AcCmColor& other) const { return !(*this == other); }

private:
    Adesk::UInt32 rgb() const;

    AcCmEntityColor::ColorMethod m_method = AcCmEntityColor::kByLayer;
    Adesk::UInt16 m_index = 256;
    Adesk::UInt32 m_rgb = 0;
};
