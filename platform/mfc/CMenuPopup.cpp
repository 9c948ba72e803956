// Showing a menu, and what its owner says of the items before.
#include "../ui/WindowBackend.h"
#include "../ui/WindowQueue.h"
#include "CMenu.h"
#include "CWnd.h"
#include "TextView.h"

void CMenu::Describe(KxPlat::MenuModel& model) const
{
    for (const Item& item : m_items) {
        KxPlat::MenuModel::Item shown;
        shown.id = item.id;
        shown.flags = item.flags;
        shown.text = KxPlat::TextView(item.text);
        if (item.below != nullptr) {
            KxPlat::MenuModel below;
            item.below->Describe(below);
            shown.below = std::move(below.items);
        }
        model.items.push_back(std::move(shown));
    }
}

void CMenu::AskForUpdates(CWnd& owner)
{
    for (size_t i = 0; i < m_items.size(); ++i) {
        if (m_items[i].below != nullptr) {
            m_items[i].below->AskForUpdates(owner);
        } else if ((m_items[i].flags & MF_SEPARATOR) == 0) {
            CCmdUI asked;
            asked.m_nID = m_items[i].id;
            asked.m_nIndex = UINT(i);
            asked.m_pMenu = this;
            owner.OnCmdMsg(asked.m_nID, CN_UPDATE_COMMAND_UI, &asked, nullptr);
        }
    }
}

BOOL CMenu::TrackPopupMenu(UINT flags, int x, int y, CWnd* owner, LPCRECT)
{
    const bool returnsChoice = (flags & TPM_RETURNCMD) != 0;
    if (m_hMenu == nullptr || owner == nullptr || owner->m_hWnd == nullptr)
        return FALSE;
    const HWND window = owner->m_hWnd;
    if ((flags & TPM_NONOTIFY) == 0)
        KxPlat::CallNativeWindow(window, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(m_hMenu), 0);
    AskForUpdates(*owner);
    KxPlat::MenuModel model;
    Describe(model);
    const UINT chosen = KxPlat::Windows().TrackMenu(window, model, {x, y});
    if (returnsChoice)
        return BOOL(chosen);
    if (chosen != 0)
        KxPlat::PostNative(window, WM_COMMAND, MAKEWPARAM(WORD(chosen), 0), 0);
    return TRUE;
}

BOOL CMenu::ModifyMenu(UINT item, UINT flags, UINT_PTR id, const wchar_t* text)
{
    Item* found = Find(item, flags);
    if (found == nullptr || found->below != nullptr)
        return FALSE;
    found->flags = flags & ~UINT(MF_BYPOSITION);
    found->id = UINT(id);
    found->text = text;
    return TRUE;
}

BOOL CMenu::CheckMenuRadioItem(UINT first, UINT last, UINT chosen, UINT flags)
{
    for (UINT item = first; item <= last; ++item)
        CheckMenuItem(item, (flags & MF_BYPOSITION) | (item == chosen ? MF_CHECKED : MF_UNCHECKED));
    return Find(chosen, flags) != nullptr;
}

void CCmdUI::Enable(BOOL on)
{
    if (m_pMenu != nullptr)
        m_pMenu->EnableMenuItem(m_nIndex, MF_BYPOSITION | (on ? MF_ENABLED : MF_GRAYED | MF_DISABLED));
}

void CCmdUI::SetCheck(int check)
{
    if (m_pMenu != nullptr)
        m_pMenu->CheckMenuItem(m_nIndex, MF_BYPOSITION | (check != 0 ? MF_CHECKED : MF_UNCHECKED));
}

void CCmdUI::SetText(const wchar_t* text)
{
    if (m_pMenu == nullptr)
        return;
    const UINT state = m_pMenu->GetMenuState(m_nIndex, MF_BYPOSITION);
    m_pMenu->ModifyMenu(m_nIndex, MF_BYPOSITION | state, m_nID, text);
}
