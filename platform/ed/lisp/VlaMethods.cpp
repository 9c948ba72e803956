// What programs of the object model do to objects and collections. Each method is also reached as
// (vlax-invoke object 'name arguments).
#include "../../ap/Documents.h"
#include "../../db/AcDbArc.h"
#include "../../db/AcDbBlockTableRecord.h"
#include "../../db/AcDbCircle.h"
#include "../../db/AcDbDatabase.h"
#include "../../db/AcDbLayerTableRecord.h"
#include "../../db/AcDbLine.h"
#include "../../db/AcDbPoint.h"
#include "../../db/AcDbPolyline.h"
#include "../../db/AcDbText.h"
#include "../../db/core/DbCore.h"
#include "../../db/core/Stub.h"
#include "../../win/CharTables.h"
#include "../commands/EntityTools.h"
#include "HostValues.h"
#include "Interpreter.h"
#include "VlaObjects.h"

namespace KxPlat::Lisp {

namespace {

[[noreturn]] void Refused(const wchar_t* why)
{
    throw Failure(std::wstring(L"Automation Error. ") + why);
}

AcGePoint3d PointIn(const Value& value)
{
    const Point point = PointOf(value);
    return AcGePoint3d(point.x, point.y, point.z);
}

Value NewObject(AcDbObjectId id)
{
    return Value(static_cast<HostCell*>(new VlaObject(id)));
}

// --- of entities ---

void Transform(const Value& object, const AcGeMatrix3d& matrix)
{
    AcDbEntity* entity = nullptr;
    if (acdbOpenObject(entity, VlaObjectOf(object).id(), AcDb::kForWrite) != Acad::eOk)
        Refused(L"The object cannot be changed");
    const Acad::ErrorStatus status = entity->transformBy(matrix);
    entity->close();
    if (status != Acad::eOk)
        Refused(L"The object cannot be changed in this way");
}

Value Copy(Interpreter&, const Arguments& arguments)
{
    const std::vector<AcDbObjectId> copies = CopiesOf({VlaObjectOf(arguments[0]).id()});
    if (copies.size() != 1)
        Refused(L"The object cannot be copied");
    return NewObject(copies[0]);
}

// (vla-move object from to)
Value Move(Interpreter&, const Arguments& arguments)
{
    Transform(arguments[0], AcGeMatrix3d::translation(PointIn(arguments[2]) - PointIn(arguments[1])));
    return {};
}

// (vla-rotate object base radians)
Value Rotate(Interpreter&, const Arguments& arguments)
{
    Transform(arguments[0],
              AcGeMatrix3d::rotation(NumberOf(arguments[2]), AcGeVector3d::kZAxis, PointIn(arguments[1])));
    return {};
}

Value Scale(Interpreter&, const Arguments& arguments)
{
    const double factor = NumberOf(arguments[2]);
    if (!(factor > 0))
        Refused(L"Invalid scale factor");
    Transform(arguments[0], AcGeMatrix3d::scaling(factor, PointIn(arguments[1])));
    return {};
}

// (vla-mirror object from to): a mirrored copy; the object stays.
Value Mirror(Interpreter& lisp, const Arguments& arguments)
{
    const AcGePoint3d from = PointIn(arguments[1]), to = PointIn(arguments[2]);
    const AcGeVector3d normal = (to - from).crossProduct(AcGeVector3d::kZAxis);
    if (normal.isZeroLength())
        Refused(L"Invalid mirror line");
    Value copy = Copy(lisp, {arguments.first, 1});
    Transform(copy, AcGeMatrix3d::mirroring(AcGePlane(from, normal)));
    return copy;
}

// (vla-getboundingbox object 'lower 'upper) sets both variables to points.
Value BoundingBox(Interpreter&, const Arguments& arguments)
{
    if (!arguments[1].IsSymbol() || !arguments[2].IsSymbol())
        BadArgument(L"symbolp", arguments[arguments[1].IsSymbol() ? 2 : 1]);
    AcDbEntity* entity = nullptr;
    AcDbExtents box;
    if (acdbOpenObject(entity, VlaObjectOf(arguments[0]).id(), AcDb::kForRead) != Acad::eOk)
        Refused(L"The object cannot be read");
    const Acad::ErrorStatus status = entity->getGeomExtents(box);
    entity->close();
    if (status != Acad::eOk)
        Refused(L"Null extents");
    const AcGePoint3d low = box.minPoint(), high = box.maxPoint();
    arguments[1].symbol()->value = ListOf(low.x, low.y, low.z);
    arguments[2].symbol()->value = ListOf(high.x, high.y, high.z);
    return {};
}

// --- of blocks and tables ---

DbCore& Core()
{
    AcApDocument* document = acDocManager->curDocument();
    if (document == nullptr)
        Refused(L"No drawing is open");
    return CoreOf(*document->database());
}

AcDbObjectId BlockOf(const VlaObject& object)
{
    const wchar_t* space = object.thing() == L"ModelSpace"   ? ACDB_MODEL_SPACE
                           : object.thing() == L"PaperSpace" ? ACDB_PAPER_SPACE
                                                             : nullptr;
    return space == nullptr ? object.id() : AcDbObjectId(Core().Table(TableKind::Block)->find(space));
}

Value AddTo(const Value& where, std::unique_ptr<AcDbEntity> entity)
{
    AcDbBlockTableRecord* block = nullptr;
    if (acdbOpenObject(block, BlockOf(VlaObjectOf(where)), AcDb::kForWrite) != Acad::eOk)
        Refused(L"The object is no block");
    entity->setDatabaseDefaults(block->database());
    AcDbObjectId id;
    const Acad::ErrorStatus status = block->appendAcDbEntity(id, entity.get());
    block->close();
    if (status != Acad::eOk)
        Refused(L"The object cannot be added");
    entity.release()->close();
    return NewObject(id);
}

Value AddLine(Interpreter&, const Arguments& arguments)
{
    return AddTo(arguments[0], std::make_unique<AcDbLine>(PointIn(arguments[1]), PointIn(arguments[2])));
}

Value AddCircle(Interpreter&, const Arguments& arguments)
{
    const double radius = NumberOf(arguments[2]);
    if (!(radius > 0))
        Refused(L"Invalid radius");
    return AddTo(arguments[0], std::make_unique<AcDbCircle>(PointIn(arguments[1]), AcGeVector3d::kZAxis, radius));
}

// (vla-addarc block centre radius start end)
Value AddArc(Interpreter&, const Arguments& arguments)
{
    const double radius = NumberOf(arguments[2]);
    if (!(radius > 0))
        Refused(L"Invalid radius");
    return AddTo(arguments[0], std::make_unique<AcDbArc>(PointIn(arguments[1]), radius, NumberOf(arguments[3]),
                                                         NumberOf(arguments[4])));
}

Value AddPoint(Interpreter&, const Arguments& arguments)
{
    return AddTo(arguments[0], std::make_unique<AcDbPoint>(PointIn(arguments[1])));
}

// (vla-addtext block text point height)
Value AddText(Interpreter&, const Arguments& arguments)
{
    auto text = std::make_unique<AcDbText>();
    text->setTextString(TextOf(arguments[1]).c_str());
    text->setPosition(PointIn(arguments[2]));
    if (text->setHeight(NumberOf(arguments[3])) != Acad::eOk)
        Refused(L"Invalid height");
    return AddTo(arguments[0], std::move(text));
}

// (vla-addlightweightpolyline block '(x1 y1 x2 y2 ...))
Value AddPolyline(Interpreter&, const Arguments& arguments)
{
    std::vector<double> numbers;
    for (const Value* at = &arguments[1]; at->IsCons(); at = &at->cdr())
        numbers.push_back(NumberOf(at->car()));
    if (numbers.size() < 4 || numbers.size() % 2 != 0)
        Refused(L"Invalid number of coordinates");
    auto polyline = std::make_unique<AcDbPolyline>();
    for (size_t i = 0; i < numbers.size(); i += 2)
        polyline->addVertexAt(unsigned(i / 2), AcGePoint2d(numbers[i], numbers[i + 1]));
    return AddTo(arguments[0], std::move(polyline));
}

// (vla-add layers name): the layer of this name, a new one where there is none.
Value AddRecord(Interpreter&, const Arguments& arguments)
{
    if (VlaObjectOf(arguments[0]).thing() != L"Layers")
        Refused(L"Only layers can be added");
    const std::wstring& name = TextOf(arguments[1]);
    if (const AcDbObjectId known(Core().Table(TableKind::Layer)->find(name)); !known.isNull())
        return NewObject(known);
    AcDbLayerTable* table = nullptr;
    if (acDocManager->curDocument()->database()->getSymbolTable(table, AcDb::kForWrite) != Acad::eOk)
        Refused(L"The layers cannot be changed");
    auto layer = std::make_unique<AcDbLayerTableRecord>();
    AcDbObjectId id;
    Acad::ErrorStatus status = layer->setName(name.c_str());
    if (status == Acad::eOk)
        status = table->add(id, layer.get());
    table->close();
    if (status != Acad::eOk)
        Refused(L"Invalid name");
    layer.release()->close();
    return NewObject(id);
}

// --- by name ---

const Symbol* MethodOf(Interpreter& lisp, const Value& name)
{
    const Symbol* symbol = lisp.Find(L"VLA-" + Upper(name.IsSymbol() ? name.symbol()->name : TextOf(name)));
    return symbol != nullptr && symbol->value.kind() == Kind::Builtin ? symbol : nullptr;
}

// (vlax-invoke object 'name arguments)
Value Invoke(Interpreter& lisp, const Arguments& arguments)
{
    VlaObjectOf(arguments[0]);
    const Symbol* method = MethodOf(lisp, arguments[1]);
    if (method == nullptr)
        Refused(L"Unknown method");
    std::vector<Value> passed = {arguments[0]};
    passed.insert(passed.end(), arguments.begin() + 2, arguments.end());
    return lisp.Apply(method->value, passed.data(), passed.size());
}

Value IsApplicable(Interpreter& lisp, const Arguments& arguments)
{
    VlaObjectOf(arguments[0]);
    return lisp.Truth(MethodOf(lisp, arguments[1]) != nullptr);
}

// (vlax-map-collection collection function)
Value MapCollection(Interpreter& lisp, const Arguments& arguments)
{
    for (const Value& member : MembersOfCollection(arguments[0])) {
        lisp.Step();
        lisp.Apply(arguments[1], {member});
    }
    return arguments[0];
}

const Builtin kRows[] = {
    {L"VLA-ADD", AddRecord, 2, 2},
    {L"VLA-ADDARC", AddArc, 5, 5},
    {L"VLA-ADDCIRCLE", AddCircle, 3, 3},
    {L"VLA-ADDLIGHTWEIGHTPOLYLINE", AddPolyline, 2, 2},
    {L"VLA-ADDLINE", AddLine, 3, 3},
    {L"VLA-ADDPOINT", AddPoint, 2, 2},
    {L"VLA-ADDTEXT", AddText, 4, 4},
    {L"VLA-COPY", Copy, 1, 1},
    {L"VLA-GETBOUNDINGBOX", BoundingBox, 3, 3},
    {L"VLA-MIRROR", Mirror, 3, 3},
    {L"VLA-MOVE", Move, 3, 3},
    {L"VLA-ROTATE", Rotate, 3, 3},
    {L"VLA-SCALEENTITY", Scale, 3, 3},
    {L"VLAX-INVOKE", Invoke, 2},
    {L"VLAX-INVOKE-METHOD", Invoke, 2},
    {L"VLAX-METHOD-APPLICABLE-P", IsApplicable, 2, 2},
    {L"VLAX-MAP-COLLECTION", MapCollection, 2, 2},
};

}   // namespace

const BuiltinTable kMethods = TableOf(kRows);

}   // namespace KxPlat::Lisp
