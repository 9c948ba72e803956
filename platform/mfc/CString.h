// MFC's wide string: one pointer, shared between copies until one of them is changed.
// Every text of a drawing is one of these: an empty one allocates nothing, any other is one block of memory.
// Objects cannot be passed through "...": Format takes (const wchar_t*)text or text.GetString() for %s.
#pragma once
#include "../win/KxWinTypes.h"
#include <compare>
#include <concepts>
#include <cstdarg>
#include <cstddef>
#include <cstdlib>
#include <cwchar>

class CString {
public:
    typedef wchar_t XCHAR;
    typedef wchar_t* PXSTR;
    typedef const wchar_t* PCXSTR;

    CString() noexcept : m_text(Nil()) {}
    CString(std::nullptr_t) noexcept : m_text(Nil()) {}
    CString(const CString& other) : m_text(other.Shared()) {}
    CString(CString&& other) noexcept;
    CString(const wchar_t* text) : m_text(Nil()) { SetString(text); }
    CString(const wchar_t* text, int length) : m_text(Nil()) { SetString(text, length); }
    CString(const char* text);   // narrow texts are in the ANSI code page
    CString(const char* text, int length);
    explicit CString(wchar_t character, int repeat = 1);
    ~CString() { Release(); }

    CString& operator=(const CString& other);
    CString& operator=(CString&& other) noexcept;
    CString& operator=(const wchar_t* text);
    CString& operator=(const char* text) { return *this = CString(text); }
    CString& operator=(wchar_t character);

    int GetLength() const { return Head()->length; }
    int GetAllocLength() const { return Head()->capacity; }
    bool IsEmpty() const { return Head()->length == 0; }
    void Empty();
    wchar_t GetAt(int index) const { return m_text[index]; }
    template <std::integral Index>
    wchar_t operator[](Index index) const
    {
        return m_text[index];
    }
    void SetAt(int index, wchar_t character);
    operator const wchar_t*() const { return m_text; }
    const wchar_t* GetString() const { return m_text; }

    void SetString(const wchar_t* text) { SetString(text, text == nullptr ? 0 : int(std::wcslen(text))); }
    void SetString(const wchar_t* text, int length);   // `text` may be a part of this string
    void Append(const wchar_t* text) { Append(text, text == nullptr ? 0 : int(std::wcslen(text))); }
    void Append(const wchar_t* text, int length);
    void AppendChar(wchar_t character) { Append(&character, 1); }
    CString& operator+=(const CString& text);
    CString& operator+=(const wchar_t* text);
    CString& operator+=(const char* text) { return *this += CString(text); }
    CString& operator+=(wchar_t character);

    // Room to write into. Call ReleaseBuffer afterwards: until then the length is the old one.
    wchar_t* GetBuffer() { return Writable(GetLength()); }
    wchar_t* GetBuffer(int minimumLength);
    wchar_t* GetBufferSetLength(int length);
    void ReleaseBuffer(int newLength = -1);   // -1: up to the first zero
    void ReleaseBufferSetLength(int newLength) { ReleaseBuffer(newLength < 0 ? 0 : newLength); }
    wchar_t* LockBuffer();   // copies of a locked text do not share it
    void UnlockBuffer();
    void Preallocate(int length) { Writable(length); }
    void FreeExtra();
    void Truncate(int length);

    // Counts and positions outside of the text are cut to it.
    CString Mid(int first) const { return Mid(first, GetLength()); }
    CString Mid(int first, int count) const;
    CString Left(int count) const { return Mid(0, count); }
    CString Right(int count) const;
    CString SpanIncluding(const wchar_t* characters) const;
    CString SpanExcluding(const wchar_t* characters) const;
    // The next piece between any of `separators` from `start` on, which moves behind it; -1 when there is none left.
    CString Tokenize(const wchar_t* separators, int& start) const;

    // Positions from 0, -1 when not found.
    int Find(const wchar_t* text, int start = 0) const;
    int Find(wchar_t character, int start = 0) const;
    int ReverseFind(wchar_t character) const;
    int FindOneOf(const wchar_t* characters) const;

    int Compare(const wchar_t* text) const { return std::wcscmp(m_text, text); }
    int CompareNoCase(const wchar_t* text) const;

    // Each returns how many pieces it changed, Insert and Delete the new length.
    int Replace(const wchar_t* oldText, const wchar_t* newText);
    int Replace(wchar_t oldCharacter, wchar_t newCharacter);
    int Remove(wchar_t character);
    int Insert(int index, const wchar_t* text);
    int Insert(int index, wchar_t character);
    int Delete(int index, int count = 1);

    CString& MakeUpper();
    CString& MakeLower();
    CString& MakeReverse();
    CString& Trim() { return TrimRight().TrimLeft(); }
    CString& Trim(wchar_t character) { return TrimRight(character).TrimLeft(character); }
    CString& Trim(const wchar_t* characters) { return TrimRight(characters).TrimLeft(characters); }
    CString& TrimLeft();
    CString& TrimLeft(wchar_t character);
    CString& TrimLeft(const wchar_t* characters);
    CString& TrimRight();
    CString& TrimRight(wchar_t character);
    CString& TrimRight(const wchar_t* characters);

    // By the rules of the Microsoft printf; arguments may be parts of this text. A number names a string resource.
    void Format(const wchar_t* format, ...);
    void Format(UINT formatId, ...);
    void FormatV(const wchar_t* format, va_list arguments);
    void AppendFormat(const wchar_t* format, ...);
    void AppendFormatV(const wchar_t* format, va_list arguments);
    BOOL LoadString(UINT id);   // leaves the text alone when there is none
    BOOL LoadString(HINSTANCE module, UINT id);

    friend bool operator==(const CString& a, const CString& b)
    {
        return a.m_text == b.m_text ||
               (a.GetLength() == b.GetLength() && std::wmemcmp(a.m_text, b.m_text, size_t(a.GetLength())) == 0);
    }
    friend bool operator==(const CString& a, const wchar_t* b) { return a.Compare(b == nullptr ? L"" : b) == 0; }
    friend std::strong_ordering operator<=>(const CString& a, const CString& b) { return a.Compare(b.m_text) <=> 0; }
    friend std::strong_ordering operator<=>(const CString& a, const wchar_t* b) { return a.Compare(b) <=> 0; }

private:
    struct Header {
        int references;   // 0: the common empty text, never freed; below 0: locked by its only owner
        int length;
        int capacity;
    };
    struct NilBlock {
        Header head;
        wchar_t end;
    };
    static NilBlock s_nil;   // writable, since its zero is added to without a look

    static wchar_t* Nil() { return &s_nil.end; }
    static wchar_t* Allocate(int capacity);
    Header* Head() const { return reinterpret_cast<Header*>(m_text) - 1; }
    wchar_t* Shared() const
    {
        Header* head = Head();
        if (head->references < 0)
            return Copied();
        head->references += head->references != 0;
        return m_text;
    }
    wchar_t* Copied() const;
    void Release()
    {
        Header* head = Head();
        if (head->references != 0 && --head->references <= 0)
            Free(head);
    }
    static void Free(Header* head);
    wchar_t* Writable(int capacity);   // unshared, with room for `capacity` characters; keeps the text
    void SetLength(int length);

    wchar_t* m_text;   // behind its Header
};

typedef CString CStringW;

CString operator+(const CString& a, const CString& b);
CString operator+(const CString& a, const wchar_t* b);
CString operator+(const wchar_t* a, const CString& b);
CString operator+(const CString& a, wchar_t b);
CString operator+(wchar_t a, const CString& b);

// Field `index` (from 0) of `text`, empty fields included. FALSE, and `field` empty, when there are not so many.
BOOL AfxExtractSubString(CString& field, const wchar_t* text, int index, wchar_t separator = L'\n');
