#include "ResBufList.h"

namespace KxArxBase {

void ResBufList::Clear()
{
    if (m_head != nullptr)
        acutRelRb(m_head);
    m_head = m_tail = nullptr;
    m_count = 0;
}

void ResBufList::Adopt(resbuf* chain)
{
    Clear();
    m_head = chain;
    for (resbuf* at = chain; at != nullptr; at = at->rbnext) {
        m_tail = at;
        ++m_count;
    }
}

bool ResBufList::InsertBehind(resbuf* place, resbuf* piece)
{
    if (piece == nullptr)
        return false;
    resbuf*& link = LinkBehind(place);
    piece->rbnext = link;
    link = piece;
    if (piece->rbnext == nullptr)
        m_tail = piece;
    ++m_count;
    return true;
}

void ResBufList::RemoveBehind(resbuf* place)
{
    resbuf*& link = LinkBehind(place);
    resbuf* piece = link;
    if (piece == nullptr)
        return;
    link = piece->rbnext;
    if (m_tail == piece)
        m_tail = place;
    --m_count;
    piece->rbnext = nullptr;
    acutRelRb(piece);
}

resbuf* ResBufList::Before(const resbuf* piece) const
{
    resbuf* at = m_head == piece ? nullptr : m_head;
    while (at != nullptr && at->rbnext != piece)
        at = at->rbnext;
    return at;
}

}   // namespace KxArxBase
