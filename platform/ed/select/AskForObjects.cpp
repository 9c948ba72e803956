// The conversation "Select objects:".
#include "../../db/AcDbDatabase.h"
#include "../../db/core/Stub.h"
#include "../../rx/acutads.h"
#include "../../win/CharTables.h"
#include "../../win/Format.h"
#include "../acedads.h"
#include "../Prompt.h"
#include "../Session.h"
#include "ChooseObjects.h"
#include "DocumentSelection.h"
#include <algorithm>
#include <utility>

namespace KxPlat {

namespace {

enum class Next { GoOn, Enter, Missed, Cancel };

class Conversation {
public:
    Conversation(const Choice& choice, AcDbDatabase& database)
        : m_choice(choice), m_database(database), m_set(&database)
    {
    }

    int Run(std::vector<AcDbObjectId>& ids);

    using Step = Next (Conversation::*)();
    // `shortest` letters suffice.
    struct Option {
        const wchar_t* name;
        size_t shortest;
        Step step;
    };
    static const Option kOptions[];

private:
    Next Take(const InputPiece& piece);
    Next TakeText(const std::wstring& text);
    Next TakeValue(const resbuf& value);
    Next TakePoint(const AcGePoint2d& point);
    Next Found(const std::vector<AcDbObjectId>& ids);
    void Add(const std::vector<AcDbObjectId>& ids);
    void Remove(const std::vector<AcDbObjectId>& ids);
    bool IsTaken(AcDbObjectId id, size_t& locked, size_t& filtered) const;

    Next InRectangle(HitMode mode);
    Next InPolygon(HitMode mode, bool isFence);
    Next Window() { return InRectangle(HitMode::Inside); }
    Next Crossing() { return InRectangle(HitMode::Touching); }
    Next Box();
    Next WindowPolygon() { return InPolygon(HitMode::Inside, false); }
    Next CrossingPolygon() { return InPolygon(HitMode::Touching, false); }
    Next Fence() { return InPolygon(HitMode::Touching, true); }
    Next Last();
    Next All() { return Found(EntitiesOf(m_database, Reach::Unlocked)); }
    Next Group();
    Next Previous();
    Next Undo();
    Next Adding();
    Next Removing();
    Next Single();
    Next Plain() { return Next::GoOn; }
    Next Help();

    struct Change {
        std::vector<AcDbObjectId> ids;
        bool isRemoval;
    };

    const Choice& m_choice;
    AcDbDatabase& m_database;
    SelectionSet m_set;
    std::vector<Change> m_changes;
    bool m_isRemoving = false;
    bool m_isSingle = false;
};

const Conversation::Option Conversation::kOptions[] = {
    {L"Window", 1, &Conversation::Window},
    {L"Last", 1, &Conversation::Last},
    {L"Crossing", 1, &Conversation::Crossing},
    {L"BOX", 3, &Conversation::Box},
    {L"ALL", 3, &Conversation::All},
    {L"Fence", 1, &Conversation::Fence},
    {L"WPolygon", 2, &Conversation::WindowPolygon},
    {L"CPolygon", 2, &Conversation::CrossingPolygon},
    {L"Group", 1, &Conversation::Group},
    {L"Add", 1, &Conversation::Adding},
    {L"Remove", 1, &Conversation::Removing},
    {L"Multiple", 1, &Conversation::Plain},
    {L"Previous", 1, &Conversation::Previous},
    {L"Undo", 1, &Conversation::Undo},
    {L"AUto", 2, &Conversation::Plain},
    {L"SIngle", 2, &Conversation::Single},
};

// Of entities only: what else a LISP program hands over is turned away before.
bool Conversation::IsTaken(AcDbObjectId id, size_t& locked, size_t& filtered) const
{
    const AcDbStub* stub = id;
    if (stub == nullptr || stub->object == nullptr || stub->erased || stub->database != &m_database)
        return false;
    if (!m_choice.skipsLocked && m_choice.filter == nullptr)
        return true;
    FetchAhead(stub);
    const AcDbEntity* entity = static_cast<const AcDbEntity*>(stub->object);
    if (m_choice.skipsLocked && IsOnLockedLayer(*entity)) {
        ++locked;
        return false;
    }
    if (m_choice.filter != nullptr && !m_choice.filter->Takes(*entity)) {
        ++filtered;
        return false;
    }
    return true;
}

void Conversation::Add(const std::vector<AcDbObjectId>& ids)
{
    const size_t before = m_set.Length();
    size_t locked = 0, filtered = 0, duplicates = 0, found = 0;
    Change change{{}, false};
    change.ids.reserve(ids.size());
    for (const AcDbObjectId id : ids) {
        if (!IsTaken(id, locked, filtered))
            continue;
        ++found;
        if (before != 0 && m_set.Has(id)) {
            ++duplicates;
            continue;
        }
        change.ids.push_back(id);
    }
    for (const AcDbObjectId id : change.ids)
        m_set.Append(id);
    std::wstring report = Format(L"\n%d found", int(found));
    if (duplicates != 0)
        report += Format(L" (%d duplicate)", int(duplicates));
    if (before != 0)
        report += Format(L", %d total", int(m_set.Length()));
    Ui().Print(report);
    if (filtered != 0)
        Ui().Print(Format(filtered == 1 ? L"\n%d was filtered out." : L"\n%d were filtered out.", int(filtered)));
    if (locked != 0)
        Ui().Print(Format(locked == 1 ? L"\n%d was on a locked layer." : L"\n%d were on a locked layer.", int(locked)));
    if (!change.ids.empty())
        m_changes.push_back(std::move(change));
}

void Conversation::Remove(const std::vector<AcDbObjectId>& ids)
{
    Change change{{}, true};
    if (ids.size() > 64 && m_set.Length() > 64) {
        // Many from many: one pass.
        SelectionSet gone(&m_database);
        gone.Assign(ids);
        std::vector<AcDbObjectId> kept;
        for (const AcDbObjectId id : m_set.Ids())
            (gone.Has(id) ? change.ids : kept).push_back(id);
        m_set.Assign(std::move(kept));
    } else {
        for (const AcDbObjectId id : ids)
            if (m_set.Remove(id))
                change.ids.push_back(id);
    }
    Ui().Print(
        Format(L"\n%d found, %d removed, %d total", int(ids.size()), int(change.ids.size()), int(m_set.Length())));
    if (!change.ids.empty())
        m_changes.push_back(std::move(change));
}

Next Conversation::Found(const std::vector<AcDbObjectId>& ids)
{
    if (m_isRemoving)
        Remove(ids);
    else
        Add(ids);
    return m_isSingle && m_set.Length() == 0 ? Next::Missed : Next::GoOn;
}

Next Conversation::Help()
{
    std::wstring text = L"\n*Invalid selection*\nExpects a point or ";
    for (const Option& option : kOptions)
        text += std::wstring(&option == kOptions ? L"" : L"/") + option.name;
    Ui().Print(text);
    return Next::GoOn;
}

bool AskPoint(const wchar_t* prompt, const AcGePoint2d* from, AcGePoint2d& point)
{
    ads_point base = {from == nullptr ? 0 : from->x, from == nullptr ? 0 : from->y, 0}, result;
    const int answer = from == nullptr ? acedGetPoint(nullptr, prompt, result) : acedGetCorner(base, prompt, result);
    point = AcGePoint2d(result[X], result[Y]);
    return answer == RTNORM;
}

Next Conversation::InRectangle(HitMode mode)
{
    AcGePoint2d first, second;
    if (!AskPoint(L"\nSpecify first corner: ", nullptr, first) ||
        !AskPoint(L"\nSpecify opposite corner: ", &first, second))
        return Next::Cancel;
    return Found(ObjectsIn(m_database, HitShape::Rectangle(first, second), mode));
}

// From left to right a window, from right to left a crossing one.
Next Conversation::Box()
{
    AcGePoint2d first, second;
    if (!AskPoint(L"\nSpecify first corner: ", nullptr, first) ||
        !AskPoint(L"\nSpecify opposite corner: ", &first, second))
        return Next::Cancel;
    return Found(ObjectsIn(m_database, HitShape::Rectangle(first, second),
                           second.x >= first.x ? HitMode::Inside : HitMode::Touching));
}

Next Conversation::InPolygon(HitMode mode, bool isFence)
{
    std::vector<AcGePoint2d> points;
    for (;;) {
        const wchar_t* first = isFence ? L"\nSpecify first fence point: " : L"\nFirst polygon point: ";
        const wchar_t* next =
            isFence ? L"\nSpecify next fence point or [Undo]: " : L"\nSpecify endpoint of line or [Undo]: ";
        ads_point point;
        acedInitGet(0, L"Undo");
        const ads_point base = {points.empty() ? 0 : points.back().x, points.empty() ? 0 : points.back().y, 0};
        const int answer = acedGetPoint(points.empty() ? nullptr : base, points.empty() ? first : next, point);
        if (answer == RTKWORD) {
            if (!points.empty())
                points.pop_back();
        } else if (answer == RTNORM) {
            points.emplace_back(point[X], point[Y]);
        } else if (answer == RTNONE) {
            break;
        } else {
            return Next::Cancel;
        }
    }
    if (points.size() < (isFence ? 2u : 3u))
        return Next::GoOn;
    return Found(ObjectsIn(m_database, isFence ? HitShape::Fence(points) : HitShape::Polygon(points), mode));
}

Next Conversation::Last()
{
    const AcDbObjectId last = LastVisible(m_database);
    return Found(last.isNull() ? std::vector<AcDbObjectId>() : std::vector<AcDbObjectId>{last});
}

Next Conversation::Group()
{
    ACHAR name[512];
    const int answer = acedGetString(1, L"\nEnter group name: ", name);
    if (answer != RTNORM)
        return Next::Cancel;
    return Found(MembersOfGroup(m_database, name));
}

Next Conversation::Previous()
{
    const std::vector<AcDbObjectId>& previous = CurrentSelection().previous;
    if (previous.empty()) {
        Ui().Print(L"\nNo previous selection set.");
        return Next::GoOn;
    }
    return Found(previous);
}

Next Conversation::Undo()
{
    if (m_changes.empty()) {
        Ui().Print(L"\nCommand has been completely undone.");
        return Next::GoOn;
    }
    const Change change = std::move(m_changes.back());
    m_changes.pop_back();
    if (change.isRemoval) {
        for (const AcDbObjectId id : change.ids)
            m_set.Append(id);
        return Next::GoOn;
    }
    // What was added last stands at the end.
    std::vector<AcDbObjectId> ids = m_set.Ids();
    SelectionSet gone(&m_database);
    gone.Assign(change.ids);
    std::erase_if(ids, [&](AcDbObjectId id) { return gone.Has(id); });
    m_set.Assign(std::move(ids));
    return Next::GoOn;
}

Next Conversation::Adding()
{
    m_isRemoving = false;
    return Next::GoOn;
}

Next Conversation::Removing()
{
    m_isRemoving = true;
    return Next::GoOn;
}

Next Conversation::Single()
{
    m_isSingle = true;
    return Next::GoOn;
}

// A point that hits nothing begins a rectangle.
Next Conversation::TakePoint(const AcGePoint2d& point)
{
    const AcDbObjectId hit = ObjectAt(m_database, point);
    if (!hit.isNull())
        return Found({hit});
    if (m_choice.isSingle)
        return Next::Missed;
    AcGePoint2d corner;
    if (!AskPoint(L"\nSpecify opposite corner: ", &point, corner))
        return Next::GoOn;
    return Found(ObjectsIn(m_database, HitShape::Rectangle(point, corner),
                           corner.x >= point.x ? HitMode::Inside : HitMode::Touching));
}

Next Conversation::TakeValue(const resbuf& value)
{
    switch (value.restype) {
    case RTPICKS:
        if (const SelectionSet* set = SelectionSets::All().Find(value.resval.rlname))
            return Found(set->Ids());
        return Help();
    case RTENAME: {
        AcDbObjectId id;
        const bool isNamed = acdbGetObjectId(id, value.resval.rlname) == Acad::eOk;
        const AcDbStub* stub = id;
        return isNamed && stub != nullptr && AcDbEntity::cast(stub->object) != nullptr ? Found({id}) : Help();
    }
    case RTPOINT:
    case RT3DPOINT:
        return TakePoint(AcGePoint2d(value.resval.rpoint[X], value.resval.rpoint[Y]));
    case RTSTR:
        return TakeText(value.resval.rstring == nullptr ? L"" : value.resval.rstring);
    case RTNIL:
        return Next::GoOn;
    default:
        return Help();
    }
}

Next Conversation::TakeText(const std::wstring& typed)
{
    if (typed.empty())
        return Next::Enter;
    ads_point last, point;
    LastPoint(last);
    if (ReadPoint(typed, last, point)) {
        SetLastPoint(point);
        return TakePoint(AcGePoint2d(point[X], point[Y]));
    }
    const std::wstring_view word = std::wstring_view(typed).substr(typed[0] == L'_' ? 1 : 0);
    for (const Option& option : kOptions)
        if (word.size() >= option.shortest && StartsWithNoCase(option.name, word))
            return (this->*option.step)();
    return Help();
}

Next Conversation::Take(const InputPiece& piece)
{
    switch (piece.type) {
    case InputPiece::Type::Cancel:
    case InputPiece::Type::End:
        return Next::Cancel;
    case InputPiece::Type::Text:
        return TakeText(piece.text);
    case InputPiece::Type::Value:
        break;
    }
    if (piece.objects.empty())
        return TakeValue(piece.value);
    std::vector<AcDbObjectId> ids;
    for (void* object : piece.objects)
        ids.emplace_back(static_cast<AcDbStub*>(object));
    return Found(ids);
}

// For as long as the conversation lasts, the document shows its set. Conversations may be nested.
class Shown {
public:
    explicit Shown(const SelectionSet& set)
        : m_document(acDocManager->curDocument()),
          m_selection(CurrentSelection()),
          m_outer(std::exchange(m_selection.choosing, &set))
    {
    }
    ~Shown()
    {
        const std::vector<AcApDocument*>& all = OpenDocuments();
        if (m_document == nullptr || std::find(all.begin(), all.end(), m_document) != all.end())
            m_selection.choosing = m_outer;
    }
    Shown(const Shown&) = delete;

private:
    AcApDocument* m_document;
    DocumentSelection& m_selection;
    const SelectionSet* m_outer;
};

int Conversation::Run(std::vector<AcDbObjectId>& ids)
{
    const Shown shown(m_set);
    m_isSingle = m_choice.isSingle;
    for (;;) {
        InputRequest request;
        request.kind = InputKind::Selection;
        request.prompt = m_isRemoving ? m_choice.removePrompt : m_choice.addPrompt;
        const Next next = Take(TakePiece(request, TextRule::Word));
        if (next == Next::Cancel)
            return RTCAN;
        if (next == Next::Missed)
            return RTERROR;
        if (next == Next::Enter || (m_isSingle && m_set.Length() > 0))
            break;
    }
    ids = m_set.Ids();
    if (ids.empty())
        return RTNONE;
    return RTNORM;
}

}   // namespace

const std::vector<std::wstring>& SelectionOptions()
{
    static const std::vector<std::wstring> names = [] {
        std::vector<std::wstring> made;
        for (const Conversation::Option& option : Conversation::kOptions)
            made.emplace_back(option.name);
        return made;
    }();
    return names;
}

int AskForObjects(const Choice& choice, std::vector<AcDbObjectId>& ids)
{
    AcDbDatabase* database = CurrentDatabase();
    if (Session::Current() == nullptr || database == nullptr)
        return RTERROR;
    return Conversation(choice, *database).Run(ids);
}

}   // namespace KxPlat
