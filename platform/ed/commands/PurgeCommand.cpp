// -PURGE: deletes named things that nothing uses, kind by kind, as often as that sets others free.
#include "../../db/AcDbBlockTableRecord.h"
#include "../../db/AcDbDatabase.h"
#include "../../db/AcDbDictionary.h"
#include "../../db/AcDbGroup.h"
#include "../../db/AcDbLinetypeTableRecord.h"
#include "../../db/AcDbTextStyleTableRecord.h"
#include "../../db/core/DbCore.h"
#include "../../db/core/EraseUnused.h"
#include "../../db/core/Wildcard.h"
#include "../acedads.h"
#include "HostCommands.h"
#include <unordered_set>

using namespace KxPlat;

namespace {

bool IsShapeFile(const AcDbObject& object)
{
    return static_cast<const AcDbTextStyleTableRecord&>(object).isShapeFile();
}

bool IsTextStyle(const AcDbObject& object)
{
    return !IsShapeFile(object);
}

// A group with members is in use by itself.
bool IsEmptyGroup(const AcDbObject& object)
{
    const AcDbGroup* group = AcDbGroup::cast(&object);
    return group != nullptr && group->numEntities() == 0;
}

// A shape file has no name but that of its file.
CString NameOf(const AcDbObject& record)
{
    const auto* style = AcDbTextStyleTableRecord::cast(&record);
    ACHAR* file = nullptr;
    if (style != nullptr && style->isShapeFile() && style->fileName(file) == Acad::eOk) {
        CString name = file;
        acutDelString(file);
        return name;
    }
    return static_cast<const AcDbSymbolTableRecord&>(record).nameText();
}

struct PurgeKind {
    const wchar_t* keyword;   // as acedInitGet takes it
    const wchar_t* singular;
    const wchar_t* plural;
    TableKind table;   // Count: the entries of `dictionary`
    const wchar_t* dictionary;
    bool (*isOfKind)(const AcDbObject&);
};

// In the order in which "All" goes through them.
const PurgeKind kKinds[] = {
    {L"Blocks", L"block", L"blocks", TableKind::Block, nullptr, nullptr},
    {L"Dimstyles", L"dimstyle", L"dimstyles", TableKind::DimStyle, nullptr, nullptr},
    {L"LAyers", L"layer", L"layers", TableKind::Layer, nullptr, nullptr},
    {L"LTypes", L"linetype", L"linetypes", TableKind::Linetype, nullptr, nullptr},
    {L"Plotstyles", L"plotstyle", L"plotstyles", TableKind::Count, L"ACAD_PLOTSTYLENAME", nullptr},
    {L"SHapes", L"shape file", L"shape files", TableKind::TextStyle, nullptr, IsShapeFile},
    {L"textSTyles", L"text style", L"text styles", TableKind::TextStyle, nullptr, IsTextStyle},
    {L"Mlinestyles", L"mlinestyle", L"mlinestyles", TableKind::Count, L"ACAD_MLINESTYLE", nullptr},
    {L"Groups", L"empty group", L"empty groups", TableKind::Count, L"ACAD_GROUP", IsEmptyGroup},
    {L"Regapps", L"regapp", L"regapps", TableKind::RegApp, nullptr, nullptr},
};

struct Named {
    AcDbObjectId id;
    CString name;
};

class Purge {
public:
    explicit Purge(AcDbDatabase& database) : m_database(database), m_core(CoreOf(database)) {}

    // RTNORM, or the answer that ended the command. An `isAgain` says nothing where there is nothing to delete.
    int Run(const PurgeKind& kind, const wchar_t* pattern, bool verifies, bool isAgain);
    // All kinds in turn, until none sets another one's things free: a dimension style its arrow blocks.
    void RunAll(const wchar_t* pattern, bool verifies);

private:
    std::vector<Named> Candidates(const PurgeKind& kind) const;
    void AddEntries(const PurgeKind& kind, std::vector<Named>& all) const;
    int Confirm(const PurgeKind& kind, const CString& name, bool& isYes) const;
    bool Delete(const PurgeKind& kind, const Named& one);

    AcDbDatabase& m_database;
    DbCore& m_core;
    int m_deleted = 0;
    std::unordered_set<AcDbObjectId> m_kept;   // the user said no, or they cannot be erased
};

void Purge::AddEntries(const PurgeKind& kind, std::vector<Named>& all) const
{
    AcDbObjectId id;
    const AcDbStub* root = m_core.namedObjects;
    const AcDbDictionary& names = static_cast<const AcDbDictionary&>(*root->object);
    if (names.getAt(kind.dictionary, id) != Acad::eOk)
        return;
    const AcDbStub* stub = id;
    const AcDbDictionary* dictionary = AcDbDictionary::cast(stub->object);
    if (dictionary == nullptr)
        return;
    for (const AcDbDictionary::Entry& entry : dictionary->entries()) {
        const bool isStandard = entry.name.CompareNoCase(L"Standard") == 0 || entry.name.CompareNoCase(L"Normal") == 0;
        const AcDbStub* object = entry.id;
        if (!entry.id.isErased() && !isStandard && (kind.isOfKind == nullptr || kind.isOfKind(*object->object)))
            all.push_back({entry.id, entry.name});
    }
}

std::vector<Named> Purge::Candidates(const PurgeKind& kind) const
{
    std::vector<Named> all;
    if (kind.table == TableKind::Count) {
        AddEntries(kind, all);
    } else {
        for (AcDbStub* stub : m_core.Table(kind.table)->records()) {
            if (!stub->erased && (kind.isOfKind == nullptr || kind.isOfKind(*stub->object)))
                all.push_back({stub, NameOf(*stub->object)});
        }
    }
    AcDbObjectIdArray ids;
    for (const Named& one : all)
        ids.append(one.id);
    m_database.purge(ids);
    std::vector<Named> unused;
    int next = 0;
    for (const Named& one : all)
        if (next < ids.length() && ids.at(next) == one.id) {
            unused.push_back(one);
            ++next;
        }
    return unused;
}

int Purge::Confirm(const PurgeKind& kind, const CString& name, bool& isYes) const
{
    CString prompt;
    prompt.Format(L"\nPurge %s \"%s\"? [Yes/No] <N>: ", kind.singular, static_cast<const wchar_t*>(name));
    acedInitGet(0, L"Yes No");
    ACHAR answer[64] = L"";
    const int result = acedGetKword(prompt, answer);
    isYes = result == RTNORM && answer[0] == L'Y';
    return result == RTNONE ? RTNORM : result;
}

bool Purge::Delete(const PurgeKind& kind, const Named& one)
{
    AcDbObject* object = nullptr;
    if (acdbOpenObject(object, one.id, AcDb::kForWrite) != Acad::eOk)
        return false;
    const Acad::ErrorStatus status = EraseUnused(*object);
    object->close();
    if (status == Acad::eOk)
        acutPrintf(L"\nDeleting %s \"%s\".", kind.singular, static_cast<const wchar_t*>(one.name));
    return status == Acad::eOk;
}

int Purge::Run(const PurgeKind& kind, const wchar_t* pattern, bool verifies, bool isAgain)
{
    int deleted = 0;
    bool isGrowing = true, isAny = false;
    while (isGrowing) {
        isGrowing = false;
        for (const Named& one : Candidates(kind)) {
            if (!WildcardMatch(std::wstring_view(one.name, size_t(one.name.GetLength())), pattern))
                continue;
            isAny = true;
            bool isYes = true;
            if (m_kept.count(one.id) != 0)
                continue;
            if (verifies) {
                const int answer = Confirm(kind, one.name, isYes);
                if (answer != RTNORM)
                    return answer;
            }
            if (isYes && Delete(kind, one)) {
                ++deleted;
                isGrowing = true;
            } else {
                m_kept.insert(one.id);
            }
        }
    }
    if (deleted > 0)
        acutPrintf(L"\n%d %s deleted.", deleted, deleted == 1 ? kind.singular : kind.plural);
    else if (!isAny && !isAgain)
        acutPrintf(L"\nNo unreferenced %s found.", kind.plural);
    m_deleted += deleted;
    return RTNORM;
}

void Purge::RunAll(const wchar_t* pattern, bool verifies)
{
    bool isAgain = false;
    do {
        m_deleted = 0;
        for (const PurgeKind& kind : kKinds)
            if (Run(kind, pattern, verifies, isAgain) != RTNORM)
                return;
        isAgain = true;
    } while (m_deleted > 0);
}

const PurgeKind* KindOfKeyword(const wchar_t* keyword)
{
    for (const PurgeKind& kind : kKinds)
        if (CString(keyword).CompareNoCase(kind.keyword) == 0)
            return &kind;
    return nullptr;
}

}   // namespace

void KxPlat::PurgeCommand()
{
    AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    acedInitGet(RSG_NONULL,
                L"Blocks Dimstyles Groups LAyers LTypes Plotstyles SHapes textSTyles Mlinestyles Regapps All");
    ACHAR keyword[64] = L"";
    if (acedGetKword(L"\nEnter type of unused objects to purge "
                     L"[Blocks/Dimstyles/Groups/LAyers/LTypes/Plotstyles/SHapes/textSTyles/Mlinestyles/Regapps/All]: ",
                     keyword) != RTNORM)
        return;
    const bool isAll = CString(keyword) == L"All";
    const PurgeKind* only = KindOfKeyword(keyword);

    ACHAR pattern[512] = L"";
    const int answer = acedGetString(0, L"\nEnter name(s) to purge <*>: ", pattern);
    if (answer != RTNORM && answer != RTNONE)
        return;
    acedInitGet(0, L"Yes No");
    ACHAR verify[64] = L"";
    const int verified = acedGetKword(L"\nVerify each name to be purged? [Yes/No] <Y>: ", verify);
    if (verified != RTNORM && verified != RTNONE)
        return;
    const bool verifies = verified == RTNONE || verify[0] == L'Y';

    const wchar_t* names = pattern[0] == 0 ? L"*" : pattern;
    Purge purge(*database);
    if (isAll)
        purge.RunAll(names, verifies);
    else if (only != nullptr)
        purge.Run(*only, names, verifies, false);
}
