#include "GroupBucket.h"
#include "GroupCopy.h"
#include <algorithm>

namespace KxPlat {

void GroupBucket::Fill(const AcDbObject& object)
{
    static const GroupList none;
    const Annex* annex = ObjectAccess::Find(object);
    m_own.clear();
    if (list != nullptr) {
        GroupCopy copy(m_own);
        list->Get(object, copy, kR2018);
        m_groups = &m_own;
    } else {
        m_groups = annex == nullptr ? &none : &annex->others;
    }
    m_isTaken.assign(m_groups->size(), false);
    // Before its first marker stands what a proxy has in common with all entities.
    if (list == nullptr)
        for (size_t i = 0; i < m_groups->size(); ++i)
            if ((*m_groups)[i].code == 100 && (*m_groups)[i].section == section) {
                std::fill_n(m_isTaken.begin(), i, true);
                break;
            }
    m_view = {0, m_groups->size()};
    m_next = 0;
}

// The name of an entry stands before its object, a sort handle behind it.
void GroupBucket::Thin(const DwgOutput& output)
{
    for (size_t i = 0; i < m_own.size(); ++i) {
        const AcDbStub* stub = m_own[i].id();
        if (stub == nullptr || output.dropped.count(stub) == 0)
            continue;
        m_isTaken[i] = true;
        const int code = m_own[i].code;
        if ((code == 350 || code == 360) && i > 0 && m_own[i - 1].code == 3)
            m_isTaken[i - 1] = true;
        if (code == 331 && i + 1 < m_own.size() && m_own[i + 1].code == 5)
            m_isTaken[i + 1] = true;
    }
}

const GroupValue* GroupBucket::Take(int code)
{
    const size_t from = std::clamp(m_next, m_view.begin, m_view.end);
    for (size_t step = 0, size = m_view.end - m_view.begin; step < size; ++step) {
        size_t i = from + step;
        if (i >= m_view.end)
            i -= size;
        if (!Fits(i, code))
            continue;
        m_isTaken[i] = true;
        m_next = i + 1;
        return &(*m_groups)[i];
    }
    return nullptr;
}

size_t GroupBucket::CountOf(int code) const
{
    size_t count = 0;
    for (size_t i = m_view.begin; i < m_view.end; ++i)
        count += Fits(i, code);
    return count;
}

GroupBucket::View GroupBucket::EnterRow(int code)
{
    const View before = m_view;
    const size_t end = m_view.end;
    size_t i = std::clamp(m_next, m_view.begin, end);
    while (i < end && !Fits(i, code))
        ++i;
    if (i == end)
        for (i = m_view.begin; i < end && !Fits(i, code);)
            ++i;
    m_view.begin = m_next = i;
    for (i += i < end; i < end && !Fits(i, code);)
        ++i;
    m_view.end = i;
    return before;
}

}   // namespace KxPlat
