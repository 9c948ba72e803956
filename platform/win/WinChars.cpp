#include "WinChars.h"
#include "CharTables.h"

BOOL IsCharAlphaW(WCHAR character)
{
    return KxPlat::IsLetter(character) ? TRUE : FALSE;
}
