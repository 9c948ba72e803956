#include "GiPick.h"
#include "KxMessages.h"
#include <memory>

namespace KxArxBase::Gi {

namespace {

// Frees a selection set of the host.
class SelectionSet {
public:
    SelectionSet() { ads_name_clear(m_name); }
    ~SelectionSet()
    {
        if (!ads_name_nil(m_name))
            acedSSFree(m_name);
    }
    SelectionSet(const SelectionSet&) = delete;
    SelectionSet& operator=(const SelectionSet&) = delete;
    ads_name& name() { return m_name; }

private:
    ads_name m_name;
};

// The host answers a prompt left with Enter as an error, and says only in ERRNO that it was one.
bool WasEnter(int answer)
{
    const int kNullResponse = 52;
    if (answer != RTERROR)
        return answer == RTNONE;
    resbuf value = {};
    return acedGetVar(L"ERRNO", &value) == RTNORM && value.restype == RTSHORT && value.resval.rint == kNullResponse;
}

void KeepClass(AcDbObjectIdArray& ids, const AcRxClass* cls)
{
    AcDbObjectIdArray kept;
    for (const AcDbObjectId& id : ids) {
        if (id.objectClass() != nullptr && id.objectClass()->isDerivedFrom(cls))
            kept.append(id);
    }
    ids.swap(kept);
}

int AskForSet(const wchar_t* prompt, int count, SelectionSet& set)
{
    const wchar_t* prompts[2] = {prompt, prompt};   // for adding and for removing
    return acedSSGet(count == 1 ? L"_:S:$" : L"_:$", prompts, nullptr, nullptr, set.name());
}

// Takes the objects selected before the command and clears that selection, as the host's own commands do.
bool TakePickSet(SelectionSet& set)
{
    if (acedSSGet(L"_I", nullptr, nullptr, nullptr, set.name()) != RTNORM)
        return false;
    acedSSSetFirst(nullptr, nullptr);
    return true;
}

}   // namespace

int PickEntity(const wchar_t* prompt, AcDbObjectIdArray& ids, int count, AcRxClass* cls, int usePickSet)
{
    ids.setLogicalLength(0);
    SelectionSet set;
    if (usePickSet == 0 || !TakePickSet(set)) {
        const int answer = AskForSet(prompt, count, set);
        if (answer != RTNORM)
            return WasEnter(answer) ? RTNONE : answer;
    }
    if (GetObjectIdsWithAdsName(set.name(), ids) != Acad::eOk)
        return RTERROR;
    if (cls != nullptr)
        KeepClass(ids, cls);
    if (count > 0 && ids.length() > count)
        ids.setLogicalLength(count);
    return ids.isEmpty() ? RTERROR : RTNORM;
}

Acad::ErrorStatus GetObjectIdsWithAdsName(const ads_name set, AcDbObjectIdArray& ids)
{
    ids.setLogicalLength(0);
    Adesk::Int32 count = 0;
    if (acedSSLength(set, &count) != RTNORM)
        return Acad::eInvalidAdsName;
    ids.setLogicalLength(int(count));
    int found = 0;
    for (Adesk::Int32 i = 0; i < count; ++i) {
        ads_name entity;
        if (acedSSName(set, i, entity) == RTNORM && acdbGetObjectId(ids[found], entity) == Acad::eOk)
            ++found;
    }
    ids.setLogicalLength(found);
    return Acad::eOk;
}

Acad::ErrorStatus GetAdsNameWithObjectIds(const AcDbObjectIdArray& ids, ads_name set)
{
    ads_name_clear(set);
    for (const AcDbObjectId& id : ids) {
        ads_name entity;
        if (acdbGetAdsName(entity, id) != Acad::eOk)
            continue;
        const bool isFirst = ads_name_nil(set);
        if (acedSSAdd(entity, isFirst ? nullptr : set, set) != RTNORM)
            continue;
    }
    return ads_name_nil(set) ? AsStatus(KxAcad::eNoObject) : Acad::eOk;
}

// Any spelling of the path finds the drawing: relative ones, and those with other separators.
AcApDocument* GetAcApDocument(const wchar_t* path)
{
    if (path == nullptr)
        return nullptr;
    const DWORD kLongest = 1024;
    wchar_t full[kLongest] = L"";
    const DWORD length = GetFullPathNameW(path, kLongest, full, nullptr);
    const wchar_t* wanted = length == 0 || length >= kLongest ? path : full;
    const std::unique_ptr<AcApDocumentIterator> it(acDocManager->newAcApDocumentIterator());
    for (; it != nullptr && !it->done(); it->step()) {
        AcApDocument* document = it->document();
        const ACHAR* name = document->fileName();
        if (name != nullptr && CString(name).CompareNoCase(wanted) == 0)
            return document;
    }
    return nullptr;
}

}   // namespace KxArxBase::Gi
