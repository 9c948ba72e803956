// MFC's wide string: one pointer, shared between copies until one of them is changed. Empty texts allocate nothing.
// All texts of a drawing are of this class: one block of memory per text.
#pragma once
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cwchar>
#include <string>
#include <string_view>

class CString {
public:
    CString() : m_text(NoText()) {}
    CString(const CString& other) : m_text(other.m_text) { Share(); }
    CString(CString&& other) noexcept : m_text(other.m_text) { other.m_text = NoText(); }
    CString(const wchar_t* text) : CString(text, text == nullptr ? 0 : int(std::wcslen(text))) {}
    CString(const wchar_t* text, int length);
    explicit CString(std::wstring_view text) : CString(text.data(), int(text.size())) {}
    explicit CString(const std::wstring& text) : CString(text.data(), int(text.size())) {}
    // By the ANSI code page.
    CString(const char* text);
    explicit CString(wchar_t character, int repeat = 1);
    ~CString() { Release(); }

    CString& operator=(const CString& other);
    CString& operator=(CString&& other) noexcept;
    CString& operator=(const wchar_t* text);
    CString& operator=(const char* text);
    CString& operator=(wchar_t character);

    int GetLength() const { return Head()->length; }
    bool IsEmpty() const { return Head()->length == 0; }
    void Empty();
    wchar_t GetAt(int index) const { return m_text[index]; }
    wchar_t operator[](int index) const { return m_text[index]; }
    void SetAt(int index, wchar_t character);
    operator const wchar_t*() const { return m_text; }
    const wchar_t* GetString() const { return m_text; }

    // Room for `minLength` characters and the end mark, to be filled by the caller and then released.
    wchar_t* GetBuffer(int minLength = 0);
    wchar_t* GetBufferSetLength(int length);
    wchar_t* LockBuffer() { return GetBuffer(); }
    void UnlockBuffer() {}
    void ReleaseBuffer(int length = -1);   // -1: up to the end mark
    void ReleaseBufferSetLength(int length) { ReleaseBuffer(length); }
    void FreeExtra() {}
    void Preallocate(int length) { GetBuffer(length); }

    CString& operator+=(const CString& other);
    CString& operator+=(const wchar_t* text);
    CString& operator+=(const char* text) { return *this += CString(text); }
    CString& operator+=(wchar_t character);
    void Append(const wchar_t* text) { *this += text; }
    void Append(const wchar_t* text, int length) { AppendText(text, length); }
    void Append(const CString& other) { *this += other; }
    void AppendChar(wchar_t character) { *this += character; }

    int Compare(const wchar_t* other) const;
    int CompareNoCase(const wchar_t* other) const;
    int Collate(const wchar_t* other) const { return Compare(other); }
    int CollateNoCase(const wchar_t* other) const { return CompareNoCase(other); }

    // A start below 0 counts as 0, a count beyond the end is cut.
    CString Mid(int first) const;
    CString Mid(int first, int count) const;
    CString Left(int count) const;
    CString Right(int count) const;
    CString SpanIncluding(const wchar_t* characters) const;
    CString SpanExcluding(const wchar_t* characters) const;

    CString& MakeUpper();
    CString& MakeLower();
    CString& MakeReverse();
    CString& Trim();
    CString& Trim(wchar_t character);
    CString& Trim(const wchar_t* characters);
    CString& TrimLeft();
    CString& TrimLeft(wchar_t character);
    CString& TrimLeft(const wchar_t* characters);
    CString& TrimRight();
    CString& TrimRight(wchar_t character);
    CString& TrimRight(const wchar_t* characters);
    int Replace(wchar_t from, wchar_t to);
    int Replace(const wchar_t* from, const wchar_t* to);   // how often
    int Remove(wchar_t character);
    int Insert(int index, wchar_t character);
    int Insert(int index, const wchar_t* text);   // the new length
    int Delete(int index, int count = 1);
    void Truncate(int length);

    // -1 when it is not there.
    int Find(wchar_t character, int start = 0) const;
    int Find(const wchar_t* text, int start = 0) const;
    int FindOneOf(const wchar_t* characters) const;
    int ReverseFind(wchar_t character) const;

    // The next piece between any of `delimiters`, empty pieces passed over; `start` becomes -1 after the last one.
    CString Tokenize(const wchar_t* delimiters, int& start) const;

    // Formats follow the Microsoft wide printf.
    void Format(const wchar_t* format, ...);
    void FormatV(const wchar_t* format, va_list arguments);
    void AppendFormat(const wchar_t* format, ...);
    void AppendFormatV(const wchar_t* format, va_list arguments);

private:
    struct Header {
        int32_t references;   // below 0: the one empty text, never freed
        int32_t length;
        int32_t capacity;
        int32_t unused;
    };
    static wchar_t* NoText();
    static wchar_t* NewText(int capacity);
    Header* Head() const { return reinterpret_cast<Header*>(m_text) - 1; }
    void Share() const
    {
        if (Head()->references > 0)
            ++Head()->references;
    }
    void Release();
    void AppendText(const wchar_t* text, int length);
    void SetText(const wchar_t* text, int length);
    template <class Accept>
    CString& TrimEnds(bool left, bool right, Accept&& accept);

    wchar_t* m_text;
};

inline CString operator+(const CString& a, const CString& b)
{
    CString sum(a);
    return sum += b;
}
inline CString operator+(const CString& a, const wchar_t* b)
{
    CString sum(a);
    return sum += b;
}
inline CString operator+(const wchar_t* a, const CString& b)
{
    CString sum(a);
    return sum += b;
}
inline CString operator+(const CString& a, wchar_t b)
{
    CString sum(a);
    return sum += b;
}
inline CString operator+(wchar_t a, const CString& b)
{
    CString sum(a);
    return sum += b;
}

bool operator==(const CString& a, const CString& b);
inline bool operator==(const CString& a, const wchar_t* b)
{
    return a.Compare(b) == 0;
}
inline bool operator==(const wchar_t* a, const CString& b)
{
    return b.Compare(a) == 0;
}
inline bool operator!=(const CString& a, const CString& b)
{
    return !(a == b);
}
inline bool operator!=(const CString& a, const wchar_t* b)
{
    return a.Compare(b) != 0;
}
inline bool operator!=(const wchar_t* a, const CString& b)
{
    return b.Compare(a) != 0;
}
inline bool operator<(const CString& a, const CString& b)
{
    return a.Compare(b) < 0;
}
inline bool operator<(const CString& a, const wchar_t* b)
{
    return a.Compare(b) < 0;
}
inline bool operator>(const CString& a, const CString& b)
{
    return a.Compare(b) > 0;
}
inline bool operator>(const CString& a, const wchar_t* b)
{
    return a.Compare(b) > 0;
}
inline bool operator<=(const CString& a, const CString& b)
{
    return a.Compare(b) <= 0;
}
inline bool operator>=(const CString& a, const CString& b)
{
    return a.Compare(b) >= 0;
}

typedef CString CStringW;
