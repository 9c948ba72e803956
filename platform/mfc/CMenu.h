// A menu: texts with numbers, marks and menus below them. Items are named by number, or by place with MF_BYPOSITION;
// a number is looked for in the menus below, too.
#pragma once
#include "CObject.h"
#include "CString.h"
#include <memory>
#include <vector>

namespace KxPlat {
class ByteReader;
}

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

private:
    struct Item {
        UINT flags = 0;   // MF_POPUP, MF_SEPARATOR, MF_CHECKED, MF_GRAYED, MF_DISABLED
        UINT id = 0;
        CString text;
        std::unique_ptr<CMenu> below;
    };
    void ReadItems(KxPlat::ByteReader& reader, int depth);
    Item* Find(UINT item, UINT flags) const;
    static UINT Change(Item* item, UINT mask, UINT flags);
    mutable std::vector<Item> m_items;
};
