// -GROUP and DRAWORDER.
#include "../../db/AcDbBlockTableRecord.h"
#include "../../db/AcDbDatabase.h"
#include "../../db/AcDbDictionary.h"
#include "../../db/AcDbGroup.h"
#include "../../db/AcDbSortentsTable.h"
#include "../../db/core/Stub.h"
#include "../Session.h"
#include "EntityTools.h"
#include "HostCommands.h"
#include "Questions.h"

namespace KxPlat {

namespace {

// The group of this name, open for write; null when there is none.
AcDbGroup* OpenGroup(const std::wstring& name)
{
    AcDbDictionary* groups = nullptr;
    AcDbObjectId id;
    if (WorkingDatabase().getGroupDictionary(groups) != Acad::eOk)
        return nullptr;
    const bool isThere = groups->getAt(name.c_str(), id) == Acad::eOk;
    groups->close();
    AcDbGroup* group = nullptr;
    return isThere && acdbOpenObject(group, id, AcDb::kForWrite) == Acad::eOk ? group : nullptr;
}

void ListGroups()
{
    AcDbDictionary* groups = nullptr;
    if (WorkingDatabase().getGroupDictionary(groups) != Acad::eOk)
        return;
    Ui().Print(L"\nDefined groups.");
    for (const AcDbDictionary::Entry& entry : groups->entries()) {
        if (!entry.id.isErased())
            Ui().Print(std::wstring(L"\n  ") + entry.name.GetString());
    }
    groups->close();
}

void Create(const std::wstring& name)
{
    if (AcDbGroup* there = OpenGroup(name)) {
        there->close();
        return FailCommand(L"Group \"" + name + L"\" already exists.");
    }
    const std::optional<std::wstring> description = AskLine(L"\nEnter a group description: ");
    if (!description)
        return;
    const Picked picked;
    AcDbDictionary* groups = nullptr;
    if (picked.isEmpty() || WorkingDatabase().getGroupDictionary(groups, AcDb::kForWrite) != Acad::eOk)
        return;
    auto* group = new AcDbGroup(description->c_str());
    AcDbObjectId id;
    if (groups->setAt(name.c_str(), group, id) == Acad::eOk) {
        for (const AcDbObjectId member : picked.Ids())
            group->append(member);
        group->close();
    } else {
        delete group;
        FailCommand(L"\"" + name + L"\" is no name for a group.");
    }
    groups->close();
}

void Rename(AcDbGroup& group)
{
    const std::optional<std::wstring> name = AskLine(L"\nEnter new name for group: ");
    if (name && !name->empty() && group.setName(name->c_str()) != Acad::eOk)
        FailCommand(L"\"" + *name + L"\" cannot be its name.");
}

void ChangeMembers(AcDbGroup& group, bool adds)
{
    const Picked picked;
    for (const AcDbObjectId id : picked.Ids())
        adds ? group.append(id) : group.remove(id);
}

void ChangeGroup(AcDbGroup& group, const std::wstring& option)
{
    if (option == L"Add" || option == L"Remove")
        ChangeMembers(group, option == L"Add");
    else if (option == L"REName")
        Rename(group);
    else if (option == L"Selectable")
        group.setSelectable(AskYesNo(L"\nIs this group to be selectable? [Yes/No]", true));
    else
        group.erase();
}

}   // namespace

void GroupCommand()
{
    const std::wstring option =
        AskKeyword(L"\nEnter a group option [?/Add/Remove/Explode/REName/Selectable/Create] <Create>: ",
                   L"? Add Remove Explode REName Selectable Create", L"Create");
    if (option == L"?")
        return ListGroups();
    if (option.empty())
        return;
    const std::optional<std::wstring> name = AskLine(L"\nEnter a group name: ");
    if (!name || name->empty())
        return;
    if (option == L"Create")
        return Create(*name);
    AcDbGroup* group = OpenGroup(*name);
    if (group == nullptr)
        return FailCommand(L"Group \"" + *name + L"\" does not exist.");
    ChangeGroup(*group, option);
    group->close();
}

void DrawOrderCommand()
{
    const Picked picked;
    if (picked.isEmpty())
        return;
    const std::wstring option =
        AskKeyword(L"\nEnter object ordering option [Front/Back] <Back>: ", L"Front Back", L"Back");
    AcDbBlockTableRecord* space = nullptr;
    AcDbSortentsTable* table = nullptr;
    if (option.empty() || acdbOpenObject(space, WorkingDatabase().currentSpaceId(), AcDb::kForWrite) != Acad::eOk)
        return;
    AcDbObjectIdArray ids;
    for (const AcDbObjectId id : picked.Ids())
        ids.append(id);
    if (space->getSortentsTable(table, AcDb::kForWrite, true) == Acad::eOk) {
        option == L"Front" ? table->moveToTop(ids) : table->moveToBottom(ids);
        table->close();
    }
    space->close();
}

}   // namespace KxPlat
