#include "WindowBackend.h"

namespace KxPlat {

namespace {

WindowBackend& InMemory()
{
    static WindowBackend backend;
    return backend;
}

WindowBackend*& Current()
{
    static WindowBackend* backend = &InMemory();
    return backend;
}

}   // namespace

WindowBackend& Windows()
{
    return *Current();
}

void SetWindowBackend(WindowBackend* backend)
{
    Current() = backend == nullptr ? &InMemory() : backend;
}

}   // namespace KxPlat
