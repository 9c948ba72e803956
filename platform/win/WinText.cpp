#include "WinText.h"
#include "CodePage.h"
#include "WinAnswer.h"
#include <algorithm>
#include <cstring>
#include <cwchar>
#include <string>

namespace {

// The ASCII letters that stand in for U+0100 to U+017F.
const char kLatinLookAlikes[] = "AaAaAaCcCcCcCcDdDdEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIi??JjKk?LlLlLl?"
                                "?LlNnNnNn???OoOoOo??RrRrRrSsSsSsSsTtTtTtUuUuUuUuUuUuWwYyYZzZzZz?";
struct LookAlike {
    wchar_t character;
    char ascii;
};
const LookAlike kGreekLookAlikes[] = {{0x393, 'G'}, {0x398, 'T'}, {0x3A3, 'S'}, {0x3A6, 'F'},
                                      {0x3A9, 'O'}, {0x3B1, 'a'}, {0x3B4, 'd'}, {0x3B5, 'e'},
                                      {0x3C0, 'p'}, {0x3C3, 's'}, {0x3C4, 't'}, {0x3C6, 'f'}};
const LookAlike kDigitLookAlikes[] = {{0xB9, '1'}, {0xB2, '2'}, {0xB3, '3'}};

template <size_t N>
char LookUp(const LookAlike (&rows)[N], wchar_t character)
{
    for (const LookAlike& row : rows) {
        if (row.character == character)
            return row.ascii;
    }
    return 0;
}

// The ASCII character that looks like `character`, or 0. Pages of two bytes have no stand-ins for letters.
char BestFit(unsigned codePage, wchar_t character)
{
    if (const char digit = LookUp(kDigitLookAlikes, character))
        return digit;
    if (KxPlat::IsLeadByte(codePage, 0x90))
        return 0;
    if (character >= 0xFF01 && character <= 0xFF5E)
        return static_cast<char>(character - 0xFEE0);
    if (character >= 0x100 && character < 0x180) {
        const char letter = kLatinLookAlikes[character - 0x100];
        return letter == '?' ? '\0' : letter;
    }
    return LookUp(kGreekLookAlikes, character);
}

template <class Char>
int Answer(const std::basic_string<Char>& result, Char* out, int outSize)
{
    if (outSize == 0)
        return static_cast<int>(result.size());
    const size_t room = std::min(result.size(), static_cast<size_t>(outSize));
    std::copy_n(result.data(), room, out);
    return room == result.size() ? static_cast<int>(room) : KxPlat::FailWith(ERROR_INSUFFICIENT_BUFFER);
}

bool AreGoodArguments(UINT codePage, const void* text, int count, const void* out, int outSize)
{
    return text != nullptr && count != 0 && outSize >= 0 && (outSize == 0 || out != nullptr) &&
           KxPlat::IsCodePage(codePage);
}

}   // namespace

UINT GetACP()
{
    return KxPlat::AnsiCodePage();
}

BOOL IsDBCSLeadByte(BYTE byte)
{
    return IsDBCSLeadByteEx(CP_ACP, byte);
}

BOOL IsDBCSLeadByteEx(UINT codePage, BYTE byte)
{
    return KxPlat::IsLeadByte(codePage, byte) ? TRUE : FALSE;
}

int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR bytes, int count, LPWSTR out, int outSize)
{
    if (!AreGoodArguments(codePage, bytes, count, out, outSize))
        return KxPlat::FailWith(ERROR_INVALID_PARAMETER);
    const std::string_view from(bytes, count < 0 ? std::strlen(bytes) + 1 : static_cast<size_t>(count));
    if ((flags & MB_ERR_INVALID_CHARS) != 0) {
        const std::wstring marked = KxPlat::DecodeLossless(codePage, from);
        const auto isWrong = [](wchar_t c) { return c >= 0xDC80 && c <= 0xDCFF; };
        if (std::any_of(marked.begin(), marked.end(), isWrong))
            return KxPlat::FailWith(ERROR_NO_UNICODE_TRANSLATION);
    }
    return Answer(KxPlat::Decode(codePage, from), out, outSize);
}

int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int count, LPSTR out, int outSize, LPCSTR defaultChar,
                        LPBOOL usedDefault)
{
    if (!AreGoodArguments(codePage, text, count, out, outSize))
        return KxPlat::FailWith(ERROR_INVALID_PARAMETER);
    std::string result;
    bool replaced = false;
    const auto replace = [&](wchar_t character, std::string& bytes) {
        const char fit = (flags & WC_NO_BEST_FIT_CHARS) != 0 ? '\0' : BestFit(codePage, character);
        if (fit != 0) {
            bytes += fit;
            return;
        }
        replaced = true;
        // Two places of UTF-16 are replaced one by one.
        bytes.append(character >= 0x10000 ? 2 : 1, defaultChar != nullptr ? *defaultChar : '?');
    };
    const std::wstring_view from(text, count < 0 ? std::wcslen(text) + 1 : static_cast<size_t>(count));
    for (wchar_t character : from) {
        if (!KxPlat::EncodeChar(codePage, character, result))
            replace(character, result);
    }
    if (usedDefault != nullptr)
        *usedDefault = replaced ? TRUE : FALSE;
    return Answer(result, out, outSize);
}
