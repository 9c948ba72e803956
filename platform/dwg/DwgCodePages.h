// The numbers by which DWG files name code pages.
#pragma once
#include <string_view>

namespace KxPlat {

struct DwgCodePage {
    int number;
    unsigned windows;
    const wchar_t* name;   // as drawing exchange files have it
};

// Unknown numbers and names count as the Western European page.
const DwgCodePage& CodePageOfNumber(int number);
const DwgCodePage& CodePageNamed(std::wstring_view name);

}   // namespace KxPlat
