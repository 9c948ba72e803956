#include "../db/AcDbEntity.h"
#include "../db/AcDbSequenceEnd.h"
#include "../db/AcDbSpline.h"
#include "../db/AcDbSymbolTable.h"
#include "../db/AcDbTextStyleTableRecord.h"
#include "../ge/AcGeNurbCurve3d.h"
#include "SpecialPairs.h"
#include <algorithm>
#include <cmath>

namespace KxPlat {

// --- texts ---

// The second point of a text lies as high as the first, if there is one at all.
void ReadAligned(ObjectDecoder& in, const Step& step)
{
    const uint32_t z = step.place.offset;
    if (in.At<double>(z - 16) != 0 || in.At<double>(z - 8) != 0)
        in.At<double>(z) = in.At<double>(step.reference);
}

void ReadShapeNumber(ObjectDecoder& in, const Step& step)
{
    CString text;
    text.Format(L"#%d", int(in.data.BS()));
    in.PutText(step.place, text);
}

void WriteShapeNumber(ObjectEncoder& out, const Step& step)
{
    const CString text = out.GetText(step.place);
    out.data.BS(text.IsEmpty() || text[0] != L'#' ? 0 : int(std::wcstol(text.GetString() + 1, nullptr, 10)));
}

void ReadShapeStyle(ObjectDecoder& in, const Step&)
{
    in.Handle();
}

// Shapes have no style in memory: the first one that is a file of shapes serves.
void WriteShapeStyle(ObjectEncoder& out, const Step&)
{
    const AcDbStub* found = nullptr;
    for (const AcDbStub* stub : out.output.core.Table(TableKind::TextStyle)->records())
        if (found == nullptr && out.output.IsLive(stub) &&
            static_cast<const AcDbTextStyleTableRecord*>(stub->object)->isShapeFile())
            found = stub;
    out.Ref(5, found);
}

void ReadDirection(ObjectDecoder& in, const Step& step)
{
    for (uint32_t i = 0; i < 3; ++i)
        in.At<double>(step.place.offset + 8 * i) = in.data.BD();
}

// A paragraph may know its direction as an angle only.
void WriteDirection(ObjectEncoder& out, const Step& step)
{
    double direction[3];
    for (uint32_t i = 0; i < 3; ++i)
        direction[i] = out.At<double>(step.place.offset + 8 * i);
    if (direction[0] == 0 && direction[1] == 0 && direction[2] == 0) {
        const double angle = RadiansOf(out.At<double>(step.also[0]));
        direction[0] = std::cos(angle), direction[1] = std::sin(angle);
    }
    for (double part : direction)
        out.data.BD(part);
}

void ReadParagraph(ObjectDecoder& in, const Step& step)
{
    constexpr int kPiece = 250;
    const CString text = in.Text();
    int at = 0;
    Place piece = step.place;
    piece.code = 3;
    for (; text.GetLength() - at > kPiece; at += kPiece)
        in.PutText(piece, text.Mid(at, kPiece));
    in.PutText(step.place, text.Mid(at));
}

void WriteParagraph(ObjectEncoder& out, const Step& step)
{
    CString text;
    for (const GroupValue& piece : out.BucketOf(step.place).groups())
        text += piece.text();
    out.Text(text);
}

// --- insertions and what they own ---

void ReadScale(ObjectDecoder& in, const Step& step)
{
    double* scale = &in.At<double>(step.place.offset);
    switch (in.data.BB()) {
    case 0:
        scale[0] = in.data.RD();
        scale[1] = in.data.DD(scale[0]);
        scale[2] = in.data.DD(scale[0]);
        break;
    case 1:
        scale[0] = 1;
        scale[1] = in.data.DD(1);
        scale[2] = in.data.DD(1);
        break;
    case 2:
        scale[0] = scale[1] = scale[2] = in.data.RD();
        break;
    default:
        scale[0] = scale[1] = scale[2] = 1;
        break;
    }
}

void WriteScale(ObjectEncoder& out, const Step& step)
{
    const double* scale = &out.At<double>(step.place.offset);
    const bool isUniform = scale[0] == scale[1] && scale[0] == scale[2];
    if (isUniform && scale[0] == 1)
        return out.data.BB(3);
    out.data.BB(isUniform ? 2 : scale[0] == 1 ? 1 : 0);
    if (isUniform || scale[0] != 1)
        out.data.RD(scale[0]);
    if (isUniform)
        return;
    out.data.DD(scale[1], scale[0]);
    out.data.DD(scale[2], scale[0]);
}

namespace {

struct Parts {
    std::vector<const AcDbStub*> all;
    const AcDbStub* end = nullptr;
};

Parts PartsOf(const ObjectEncoder& out)
{
    Parts parts;
    const std::vector<AcDbStub*>* stubs = static_cast<const AcDbEntity*>(out.object)->parts();
    if (stubs != nullptr)
        for (const AcDbStub* stub : *stubs) {
            if (out.output.HandleOf(stub) == 0 || stub->object == nullptr)
                continue;
            if (stub->object->isKindOf(AcDbSequenceEnd::desc()))
                parts.end = stub;
            else
                parts.all.push_back(stub);
        }
    return parts;
}

}   // namespace

int64_t HasParts(ObjectEncoder& out)
{
    return !PartsOf(out).all.empty();
}

int64_t PartCount(ObjectEncoder& out)
{
    return int64_t(PartsOf(out).all.size());
}

void ReadParts(ObjectDecoder& in, const Step& step)
{
    PendingChain chain;
    chain.owner = in.input.StubOf(in.handle);
    if (in.version <= kR2000) {
        chain.first = in.Handle();
        chain.last = in.Handle();
        chain.list.push_back(in.Ref());
    } else {
        const int64_t count = in.variables[step.countBy];
        if (!in.IsCount(count))
            return;
        for (int64_t i = 0; i <= count && !in.handles.isBroken(); ++i)
            chain.list.push_back(in.Ref());
    }
    in.input.chains.push_back(std::move(chain));
}

void WriteParts(ObjectEncoder& out, const Step&)
{
    const Parts parts = PartsOf(out);
    if (out.version <= kR2000) {
        out.Ref(4, parts.all.empty() ? nullptr : parts.all.front());
        out.Ref(4, parts.all.empty() ? nullptr : parts.all.back());
    } else {
        for (const AcDbStub* part : parts.all)
            out.Ref(3, part);
    }
    out.Ref(3, parts.end);
}

// --- polylines ---

namespace {

enum VertexBit { kHasBulges = 16, kHasWidths = 32, kHasIds = 1024 };

}   // namespace

void ReadVertices(ObjectDecoder& in, const Step& step)
{
    BitReader& data = in.data;
    const int64_t flags = in.variables[step.countBy];
    const bool hasIds = in.version >= kR2010 && (flags & kHasIds) != 0;
    const uint32_t points = data.BL();
    const uint32_t bulges = (flags & kHasBulges) != 0 ? data.BL() : 0;
    const uint32_t ids = hasIds ? data.BL() : 0;
    const uint32_t widths = (flags & kHasWidths) != 0 ? data.BL() : 0;
    if (!in.IsCount(points) || !in.IsCount(bulges) || !in.IsCount(ids) || !in.IsCount(widths))
        return;
    // In the stream all points come first, in memory each vertex is whole.
    std::vector<double> places(size_t(points) * 2), bends(bulges), spans(size_t(widths) * 2);
    std::vector<int32_t> numbers(ids);
    double x = 0, y = 0;
    for (uint32_t i = 0; i < points; ++i) {
        const bool isWhole = in.version <= kR14 || i == 0;
        places[2 * i] = x = isWhole ? data.RD() : data.DD(x);
        places[2 * i + 1] = y = isWhole ? data.RD() : data.DD(y);
    }
    for (double& value : bends)
        value = data.BD();
    for (int32_t& value : numbers)
        value = int32_t(data.BL());
    for (double& value : spans)
        value = data.BD();
    Place number = step.place;
    number.code = 91;
    for (uint32_t i = 0; i < points; ++i) {
        in.PutReal(step.place, 10, places[2 * i]);
        in.PutReal(step.place, 20, places[2 * i + 1]);
        if (i < widths) {
            in.PutReal(step.place, 40, spans[2 * i]);
            in.PutReal(step.place, 41, spans[2 * i + 1]);
        }
        if (i < bulges && bends[i] != 0)
            in.PutReal(step.place, 42, bends[i]);
        if (i < ids)
            in.PutInteger(number, numbers[i]);
    }
}

int64_t VertexBits(ObjectEncoder& out)
{
    PlaceWanted wanted;
    wanted.code = 10;
    wanted.isRepeated = true;
    int64_t bits = 0;
    for (const GroupValue& group : out.BucketOf(FindPlace(&out.object->fields(), true, wanted)).groups()) {
        bits |= group.code == 42 ? kHasBulges : group.code == 40 || group.code == 41 ? kHasWidths : 0;
        bits |= group.code == 91 && out.version >= kR2010 ? kHasIds : 0;
    }
    return bits;
}

void WriteVertices(ObjectEncoder& out, const Step& step)
{
    struct Vertex {
        double x = 0, y = 0, start = 0, end = 0, bulge = 0;
        int64_t id = 0;
    };
    std::vector<Vertex> all;
    for (const GroupValue& group : out.BucketOf(step.place).groups()) {
        if (group.code == 10)
            all.emplace_back();
        if (all.empty())
            continue;
        Vertex& vertex = all.back();
        (group.code == 10   ? vertex.x
         : group.code == 20 ? vertex.y
         : group.code == 40 ? vertex.start
         : group.code == 41 ? vertex.end
                            : vertex.bulge) = group.code == 91 ? vertex.bulge : group.real();
        if (group.code == 91)
            vertex.id = group.integer();
    }
    const int64_t flags = out.variables[step.countBy];
    const uint32_t count = uint32_t(all.size());
    BitWriter& data = out.data;
    data.BL(count);
    for (VertexBit bit : {kHasBulges, kHasIds, kHasWidths})
        if ((flags & bit) != 0)
            data.BL(count);
    for (size_t i = 0; i < all.size(); ++i) {
        if (i == 0) {
            data.RD(all[i].x);
            data.RD(all[i].y);
            continue;
        }
        data.DD(all[i].x, all[i - 1].x);
        data.DD(all[i].y, all[i - 1].y);
    }
    if ((flags & kHasBulges) != 0)
        for (const Vertex& vertex : all)
            data.BD(vertex.bulge);
    if ((flags & kHasIds) != 0)
        for (const Vertex& vertex : all)
            data.BL(uint32_t(vertex.id));
    if ((flags & kHasWidths) != 0)
        for (const Vertex& vertex : all) {
            data.BD(vertex.start);
            data.BD(vertex.end);
        }
}

// A negative width counts for both ends.
void ReadWidths(ObjectDecoder& in, const Step& step)
{
    const double start = in.data.BD();
    in.At<double>(step.place.offset) = std::fabs(start);
    in.At<double>(step.also[0]) = start < 0 ? -start : in.data.BD();
}

void WriteWidths(ObjectEncoder& out, const Step& step)
{
    const double start = out.At<double>(step.place.offset), end = out.At<double>(step.also[0]);
    if (start == end && start > 0)
        return out.data.BD(-start);
    out.data.BD(std::fabs(start));
    out.data.BD(end);
}

void ReadCurve3d(ObjectDecoder& in, const Step& step)
{
    const int64_t kind = in.variables[step.countBy];
    in.At<int16_t>(step.place.offset) = kind == 1 ? int16_t(5) : kind == 2 ? int16_t(6) : int16_t(0);
    if (kind != 0)
        in.At<int16_t>(step.also[0]) |= 4;
}

int64_t CurveKind(ObjectEncoder& out)
{
    PlaceWanted wanted;
    wanted.code = 75;
    const int64_t type = out.GetInteger(FindPlace(&out.object->fields(), true, wanted));
    return type == 5 ? 1 : type == 6 ? 2 : 0;
}

// --- splines ---

namespace {

// Bits of group 70: the fit points count, and their distances are the parameters.
enum SplineBit { kIsPlanar = 8, kByChords = 32, kByFitPoints = 1024 };

constexpr double kKnotTolerance = 1e-9, kPointTolerance = 1e-10;

size_t CountIn(ObjectEncoder& out, int code)
{
    PlaceWanted wanted;
    wanted.code = code;
    wanted.isRepeated = true;
    return out.BucketOf(FindPlace(&out.object->fields(), true, wanted)).CountOf(code);
}

}   // namespace

// 1: by control points, 2: by fit points.
int64_t SplineKind(ObjectEncoder& out)
{
    PlaceWanted flags;
    flags.code = 70;
    const bool isByFit = (out.GetInteger(FindPlace(&out.object->fields(), true, flags)) & kByFitPoints) != 0;
    return CountIn(out, 11) != 0 && (isByFit || CountIn(out, 10) == 0) ? 2 : 1;
}

// Files give the points to pass through and no more; the curve is needed all the same.
void ReadFitCurve(ObjectDecoder& in, const Step& step)
{
    const ClassSchema& schema = in.object->fields();
    const auto place = [&schema](int code, bool isRepeated) {
        PlaceWanted wanted;
        wanted.code = code;
        wanted.isRepeated = isRepeated;
        return FindPlace(&schema, true, wanted);
    };
    in.At<int16_t>(step.place.offset) |= kByFitPoints | kByChords;
    const AcDbSpline& spline = *static_cast<const AcDbSpline*>(in.object);
    AcGePoint3dArray points;
    for (int i = 0; i < spline.numFitPoints(); ++i) {
        AcGePoint3d point;
        spline.getFitPointAt(i, point);
        points.append(point);
    }
    const AcGeVector3d& start = in.At<AcGeVector3d>(place(12, false).offset);
    const AcGeVector3d& end = in.At<AcGeVector3d>(place(13, false).offset);
    const AcGeNurbCurve3d curve(points, start, end, !start.isZeroLength(), !end.isZeroLength());
    if (in.data.isBroken() || curve.degree() != in.At<int16_t>(place(71, false).offset))
        return;
    in.At<double>(place(42, false).offset) = kKnotTolerance;
    in.At<double>(place(43, false).offset) = kPointTolerance;
    bool isLevel = true;
    for (const AcGePoint3d& point : curve.controlPoints())
        isLevel = isLevel && point.z == curve.controlPoints()[0].z;
    if (isLevel) {
        in.At<int16_t>(step.place.offset) |= kIsPlanar;
        in.At<AcGeVector3d>(place(210, false).offset) = AcGeVector3d(0, 0, 1);
    }
    const Place knots = place(40, true), controls = place(10, true);
    for (double knot : curve.knots())
        in.PutReal(knots, 40, knot);
    for (const AcGePoint3d& point : curve.controlPoints())
        for (int i = 0; i < 3; ++i)
            in.PutReal(controls, 10 + 10 * i, point[unsigned(i)]);
}

int64_t HasWeights(ObjectEncoder& out)
{
    return CountIn(out, 41) != 0;
}

// --- others ---

void ReadMlineStyle(ObjectDecoder& in, const Step& step)
{
    const uint64_t style = in.Handle();
    in.At<AcDbObjectId>(step.place.offset) = in.input.StubOf(style);
    in.At<CString>(step.also[0]) = in.input.NameOf(style);
}

void WriteMlineStyle(ObjectEncoder& out, const Step& step)
{
    out.Ref(5, out.At<AcDbObjectId>(step.place.offset));
}

// Files leave out the last point of an outline where it is the first again.
void ReadOutline(ObjectDecoder& in, const Step& step)
{
    const uint32_t count = in.data.BL();
    if (!in.IsCount(count))
        return;
    std::vector<AcGePoint2d> points(count);
    for (AcGePoint2d& point : points) {
        point.x = in.data.RD();
        point.y = in.data.RD();
    }
    if (!points.empty() && (points.front().x != points.back().x || points.front().y != points.back().y))
        points.push_back(points.front());
    for (const AcGePoint2d& point : points) {
        in.PutReal(step.place, step.place.code, point.x);
        in.PutReal(step.place, step.place.code + 10, point.y);
    }
}

void WriteOutline(ObjectEncoder& out, const Step& step)
{
    const GroupList& groups = out.BucketOf(step.place).groups();
    size_t count = groups.size() / 2;
    if (count > 1 && groups[0].real() == groups[2 * count - 2].real() &&
        groups[1].real() == groups[2 * count - 1].real())
        --count;
    out.data.BL(uint32_t(count));
    for (size_t i = 0; i < 2 * count; ++i)
        out.data.RD(groups[i].real());
}

void ReadRest(ObjectDecoder& in, const Step&)
{
    in.isRest = true;
    in.data.Seek(in.data.End());
    in.texts.Seek(in.texts.End());
}

}   // namespace KxPlat
