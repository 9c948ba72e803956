#include "AcDbTextStyleTableRecord.h"
#include "AcDbDatabase.h"
#include "core/Fields.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbTextStyleTableRecord, AcDbSymbolTableRecord, 0, 0, 0, STYLE, AcDb)
ACRX_CONS_DEFINE_MEMBERS(AcDbTextStyleTable, AcDbSymbolTable, 1)

namespace {

constexpr double kDegree = 3.14159265358979323846 / 180.0;

}

const ClassSchema& AcDbTextStyleTableRecord::fieldSchema()
{
    using Style = AcDbTextStyleTableRecord;
    static const ClassSchema schema(&AcDbSymbolTableRecord::fieldSchema(), "STYLE", "AcDbTextStyleTableRecord",
                                    {
                                        Text(2, &Style::m_name).always(),
                                        Int16(70, &Style::m_flags).always(),
                                        Real(40, &Style::m_height).always(),
                                        Real(41, &Style::m_width, 1).always(),
                                        Real(50, &Style::m_oblique).always(),
                                        Int16(71, &Style::m_generation).always(),
                                        Real(42, &Style::m_lastHeight, 0.2).always(),
                                        Text(3, &Style::m_fileName).always(),
                                        Text(4, &Style::m_bigFontFileName).always(),
                                    });
    return schema;
}

const ClassSchema& AcDbTextStyleTable::fieldSchema()
{
    static const ClassSchema schema(&AcDbSymbolTable::fieldSchema(), "TABLE", nullptr, {});
    return schema;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setTextSize(double size)
{
    if (!(size >= 0))
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_height = size;
    return status;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setXScale(double scale)
{
    if (!(scale > 0))
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_width = scale;
    return status;
}

double AcDbTextStyleTableRecord::obliquingAngle() const
{
    return m_oblique * kDegree;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setObliquingAngle(double angle)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_oblique = angle / kDegree;
    return status;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setPriorSize(double size)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_lastHeight = size;
    return status;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setFlagBits(Adesk::UInt8 bits)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_generation = bits;
    return status;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setIsVertical(bool vertical)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_flags = int16_t(vertical ? m_flags | 4 : m_flags & ~4);
    return status;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setIsShapeFile(bool shapeFile)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_flags = int16_t(shapeFile ? m_flags | 1 : m_flags & ~1);
    return status;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::getFileName(const ACHAR*& name) const
{
    name = m_fileName;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::fileName(ACHAR*& name) const
{
    name = nullptr;
    return acutNewString(m_fileName, name);
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setFileName(const ACHAR* name)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_fileName = name;
    return status;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::getBigFontFileName(const ACHAR*& name) const
{
    name = m_bigFontFileName;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::bigFontFileName(ACHAR*& name) const
{
    name = nullptr;
    return acutNewString(m_bigFontFileName, name);
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setBigFontFileName(const ACHAR* name)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_bigFontFileName = name;
    return status;
}

// The flags: pitch and family in bits 0-7, character set in 8-15, italic 0x1000000, bold 0x2000000.
Acad::ErrorStatus AcDbTextStyleTableRecord::font(ACHAR*& typeface, bool& bold, bool& italic, int& charset,
                                                 int& pitchAndFamily) const
{
    typeface = nullptr;
    CString name;
    int32_t flags = 0;
    resbuf* chain = xData(L"ACAD");
    for (const resbuf* at = chain; at != nullptr; at = at->rbnext) {
        if (at->restype == 1000)
            name = at->resval.rstring;
        else if (at->restype == 1071)
            flags = int32_t(at->resval.rlong);
    }
    acutRelRb(chain);
    bold = (flags & 0x2000000) != 0;
    italic = (flags & 0x1000000) != 0;
    charset = flags >> 8 & 0xFF;
    pitchAndFamily = flags & 0xFF;
    return acutNewString(name, typeface);
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setFont(const ACHAR* typeface, bool bold, bool italic, int charset,
                                                    int pitchAndFamily, bool)
{
    if (typeface == nullptr)
        return Acad::eInvalidInput;
    const int32_t flags =
        (pitchAndFamily & 0xFF) | (charset & 0xFF) << 8 | (italic ? 0x1000000 : 0) | (bold ? 0x2000000 : 0);
    resbuf* chain =
        *typeface == 0 ? acutBuildList(1001, L"ACAD", 0) : acutBuildList(1001, L"ACAD", 1000, typeface, 1071, flags, 0);
    const Acad::ErrorStatus status = setXData(chain);
    acutRelRb(chain);
    return status;
}

bool AcDbTextStyleTableRecord::isErasable() const
{
    return database() == nullptr || database()->textstyle() != objectId();
}
