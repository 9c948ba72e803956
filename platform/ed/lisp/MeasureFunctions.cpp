// Sizes of texts, units, and what draws on a screen that is not there.
#include "../../ap/Documents.h"
#include "../../db/AcDbDatabase.h"
#include "../../db/AcDbSymbolTable.h"
#include "../../db/AcDbText.h"
#include "../../db/core/DbCore.h"
#include "../../win/CharTables.h"
#include "Families.h"
#include "HostValues.h"
#include "Interpreter.h"

namespace KxPlat::Lisp {

namespace {

// The value of a list's group, nil where it has none.
Value GroupOf(const Value& groups, int32_t code)
{
    for (const Value* at = &groups; at->IsCons(); at = &at->cdr())
        if (at->car().IsCons() && at->car().car().IsInteger() && at->car().car().integer() == code)
            return at->car().cdr();
    return {};
}

// (textbox groups): lower left and upper right corner of a text's groups, as if it stood at 0,0 and were not turned.
Value TextBox(Interpreter&, const Arguments& arguments)
{
    const Value& groups = arguments[0];
    AcApDocument* document = acDocManager->curDocument();
    const Value contents = GroupOf(groups, 1), height = GroupOf(groups, 40);
    if (document == nullptr || !contents.IsText())
        return {};
    const DbCore& core = CoreOf(*document->database());
    AcDbText text;
    text.setDatabaseDefaults(document->database());
    const Value style = GroupOf(groups, 7);
    if (const AcDbObjectId id(style.IsText() ? core.Table(TableKind::TextStyle)->find(style.text()) : nullptr);
        !id.isNull())
        text.setTextStyle(id);
    text.setTextString(contents.text().c_str());
    if (height)
        text.setHeight(NumberOf(height));
    if (const Value width = GroupOf(groups, 41))
        text.setWidthFactor(NumberOf(width));
    if (const Value slant = GroupOf(groups, 51))
        text.setOblique(NumberOf(slant));
    AcDbExtents box;
    if (text.getGeomExtents(box) != Acad::eOk)
        return {};
    const AcGePoint3d low = box.minPoint(), high = box.maxPoint();
    return ListOf(ListOf(low.x, low.y, 0.0), ListOf(high.x, high.y, 0.0));
}

struct Unit {
    const wchar_t* names;   // parted by blanks
    wchar_t kind;           // only units of one kind measure the same
    double size;
};

const Unit kUnits[] = {
    {L"m meter meters metre metres", L'l', 1},
    {L"mm millimeter millimeters millimetre millimetres", L'l', 1e-3},
    {L"cm centimeter centimeters centimetre centimetres", L'l', 1e-2},
    {L"dm decimeter decimeters", L'l', 1e-1},
    {L"km kilometer kilometers kilometre kilometres", L'l', 1e3},
    {L"\" in inch inches", L'l', 0.0254},
    {L"' ft foot feet", L'l', 0.3048},
    {L"yd yard yards", L'l', 0.9144},
    {L"mi mile miles", L'l', 1609.344},
    {L"rad radian radians", L'a', 1},
    {L"deg degree degrees", L'a', 3.14159265358979323846 / 180},
    {L"grad grads gon", L'a', 3.14159265358979323846 / 200},
    {L"circle circles turn", L'a', 2 * 3.14159265358979323846},
    {L"s sec second seconds", L't', 1},
    {L"min minute minutes", L't', 60},
    {L"h hr hour hours", L't', 3600},
    {L"day days", L't', 86400},
};

const Unit* FindUnit(const std::wstring& name)
{
    const std::wstring wanted = L" " + Upper(name) + L" ";
    for (const Unit& unit : kUnits)
        if (Upper(L" " + std::wstring(unit.names) + L" ").find(wanted) != std::wstring::npos)
            return &unit;
    return nullptr;
}

// (cvunit value from to): a number, or each of a point's.
Value ConvertUnit(Interpreter&, const Arguments& arguments)
{
    const Unit* from = FindUnit(TextOf(arguments[1]));
    const Unit* to = FindUnit(TextOf(arguments[2]));
    if (from == nullptr || to == nullptr || from->kind != to->kind)
        return {};
    const double factor = from->size / to->size;
    if (!arguments[0].IsCons())
        return Value(NumberOf(arguments[0]) * factor);
    ListBuilder list;
    for (const Value* at = &arguments[0]; at->IsCons(); at = &at->cdr())
        list.Add(Value(NumberOf(at->car()) * factor));
    return list.Take();
}

Value Nothing(Interpreter&, const Arguments&)
{
    return {};
}

const Builtin kRows[] = {
    {L"TEXTBOX", TextBox, 1, 1}, {L"CVUNIT", ConvertUnit, 3, 3}, {L"GRDRAW", Nothing, 3, 4},
    {L"GRVECS", Nothing, 1, 2},  {L"GRTEXT", Nothing, 0, 3},     {L"GRCLEAR", Nothing, 0, 0},
    {L"INITDIA", Nothing, 0, 1},
};

}   // namespace

const BuiltinTable kMeasures = TableOf(kRows);

}   // namespace KxPlat::Lisp
