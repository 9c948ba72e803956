#include "SelectionSet.h"
#include "../../db/core/Stub.h"
#include <algorithm>

namespace KxPlat {

namespace {

constexpr Adesk::IntPtr kSetMark = 0x5353;
constexpr size_t kIndexFrom = 32;   // below, a walk is quicker than an index

}   // namespace

// Objects mostly come in the order of the drawing, where a rising handle tells that each is new.
bool SelectionSet::IsBehindLast(AcDbObjectId id) const
{
    const AcDbStub* last = m_ids.back();
    const AcDbStub* next = id;
    return last->handle < next->handle;
}

void SelectionSet::Clean() const
{
    if (m_isClean)
        return;
    std::unordered_set<AcDbObjectId> seen(m_ids.size() - m_start);
    m_ids.erase(std::remove_if(m_ids.begin() + std::ptrdiff_t(m_start), m_ids.end(),
                               [&](AcDbObjectId id) { return !seen.insert(id).second; }),
                m_ids.end());
    m_isClean = true;
}

void SelectionSet::Assign(std::vector<AcDbObjectId> ids)
{
    m_ids = std::move(ids);
    m_start = 0;
    m_index.clear();
    m_isClean = true;
}

bool SelectionSet::Remove(AcDbObjectId id)
{
    Clean();
    const auto first = m_ids.begin() + std::ptrdiff_t(m_start);
    const auto found = std::find(first, m_ids.end(), id);
    if (found == m_ids.end())
        return false;
    if (found == first)
        ++m_start;
    else
        m_ids.erase(found);
    m_index.erase(id);
    return true;
}

bool SelectionSet::Has(AcDbObjectId id) const
{
    Clean();
    const auto first = m_ids.begin() + std::ptrdiff_t(m_start);
    if (m_ids.size() - m_start < kIndexFrom)
        return std::find(first, m_ids.end(), id) != m_ids.end();
    if (m_index.empty())
        m_index.insert(first, m_ids.end());
    return m_index.count(id) != 0;
}

size_t SelectionSet::Length() const
{
    Clean();
    return m_ids.size() - m_start;
}

AcDbObjectId SelectionSet::At(size_t index) const
{
    return index < Length() ? m_ids[m_start + index] : AcDbObjectId();
}

std::vector<AcDbObjectId> SelectionSet::Ids() const
{
    Clean();
    return std::vector<AcDbObjectId>(m_ids.begin() + std::ptrdiff_t(m_start), m_ids.end());
}

SelectionSets& SelectionSets::All()
{
    static SelectionSets sets;
    return sets;
}

SelectionSet& SelectionSets::New(AcDbDatabase* database, ads_name name)
{
    name[0] = ++m_last;
    name[1] = kSetMark;
    auto entry = std::make_unique<Entry>(Entry{SelectionSet(database), 1});
    SelectionSet& set = entry->set;
    m_sets.emplace(m_last, std::move(entry));
    return set;
}

bool IsSelectionSetName(const ads_name name)
{
    return name != nullptr && name[1] == kSetMark;
}

SelectionSet* SelectionSets::Find(const ads_name name) const
{
    if (!IsSelectionSetName(name))
        return nullptr;
    auto& recent = m_recent[name[0] & 1];
    if (recent.first == name[0])
        return recent.second;
    const auto found = m_sets.find(name[0]);
    if (found == m_sets.end())
        return nullptr;
    recent = {name[0], &found->second->set};
    return recent.second;
}

void SelectionSets::Hold(const ads_name name)
{
    if (Find(name) != nullptr)
        ++m_sets.find(name[0])->second->holders;
}

bool SelectionSets::Release(const ads_name name)
{
    if (Find(name) == nullptr)
        return false;
    const auto found = m_sets.find(name[0]);
    if (--found->second->holders == 0) {
        m_recent[name[0] & 1] = {};
        m_sets.erase(found);
    }
    return true;
}

void SelectionSets::Forget(AcDbDatabase* database)
{
    for (auto& [number, entry] : m_sets)
        if (entry->set.database() == database)
            entry->set.Assign({});
}

}   // namespace KxPlat
