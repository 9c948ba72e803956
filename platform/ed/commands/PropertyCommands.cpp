// CHPROP and the properties half of CHANGE.
#include "../../db/AcDbArc.h"
#include "../../db/AcDbCircle.h"
#include "../../db/AcDbDatabase.h"
#include "../../db/AcDbLine.h"
#include "../../db/AcDbPolyline.h"
#include "../../db/AcDbSymbolTable.h"
#include "../../db/AcDbText.h"
#include "../../db/core/DbCore.h"
#include "../../win/CharTables.h"
#include "../ColorText.h"
#include "../Session.h"
#include "EntityTools.h"
#include "HostCommands.h"
#include "Questions.h"
#include <cmath>
#include <functional>

namespace KxPlat {

namespace {

using Change = std::function<void(AcDbEntity&)>;

// Each asks for its value and gives the change; none when the answer was no good.
Change AskColor()
{
    const std::optional<std::wstring> name = AskLine(L"\nEnter new color [Truecolor] <BYLAYER>: ");
    AcCmColor color;
    if (!name || !ColorFromText(name->empty() ? L"BYLAYER" : *name, color)) {
        if (name)
            FailCommand(L"Invalid color \"" + *name + L"\".");
        return {};
    }
    return [color](AcDbEntity& entity) { entity.setColor(color); };
}

Change AskRecord(const wchar_t* what, TableKind kind, Acad::ErrorStatus (*set)(AcDbEntity&, AcDbObjectId))
{
    const std::optional<std::wstring> name = AskLine(std::wstring(L"\nEnter new ") + what + L" name: ");
    if (!name || name->empty())
        return {};
    const AcDbObjectId record = CoreOf(WorkingDatabase()).Table(kind)->find(*name);
    if (record.isNull()) {
        FailCommand(std::wstring(L"Cannot find ") + what + L" \"" + *name + L"\".");
        return {};
    }
    return [record, set](AcDbEntity& entity) { set(entity, record); };
}

Change AskLayer()
{
    return AskRecord(L"layer", TableKind::Layer,
                     [](AcDbEntity& entity, AcDbObjectId layer) { return entity.setLayer(layer); });
}

Change AskLinetype()
{
    return AskRecord(L"linetype", TableKind::Linetype,
                     [](AcDbEntity& entity, AcDbObjectId linetype) { return entity.setLinetype(linetype); });
}

Change AskLinetypeScale()
{
    double scale = 1;
    if (!AskReal(L"\nSpecify new linetype scale <1.0000>: ", scale, RSG_NONEG | RSG_NOZERO))
        return {};
    return [scale](AcDbEntity& entity) { entity.setLinetypeScale(scale); };
}

// In millimetres, or one of three names.
Change AskLineWeight()
{
    const std::optional<std::wstring> name = AskLine(L"\nEnter new lineweight <ByLayer>: ");
    if (!name)
        return {};
    AcDb::LineWeight weight = AcDb::kLnWtByLayer;
    VarValue millimetres;
    if (EqualNoCase(*name, L"ByBlock"))
        weight = AcDb::kLnWtByBlock;
    else if (EqualNoCase(*name, L"Default"))
        weight = AcDb::kLnWtByLwDefault;
    else if (!name->empty() && VarFromText(*name, VarType::Real, millimetres))
        weight = AcDb::LineWeight(std::lround(millimetres.real[0] * 100));
    else if (!name->empty() && !EqualNoCase(*name, L"ByLayer")) {
        FailCommand(L"Invalid lineweight \"" + *name + L"\".");
        return {};
    }
    return [weight](AcDbEntity& entity) { entity.setLineWeight(weight); };
}

template <class... Classes>
void SetThickness(AcDbEntity& entity, double thickness)
{
    const auto set = [&](auto* cast) {
        if (cast != nullptr)
            cast->setThickness(thickness);
    };
    (set(Classes::cast(&entity)), ...);
}

Change AskThickness()
{
    double thickness = 0;
    if (!AskReal(L"\nSpecify new thickness <0.0000>: ", thickness))
        return {};
    return [thickness](AcDbEntity& entity) {
        SetThickness<AcDbLine, AcDbCircle, AcDbArc, AcDbPolyline, AcDbText>(entity, thickness);
    };
}

struct PropertyRow {
    const wchar_t* keyword;
    Change (*ask)();
};

const PropertyRow g_properties[] = {
    {L"Color", AskColor},           {L"LAyer", AskLayer},        {L"LType", AskLinetype},
    {L"ltScale", AskLinetypeScale}, {L"LWeight", AskLineWeight}, {L"Thickness", AskThickness},
};

void ChangeProperties(const Picked& picked)
{
    for (;;) {
        const std::wstring keyword =
            AskKeyword(L"\nEnter property to change [Color/LAyer/LType/ltScale/LWeight/Thickness]: ",
                       L"Color LAyer LType ltScale LWeight Thickness");
        if (keyword.empty())
            return;
        for (const PropertyRow& row : g_properties) {
            if (keyword != row.keyword)
                continue;
            if (const Change change = row.ask())
                picked.Change(change);
        }
    }
}

}   // namespace

void ChpropCommand()
{
    const Picked picked;
    if (!picked.isEmpty())
        ChangeProperties(picked);
}

void ChangeCommand()
{
    const Picked picked;
    if (picked.isEmpty())
        return;
    const PointAnswer answer = AskPoint(L"\nSpecify change point or [Properties]: ", nullptr, L"Properties");
    if (answer.is(L"Properties"))
        ChangeProperties(picked);
    else if (answer.isPoint())
        FailCommand(L"Only properties can be changed here.");
}

}   // namespace KxPlat
