// A menu as a backend shows it.
#pragma once
#include "../win/KxWinTypes.h"
#include <string>
#include <vector>

namespace KxPlat {

struct MenuModel {
    struct Item {
        UINT id = 0;
        UINT flags = 0;      // MF_POPUP, MF_SEPARATOR, MF_CHECKED, MF_GRAYED, MF_DISABLED
        std::wstring text;   // a "&" stands before the letter that reaches the item
        std::vector<Item> below;
    };
    std::vector<Item> items;
};

}   // namespace KxPlat
