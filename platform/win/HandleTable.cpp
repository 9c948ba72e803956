#include "HandleTable.h"
#include "Processes.h"
#include "WinAnswer.h"
#include <map>

namespace KxPlat {
namespace {

struct Table {
    std::map<HANDLE, std::unique_ptr<KernelObject>> objects;
    uintptr_t next = 0x100;
};

Table& Handles()
{
    static Table table;
    return table;
}

}   // namespace

HANDLE NewHandle(std::unique_ptr<KernelObject> object)
{
    Table& table = Handles();
    // Numbers are not used again, so that a handle closed twice never closes another's.
    const auto handle = reinterpret_cast<HANDLE>(table.next += 4);
    table.objects.emplace(handle, std::move(object));
    return handle;
}

KernelObject* ObjectOf(HANDLE handle)
{
    const auto found = Handles().objects.find(handle);
    return found != Handles().objects.end() ? found->second.get() : nullptr;
}

}   // namespace KxPlat

BOOL CloseHandle(HANDLE handle)
{
    if (handle == INVALID_HANDLE_VALUE)
        return TRUE;   // the process itself
    return KxPlat::Handles().objects.erase(handle) != 0 ? TRUE : KxPlat::FailWith(ERROR_INVALID_HANDLE);
}
