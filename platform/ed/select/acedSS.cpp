// Selection sets by name: reading, changing, freeing.
#include "../../db/AcDbDatabase.h"
#include "../../rx/acutads.h"
#include "../../rx/ResBufs.h"
#include "../acedads.h"
#include "DocumentSelection.h"
#include "Errno.h"

using namespace KxPlat;

namespace {

// Null, with ERRNO set, for a name that is none.
SelectionSet* SetNamed(const ads_name name)
{
    SelectionSet* set = SelectionSets::All().Find(name);
    if (set == nullptr)
        SetErrno(Errno::BadSelectionMode);
    return set;
}

bool EntityNamed(const ads_name name, AcDbObjectId& id)
{
    return name != nullptr && acdbGetObjectId(id, name) == Acad::eOk;
}

std::vector<AcDbObjectId> IdsOf(const ads_name name)
{
    const SelectionSet* set = name == nullptr ? nullptr : SelectionSets::All().Find(name);
    return set == nullptr ? std::vector<AcDbObjectId>() : set->Ids();
}

// A chain of one selection set, or none for an empty list.
resbuf* SetChain(const std::vector<AcDbObjectId>& ids)
{
    if (ids.empty())
        return nullptr;
    ads_name name;
    SelectionSets::All().New(CurrentDatabase(), name).Assign(ids);
    return NewNameRb(RTPICKS, name);
}

}   // namespace

int acedSSFree(const ads_name set)
{
    return SelectionSets::All().Release(set) ? RTNORM : RTERROR;
}

int acedSSLength(const ads_name name, Adesk::Int32* length)
{
    const SelectionSet* set = SetNamed(name);
    if (set == nullptr || length == nullptr)
        return RTERROR;
    *length = Adesk::Int32(set->Length());
    return RTNORM;
}

int acedSSName(const ads_name name, Adesk::Int32 index, ads_name entity)
{
    const SelectionSet* set = SetNamed(name);
    if (set == nullptr || entity == nullptr || index < 0 || size_t(index) >= set->Length())
        return RTERROR;
    return acdbGetAdsName(entity, set->At(size_t(index))) == Acad::eOk ? RTNORM : RTERROR;
}

int acedSSAdd(const ads_name entity, const ads_name name, ads_name result)
{
    const bool isNew = name == nullptr || ads_name_nil(name);
    AcDbObjectId id;
    if (result == nullptr || (entity != nullptr && !EntityNamed(entity, id)))
        return RTERROR;
    SelectionSet* set = nullptr;
    if (isNew) {
        CurrentSelection();   // sets of a document go with it
        set = &SelectionSets::All().New(CurrentDatabase(), result);
    } else {
        set = SetNamed(name);
        if (set == nullptr)
            return RTERROR;
        if (result != name)
            ads_name_set(name, result);
    }
    if (!id.isNull())
        set->Append(id);
    return RTNORM;
}

int acedSSDel(const ads_name entity, const ads_name name)
{
    SelectionSet* set = SetNamed(name);
    AcDbObjectId id;
    return set != nullptr && EntityNamed(entity, id) && set->Remove(id) ? RTNORM : RTERROR;
}

int acedSSMemb(const ads_name entity, const ads_name name)
{
    const SelectionSet* set = SetNamed(name);
    AcDbObjectId id;
    return set != nullptr && EntityNamed(entity, id) && set->Has(id) ? RTNORM : RTERROR;
}

// Sets do not keep how a member was chosen: all count as chosen by other means (0).
int acedSSNameX(resbuf** result, const ads_name name, Adesk::Int32 index)
{
    const SelectionSet* set = SetNamed(name);
    if (set == nullptr || result == nullptr || index >= Adesk::Int32(set->Length()))
        return RTERROR;
    ChainBuilder chain;
    const size_t first = index < 0 ? 0 : size_t(index), end = index < 0 ? set->Length() : first + 1;
    for (size_t i = first; i < end; ++i) {
        ads_name entity;
        acdbGetAdsName(entity, set->At(i));
        chain.Add(acutNewRb(RTLB));
        chain.Add(NewShortRb(RTSHORT, 0));
        chain.Add(NewNameRb(RTENAME, entity));
        chain.Add(NewShortRb(RTSHORT, 0));
        chain.Add(acutNewRb(RTLE));
    }
    *result = chain.Take();
    return RTNORM;
}

int acedSSGetFirst(resbuf** gripSet, resbuf** pickFirstSet)
{
    const DocumentSelection& selection = CurrentSelection();
    if (gripSet != nullptr)
        *gripSet = SetChain(selection.grips);
    if (pickFirstSet != nullptr)
        *pickFirstSet = SetChain(selection.pickFirst);
    return RTNORM;
}

int acedSSSetFirst(const ads_name gripSet, const ads_name pickFirstSet)
{
    DocumentSelection& selection = CurrentSelection();
    selection.grips = IdsOf(gripSet);
    selection.pickFirst = IdsOf(pickFirstSet);
    return RTNORM;
}
