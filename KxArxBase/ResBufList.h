// A chain of result buffers that knows its end and its length, and frees itself.
#pragma once
#include "KxHost.h"

namespace KxArxBase {

class ResBufList {
public:
    ResBufList() = default;
    ~ResBufList() { Clear(); }
    ResBufList(const ResBufList&) = delete;
    ResBufList& operator=(const ResBufList&) = delete;

    resbuf* Head() const { return m_head; }
    resbuf* Tail() const { return m_tail; }
    int Count() const { return m_count; }

    void Clear();
    // Takes over a whole chain in place of the present one.
    void Adopt(resbuf* chain);
    // Takes over one buffer; false, with nothing changed, for null.
    bool Append(resbuf* piece) { return InsertBehind(m_tail, piece); }
    // A null place is the start of the list.
    bool InsertBehind(resbuf* place, resbuf* piece);
    // Frees the buffer behind `place` (null: the first one), if there is one.
    void RemoveBehind(resbuf* place);
    // The one in front of `piece`, null for the first.
    resbuf* Before(const resbuf* piece) const;

private:
    resbuf*& LinkBehind(resbuf* place) { return place == nullptr ? m_head : place->rbnext; }

    resbuf* m_head = nullptr;
    resbuf* m_tail = nullptr;
    int m_count = 0;
};

}   // namespace KxArxBase
