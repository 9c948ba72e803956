#include "AcDbFcf.h"
#include "../gi/AcGiTextStyle.h"
#include "AcDbDimStyleTableRecord.h"
#include "AcDbMText.h"
#include "core/CurvePieces.h"
#include "core/DimVars.h"
#include "core/Fields.h"
#include "core/Members.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbFcf, AcDbEntity, 0, 0, 0, TOLERANCE, AcDb)

const ClassSchema& AcDbFcf::fieldSchema()
{
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "TOLERANCE", "AcDbFcf",
                                    {
                                        Name(3, &AcDbFcf::m_style, TableKind::DimStyle),
                                        Point3(10, &AcDbFcf::m_location).always(),
                                        Text(1, &AcDbFcf::m_text).always(),
                                        Vector3(210, &AcDbFcf::m_normal),
                                        Vector3(11, &AcDbFcf::m_direction, 1, 0, 0),
                                    });
    return schema;
}

AcDbFcf::AcDbFcf(const ACHAR* text, const AcGePoint3d& location, const AcGeVector3d& normal,
                 const AcGeVector3d& direction)
    : m_text(text == nullptr ? L"" : text),
      m_location(location),
      m_normal(normal.isZeroLength() ? AcGeVector3d::kZAxis : normal.normal()),
      m_direction(direction.isZeroLength() ? AcGeVector3d::kXAxis : direction.normal())
{
}

ACHAR* AcDbFcf::text() const
{
    return NewString(m_text);
}

Acad::ErrorStatus AcDbFcf::setText(const ACHAR* text)
{
    return text == nullptr ? Acad::eInvalidInput : Assign(*this, m_text, text);
}

Acad::ErrorStatus AcDbFcf::setLocation(const AcGePoint3d& location)
{
    return Assign(*this, m_location, location);
}

Acad::ErrorStatus AcDbFcf::setOrientation(const AcGeVector3d& normal, const AcGeVector3d& direction)
{
    if (normal.isZeroLength() || direction.isZeroLength())
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = Assign(*this, m_normal, normal.normal());
    if (status == Acad::eOk)
        m_direction = direction.normal();
    return status;
}

Acad::ErrorStatus AcDbFcf::setDimensionStyle(AcDbObjectId style)
{
    if (style.objectClass() == nullptr || !style.objectClass()->isDerivedFrom(AcDbDimStyleTableRecord::desc()))
        return Acad::eInvalidInput;
    return Assign(*this, m_style, style);
}

double AcDbFcf::TextHeight() const
{
    const double height = DimVars(*this, m_style).TextHeight();
    return height > 0 ? height : 1;
}

AcGePoint3d AcDbFcf::At(double x, double y) const
{
    const AcGeVector3d along = m_direction.normal();
    return m_location + along * x + m_normal.crossProduct(along).normal() * y;
}

// Rows are parted by line ends, the cells of a row by "%%v"; each cell is as wide as its text and one letter more. The
// entity stands at the left end of its first row, half way up.
std::vector<AcDbFcf::Cell> AcDbFcf::Cells() const
{
    std::vector<Cell> cells;
    const double height = TextHeight(), row = 2 * height;
    AcGiTextStyle style;
    style.setTextSize(height);
    CString rest = m_text;
    rest.Replace(L"^J", L"\n");
    double y = row / 2;
    for (int line = 0; !rest.IsEmpty(); y -= row, ++line) {
        const int end = rest.Find(L'\n');
        CString cellTexts = end < 0 ? rest : rest.Left(end);
        rest = end < 0 ? CString() : rest.Mid(end + 1);
        double x = 0;
        while (!cellTexts.IsEmpty()) {
            const int stroke = cellTexts.Find(L"%%v");
            const CString text = stroke < 0 ? cellTexts : cellTexts.Left(stroke);
            cellTexts = stroke < 0 ? CString() : cellTexts.Mid(stroke + 3);
            double width = 0;
            for (const CString& shown : LinesOfMText(text))
                width = std::max(width, style.extents(shown, false, -1, true).x);
            // Empty cells at the end of a row are not drawn.
            if (text.IsEmpty() && cellTexts.IsEmpty())
                break;
            if (width == 0)
                continue;
            cells.push_back({x, y - row, width + height, row, text});
            x += width + height;
        }
    }
    return cells;
}

bool AcDbFcf::addOutline(CurvePieces& pieces) const
{
    for (const Cell& cell : Cells())
        pieces.AddPath({At(cell.x, cell.y), At(cell.x + cell.width, cell.y),
                        At(cell.x + cell.width, cell.y + cell.height), At(cell.x, cell.y + cell.height)},
                       true);
    return true;
}

Acad::ErrorStatus AcDbFcf::getGeomExtents(AcDbExtents& extents) const
{
    extents = AcDbExtents();
    extents.addPoint(m_location);
    for (const Cell& cell : Cells())
        for (const double x : {cell.x, cell.x + cell.width})
            for (const double y : {cell.y, cell.y + cell.height})
                extents.addPoint(At(x, y));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFcf::transformBy(const AcGeMatrix3d& transform)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    m_location.transformBy(transform);
    m_direction.transformBy(transform).normalize();
    m_normal.transformBy(transform).normalize();
    return Acad::eOk;
}
