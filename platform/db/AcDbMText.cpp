#include "AcDbMText.h"
#include "../gi/AcGiTextStyle.h"
#include "AcDbTextStyleTableRecord.h"
#include "core/Fields.h"
#include "core/FlatMap.h"
#include "core/Members.h"
#include <algorithm>
#include <cwchar>

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbMText, AcDbEntity, 0, 0, 0, MTEXT, AcDb)

namespace {
constexpr int kPieceLength = 250;
constexpr double kLineStep = 5.0 / 3.0;   // of the text height, at single spacing
}   // namespace

// Group 3 for each full piece, group 1 for the rest.
class MTextPieces : public ListField {
public:
    bool Starts(int code) const override { return code == 1 || code == 3; }
    bool Continues(int code) const override { return code == 1 || code == 3; }
    void Put(AcDbObject& object, const GroupValue& group) const override
    {
        static_cast<AcDbMText&>(object).m_pieces.push_back(group.text());
    }
    void Get(const AcDbObject& object, GroupSink& sink, AcDb::AcDbDwgVersion) const override
    {
        const std::vector<CString>& pieces = static_cast<const AcDbMText&>(object).m_pieces;
        for (size_t index = 0; index + 1 < pieces.size(); ++index)
            sink.Text(3, pieces[index]);
        sink.Text(1, pieces.empty() ? CString() : pieces.back());
    }
    void Copy(AcDbObject& to, const AcDbObject& from) const override
    {
        static_cast<AcDbMText&>(to).m_pieces = static_cast<const AcDbMText&>(from).m_pieces;
    }
    bool IsEmpty(const AcDbObject&) const override { return false; }
    void Clear(AcDbObject& object) const override { static_cast<AcDbMText&>(object).m_pieces.clear(); }
};

const ClassSchema& AcDbMText::fieldSchema()
{
    static const MTextPieces pieces;
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "MTEXT", "AcDbMText",
                                    {
                                        Point3(10, &AcDbMText::m_location).always(),
                                        Real(40, &AcDbMText::m_height).always(),
                                        Real(41, &AcDbMText::m_width).always(),
                                        Int16(71, &AcDbMText::m_attachment).always(),
                                        Int16(72, &AcDbMText::m_flow).always(),
                                        List(&pieces),
                                        Name(7, &AcDbMText::m_style, TableKind::TextStyle),
                                        Vector3(210, &AcDbMText::m_normal),
                                        Vector3(11, &AcDbMText::m_direction, 0, 0, 0),
                                        Real(50, &AcDbMText::m_rotation),
                                        Int16(73, &AcDbMText::m_lineSpacingStyle, 1).since(AcDb::kDHL_1015),
                                        Real(44, &AcDbMText::m_lineSpacing, 1).since(AcDb::kDHL_1015),
                                    });
    return schema;
}

Acad::ErrorStatus AcDbMText::setLocation(const AcGePoint3d& location)
{
    return Assign(*this, m_location, location);
}

AcGeVector3d AcDbMText::direction() const
{
    if (!m_direction.isZeroLength())
        return m_direction;
    const double angle = Radians(m_rotation);
    return AcGeMatrix3d::planeToWorld(m_normal) * AcGeVector3d(std::cos(angle), std::sin(angle), 0);
}

Acad::ErrorStatus AcDbMText::setDirection(const AcGeVector3d& direction)
{
    return direction.isZeroLength() ? Acad::eInvalidInput : Assign(*this, m_direction, direction.normal());
}

double AcDbMText::rotation() const
{
    const AcGeVector3d flat = AcGeMatrix3d::worldToPlane(m_normal) * direction();
    return FullTurn(std::atan2(flat.y, flat.x));
}

Acad::ErrorStatus AcDbMText::setRotation(double angle)
{
    const AcGeVector3d flat(std::cos(angle), std::sin(angle), 0);
    const Acad::ErrorStatus status = Assign(*this, m_direction, AcGeMatrix3d::planeToWorld(m_normal) * flat);
    if (status == Acad::eOk)
        m_rotation = 0;
    return status;
}

Acad::ErrorStatus AcDbMText::setNormal(const AcGeVector3d& normal)
{
    return normal.isZeroLength() ? Acad::eInvalidInput : Assign(*this, m_normal, normal.normal());
}

Acad::ErrorStatus AcDbMText::setWidth(double width)
{
    return width >= 0 ? Assign(*this, m_width, width) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbMText::setTextHeight(double height)
{
    return height > 0 ? Assign(*this, m_height, height) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbMText::setAttachment(AttachmentPoint attachment)
{
    if (attachment < kTopLeft || attachment > kBottomRight)
        return Acad::eInvalidInput;
    return Assign(*this, m_attachment, attachment);
}

Acad::ErrorStatus AcDbMText::setTextStyle(AcDbObjectId style)
{
    if (style.objectClass() == nullptr || !style.objectClass()->isDerivedFrom(AcDbTextStyleTableRecord::desc()))
        return Acad::eInvalidInput;
    return Assign(*this, m_style, style);
}

CString AcDbMText::contentsText() const
{
    CString all;
    for (const CString& piece : m_pieces)
        all += piece;
    return all;
}

ACHAR* AcDbMText::contents() const
{
    return NewString(contentsText());
}

Acad::ErrorStatus AcDbMText::setContents(const ACHAR* text)
{
    if (text == nullptr)
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    const CString all(text);
    m_pieces.clear();
    for (int at = 0; at < all.GetLength() || m_pieces.empty(); at += kPieceLength)
        m_pieces.push_back(all.Mid(at, kPieceLength));
    return Acad::eOk;
}

ACHAR* AcDbMText::text() const
{
    CString seen;
    for (const CString& line : LinesOfMText(contentsText())) {
        if (!seen.IsEmpty())
            seen += L"\r\n";
        seen += line;
    }
    return NewString(seen);
}

double AcDbMText::actualWidth() const
{
    AcGiTextStyle style;
    style.setTextSize(m_height);
    double widest = 0;
    for (const CString& line : LinesOfMText(contentsText()))
        widest = std::max(widest, style.extents(line, false, -1, true).x);
    return m_width > 0 ? std::min(widest, m_width) : widest;
}

// Lines that are too long for the width are broken.
double AcDbMText::actualHeight() const
{
    AcGiTextStyle style;
    style.setTextSize(m_height);
    double lines = 0;
    for (const CString& line : LinesOfMText(contentsText())) {
        const double width = style.extents(line, false, -1, true).x;
        lines += m_width > 0 && width > m_width ? std::ceil(width / m_width) : 1;
    }
    return lines == 0 ? 0 : m_height * (1 + (lines - 1) * kLineStep * m_lineSpacing);
}

void AcDbMText::getBoundingPoints(AcGePoint3d corners[4]) const
{
    const double width = actualWidth(), height = actualHeight();
    const int column = (std::clamp<int>(m_attachment, 1, 9) - 1) % 3;
    const int row = (std::clamp<int>(m_attachment, 1, 9) - 1) / 3;
    const AcGeVector3d along = direction().normal();
    const AcGeVector3d up = m_normal.crossProduct(along).normal();
    const AcGePoint3d corner = m_location - along * (width * column / 2) - up * (height * (2 - row) / 2);
    corners[0] = corner + up * height;
    corners[1] = corner + along * width + up * height;
    corners[2] = corner;
    corners[3] = corner + along * width;
}

Acad::ErrorStatus AcDbMText::getGeomExtents(AcDbExtents& extents) const
{
    extents = AcDbExtents();
    AcGePoint3d corners[4];
    getBoundingPoints(corners);
    for (const AcGePoint3d& corner : corners)
        extents.addPoint(corner);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setFlowDirection(FlowDirection direction)
{
    if (direction != kLtoR && direction != kTtoB && direction != kByStyle)
        return Acad::eInvalidInput;
    return Assign(*this, m_flow, direction);
}

Acad::ErrorStatus AcDbMText::setLineSpacingFactor(double factor)
{
    return factor >= 0.25 && factor <= 4 ? Assign(*this, m_lineSpacing, factor) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbMText::transformBy(const AcGeMatrix3d& transform)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    const AcGeVector3d along = transform * direction();
    const AcGeVector3d up = transform * m_normal.crossProduct(direction());
    if (along.isZeroLength())
        return Acad::eDegenerateGeometry;
    const double scale = along.length() / direction().length();
    m_location.transformBy(transform);
    m_direction = along.normal();
    m_rotation = 0;
    m_width *= scale;
    m_height *= up.isZeroLength() ? scale : up.length() / direction().length();
    const FlatMap map(transform, m_normal);
    m_normal = map.normal();
    return Acad::eOk;
}

namespace {

// Codes that take a value up to the next semicolon: font, height, width, colour, slant, tracking, alignment, ...
constexpr wchar_t kWithValue[] = L"ACcfFHQTWp";

// A stack "a^b;", "a/b;" or "a#b;" reads as its parts with a stroke between.
int ReadStack(const CString& text, int at, CString& line)
{
    for (; at < text.GetLength() && text[at] != L';'; ++at) {
        const wchar_t letter = text[at];
        if (letter == L'\\' && at + 1 < text.GetLength())
            line += text[++at];
        else
            line += letter == L'^' || letter == L'#' ? L'/' : letter;
    }
    return at;
}

// Reads the code behind a backslash at `at`; the index of its last character is the answer.
int ReadCode(const CString& text, int at, std::vector<CString>& lines)
{
    const wchar_t code = at < text.GetLength() ? text[at] : L'\\';
    if (code == L'P' || code == L'N')
        lines.emplace_back();
    else if (code == L'~')
        lines.back() += L' ';
    else if (code == L'S')
        return ReadStack(text, at + 1, lines.back());
    else if (code == L'U' && text.Mid(at + 1, 1) == L"+") {
        lines.back() += wchar_t(std::wcstol(text.Mid(at + 2, 4), nullptr, 16));
        return at + 5;
    } else if (std::wcschr(kWithValue, code) != nullptr) {
        const int end = text.Find(L';', at);
        return end < 0 ? text.GetLength() : end;
    } else if (code == L'\\' || code == L'{' || code == L'}') {
        lines.back() += code;
    }
    return at;
}

}   // namespace

std::vector<CString> KxPlat::LinesOfMText(const CString& contents)
{
    std::vector<CString> lines;
    if (contents.IsEmpty())
        return lines;
    lines.emplace_back();
    for (int at = 0; at < contents.GetLength(); ++at) {
        const wchar_t letter = contents[at];
        if (letter == L'\\')
            at = ReadCode(contents, at + 1, lines);
        else if (letter == L'\n' || (letter == L'^' && contents.Mid(at + 1, 1) == L"J"))
            lines.emplace_back(), at += letter == L'^';
        else if (letter == L'^' && contents.Mid(at + 1, 1) == L"I")
            lines.back() += L' ', ++at;
        else if (letter != L'{' && letter != L'}' && letter != L'\r')
            lines.back() += letter;
    }
    for (CString& line : lines)
        line = ShownText(line);
    return lines;
}
