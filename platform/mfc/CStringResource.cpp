// Texts of string tables. A table is stored in blocks of sixteen: a count of units before each text, 0 for a gap.
#include "../win/Format.h"
#include "AfxExtensionModule.h"
#include "ByteReader.h"
#include "CString.h"
#include "ResourceTable.h"
#include "TextView.h"

BOOL CString::LoadString(HINSTANCE module, UINT id)
{
    const wchar_t* block = MAKEINTRESOURCE(id / 16 + 1);
    KxPlat::ByteReader reader(KxPlat::FindResourceBytes(module, block, RT_STRING));
    for (UINT skipped = id % 16; skipped > 0; --skipped)
        reader.Text(reader.U16());
    const std::wstring text = reader.Text(reader.U16());
    if (reader.Failed() || text.empty())
        return FALSE;
    *this = KxPlat::ToCString(text);
    return TRUE;
}

BOOL CString::LoadString(UINT id)
{
    return LoadString(AfxFindResourceHandle(MAKEINTRESOURCE(id / 16 + 1), RT_STRING), id);
}

void CString::Format(UINT formatId, ...)
{
    CString format;
    if (!format.LoadString(formatId))
        return;
    va_list arguments;
    va_start(arguments, formatId);
    FormatV(format, arguments);
    va_end(arguments);
}
