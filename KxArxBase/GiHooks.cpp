#include "GiHooks.h"
#include "KxMessages.h"

namespace KxArxBase::Gi {

namespace {

using KxMfcEx::KxHookData;

const int kFilterInstalled = 2;
const int kWatchInstalled = 4;

struct HookState {
    CArray<KxHookData, KxHookData&> table;
    int installed = 0;
};

HookState g_hooks;

int FilterMessage(MSG* message)
{
    for (INT_PTR i = 0; i < g_hooks.table.GetSize(); ++i) {
        const KxHookData& record = g_hooks.table.GetAt(i);
        if (record.kind == KxHookData::kFilter && record.message == message->message)
            return record.callback != nullptr && record.callback(record.userData, message) != 0 ? 1 : 0;
    }
    return 0;
}

// A callback may change the table, so its size is asked anew each time.
void WatchMessage(const MSG* message)
{
    for (INT_PTR i = 0; i < g_hooks.table.GetSize(); ++i) {
        const KxHookData record = g_hooks.table.GetAt(i);
        if (record.kind == KxHookData::kWatch && record.message == message->message && record.callback != nullptr)
            record.callback(record.userData, const_cast<MSG*>(message));
    }
}

Acad::ErrorStatus Install(int kind)
{
    if (kind != KxHookData::kFilter && kind != KxHookData::kWatch)
        return AsStatus(KxAcad::eWrongHookType);
    const bool isFilter = kind == KxHookData::kFilter;
    const int bit = isFilter ? kFilterInstalled : kWatchInstalled;
    if ((g_hooks.installed & bit) != 0)
        return Acad::eOk;
    if ((isFilter ? acedRegisterFilterWinMsg(FilterMessage) : acedRegisterWatchWinMsg(WatchMessage)) == 0)
        return AsStatus(KxAcad::eFailRegCadHook);
    DebugCmdMsg(isFilter ? L"\n*** KxCadFilterWinMsg Register ok!" : L"\n*** KxCadWatchWinMsg Register ok!");
    g_hooks.installed |= bit;
    return Acad::eOk;
}

void Enter(KxHookData& data)
{
    for (INT_PTR i = 0; i < g_hooks.table.GetSize(); ++i) {
        if (g_hooks.table.GetAt(i).message == data.message) {
            g_hooks.table.SetAt(i, data);
            return;
        }
    }
    g_hooks.table.Add(data);
    DebugCmdMsg(L"\n*** Add HookData Message: %x WParam: %d LParam: %d !", data.message, int(data.wParam),
                int(data.lParam));
}

// Each mask keeps the bit of the hook that was just removed and clears the other: of two installed hooks the watch hook
// stays with the host, and a later filter record registers none again.
Acad::ErrorStatus Remove()
{
    Acad::ErrorStatus es = Acad::eOk;
    if ((g_hooks.installed & kFilterInstalled) != 0) {
        if (acedRemoveFilterWinMsg(FilterMessage) != 0) {
            DebugCmdMsg(L"\n*** KxCadFilterWinMsg Remove ok!");
            g_hooks.installed &= kFilterInstalled;
        } else {
            es = AsStatus(KxAcad::eFailRemoveCadHook);
        }
    }
    if ((g_hooks.installed & kWatchInstalled) != 0) {
        if (acedRemoveWatchWinMsg(WatchMessage) == 0)
            return AsStatus(KxAcad::eFailRemoveCadHook);
        DebugCmdMsg(L"\n*** KxCadWatchWinMsg Remove ok!");
        g_hooks.installed &= kWatchInstalled;
    }
    return es;
}

}   // namespace

Acad::ErrorStatus HookMessage(KxHookData* data, int clearTable)
{
    if (clearTable != 0)
        g_hooks.table.RemoveAll();
    if (data == nullptr)
        return Remove();
    const Acad::ErrorStatus es = Install(data->kind);
    Enter(*data);
    return es;
}

}   // namespace KxArxBase::Gi
