#include "StrFunLib.h"
#include "Processes.h"
#include <string_view>

namespace {

const wchar_t* TextOf(const wchar_t* text)
{
    return text != nullptr ? text : L"";
}

CString Lowered(const wchar_t* text)
{
    CString lower(text);
    return lower.MakeLower();
}

// What one sign of a form stands for; the sign itself when it is no class.
bool TakesCharacter(wchar_t sign, wchar_t character)
{
    switch (sign) {
    case L'#':
        return character >= L'0' && character <= L'9';
    case L'@':
        return IsCharAlphaW(character) != FALSE;
    case L'?':
        return true;
    default:
        return _wcsnicmp(&sign, &character, 1) == 0;
    }
}

bool HasForm(const wchar_t* text, const wchar_t* form)
{
    // Where to go on when the run of the last "*" must be one longer.
    const wchar_t *retryForm = nullptr, *retryText = nullptr;
    for (;;) {
        if (*form == L'*') {
            retryForm = ++form;
            retryText = text;
            continue;
        }
        const bool isPlain = *form == L'`' && form[1] != 0;
        const wchar_t sign = isPlain ? form[1] : *form;
        const bool takes =
            *text != 0 && *form != 0 && (isPlain ? _wcsnicmp(&sign, text, 1) == 0 : TakesCharacter(sign, *text));
        if (takes) {
            form += isPlain ? 2 : 1;
            ++text;
        } else if (*text == 0 && *form == 0) {
            return true;
        } else if (retryForm == nullptr || *retryText == 0) {
            return false;
        } else {
            form = retryForm;
            text = ++retryText;
        }
    }
}

// Reads a number with the blanks before it and the literal behind it.
bool ReadPart(const wchar_t*& at, wchar_t literal, int& value)
{
    while (*at == L' ' || *at == L'\t')
        ++at;
    if (*at < L'0' || *at > L'9')
        return false;
    value = _wtoi(at);
    while (*at >= L'0' && *at <= L'9')
        ++at;
    if (literal == 0)
        return true;
    if (*at != literal)
        return false;
    ++at;
    return true;
}

int DaysOf(int month, int year)
{
    static const int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool isLeap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return kDays[month - 1] + (month == 2 && isLeap ? 1 : 0);
}

// 0 is Sunday.
int WeekdayOf(int year, int month, int day)
{
    static const int kShift[] = {0, 3, 2, 5, 0, 3, 5, 1, 4, 6, 2, 4};
    year -= month < 3 ? 1 : 0;
    return (year + year / 4 - year / 100 + year / 400 + kShift[month - 1] + day) % 7;
}

}   // namespace

CStrFunLib::~CStrFunLib() = default;

int CStrFunLib::CompareNoCaseWithFormat(const wchar_t* pattern, const wchar_t* text)
{
    if (std::wcschr(TextOf(pattern), L'*') == nullptr)
        return _wcsicmp(TextOf(pattern), TextOf(text)) == 0 ? 1 : 0;
    const CString pieces = Lowered(pattern), lower = Lowered(text);
    std::wstring_view rest = lower.GetString();
    for (const wchar_t* start = pieces;;) {
        const wchar_t* end = std::wcschr(start, L'*');
        const std::wstring_view piece =
            end != nullptr ? std::wstring_view(start, size_t(end - start)) : std::wstring_view(start);
        const size_t found = rest.find(piece);
        if (found == std::wstring_view::npos)
            return 0;
        rest.remove_prefix(found + piece.size());
        if (end == nullptr)
            return 1;
        start = end + 1;
    }
}

int CStrFunLib::AssertString(const wchar_t* text, const wchar_t* form)
{
    return HasForm(TextOf(text), TextOf(form)) ? 1 : 0;
}

int CStrFunLib::FindNoCase(const wchar_t* text, const wchar_t* part, int start)
{
    return Lowered(text).Find(Lowered(part), start);
}

int CStrFunLib::RemoveStr(CString& text, const wchar_t* part)
{
    return text.Replace(TextOf(part), L"");
}

int CStrFunLib::ReplaceNoCase(wchar_t* buffer, int size, const wchar_t* oldText, const wchar_t* newText)
{
    const CString part = Lowered(oldText);
    if (buffer == nullptr || part.IsEmpty())
        return 0;
    const CString lower = Lowered(buffer);
    CString result;
    int count = 0, from = 0;
    for (int found = lower.Find(part); found >= 0; found = lower.Find(part, from)) {
        result.Append(buffer + from, found - from);
        result += TextOf(newText);
        from = found + part.GetLength();
        ++count;
    }
    result += buffer + from;
    if (result.GetLength() >= size)
        return -1;
    std::wcscpy(buffer, result);
    return count;
}

CString CStrFunLib::RepalceSigns(const CString& text, const wchar_t* signs, wchar_t replacement)
{
    CString result(text);
    for (int i = 0; i < result.GetLength(); ++i) {
        if (std::wcschr(TextOf(signs), result[i]) != nullptr)
            result.SetAt(i, replacement);
    }
    return result;
}

CString CStrFunLib::RemoveTaileDotes(const CString& text)
{
    return CString(text).TrimRight(L'.');
}

CString CStrFunLib::RemoveHeaderDotes(const CString& text)
{
    return CString(text).TrimLeft(L'.');
}

int CStrFunLib::IsWow64()
{
    return KxMfcEx::IsWin64();
}

CString CStrFunLib::GetTimeString()
{
    SYSTEMTIME now = {};
    GetLocalTime(&now);
    CString text;
    text.Format(L"%02d-%02d-%02d %02d:%02d:%02d", int(now.wYear), int(now.wMonth), int(now.wDay), int(now.wHour),
                int(now.wMinute), int(now.wSecond));
    return text;
}

int CStrFunLib::Str2Time(const wchar_t* text, SYSTEMTIME& time)
{
    static const wchar_t kLiterals[] = {L'-', L'-', L' ', L':', L':', 0};
    static const int kLeast[] = {1, 1, 1, 0, 0, 0};
    static const int kMost[] = {9999, 12, 31, 23, 59, 59};
    int parts[6] = {};
    const wchar_t* at = TextOf(text);
    for (int i = 0; i < 6; ++i) {
        if (!ReadPart(at, kLiterals[i], parts[i]) || parts[i] < kLeast[i] || parts[i] > kMost[i])
            return 0;
    }
    if (parts[2] > DaysOf(parts[1], parts[0]))
        return 0;
    time = {WORD(parts[0]),
            WORD(parts[1]),
            WORD(WeekdayOf(parts[0], parts[1], parts[2])),
            WORD(parts[2]),
            WORD(parts[3]),
            WORD(parts[4]),
            WORD(parts[5]),
            0};
    return 1;
}

CString CStrFunLib::DblToStr(double value, int decimals)
{
    CString text;
    text.Format(L"%.*f", decimals < 0 ? 0 : decimals, value);
    if (text.Find(L'.') >= 0 && text.Find(L'#') < 0)
        text.TrimRight(L'0').TrimRight(L'.');
    return text == L"-0" ? CString(L"0") : text;
}

CString CStrFunLib::IntToStr(int value)
{
    CString text;
    text.Format(L"%d", value);
    return text;
}
