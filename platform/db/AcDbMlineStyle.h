// A style of multilines: lines at fixed distances from the way, and how its ends are closed.
#pragma once
#include "AcCmColor.h"
#include "AcDbObject.h"
#include "core/GroupValue.h"
#include <cstdint>

class AcDbMlineStyle : public AcDbObject {
public:
    ACDB_DECLARE_MEMBERS(AcDbMlineStyle);

    const ACHAR* name() const { return m_name; }
    Acad::ErrorStatus setName(const ACHAR* name);
    const ACHAR* description() const { return m_description; }
    Acad::ErrorStatus setDescription(const ACHAR* description);
    int numElements() const;
    // Offsets count to the left of the way, at a scale of 1.
    Acad::ErrorStatus getElementAt(int index, double& offset, AcCmColor& color) const;
    // Elements stand in falling order of their offsets; `index` is where the new one went.
    Acad::ErrorStatus addElement(int& index, double offset, const AcCmColor& color, const ACHAR* linetype = L"BYLAYER");
    double startAngle() const;   // radians, of the caps
    double endAngle() const;
    bool filled() const { return (m_flags & 1) != 0; }
    bool showMiters() const { return (m_flags & 2) != 0; }
    bool startSquareCap() const { return (m_flags & 0x10) != 0; }
    bool endSquareCap() const { return (m_flags & 0x100) != 0; }
    // The highest and the lowest offset; both 0 for a style without elements.
    void range(double& highest, double& lowest) const;

private:
    CString m_name;
    CString m_description;
    KxPlat::GroupList m_elements;                // 49 begins each, then 62, 420 and 6
    double m_startAngle = 90, m_endAngle = 90;   // degrees
    int32_t m_fillTrueColor = INT32_MIN;         // none, or 0xRRGGBB
    int16_t m_flags = 0;
    int16_t m_fillColor = 256;
};
