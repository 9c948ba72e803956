// Texts of one line and of several, attributes and tolerance frames.
#include "../../gi/AcGiWorldDraw.h"
#include "../../rx/acutads.h"
#include "../AcDbAttribute.h"
#include "../AcDbAttributeDefinition.h"
#include "../AcDbDatabase.h"
#include "../AcDbFcf.h"
#include "../AcDbMText.h"
#include "../AcDbText.h"
#include "../core/DbCore.h"
#include "Drawing.h"
#include "MTextLayout.h"
#include <cmath>

using namespace KxPlat;

namespace {

// The style's font with the size of the text itself.
AcGiTextStyle StyleOf(AcDbObjectId id, double height)
{
    AcGiTextStyle style;
    fromAcDbTextStyle(style, id);
    style.setTextSize(height);
    return style;
}

// Where the text begins. For a justified text the alignment point counts: many programs store no start for it.
AcGePoint3d StartOf(const AcDbText& text, const AcGeVector3d& along, const AcGiTextStyle& style, const ACHAR* shown)
{
    if (text.isDefaultAlignment())
        return text.position();
    const int horizontal = text.horizontalMode(), vertical = text.verticalMode();
    const double width = style.extents(shown, false, -1, false).x;
    const double right = horizontal == AcDb::kTextRight                                    ? width
                         : horizontal == AcDb::kTextCenter || horizontal == AcDb::kTextMid ? width / 2
                                                                                           : 0;
    const double up = horizontal == AcDb::kTextMid || vertical == AcDb::kTextVertMid ? text.height() / 2
                      : vertical == AcDb::kTextTop                                   ? text.height()
                                                                                     : 0;
    return text.alignmentPoint() - along * right - text.normal().crossProduct(along) * up;
}

void DrawLine(AcGiWorldDraw& draw, const AcDbText& text, const ACHAR* shown)
{
    AcGiTextStyle style = StyleOf(text.textStyle(), text.height());
    style.setXScale(text.widthFactor());
    style.setObliquingAngle(text.oblique());
    style.setBackward(text.isMirroredInX());
    style.setUpsideDown(text.isMirroredInY());
    AcGePoint3d start = text.position();
    const bool isBetween = text.horizontalMode() == AcDb::kTextAlign || text.horizontalMode() == AcDb::kTextFit;
    AcGeVector3d along = AcGeMatrix3d::planeToWorld(text.normal()) *
                         AcGeVector3d(std::cos(text.rotation()), std::sin(text.rotation()), 0);
    if (isBetween && !start.isEqualTo(text.alignmentPoint())) {
        along = text.alignmentPoint() - start;
        const double width = style.extents(shown, false, -1, false).x;
        const double ratio = width > 0 ? along.length() / width : 1;
        if (text.horizontalMode() == AcDb::kTextAlign)
            style.setTextSize(text.height() * ratio);
        else
            style.setXScale(text.widthFactor() * ratio);
    } else if (!isBetween) {
        start = StartOf(text, along, style, shown);
    }
    draw.geometry().text(start, text.normal(), along, shown, -1, Adesk::kFalse, style);
}

}   // namespace

void KxPlat::DrawBlockOfText(AcGiWorldDraw& draw, const MTextBlock& block, const AcGePoint3d& place,
                             const AcGeVector3d& along, const AcGeVector3d& normal, int attachment, double width)
{
    const int column = (attachment - 1) % 3, row = (attachment - 1) / 3;
    const AcGeVector3d up = normal.crossProduct(along).normal();
    const double wide = width > 0 ? width : block.width;
    const AcGePoint3d topLeft = place - along * (wide * column / 2) + up * (block.height * row / 2);
    AcGiSubEntityTraits& traits = draw.subEntityTraits();
    const Adesk::UInt16 color = traits.color();
    const bool hasRgb = traits.hasRGB();
    const Adesk::UInt32 rgb = traits.rgb();
    for (const MTextLine& line : block.lines) {
        const int side = line.alignment < 0 ? column : line.alignment;
        const AcGePoint3d start = topLeft + along * ((wide - line.width) * side / 2) - up * line.baseLine;
        for (const MTextPiece& piece : line.pieces) {
            if (piece.rgb.has_value())
                traits.setRGB(*piece.rgb);
            else if (piece.colorIndex.has_value())
                traits.setColor(*piece.colorIndex);
            draw.geometry().text(start + along * piece.x + up * piece.y, normal, along, piece.text, -1, Adesk::kTrue,
                                 piece.style);
            hasRgb ? traits.setRGB(rgb) : traits.setColor(color);
        }
    }
}

Adesk::Boolean AcDbText::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    DrawLine(*worldDraw, *this, textStringConst());
    return Adesk::kTrue;
}

// A definition shows its tag; in a block's insertions the attributes stand for it.
Adesk::Boolean AcDbAttributeDefinition::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    DrawLine(*worldDraw, *this, isConstant() ? textStringConst() : tagConst());
    return Adesk::kTrue;
}

Adesk::Boolean AcDbAttribute::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    const AcDbDatabase* drawing = database();
    const int64_t mode = drawing == nullptr ? 1 : CoreOf(*drawing).header.Integer("$ATTMODE", 1);
    if (mode == 2 || (mode == 1 && !isInvisible()))
        DrawLine(*worldDraw, *this, textStringConst());
    return Adesk::kTrue;
}

Adesk::Boolean AcDbMText::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    const AcGeVector3d along = direction();
    if (along.isZeroLength() || m_normal.isZeroLength())
        return Adesk::kTrue;
    const CString text = contentsText();
    const MTextBlock block =
        LayOutMText(text.GetString(), StyleOf(m_style, m_height), m_width, m_lineSpacing > 0 ? m_lineSpacing : 1);
    const int attachment = m_attachment < 1 || m_attachment > 9 ? 1 : m_attachment;
    DrawBlockOfText(*worldDraw, block, m_location, along.normal(), m_normal, attachment, m_width);
    return Adesk::kTrue;
}

// Boxes in a row, a new row for each line; "%%v" parts the boxes of a row.
Adesk::Boolean AcDbFcf::subWorldDraw(AcGiWorldDraw* worldDraw)
{
    const AcDbDatabase* drawing = database();
    const double height = drawing == nullptr ? 2.5 : CoreOf(*drawing).header.Real("$DIMTXT", 2.5);
    const AcGeVector3d along = direction().normal(), up = normal().crossProduct(along).normal();
    AcGiTextStyle style(L"txt", L"", height, 1, 0, 1, false, false, false);
    ACHAR* all = text();
    std::wstring rest(all == nullptr ? L"" : all);
    acutDelString(all);
    AcGePoint3d rowStart = location() + up * height;
    const AcGiWorldGeometry& geometry = worldDraw->geometry();
    while (!rest.empty()) {
        const size_t end = rest.find(L"^J");
        std::wstring row = rest.substr(0, end);
        rest = end == std::wstring::npos ? L"" : rest.substr(end + 2);
        double x = 0;
        while (!row.empty()) {
            const size_t bar = row.find(L"%%v");
            const MTextBlock cell = LayOutMText(row.substr(0, bar), style, 0, 1);
            row = bar == std::wstring::npos ? L"" : row.substr(bar + 3);
            const double width = cell.width + height;
            const AcGePoint3d corner = rowStart + along * x;
            const AcGePoint3d frame[] = {corner, corner + along * width, corner + along * width - up * (2 * height),
                                         corner - up * (2 * height), corner};
            geometry.polyline(5, frame);
            DrawBlockOfText(*worldDraw, cell, corner + along * (height / 2) - up * height, along, normal(), 4, 0);
            x += width;
        }
        rowStart -= up * (2 * height);
    }
    return Adesk::kTrue;
}
