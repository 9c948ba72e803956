// Callbacks for Windows messages that reach the host's main window. All modules share one table, which holds at most
// one record per message; the host knows one filter hook and one watch hook for all of them.
#pragma once
#include "KxHost.h"
#include "KxMfcEx/KxExport.h"

namespace KxMfcEx {

struct KxHookData {
    enum Kind : int32_t { kFilter = 114, kWatch = 115 };

    int32_t kind = 0;
    int32_t reserved1 = 0;   // carried, not interpreted, as are the other two
    uint32_t message = 0;
    WPARAM wParam = 0;   // for the trace line, as lParam
    LPARAM lParam = 0;
    int32_t reserved2 = 0;
    int32_t reserved3 = 0;
    // A filter swallows the message with an answer other than 0; a watch's answer is ignored.
    int (*callback)(void* userData, MSG* message) = nullptr;
    void* userData = nullptr;
};

}   // namespace KxMfcEx

namespace KxArxBase::Gi {

// Enters a record, in place of one for the same message, and installs its kind of hook; a null record removes the
// hooks. With `clearTable` the table is emptied first. The record is stored even where a status tells of a failure.
KXARX_API Acad::ErrorStatus HookMessage(KxMfcEx::KxHookData* data, int clearTable);

}   // namespace KxArxBase::Gi
