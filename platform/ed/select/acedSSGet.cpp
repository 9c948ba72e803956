// acedSSGet: the mode word, and what each of its ways chooses.
#include "../../db/AcDbDatabase.h"
#include "../../db/core/Stub.h"
#include "../../ui/HostUi.h"
#include "../../win/CharTables.h"
#include "../../win/Format.h"
#include "../acedads.h"
#include "../AcEdCommand.h"
#include "../EditorState.h"
#include "ChooseObjects.h"
#include "DocumentSelection.h"
#include "Errno.h"
#include <utility>

using namespace KxPlat;

namespace {

using Ids = std::vector<AcDbObjectId>;

struct Places {
    const void* first;
    const void* second;
};

AcGePoint2d PointAt(const void* place)
{
    const ads_real* reals = static_cast<const ads_real*>(place);
    return AcGePoint2d(reals[X], reals[Y]);
}

std::vector<AcGePoint2d> PointsIn(const void* place)
{
    std::vector<AcGePoint2d> points;
    for (const resbuf* at = static_cast<const resbuf*>(place); at != nullptr; at = at->rbnext)
        if (at->restype == RTPOINT || at->restype == RT3DPOINT)
            points.push_back(PointAt(at->resval.rpoint));
    return points;
}

Ids InRectangle(AcDbDatabase& database, const Places& places, HitMode mode)
{
    if (places.first == nullptr || places.second == nullptr)
        return {};
    return ObjectsIn(database, HitShape::Rectangle(PointAt(places.first), PointAt(places.second)), mode);
}

Ids InPolygon(AcDbDatabase& database, const Places& places, HitMode mode)
{
    const std::vector<AcGePoint2d> points = PointsIn(places.first);
    return points.size() < 3 ? Ids() : ObjectsIn(database, HitShape::Polygon(points), mode);
}

Ids Live(const Ids& ids)
{
    Ids live;
    for (const AcDbObjectId id : ids)
        if (id.isResident() && !id.isErased())
            live.push_back(id);
    return live;
}

struct Way {
    const wchar_t* name;
    Ids (*choose)(AcDbDatabase& database, const Places& places);
    bool isRemembered;   // becomes the previous set
};

const Way kWays[] = {
    {L"X", [](AcDbDatabase& database, const Places&) { return EntitiesOf(database, Reach::Drawing); }, false},
    {L"A", [](AcDbDatabase& database, const Places&) { return EntitiesOf(database, Reach::Unlocked); }, true},
    {L"ALL", [](AcDbDatabase& database, const Places&) { return EntitiesOf(database, Reach::Unlocked); }, true},
    {L"W", [](AcDbDatabase& database, const Places& places) { return InRectangle(database, places, HitMode::Inside); },
     true},
    {L"C",
     [](AcDbDatabase& database, const Places& places) { return InRectangle(database, places, HitMode::Touching); },
     true},
    {L"WP", [](AcDbDatabase& database, const Places& places) { return InPolygon(database, places, HitMode::Inside); },
     true},
    {L"CP", [](AcDbDatabase& database, const Places& places) { return InPolygon(database, places, HitMode::Touching); },
     true},
    {L"F",
     [](AcDbDatabase& database, const Places& places) {
         const std::vector<AcGePoint2d> points = PointsIn(places.first);
         return points.size() < 2 ? Ids() : ObjectsIn(database, HitShape::Fence(points), HitMode::Touching);
     },
     true},
    {L"L",
     [](AcDbDatabase& database, const Places&) {
         const AcDbObjectId last = LastVisible(database);
         return last.isNull() ? Ids() : Ids{last};
     },
     true},
    {L"P", [](AcDbDatabase&, const Places&) { return Live(CurrentSelection().previous); }, false},
    {L"I", [](AcDbDatabase&, const Places&) { return Live(CurrentSelection().pickFirst); }, false},
};

// "_WP:L" is the way WP with the option L; "_:S:$" asks the user for one object with prompts of the caller's.
struct Mode {
    std::wstring way;
    std::wstring options;

    explicit Mode(const ACHAR* text)
    {
        bool isBehindColon = false;
        for (const wchar_t character : Upper(std::wstring_view(text == nullptr ? L"" : text))) {
            if (character == L':')
                isBehindColon = true;
            else if (character == L'+')
                isBehindColon = true;
            else if (character == L'-')
                isBehindColon = true;
            else if (character != L'_' && character != L'.')
                (isBehindColon ? options : way) += character;
        }
    }
    bool Has(wchar_t option) const { return options.find(option) != std::wstring::npos; }
};

int Ask(const Mode& mode, const void* prompts, const SelectionFilter& filter, Ids& ids)
{
    Choice choice;
    choice.isSingle = mode.Has(L'S');
    choice.skipsLocked = mode.Has(L'L');
    choice.filter = filter.IsEmpty() ? nullptr : &filter;
    if (mode.Has(L'$') && prompts != nullptr) {
        const ACHAR* const* texts = static_cast<const ACHAR* const*>(prompts);
        choice.addPrompt = texts[0] == nullptr ? L"" : texts[0];
        choice.removePrompt = texts[1] == nullptr ? choice.addPrompt : texts[1];
    }
    return AskForObjects(choice, ids);
}

// The host's own commands take what was selected before them, if they are marked for it; modules ask for it themselves.
bool TakesPickFirst(const Mode& mode)
{
    const EditorState* editor = TheEditor();
    if (mode.Has(L'$') || editor == nullptr || editor->running.empty() || IntegerVar(L"PICKFIRST") == 0)
        return false;
    const RunningCommand& command = editor->running.back();
    return command.module == nullptr && (command.flags & ACRX_CMD_USEPICKSET) != 0;
}

void KeepTaken(const Mode& mode, const SelectionFilter& filter, Ids& ids)
{
    if (filter.IsEmpty() && !mode.Has(L'L'))
        return;
    std::erase_if(ids, [&](AcDbObjectId id) {
        const AcDbEntity& entity = static_cast<const AcDbEntity&>(*static_cast<const AcDbStub*>(id)->object);
        return !filter.Takes(entity) || (mode.Has(L'L') && IsOnLockedLayer(entity));
    });
}

int Failed(Errno why)
{
    SetErrno(why);
    return RTERROR;
}

int Give(Ids ids, ads_name set)
{
    CurrentSelection();   // sets of a document go with it
    SelectionSets::All().New(CurrentDatabase(), set).Assign(std::move(ids));
    return RTNORM;
}

}   // namespace

int acedSSGet(const ACHAR* modeText, const void* point1, const void* point2, const resbuf* filterList, ads_name set)
{
    AcDbDatabase* database = CurrentDatabase();
    SelectionFilter filter;
    if (set == nullptr || database == nullptr)
        return RTERROR;
    ads_name_clear(set);
    if (!filter.Read(filterList))
        return Failed(Errno::BadFilter);
    const Mode mode(modeText);
    Ids ids;
    if (mode.way.empty() && point1 != nullptr && !mode.Has(L'$')) {
        const AcDbObjectId hit = ObjectAt(*database, PointAt(point1));
        if (!hit.isNull())
            ids.push_back(hit);
        KeepTaken(mode, filter, ids);
    } else if (mode.way.empty() && TakesPickFirst(mode) && !CurrentSelection().pickFirst.empty()) {
        ids = Live(std::exchange(CurrentSelection().pickFirst, {}));
        KeepTaken(mode, filter, ids);
        Ui().Print(Format(L"\n%d found", int(ids.size())));
    } else if (mode.way.empty()) {
        const int answer = Ask(mode, point1, filter, ids);
        if (answer == RTCAN)
            return RTCAN;
        if (answer != RTNORM)
            return Failed(answer == RTNONE ? Errno::NullResponse : Errno::NothingFound);
    } else {
        const Way* way = nullptr;
        for (const Way& row : kWays)
            if (mode.way == row.name)
                way = &row;
        if (way == nullptr)
            return Failed(Errno::BadSelectionMode);
        ids = way->choose(*database, {point1, point2});
        KeepTaken(mode, filter, ids);
        if (!ids.empty() && way->isRemembered)
            CurrentSelection().previous = ids;
        return ids.empty() ? Failed(Errno::NothingFound) : Give(std::move(ids), set);
    }
    if (ids.empty())
        return Failed(Errno::NothingFound);
    CurrentSelection().previous = ids;
    return Give(std::move(ids), set);
}
