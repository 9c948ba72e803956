#include "StrFunLib.h"
#include <bitset>

namespace {

// Calls `use` with each piece of `text` between separators, of which there is one more than separators.
template <class Use>
void ForEachField(const wchar_t* text, wchar_t separator, const Use& use)
{
    for (const wchar_t* start = text != nullptr ? text : L"";;) {
        const wchar_t* end = std::wcschr(start, separator);
        use(CString(start, int(end != nullptr ? end - start : std::ptrdiff_t(std::wcslen(start)))));
        if (end == nullptr)
            return;
        start = end + 1;
    }
}

}   // namespace

void CStrFunLib::SplitString(const wchar_t* text, CStringArray& out, wchar_t separator, int keepEmpty)
{
    out.SetSize(0);   // keeps its room for the next text
    if (text == nullptr)
        return;
    ForEachField(text, separator, [&](const CString& field) {
        if (keepEmpty || !field.IsEmpty())
            out.Add(field);
    });
}

CString CStrFunLib::GettokenStr(const CString& text, const CString& delimiter, int& position)
{
    if (position < 0) {
        position = -1;
        return CString();
    }
    const int start = position;
    const int found = text.Find(delimiter, start);
    if (found < 0) {
        position = -1;
        return text.Mid(start);
    }
    position = found + delimiter.GetLength();
    return text.Mid(start, found - start);
}

std::vector<CString> CStrFunLib::SplitString(CString text, CString delimiter)
{
    std::vector<CString> tokens;
    int position = 0;
    for (;;) {
        CString token = GettokenStr(text, delimiter, position);
        if (token.IsEmpty())
            return tokens;
        tokens.push_back(token);
    }
}

int CStrFunLib::SplitString(CString text, char separator, std::vector<CString>& out)
{
    const auto sign = static_cast<wchar_t>(static_cast<unsigned char>(separator));
    const size_t before = out.size();
    ForEachField(text, sign, [&](CString field) {
        field.Trim().Trim(sign);
        if (!field.IsEmpty())
            out.push_back(field);
    });
    return int(out.size() - before);
}

char* CStrFunLib::strtokNoPass(char* text, const char* delimiters)
{
    static char* s_next = nullptr;
    std::bitset<256> isDelimiter;
    for (const char* at = delimiters; at != nullptr && *at != 0; ++at)
        isDelimiter.set(static_cast<unsigned char>(*at));
    char* const token = text != nullptr ? text : s_next;
    s_next = nullptr;
    if (token == nullptr)
        return nullptr;
    char* end = token;
    while (*end != 0 && !isDelimiter[static_cast<unsigned char>(*end)])
        ++end;
    if (end == token)
        return nullptr;
    s_next = *end != 0 ? end + 1 : end;
    *end = 0;
    return token;
}

int CStrFunLib::StringToStringArray(const wchar_t* text, const wchar_t* delimiter, CStringArray& out)
{
    out.RemoveAll();
    const wchar_t* start = text != nullptr ? text : L"";
    const size_t length = delimiter != nullptr ? std::wcslen(delimiter) : 0;
    while (length != 0) {
        const wchar_t* end = std::wcsstr(start, delimiter);
        if (end == nullptr)
            break;
        out.Add(CString(start, int(end - start)));
        start = end + length;
    }
    out.Add(CString(start));
    return int(out.GetSize());
}

CString CStrFunLib::GetStringSplit(const wchar_t* text, int index, wchar_t separator)
{
    CString field;
    if (index >= 0)
        AfxExtractSubString(field, text, index, separator);
    return field;
}

int CStrFunLib::IsInSplitCString(const wchar_t* text, const wchar_t* item, wchar_t separator)
{
    const CString wanted(item);
    int found = 0;
    ForEachField(text, separator, [&](const CString& field) { found |= field.CompareNoCase(wanted) == 0 ? 1 : 0; });
    return found;
}

CString CStrFunLib::LinkArrayString(const CStringArray& texts, const wchar_t* delimiter)
{
    CString linked;
    for (INT_PTR i = 0; i < texts.GetSize(); ++i) {
        if (i != 0)
            linked += delimiter;
        linked += texts[i];
    }
    return linked;
}

int CStrFunLib::UniqueStrAry(CStringArray& texts)
{
    CMap<CString, const wchar_t*, int, int> seen;
    INT_PTR kept = 0;
    const INT_PTR before = texts.GetSize();
    for (INT_PTR i = 0; i < before; ++i) {
        const CString text = texts[i];
        int ignored = 0;
        if (seen.Lookup(text, ignored))
            continue;
        seen.SetAt(text, 1);
        texts.SetAt(kept++, text);
    }
    texts.SetSize(kept);
    return int(before - kept);
}
