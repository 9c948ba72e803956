#include "WinChars.h"
#include "CharTables.h"
#include "WinText.h"

BOOL IsCharAlphaW(WCHAR character)
{
    return KxPlat::IsLetter(character) ? TRUE : FALSE;
}

int _ismbslead(const unsigned char* text, const unsigned char* current)
{
    while (text <= current && *text != 0) {
        const bool leads = IsDBCSLeadByte(*text) != 0;
        if (text == current)
            return leads ? -1 : 0;
        text += leads && text[1] != 0 ? 2 : 1;
    }
    return 0;
}
