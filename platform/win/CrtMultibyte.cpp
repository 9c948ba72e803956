#include "CrtMultibyte.h"
#include "CodePage.h"
#include "WinText.h"

namespace {

// The code page that the program set; below 0 it is the ANSI one.
int& SetPage()
{
    static int page = _MB_CP_ANSI;
    return page;
}

unsigned Page()
{
    return SetPage() < 0 ? GetACP() : static_cast<unsigned>(SetPage());
}

struct TrailRange {
    unsigned codePage, first, last;
};
const TrailRange kTrails[] = {{932, 0x40, 0x7E}, {932, 0x80, 0xFC}, {936, 0x40, 0xFE},  {949, 0x41, 0xFE},
                              {950, 0x40, 0x7E}, {950, 0xA1, 0xFE}, {1361, 0x31, 0x7E}, {1361, 0x81, 0xFE}};

bool IsLead(unsigned char byte)
{
    const unsigned page = Page();
    return page != _MB_CP_SBCS && KxPlat::IsLeadByte(page, byte);
}

// The bytes of the character there, 0 at the end of the text.
size_t LengthOf(const unsigned char* at)
{
    return *at == 0 ? 0 : IsLead(*at) && at[1] != 0 ? 2 : 1;
}

unsigned CharacterAt(const unsigned char* at, size_t length)
{
    return length == 2 ? at[0] * 256u + at[1] : at[0];
}

unsigned char* Writable(const unsigned char* text)
{
    return const_cast<unsigned char*>(text);
}

}   // namespace

int _getmbcp()
{
    return static_cast<int>(Page());
}

int _setmbcp(int codePage)
{
    const bool isNamed = codePage == _MB_CP_ANSI || codePage == _MB_CP_OEM || codePage == _MB_CP_SBCS;
    if (!isNamed && (codePage < 0 || !KxPlat::IsCodePage(static_cast<unsigned>(codePage))))
        return -1;
    SetPage() = codePage;
    return 0;
}

int _ismbblead(unsigned byte)
{
    return IsLead(static_cast<unsigned char>(byte)) ? 1 : 0;
}

int _ismbbtrail(unsigned byte)
{
    const unsigned page = Page();
    for (const TrailRange& row : kTrails) {
        if (row.codePage == page && byte >= row.first && byte <= row.last)
            return 1;
    }
    return 0;
}

int _ismbslead(const unsigned char* text, const unsigned char* current)
{
    while (text < current && *text != 0)
        text += LengthOf(text);
    return text == current && IsLead(*text) ? -1 : 0;
}

int _ismbstrail(const unsigned char* text, const unsigned char* current)
{
    while (text < current && *text != 0)
        text += LengthOf(text);
    return text > current ? -1 : 0;
}

size_t _mbslen(const unsigned char* text)
{
    size_t count = 0;
    for (; *text != 0; text += LengthOf(text))
        count += IsLead(*text) && text[1] == 0 ? 0 : 1;
    return count;
}

unsigned char* _mbsinc(const unsigned char* current)
{
    return Writable(current + (IsLead(*current) && current[1] != 0 ? 2 : 1));
}

unsigned char* _mbsdec(const unsigned char* text, const unsigned char* current)
{
    if (text >= current)
        return nullptr;
    const unsigned char* before = text;
    while (text < current && *text != 0) {
        before = text;
        text += LengthOf(text);
    }
    return Writable(before);
}

unsigned char* _mbschr(const unsigned char* text, unsigned character)
{
    for (size_t length; (length = LengthOf(text)) != 0; text += length) {
        if (CharacterAt(text, length) == character)
            return Writable(text);
    }
    return character == 0 ? Writable(text) : nullptr;
}

unsigned char* _mbsrchr(const unsigned char* text, unsigned character)
{
    const unsigned char* found = nullptr;
    size_t length;
    for (; (length = LengthOf(text)) != 0; text += length)
        found = CharacterAt(text, length) == character ? text : found;
    return Writable(character == 0 ? text : found);
}
