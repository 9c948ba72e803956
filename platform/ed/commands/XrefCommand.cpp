// -XREF: other drawings as blocks of this one.
#include "../../db/AcDbBlockReference.h"
#include "../../db/AcDbBlockTableRecord.h"
#include "../../db/AcDbDatabase.h"
#include "../../db/AcDbXref.h"
#include "../../db/core/Wildcard.h"
#include "../../db/core/XrefLoader.h"
#include "../../win/Format.h"
#include "../acedads.h"
#include "../Session.h"
#include "../SysVars.h"
#include "HostCommands.h"
#include "Questions.h"
#include <algorithm>

namespace KxPlat {

namespace {

AcDbDatabase& Working()
{
    return *acdbHostApplicationServices()->workingDatabase();
}

std::wstring NameOf(const AcDbBlockTableRecord& block)
{
    return std::wstring(block.nameText(), size_t(block.nameText().GetLength()));
}

std::wstring PathOf(const AcDbBlockTableRecord& block)
{
    ACHAR* text = nullptr;
    block.pathName(text);
    std::wstring path(text);
    acutDelString(text);
    return path;
}

// The name of a file without its folder and extension.
std::wstring StemOf(const std::wstring& path)
{
    std::wstring name = path.substr(path.find_last_of(L"/\\") + 1);
    return name.substr(0, name.rfind(L'.'));
}

// The xrefs of the names that the user gives, patterns included. Nested ones go with the one that they stand in.
std::vector<AcDbBlockTableRecord*> AskXrefs(const std::wstring& purpose)
{
    const std::optional<std::wstring> pattern = AskLine(L"\nEnter xref name(s) to " + purpose + L": ");
    std::vector<AcDbBlockTableRecord*> chosen;
    if (!pattern || pattern->empty())
        return chosen;
    for (AcDbBlockTableRecord* block : XrefBlocksOf(CoreOf(Working()), true))
        if (WildcardMatch(NameOf(*block), *pattern))
            chosen.push_back(block);
    if (chosen.empty())
        FailCommand(L"No matching xref names found.");
    return chosen;
}

AcDbObjectIdArray IdsOf(const std::vector<AcDbBlockTableRecord*>& blocks)
{
    AcDbObjectIdArray ids;
    for (const AcDbBlockTableRecord* block : blocks)
        ids.append(block->objectId());
    return ids;
}

void Reload(const std::vector<AcDbBlockTableRecord*>& blocks)
{
    for (AcDbBlockTableRecord* block : blocks) {
        XrefLoader loader(Working());
        loader.Load(*block);
        for (const XrefNews& news : loader.News())
            if (news.why.empty())
                acutPrintf(L"\nXref \"%s\": %s loaded.", news.block.c_str(), news.found.c_str());
            else
                FailCommand(Format(L"Xref \"%s\": %s: %s.", news.block.c_str(), news.path.c_str(), news.why.c_str()));
    }
}

// --- attaching -------------------------------------------------------------------------------------------------------

// Place, scale and rotation of an insertion; false when the user cancelled.
bool AskInsertion(AcDbBlockReference& insert)
{
    ads_point place = {0, 0, 0};
    if (acedGetPoint(nullptr, L"\nSpecify insertion point: ", place) != RTNORM)
        return false;
    const auto ask = [](const wchar_t* prompt, double& value) {
        acedInitGet(RSG_NOZERO, nullptr);
        const int result = acedGetReal(prompt, &value);
        return result == RTNORM || result == RTNONE;
    };
    double x = 1, rotation = 0;
    if (!ask(L"\nEnter X scale factor <1>: ", x))
        return false;
    double y = x;
    if (!ask(L"\nEnter Y scale factor <use X scale factor>: ", y))
        return false;
    const int result = acedGetAngle(place, L"\nSpecify rotation angle <0>: ", &rotation);
    if (result != RTNORM && result != RTNONE)
        return false;
    insert.setPosition(AcGePoint3d(place[X], place[Y], place[Z]));
    insert.setScaleFactors(AcGeScale3d(x, y, x));
    insert.setRotation(rotation);
    return true;
}

void Insert(AcDbObjectId block)
{
    auto insert = std::make_unique<AcDbBlockReference>(AcGePoint3d(), block);
    if (!AskInsertion(*insert))
        return;
    insert->setLayer(Working().clayer());
    AcDbBlockTableRecord* space = nullptr;
    if (acdbOpenObject(space, Working().currentSpaceId(), AcDb::kForWrite) != Acad::eOk)
        return;
    if (space->appendAcDbEntity(insert.get()) == Acad::eOk)
        insert.release()->close();
    space->close();
}

void Attach(bool isOverlay)
{
    const std::optional<std::wstring> answer =
        AskFile(isOverlay ? L"\nEnter name of file to overlay" : L"\nEnter name of file to attach",
                L"Select Reference File", L"", L"dwg;dxf", false);
    if (!answer)
        return;
    // "name=path" gives the block a name of its own.
    const size_t sign = answer->find(L'=');
    const std::wstring path = sign == std::wstring::npos ? *answer : answer->substr(sign + 1);
    const std::wstring name = sign == std::wstring::npos ? StemOf(path) : answer->substr(0, sign);
    const std::vector<AcDbBlockTableRecord*> known = XrefBlocksOf(CoreOf(Working()), false);
    const auto same = std::find_if(known.begin(), known.end(), [&](const AcDbBlockTableRecord* block) {
        return CString(name.c_str()).CompareNoCase(block->nameText()) == 0;
    });
    AcDbObjectId id;
    if (same != known.end()) {
        acutPrintf(L"\nXref \"%s\" has already been defined.\nUsing existing xref definition.", name.c_str());
        return Insert((*same)->objectId());
    }
    const Acad::ErrorStatus status = isOverlay ? acdbOverlayXref(&Working(), path.c_str(), name.c_str(), id)
                                               : acdbAttachXref(&Working(), path.c_str(), name.c_str(), id);
    if (status != Acad::eOk)
        return FailCommand(status == Acad::eFileNotFound          ? path + L": no such file"
                           : status == Acad::eDuplicateRecordName ? L"There is already a block " + name + L"."
                                                                  : path + L": cannot be attached");
    acutPrintf(L"\n%s Xref \"%s\": %s", isOverlay ? L"Overlay" : L"Attach", name.c_str(), path.c_str());
    Insert(id);
}

// --- the other options -----------------------------------------------------------------------------------------------

void List()
{
    static const wchar_t* const states[] = {L"",          L"resolved",  L"unloaded", L"unreferenced",
                                            L"not found", L"unresolved"};
    const std::vector<AcDbBlockTableRecord*> blocks = XrefBlocksOf(CoreOf(Working()), false);
    for (const AcDbBlockTableRecord* block : blocks)
        acutPrintf(L"\n%s  %s  %s  %s", NameOf(*block).c_str(), PathOf(*block).c_str(),
                   block->isFromOverlayReference() ? L"overlay" : L"attach", states[block->xrefStatus()]);
    acutPrintf(L"\nTotal xref(s): %d", int(blocks.size()));
}

void Detach()
{
    for (AcDbObjectId id : IdsOf(AskXrefs(L"detach"))) {
        const CString name = static_cast<AcDbBlockTableRecord*>(static_cast<AcDbStub*>(id)->object)->nameText();
        if (acdbDetachXref(&Working(), id) == Acad::eOk)
            acutPrintf(L"\nXref \"%s\" detached.", name.GetString());
    }
}

void Bind()
{
    for (const AcDbBlockTableRecord* block : AskXrefs(L"bind")) {
        AcDbObjectIdArray ids;
        ids.append(block->objectId());
        const std::wstring name = NameOf(*block);
        if (acdbBindXrefs(&Working(), ids, IntegerVar(L"BINDTYPE") == 1) == Acad::eOk)
            acutPrintf(L"\nXref \"%s\" bound.", name.c_str());
        else
            FailCommand(L"Xref \"" + name + L"\" is not loaded and cannot be bound.");
    }
}

void Unload()
{
    acdbUnloadXrefs(&Working(), IdsOf(AskXrefs(L"unload")));
}

void ReloadAsked()
{
    Reload(AskXrefs(L"reload"));
}

void ChangePath()
{
    for (AcDbBlockTableRecord* block : AskXrefs(L"edit path")) {
        acutPrintf(L"\nXref name: %s\nOld path: %s", NameOf(*block).c_str(), PathOf(*block).c_str());
        const std::optional<std::wstring> path = AskLine(L"\nEnter new path: ");
        if (!path)
            return;
        if (path->empty())
            continue;
        block->setPathName(path->c_str());
        Reload({block});
    }
}

struct OptionRow {
    const wchar_t* keyword;
    void (*run)();
};

const OptionRow g_options[] = {
    {L"?", List},
    {L"Attach", [] { Attach(false); }},
    {L"Bind", Bind},
    {L"Detach", Detach},
    {L"Overlay", [] { Attach(true); }},
    {L"Path", ChangePath},
    {L"Reload", ReloadAsked},
    {L"Unload", Unload},
};

}   // namespace

void XrefCommand()
{
    acedInitGet(0, L"? Bind Detach Path Unload Reload Overlay Attach");
    ACHAR keyword[64] = L"";
    const int result =
        acedGetKword(L"\nEnter an option [?/Bind/Detach/Path/Unload/Reload/Overlay/Attach] <Attach>: ", keyword);
    if (result != RTNORM && result != RTNONE)
        return;
    const CString chosen(result == RTNONE ? L"Attach" : keyword);
    for (const OptionRow& row : g_options)
        if (chosen == row.keyword)
            return row.run();
}

}   // namespace KxPlat
