#include "CMenu.h"
#include "AfxExtensionModule.h"
#include "ByteReader.h"
#include "ResourceTable.h"
#include "TextView.h"

namespace {

constexpr UINT kLastItem = 0x80;
constexpr int kDeepest = 16;   // menus below menus that a resource may hold

}   // namespace

CMenu::CMenu() = default;
CMenu::~CMenu() = default;

BOOL CMenu::CreateMenu()
{
    if (m_hMenu != nullptr)
        return FALSE;
    m_hMenu = reinterpret_cast<HMENU>(this);
    return TRUE;
}

BOOL CMenu::DestroyMenu()
{
    const BOOL wasThere = m_hMenu != nullptr;
    m_items.clear();
    m_hMenu = nullptr;
    return wasThere;
}

BOOL CMenu::LoadMenu(UINT id)
{
    return LoadMenu(MAKEINTRESOURCE(id));
}

BOOL CMenu::LoadMenu(const wchar_t* name)
{
    const std::string_view bytes = KxPlat::FindResourceBytes(AfxFindResourceHandle(name, RT_MENU), name, RT_MENU);
    KxPlat::ByteReader reader(bytes);
    const unsigned version = reader.U16();
    reader.Bytes(reader.U16());
    if (reader.Failed() || version != 0 || !CreateMenu())
        return FALSE;
    ReadItems(reader, 0);
    if (reader.Failed())
        DestroyMenu();
    return m_hMenu != nullptr;
}

void CMenu::ReadItems(KxPlat::ByteReader& reader, int depth)
{
    bool isLast = depth > kDeepest;
    while (!isLast && !reader.Failed()) {
        Item item;
        const UINT flags = reader.U16();
        isLast = (flags & kLastItem) != 0;
        item.flags = flags & ~kLastItem;
        if ((flags & MF_POPUP) == 0)
            item.id = reader.U16();
        item.text = KxPlat::ToCString(reader.Text());
        if ((flags & MF_POPUP) != 0) {
            item.below = std::make_unique<CMenu>();
            item.below->CreateMenu();
            item.below->ReadItems(reader, depth + 1);
        } else if (item.id == 0 && item.text.IsEmpty()) {
            item.flags |= MF_SEPARATOR;
        }
        m_items.push_back(std::move(item));
    }
}

BOOL CMenu::AppendMenu(UINT flags, UINT_PTR id, const wchar_t* text)
{
    if (m_hMenu == nullptr || (flags & MF_POPUP) != 0)
        return FALSE;
    Item item;
    item.flags = flags;
    item.id = UINT(id);
    item.text = text;
    m_items.push_back(std::move(item));
    return TRUE;
}

BOOL CMenu::DeleteMenu(UINT item, UINT flags)
{
    const Item* found = Find(item, flags);
    for (size_t i = 0; i < m_items.size(); ++i) {
        if (&m_items[i] == found) {
            m_items.erase(m_items.begin() + ptrdiff_t(i));
            return TRUE;
        }
        if (m_items[i].below != nullptr && (flags & MF_BYPOSITION) == 0 && m_items[i].below->DeleteMenu(item, flags))
            return TRUE;
    }
    return FALSE;
}

CMenu::Item* CMenu::Find(UINT item, UINT flags) const
{
    if ((flags & MF_BYPOSITION) != 0)
        return item < m_items.size() ? &m_items[item] : nullptr;
    for (Item& candidate : m_items) {
        if (candidate.below != nullptr) {
            if (Item* found = candidate.below->Find(item, flags))
                return found;
        } else if (candidate.id == item && (candidate.flags & MF_SEPARATOR) == 0) {
            return &candidate;
        }
    }
    return nullptr;
}

int CMenu::GetMenuItemCount() const
{
    return m_hMenu == nullptr ? -1 : int(m_items.size());
}

UINT CMenu::GetMenuItemID(int place) const
{
    const Item* item = Find(UINT(place), MF_BYPOSITION);
    return item == nullptr || item->below != nullptr ? UINT(-1) : item->id;
}

int CMenu::GetMenuString(UINT item, CString& text, UINT flags) const
{
    const Item* found = Find(item, flags);
    text = found == nullptr ? CString() : found->text;
    return text.GetLength();
}

UINT CMenu::GetMenuState(UINT item, UINT flags) const
{
    const Item* found = Find(item, flags);
    if (found == nullptr)
        return UINT(-1);
    const UINT below = found->below == nullptr ? 0 : UINT(found->below->GetMenuItemCount()) << 8;
    return found->flags | below;
}

CMenu* CMenu::GetSubMenu(int place) const
{
    const Item* item = Find(UINT(place), MF_BYPOSITION);
    return item == nullptr ? nullptr : item->below.get();
}

UINT CMenu::Change(Item* item, UINT mask, UINT flags)
{
    if (item == nullptr)
        return UINT(-1);
    const UINT before = item->flags & mask;
    item->flags = (item->flags & ~mask) | (flags & mask);
    return before;
}

UINT CMenu::CheckMenuItem(UINT item, UINT check)
{
    return Change(Find(item, check), MF_CHECKED, check);
}

UINT CMenu::EnableMenuItem(UINT item, UINT enable)
{
    return Change(Find(item, enable), MF_GRAYED | MF_DISABLED, enable);
}
