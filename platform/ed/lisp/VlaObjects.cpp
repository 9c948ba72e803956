#include "VlaObjects.h"
#include "../../ap/Documents.h"
#include "../../db/AcDbBlockTableRecord.h"
#include "../../db/AcDbCurve.h"
#include "../../db/AcDbDatabase.h"
#include "../../db/core/DbCore.h"
#include "../../db/core/Stub.h"
#include "../../db/core/Wildcard.h"
#include "../../win/CharTables.h"
#include "../select/acdbads.h"
#include "../select/EntityGroups.h"
#include "Chain.h"
#include "HostValues.h"
#include "Interpreter.h"
#include "Printer.h"
#include <algorithm>
#include <cmath>

namespace KxPlat::Lisp {

namespace {

constexpr int kLayerCode = 8;

// How a property's value is made of a group's.
enum class How { Group, ReadOnly, Flag, NotFlag, Sign, Switch };

struct PropertyRow {
    const wchar_t* classes;   // of group 0
    const wchar_t* name;
    int code;
    How how = How::Group;
    int bit = 0;                     // of a flag
    double byDefault = 0;            // of a number that is not there
    const wchar_t* text = nullptr;   // of a text that is not there
};

// The first row that fits counts.
const PropertyRow g_properties[] = {
    {L"*", L"Handle", 5, How::ReadOnly},
    {L"LAYER", L"Color", 62},
    {L"LAYER", L"LayerOn", 62, How::Sign},
    {L"LAYER", L"Freeze", 70, How::Flag, 1},
    {L"LAYER", L"Lock", 70, How::Flag, 4},
    {L"LAYER", L"Plottable", 290, How::Flag, 1, 1},
    {L"LAYER", L"Lineweight", 370, How::Group, 0, -3},
    {L"LAYER", L"Linetype", 6},
    {L"LAYER,STYLE,BLOCK,BLOCK_RECORD,LTYPE,DIMSTYLE,VIEW,UCS", L"Name", 2},
    {L"STYLE", L"FontFile", 3},
    {L"STYLE", L"Height", 40},
    {L"STYLE", L"Width", 41},
    {L"*", L"Layer", kLayerCode},
    {L"*", L"Color", 62, How::Group, 0, 256},
    {L"*", L"Linetype", 6, How::Group, 0, 0, L"ByLayer"},
    {L"*", L"LinetypeScale", 48, How::Group, 0, 1},
    {L"*", L"Lineweight", 370, How::Group, 0, -1},
    {L"*", L"Visible", 60, How::Switch},
    {L"*", L"Thickness", 39},
    {L"*", L"Normal", 210},
    {L"TEXT,MTEXT,ATTRIB,ATTDEF", L"TextString", 1},
    {L"TEXT,MTEXT,ATTRIB,ATTDEF", L"StyleName", 7, How::Group, 0, 0, L"Standard"},
    {L"TEXT,MTEXT,ATTRIB,ATTDEF", L"Height", 40},
    {L"TEXT,MTEXT,ATTRIB,ATTDEF,INSERT", L"Rotation", 50},
    {L"TEXT,ATTRIB,ATTDEF", L"ScaleFactor", 41, How::Group, 0, 1},
    {L"TEXT,ATTRIB,ATTDEF", L"ObliqueAngle", 51},
    {L"TEXT,ATTRIB,ATTDEF", L"TextAlignmentPoint", 11},
    {L"TEXT,MTEXT,ATTRIB,ATTDEF,INSERT", L"InsertionPoint", 10},
    {L"MTEXT", L"AttachmentPoint", 71},
    {L"MTEXT", L"Width", 41},
    {L"ATTRIB,ATTDEF", L"TagString", 2},
    {L"ATTDEF", L"PromptString", 3},
    {L"ATTRIB,ATTDEF", L"Invisible", 70, How::Flag, 1},
    {L"INSERT", L"Name", 2},
    {L"INSERT", L"EffectiveName", 2, How::ReadOnly},
    {L"INSERT", L"XScaleFactor", 41, How::Group, 0, 1},
    {L"INSERT", L"YScaleFactor", 42, How::Group, 0, 1},
    {L"INSERT", L"ZScaleFactor", 43, How::Group, 0, 1},
    {L"INSERT", L"HasAttributes", 66, How::Flag, 1},
    {L"LINE", L"StartPoint", 10},
    {L"LINE", L"EndPoint", 11},
    {L"CIRCLE,ARC,ELLIPSE", L"Center", 10},
    {L"CIRCLE,ARC", L"Radius", 40},
    {L"ARC", L"StartAngle", 50},
    {L"ARC", L"EndAngle", 51},
    {L"POINT", L"Coordinates", 10},
    {L"LWPOLYLINE,POLYLINE", L"Closed", 70, How::Flag, 1},
    {L"LWPOLYLINE", L"ConstantWidth", 43},
    {L"LWPOLYLINE", L"Elevation", 38},
};

Value GroupsOf(AcDbObjectId id)
{
    return ValueOfGroups(GroupsForPrograms(id));
}

const Value* FindGroup(const Value& groups, int code)
{
    for (const Value* at = &groups; at->IsCons(); at = &at->cons().cdr) {
        const Value& group = at->cons().car;
        if (group.IsCons() && group.car().IsInteger() && group.car().integer() == code)
            return &group;
    }
    return nullptr;
}

std::wstring ClassOf(const Value& groups)
{
    const Value* name = FindGroup(groups, 0);
    return name != nullptr && name->cdr().IsText() ? name->cdr().text() : std::wstring();
}

const PropertyRow* FindRow(const std::wstring& className, std::wstring_view name)
{
    for (const PropertyRow& row : g_properties) {
        if (EqualNoCase(row.name, name) && WildcardMatch(className, row.classes))
            return &row;
    }
    return nullptr;
}

Value Truth(Interpreter& lisp, bool isTrue)
{
    return lisp.Intern(isTrue ? L":VLAX-TRUE" : L":VLAX-FALSE");
}

bool IsTrue(Interpreter& lisp, const Value& value)
{
    return value && !IsEq(value, Truth(lisp, false)) && !(value.IsInteger() && value.integer() == 0);
}

// The group's value, with the type that it would have.
Value StoredOf(const PropertyRow& row, const Value& groups)
{
    if (const Value* group = FindGroup(groups, row.code))
        return group->cdr();
    if (row.text != nullptr)
        return Value(row.text);
    const bool isInteger = row.code >= 60 && row.code < 80;
    return isInteger || row.code == 370 || row.code == 290 ? Value(int32_t(row.byDefault)) : Value(row.byDefault);
}

Value Shown(Interpreter& lisp, const PropertyRow& row, const Value& groups)
{
    const Value stored = StoredOf(row, groups);
    const int32_t number = stored.IsInteger() ? stored.integer() : 0;
    switch (row.how) {
    case How::Flag:
        return Truth(lisp, (number & row.bit) != 0);
    case How::NotFlag:
        return Truth(lisp, (number & row.bit) == 0);
    case How::Sign:
        return Truth(lisp, number >= 0);
    case How::Switch:
        return Truth(lisp, number == 0);
    default:
        break;
    }
    // A layer that is off keeps its colour.
    return row.code == 62 && stored.IsInteger() ? Value(int32_t(std::abs(number))) : stored;
}

Value ToStore(Interpreter& lisp, const PropertyRow& row, const Value& groups, const Value& value)
{
    const Value stored = StoredOf(row, groups);
    const int32_t number = stored.IsInteger() ? stored.integer() : 0;
    const bool isOn = IsTrue(lisp, value);
    switch (row.how) {
    case How::Flag:
        return Value(int32_t(isOn ? number | row.bit : number & ~row.bit));
    case How::NotFlag:
        return Value(int32_t(isOn ? number & ~row.bit : number | row.bit));
    case How::Sign:
        return Value(int32_t(isOn ? std::abs(number) : -std::abs(number)));
    case How::Switch:
        return Value(int32_t(isOn ? 0 : 1));
    default:
        break;
    }
    if (row.code == 62 && number < 0 && value.IsInteger())
        return Value(int32_t(-std::abs(value.integer())));
    return value;
}

// In its place, or behind the layer, where all that entities share may stand.
Value WithGroup(const Value& groups, int code, const Value& value)
{
    const bool isThere = FindGroup(groups, code) != nullptr;
    ListBuilder list;
    bool isPut = false;
    for (const Value& group : Members(groups)) {
        const bool isIt = group.car().IsInteger() && group.car().integer() == code && !isPut;
        list.Add(isIt ? Pair(Value(int32_t(code)), value) : group);
        isPut |= isIt;
        const bool isLayer = group.car().IsInteger() && group.car().integer() == kLayerCode;
        if (!isThere && !isPut && isLayer) {
            list.Add(Pair(Value(int32_t(code)), value));
            isPut = true;
        }
    }
    if (!isPut)
        list.Add(Pair(Value(int32_t(code)), value));
    return list.Take();
}

// What is measured or told, and cannot be set.
// Of a polyline all coordinates in one list: two for each vertex of a flat one, else three.
Value CoordinatesOf(const AcDbCurve& curve, bool isFlat)
{
    double end = 0;
    if (curve.getEndParam(end) != Acad::eOk)
        return {};
    const int count = int(std::lround(end)) + (curve.isClosed() ? 0 : 1);
    ListBuilder list;
    for (int i = 0; i < count; ++i) {
        AcGePoint3d point;
        if (curve.getPointAtParam(i, point) != Acad::eOk)
            return {};
        list.Add(Value(point.x));
        list.Add(Value(point.y));
        if (!isFlat)
            list.Add(Value(point.z));
    }
    return list.Take();
}

Value AreaOf(const AcDbCurve& curve)
{
    double area = 0;
    return curve.getArea(area) == Acad::eOk ? Value(area) : Value();
}

Value LengthOf(const AcDbCurve& curve)
{
    double end = 0, length = 0;
    return curve.getEndParam(end) == Acad::eOk && curve.getDistAtParam(end, length) == Acad::eOk ? Value(length)
                                                                                                 : Value();
}

struct MeasuredRow {
    const wchar_t* classes;
    const wchar_t* name;
    Value (*measure)(const AcDbCurve& curve);
};

const MeasuredRow g_measured[] = {
    {L"*", L"Area", AreaOf},
    {L"LINE,LWPOLYLINE,POLYLINE", L"Length", LengthOf},
    {L"ARC", L"ArcLength", LengthOf},
    {L"CIRCLE", L"Circumference", LengthOf},
    {L"LWPOLYLINE", L"Coordinates", [](const AcDbCurve& curve) { return CoordinatesOf(curve, true); }},
    {L"POLYLINE", L"Coordinates", [](const AcDbCurve& curve) { return CoordinatesOf(curve, false); }},
};

const wchar_t kClassProperty[] = L"ObjectName";

Value Measured(const Value& object, std::wstring_view name)
{
    const AcDbStub* stub = VlaObjectOf(object).id();
    if (stub == nullptr || stub->object == nullptr)
        return {};
    if (EqualNoCase(name, kClassProperty))
        return Value(stub->object->isA()->name());
    const AcDbCurve* curve = AcDbCurve::cast(stub->object);
    const wchar_t* className = stub->object->isA()->dxfName();
    for (const MeasuredRow& row : g_measured) {
        if (curve != nullptr && className != nullptr && EqualNoCase(name, row.name) &&
            WildcardMatch(className, row.classes))
            return row.measure(*curve);
    }
    return {};
}

// Of the application and its document: other things.
struct ThingRow {
    const wchar_t* of;
    const wchar_t* name;
    const wchar_t* thing;
};

const ThingRow g_things[] = {
    {L"Application", L"ActiveDocument", L"Document"},
    {L"Application", L"Documents", L"Documents"},
    {L"Document", L"Layers", L"Layers"},
    {L"Document", L"Blocks", L"Blocks"},
    {L"Document", L"TextStyles", L"TextStyles"},
    {L"Document", L"Linetypes", L"Linetypes"},
    {L"Document", L"ModelSpace", L"ModelSpace"},
    {L"Document", L"PaperSpace", L"PaperSpace"},
    {L"Document", L"Application", L"Application"},
};

Value ThingOf(const VlaObject& object, std::wstring_view name)
{
    for (const ThingRow& row : g_things) {
        if (object.thing() == row.of && EqualNoCase(name, row.name))
            return new VlaObject(std::wstring(row.thing));
    }
    const AcApDocument* document = acDocManager->curDocument();
    if (object.thing() != L"Document" || document == nullptr)
        return {};
    if (EqualNoCase(name, L"Name"))
        return Value(document->docTitle());
    const std::wstring path = document->fileName();
    if (EqualNoCase(name, L"FullName"))
        return Value(path);
    return EqualNoCase(name, L"Path") ? Value(path.substr(0, std::min(path.find_last_of(L"\\/"), path.size())))
                                      : Value();
}

class Getter : public CallableCell {
public:
    explicit Getter(std::wstring name) : m_name(std::move(name)) {}
    const wchar_t* TypeName() const override { return L"SUBR"; }
    std::wstring Printed() const override { return L"#<SUBR VLA-GET-" + m_name + L">"; }
    Value Call(Interpreter& lisp, const Arguments& arguments) override
    {
        if (arguments.count != 1)
            Fail(arguments.count < 1 ? L"too few arguments" : L"too many arguments");
        return PropertyOf(lisp, arguments[0], m_name);
    }

private:
    std::wstring m_name;
};

class Setter : public CallableCell {
public:
    explicit Setter(std::wstring name) : m_name(std::move(name)) {}
    const wchar_t* TypeName() const override { return L"SUBR"; }
    std::wstring Printed() const override { return L"#<SUBR VLA-PUT-" + m_name + L">"; }
    Value Call(Interpreter& lisp, const Arguments& arguments) override
    {
        if (arguments.count != 2)
            Fail(arguments.count < 2 ? L"too few arguments" : L"too many arguments");
        SetProperty(lisp, arguments[0], m_name, arguments[1]);
        return {};
    }

private:
    std::wstring m_name;
};

[[noreturn]] void UnknownName(std::wstring_view name)
{
    throw Failure(L"Automation Error. Unknown name " + std::wstring(name));
}

}   // namespace

std::wstring VlaObject::Printed() const
{
    return L"#<VLA-OBJECT " + (m_thing.empty() ? PrintedName(m_id) : m_thing) + L">";
}

bool VlaObject::IsSame(const HostCell& other) const
{
    const auto* object = dynamic_cast<const VlaObject*>(&other);
    return object != nullptr && object->m_id == m_id && object->m_thing == m_thing;
}

const VlaObject& VlaObjectOf(const Value& value)
{
    const auto* object = value.kind() == Kind::Host ? dynamic_cast<const VlaObject*>(value.host()) : nullptr;
    if (object == nullptr)
        BadArgument(L"VLA-OBJECT", value);
    return *object;
}

Value PropertyOf(Interpreter& lisp, const Value& value, std::wstring_view name)
{
    const VlaObject& object = VlaObjectOf(value);
    if (!object.thing().empty()) {
        if (EqualNoCase(name, L"Count"))
            return Value(int32_t(MembersOfCollection(value).size()));
        const Value thing = ThingOf(object, name);
        if (!thing)
            UnknownName(name);
        return thing;
    }
    const Value groups = GroupsOf(object.id());
    const Value measured = Measured(value, name);
    const PropertyRow* row = FindRow(ClassOf(groups), name);
    if (measured)
        return measured;
    if (row == nullptr || groups.IsNil())
        UnknownName(name);
    return Shown(lisp, *row, groups);
}

void SetProperty(Interpreter& lisp, const Value& value, std::wstring_view name, const Value& set)
{
    const VlaObject& object = VlaObjectOf(value);
    const Value groups = object.thing().empty() ? GroupsOf(object.id()) : Value();
    const PropertyRow* row = FindRow(ClassOf(groups), name);
    if (row == nullptr || groups.IsNil() || row->how == How::ReadOnly)
        UnknownName(name);
    AcApDocument* document = acDocManager->curDocument();
    // entmod would make the layer.
    const bool isKnown =
        row->code != kLayerCode || (set.IsText() && document != nullptr &&
                                    CoreOf(*document->database()).Table(TableKind::Layer)->find(set.text()) != nullptr);
    const Chain chain(GroupChainOf(WithGroup(groups, row->code, ToStore(lisp, *row, groups, set))));
    if (!isKnown || acdbEntMod(chain.get()) != RTNORM)
        throw Failure(L"Automation Error. Invalid argument " + Shortened(set) + L" in " + std::wstring(name));
}

bool HasProperty(Interpreter&, const Value& value, std::wstring_view name, bool forChange)
{
    const VlaObject& object = VlaObjectOf(value);
    if (!object.thing().empty())
        return !forChange && bool(ThingOf(object, name));
    const PropertyRow* row = FindRow(ClassOf(GroupsOf(object.id())), name);
    return row != nullptr ? !forChange || row->how != How::ReadOnly : !forChange && bool(Measured(value, name));
}

void AddPropertyFunctions(Interpreter& lisp)
{
    const auto add = [&](const wchar_t* given, bool isSet) {
        const std::wstring name = Upper(given);
        lisp.Intern(L"VLA-GET-" + name)->value = Value(static_cast<HostCell*>(new Getter(name)));
        if (isSet)
            lisp.Intern(L"VLA-PUT-" + name)->value = Value(static_cast<HostCell*>(new Setter(name)));
    };
    for (const PropertyRow& row : g_properties)
        add(row.name, row.how != How::ReadOnly);
    for (const MeasuredRow& row : g_measured)
        add(row.name, false);
    for (const wchar_t* name : {kClassProperty, L"FullName", L"Path"})
        add(name, false);
    for (const ThingRow& row : g_things)
        add(row.name, false);
    add(L"Count", false);
    lisp.Intern(L":VLAX-TRUE")->value = Value(lisp.Intern(L":VLAX-TRUE"));
    lisp.Intern(L":VLAX-FALSE")->value = Value(lisp.Intern(L":VLAX-FALSE"));
}

std::vector<Value> MembersOfCollection(const Value& value)
{
    struct TableRow {
        const wchar_t* thing;
        TableKind kind;
    };
    static const TableRow tables[] = {{L"Layers", TableKind::Layer},
                                      {L"Blocks", TableKind::Block},
                                      {L"TextStyles", TableKind::TextStyle},
                                      {L"Linetypes", TableKind::Linetype}};
    const VlaObject& object = VlaObjectOf(value);
    AcApDocument* document = acDocManager->curDocument();
    std::vector<Value> members;
    if (document == nullptr)
        return members;
    const auto add = [&](const std::vector<AcDbStub*>& stubs) {
        for (AcDbStub* stub : stubs) {
            if (!stub->erased)
                members.emplace_back(static_cast<HostCell*>(new VlaObject(AcDbObjectId(stub))));
        }
    };
    const DbCore& core = CoreOf(*document->database());
    for (const TableRow& row : tables) {
        if (object.thing() == row.thing)
            add(core.Table(row.kind)->records());
    }
    const wchar_t* space = object.thing() == L"ModelSpace"   ? ACDB_MODEL_SPACE
                           : object.thing() == L"PaperSpace" ? ACDB_PAPER_SPACE
                                                             : nullptr;
    const AcDbStub* block =
        space != nullptr ? core.Table(TableKind::Block)->find(space) : static_cast<const AcDbStub*>(object.id());
    const auto* record = block != nullptr ? AcDbBlockTableRecord::cast(block->object) : nullptr;
    if (record != nullptr)
        add(record->entities());
    return members;
}

}   // namespace KxPlat::Lisp
