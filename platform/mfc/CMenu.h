// A menu: texts with numbers, marks and menus below them. Items are named by number, or by place with MF_BYPOSITION;
// a number is looked for in the menus below, too.
#pragma once
#include "../ui/WinUser.h"
#include "CObject.h"
#include "CString.h"
#include <memory>
#include <vector>

class CWnd;

namespace KxPlat {
class ByteReader;
struct MenuModel;
}   // namespace KxPlat

class CMenu : public CObject {
public:
    CMenu();
    ~CMenu() override;

    HMENU m_hMenu = nullptr;   // null without a menu
    HMENU GetSafeHmenu() const { return m_hMenu; }
    BOOL LoadMenu(UINT id);
    BOOL LoadMenu(const wchar_t* name);
    BOOL CreateMenu();
    BOOL CreatePopupMenu() { return CreateMenu(); }
    BOOL DestroyMenu();

    BOOL AppendMenu(UINT flags, UINT_PTR id = 0, const wchar_t* text = nullptr);
    BOOL DeleteMenu(UINT item, UINT flags);
    int GetMenuItemCount() const;          // -1 without a menu
    UINT GetMenuItemID(int place) const;   // UINT(-1) for an item with a menu below
    int GetMenuString(UINT item, CString& text, UINT flags) const;
    UINT GetMenuState(UINT item, UINT flags) const;   // MF_ flags, UINT(-1) for an unknown item
    CMenu* GetSubMenu(int place) const;               // owned by this menu; null where there is none
    // The old MF_CHECKED or MF_UNCHECKED, UINT(-1) for an unknown item.
    UINT CheckMenuItem(UINT item, UINT check);
    UINT EnableMenuItem(UINT item, UINT enable);
    BOOL ModifyMenu(UINT item, UINT flags, UINT_PTR id = 0, const wchar_t* text = nullptr);   // its text and number
    BOOL CheckMenuRadioItem(UINT first, UINT last, UINT chosen, UINT flags);

    // Shows the menu at a place of the screen. What the user chooses comes to `owner` as WM_COMMAND; with
    // TPM_RETURNCMD it is the answer instead.
    BOOL TrackPopupMenu(UINT flags, int x, int y, CWnd* owner, LPCRECT rect = nullptr);
    static CMenu* FromHandle(HMENU menu) { return reinterpret_cast<CMenu*>(menu); }

private:
    struct Item {
        UINT flags = 0;   // MF_POPUP, MF_SEPARATOR, MF_CHECKED, MF_GRAYED, MF_DISABLED
        UINT id = 0;
        CString text;
        std::unique_ptr<CMenu> below;
    };
    void Describe(KxPlat::MenuModel& model) const;
    void AskForUpdates(CWnd& owner);
    void ReadItems(KxPlat::ByteReader& reader, int depth);
    Item* Find(UINT item, UINT flags) const;
    static UINT Change(Item* item, UINT mask, UINT flags);
    mutable std::vector<Item> m_items;
};

// What a handler of ON_UPDATE_COMMAND_UI changes: the item that is about to be shown.
class CCmdUI {
public:
    UINT m_nID = 0;
    UINT m_nIndex = 0;
    CMenu* m_pMenu = nullptr;

    virtual ~CCmdUI() = default;
    virtual void Enable(BOOL on = TRUE);
    virtual void SetCheck(int check = 1);
    virtual void SetRadio(BOOL on = TRUE) { SetCheck(on); }
    virtual void SetText(const wchar_t* text);
};
