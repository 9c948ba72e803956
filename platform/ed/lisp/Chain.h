// A chain of result buffers that is freed on every way out.
#pragma once
#include "../../rx/acutads.h"

namespace KxPlat::Lisp {

class Chain {
public:
    explicit Chain(resbuf* first = nullptr) : m_first(first) {}
    ~Chain() { acutRelRb(m_first); }
    Chain(const Chain&) = delete;
    Chain& operator=(const Chain&) = delete;
    resbuf* get() const { return m_first; }
    resbuf** address() { return &m_first; }

private:
    resbuf* m_first;
};

}   // namespace KxPlat::Lisp
