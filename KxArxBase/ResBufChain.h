// A chain of result buffers that frees itself, and grows at its end.
#pragma once
#include "KxHost.h"

namespace KxArxBase {

class ResBufChain {
public:
    ResBufChain() = default;
    explicit ResBufChain(resbuf* head) : m_head(head), m_last(LastOf(head)) {}
    ~ResBufChain() { acutRelRb(m_head); }
    ResBufChain(const ResBufChain&) = delete;
    ResBufChain& operator=(const ResBufChain&) = delete;

    resbuf* get() const { return m_head; }
    // False, with the chain as it was, when a null piece shows that the host could not build it.
    bool Append(resbuf* piece)
    {
        if (piece == nullptr)
            return false;
        (m_head == nullptr ? m_head : m_last->rbnext) = piece;
        m_last = LastOf(piece);
        return true;
    }

private:
    static resbuf* LastOf(resbuf* chain)
    {
        while (chain != nullptr && chain->rbnext != nullptr)
            chain = chain->rbnext;
        return chain;
    }

    resbuf* m_head = nullptr;
    resbuf* m_last = nullptr;
};

}   // namespace KxArxBase
