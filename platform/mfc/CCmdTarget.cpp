#include "CCmdTarget.h"

CCmdTarget::~CCmdTarget() = default;

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap()
{
    static const AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, {}}};
    static const AFX_MSGMAP map = {nullptr, entries};
    return &map;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const
{
    return GetThisMessageMap();
}

const AFX_MSGMAP_ENTRY* CCmdTarget::FindMessageEntry(UINT message, UINT code, UINT id) const
{
    for (const AFX_MSGMAP* map = GetMessageMap(); map != nullptr;
         map = map->pfnGetBaseMap == nullptr ? nullptr : map->pfnGetBaseMap()) {
        for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->handler.kind != AFX_MSGHANDLER::None; ++entry) {
            if (entry->nMessage == message && entry->nCode == code && id >= entry->nID && id <= entry->nLastID)
                return entry;
        }
    }
    return nullptr;
}

BOOL CCmdTarget::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO*)
{
    const UINT message = HIWORD(UINT(code)) == 0 ? UINT(WM_COMMAND) : HIWORD(UINT(code));
    const AFX_MSGMAP_ENTRY* entry = FindMessageEntry(message, LOWORD(UINT(code)), WORD(id));
    if (entry == nullptr)
        return FALSE;
    const AFX_MSGHANDLER& handler = entry->handler;
    switch (handler.kind) {
    case AFX_MSGHANDLER::Plain:
        (this->*handler.plain)();
        return TRUE;
    case AFX_MSGHANDLER::Range:
        (this->*handler.range)(id);
        return TRUE;
    case AFX_MSGHANDLER::Notify: {
        const AFX_NOTIFY* notify = static_cast<const AFX_NOTIFY*>(extra);
        *notify->pResult = 0;
        (this->*handler.notify)(notify->pNMHDR, notify->pResult);
        return TRUE;
    }
    case AFX_MSGHANDLER::Update:
        (this->*handler.update)(static_cast<CCmdUI*>(extra));
        return TRUE;
    default:
        return FALSE;
    }
}
