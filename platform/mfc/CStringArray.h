// An array of texts, the list of names that most functions take.
#pragma once
#include "CArray.h"
#include "CString.h"

class CStringArray : public CArray<CString, const wchar_t*> {
public:
    using CArray::Add;
    using CArray::SetAt;
    // Shares the text instead of copying it.
    INT_PTR Add(const CString& text)
    {
        const INT_PTR index = GetSize();
        const CString added(text);   // `text` may be in the array. NOLINT(performance-unnecessary-copy-initialization)
        SetSize(index + 1);
        ElementAt(index) = added;
        return index;
    }
    void SetAt(INT_PTR index, const CString& text) { ElementAt(index) = text; }
};
