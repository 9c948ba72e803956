// What a HANDLE of a call stands for. A handle is known until CloseHandle takes it back.
#pragma once
#include "KxWinTypes.h"
#include <memory>

namespace KxPlat {

class KernelObject {
public:
    virtual ~KernelObject() = default;
};

HANDLE NewHandle(std::unique_ptr<KernelObject> object);
// Null for what is no open handle.
KernelObject* ObjectOf(HANDLE handle);

}   // namespace KxPlat
