#include "CString.h"
#include "../win/CharTables.h"
#include "../win/CodePage.h"
#include "../win/Format.h"
#include <algorithm>
#include <climits>
#include <new>

constinit CString::NilBlock CString::s_nil = {{0, 0, 0}, L'\0'};

namespace {

int LengthOf(const wchar_t* text)
{
    return text == nullptr ? 0 : int(std::wcslen(text));
}

std::string_view Bytes(const char* text)
{
    return text == nullptr ? std::string_view() : std::string_view(text);
}

CString Joined(const wchar_t* a, int lengthOfA, const wchar_t* b, int lengthOfB)
{
    CString joined;
    joined.Preallocate(lengthOfA + lengthOfB);
    joined.Append(a, lengthOfA);
    joined.Append(b, lengthOfB);
    return joined;
}

}   // namespace

CString::CString(CString&& other) noexcept : m_text(other.m_text)
{
    other.m_text = Nil();
}

CString::CString(const char* text) : m_text(Nil())
{
    const std::wstring wide = KxPlat::Decode(CP_ACP, Bytes(text));
    SetString(wide.data(), int(wide.size()));
}

CString::CString(const char* text, int length) : m_text(Nil())
{
    const std::wstring wide = KxPlat::Decode(CP_ACP, {text, size_t(std::max(length, 0))});
    SetString(wide.data(), int(wide.size()));
}

CString::CString(wchar_t character, int repeat) : m_text(Nil())
{
    if (repeat > 0)
        std::wmemset(GetBufferSetLength(repeat), character, size_t(repeat));
}

CString& CString::operator=(const CString& other)
{
    if (m_text == other.m_text)
        return *this;
    if (Head()->references < 0) {   // a locked buffer stays where it is
        SetString(other.m_text, other.GetLength());
        return *this;
    }
    wchar_t* text = other.Shared();
    Release();
    m_text = text;
    return *this;
}

CString& CString::operator=(CString&& other) noexcept
{
    std::swap(m_text, other.m_text);
    return *this;
}

CString& CString::operator=(const wchar_t* text)
{
    SetString(text);
    return *this;
}

CString& CString::operator=(wchar_t character)
{
    SetString(&character, 1);
    return *this;
}

// --- memory -----------------------------------------------------------------------------------------------------

void CString::Free(Header* head)
{
    std::free(head);
}

wchar_t* CString::Allocate(int capacity)
{
    constexpr int kMost = (INT_MAX - int(sizeof(Header))) / int(sizeof(wchar_t)) - 1;
    if (capacity < 0 || capacity > kMost)
        throw std::bad_alloc();
    void* block = std::malloc(sizeof(Header) + (size_t(capacity) + 1) * sizeof(wchar_t));
    if (block == nullptr)
        throw std::bad_alloc();
    Header* head = new (block) Header{1, 0, capacity};
    wchar_t* text = reinterpret_cast<wchar_t*>(head + 1);
    text[0] = L'\0';
    return text;
}

wchar_t* CString::Copied() const
{
    const int length = GetLength();
    if (length == 0)
        return Nil();
    wchar_t* text = Allocate(length);
    std::wmemcpy(text, m_text, size_t(length) + 1);
    reinterpret_cast<Header*>(text)[-1].length = length;
    return text;
}

wchar_t* CString::Writable(int capacity)
{
    const Header& head = *Head();
    const bool isOwn = head.references == 1 || head.references < 0;
    if (isOwn && head.capacity >= capacity)
        return m_text;
    // A text that grows does so by half, so that appending stays linear.
    const int length = head.length;
    int wanted = std::max(capacity, length);
    if (isOwn && head.capacity > 0 && head.capacity < (1 << 28))
        wanted = std::max(wanted, head.capacity + head.capacity / 2);
    wchar_t* text = Allocate(wanted);
    std::wmemcpy(text, m_text, size_t(length) + 1);
    Header& newHead = reinterpret_cast<Header*>(text)[-1];
    newHead.length = length;
    newHead.references = head.references < 0 ? -1 : 1;
    Release();
    m_text = text;
    return m_text;
}

void CString::SetLength(int length)
{
    Head()->length = length;
    m_text[length] = L'\0';
}

void CString::Empty()
{
    if (Head()->references < 0) {
        SetLength(0);
        return;
    }
    Release();
    m_text = Nil();
}

void CString::SetString(const wchar_t* text, int length)
{
    if (text == nullptr || length <= 0)
        return Empty();
    const Header& head = *Head();
    if ((head.references == 1 && head.capacity >= length) || head.references < 0) {
        const bool isPart = text >= m_text && text <= m_text + head.length;
        const ptrdiff_t offset = text - m_text;
        wchar_t* target = Writable(length);
        std::wmemmove(target, isPart ? target + offset : text, size_t(length));
    } else {
        wchar_t* fresh = Allocate(length);
        std::wmemcpy(fresh, text, size_t(length));
        Release();
        m_text = fresh;
    }
    SetLength(length);
}

void CString::Append(const wchar_t* text, int length)
{
    if (text == nullptr || length <= 0)
        return;
    const int oldLength = GetLength();
    const bool isPart = text >= m_text && text <= m_text + oldLength;
    const ptrdiff_t offset = text - m_text;
    if (oldLength > INT_MAX - length)
        throw std::bad_alloc();
    wchar_t* target = Writable(oldLength + length);
    std::wmemmove(target + oldLength, isPart ? target + offset : text, size_t(length));
    SetLength(oldLength + length);
}

CString& CString::operator+=(const CString& text)
{
    if (IsEmpty() && Head()->references >= 0)
        return *this = text;
    Append(text.m_text, text.GetLength());
    return *this;
}

CString& CString::operator+=(const wchar_t* text)
{
    Append(text);
    return *this;
}

CString& CString::operator+=(wchar_t character)
{
    AppendChar(character);
    return *this;
}

void CString::SetAt(int index, wchar_t character)
{
    if (index >= 0 && index < GetLength())
        GetBuffer()[index] = character;
}

wchar_t* CString::GetBuffer(int minimumLength)
{
    return Writable(std::max(minimumLength, GetLength()));
}

wchar_t* CString::GetBufferSetLength(int length)
{
    const int oldLength = GetLength();
    wchar_t* text = Writable(std::max(length, 0));
    if (length > oldLength)
        std::wmemset(text + oldLength, L'\0', size_t(length - oldLength));
    SetLength(std::max(length, 0));
    return text;
}

void CString::ReleaseBuffer(int newLength)
{
    if (Head()->references == 0)
        return;
    const int capacity = GetAllocLength();
    if (newLength < 0) {
        const wchar_t* end = std::wmemchr(m_text, L'\0', size_t(capacity) + 1);
        newLength = end == nullptr ? capacity : int(end - m_text);
    }
    if (newLength == 0)
        return Empty();
    SetLength(std::min(newLength, capacity));
}

wchar_t* CString::LockBuffer()
{
    wchar_t* text = Writable(GetLength());
    Head()->references = -1;
    return text;
}

void CString::UnlockBuffer()
{
    if (Head()->references < 0)
        Head()->references = 1;
}

void CString::FreeExtra()
{
    if (Head()->references == 1 && GetAllocLength() > GetLength()) {
        wchar_t* text = Copied();
        Release();
        m_text = text;
    }
}

void CString::Truncate(int length)
{
    if (length <= 0)
        Empty();
    else if (length < GetLength()) {
        GetBuffer();
        SetLength(length);
    }
}

// --- parts ------------------------------------------------------------------------------------------------------

CString CString::Mid(int first, int count) const
{
    const int length = GetLength();
    first = std::clamp(first, 0, length);
    count = std::clamp(count, 0, length - first);
    return count == length ? *this : CString(m_text + first, count);
}

CString CString::Right(int count) const
{
    count = std::clamp(count, 0, GetLength());
    return Mid(GetLength() - count, count);
}

CString CString::SpanIncluding(const wchar_t* characters) const
{
    return Left(int(std::wcsspn(m_text, characters)));
}

CString CString::SpanExcluding(const wchar_t* characters) const
{
    return Left(int(std::wcscspn(m_text, characters)));
}

CString CString::Tokenize(const wchar_t* separators, int& start) const
{
    if (start >= 0 && start < GetLength()) {
        if (separators == nullptr || *separators == L'\0') {
            CString rest = Mid(start);
            start = GetLength();
            return rest;
        }
        const int first = start + int(std::wcsspn(m_text + start, separators));
        if (first < GetLength()) {
            const int count = int(std::wcscspn(m_text + first, separators));
            start = first + count + 1;
            return Mid(first, count);
        }
    }
    start = -1;
    return CString();
}

int CString::Find(const wchar_t* text, int start) const
{
    if (text == nullptr || start < 0 || start > GetLength())
        return -1;
    const wchar_t* found = std::wcsstr(m_text + start, text);
    return found == nullptr ? -1 : int(found - m_text);
}

int CString::Find(wchar_t character, int start) const
{
    if (start < 0 || start >= GetLength())
        return -1;
    const wchar_t* found = std::wcschr(m_text + start, character);
    return found == nullptr ? -1 : int(found - m_text);
}

int CString::ReverseFind(wchar_t character) const
{
    const wchar_t* found = std::wcsrchr(m_text, character);
    return found == nullptr ? -1 : int(found - m_text);
}

int CString::FindOneOf(const wchar_t* characters) const
{
    const wchar_t* found = std::wcspbrk(m_text, characters);
    return found == nullptr ? -1 : int(found - m_text);
}

int CString::CompareNoCase(const wchar_t* text) const
{
    return KxPlat::CompareNoCase({m_text, size_t(GetLength())}, {text, std::wcslen(text)});
}

// --- changes ----------------------------------------------------------------------------------------------------

int CString::Replace(const wchar_t* oldText, const wchar_t* newText)
{
    const int oldLength = LengthOf(oldText);
    if (oldLength == 0 || Find(oldText) < 0)
        return 0;
    const CString with(newText);
    const CString pattern(oldText);
    CString result;
    int count = 0;
    int from = 0;
    for (int at; (at = Find(pattern, from)) >= 0; from = at + oldLength, ++count) {
        result.Append(m_text + from, at - from);
        result.Append(with, with.GetLength());
    }
    result.Append(m_text + from, GetLength() - from);
    SetString(result.m_text, result.GetLength());
    return count;
}

int CString::Replace(wchar_t oldCharacter, wchar_t newCharacter)
{
    if (oldCharacter == newCharacter || Find(oldCharacter) < 0)
        return 0;
    int count = 0;
    wchar_t* text = GetBuffer();
    for (int i = 0; i < GetLength(); ++i) {
        if (text[i] == oldCharacter) {
            text[i] = newCharacter;
            ++count;
        }
    }
    return count;
}

int CString::Remove(wchar_t character)
{
    if (Find(character) < 0)
        return 0;
    wchar_t* text = GetBuffer();
    const int oldLength = GetLength();
    wchar_t* end = std::remove(text, text + oldLength, character);
    const int length = int(end - text);
    ReleaseBufferSetLength(length);
    return oldLength - length;
}

int CString::Insert(int index, const wchar_t* text)
{
    const CString inserted(text);
    index = std::clamp(index, 0, GetLength());
    CString result = Joined(m_text, index, inserted, inserted.GetLength());
    result.Append(m_text + index, GetLength() - index);
    SetString(result.m_text, result.GetLength());
    return GetLength();
}

int CString::Insert(int index, wchar_t character)
{
    const wchar_t text[] = {character, L'\0'};
    return Insert(index, text);
}

int CString::Delete(int index, int count)
{
    index = std::max(index, 0);
    const int oldLength = GetLength();
    if (count <= 0 || index >= oldLength)
        return oldLength;
    count = std::min(count, oldLength - index);
    wchar_t* text = GetBuffer();
    std::wmemmove(text + index, text + index + count, size_t(oldLength - index - count));
    ReleaseBufferSetLength(oldLength - count);
    return GetLength();
}

CString& CString::MakeUpper()
{
    wchar_t* text = IsEmpty() ? Nil() : GetBuffer();
    for (int i = 0; i < GetLength(); ++i)
        text[i] = KxPlat::Upper(text[i]);
    return *this;
}

CString& CString::MakeLower()
{
    wchar_t* text = IsEmpty() ? Nil() : GetBuffer();
    for (int i = 0; i < GetLength(); ++i)
        text[i] = KxPlat::Lower(text[i]);
    return *this;
}

CString& CString::MakeReverse()
{
    wchar_t* text = IsEmpty() ? Nil() : GetBuffer();
    std::reverse(text, text + GetLength());
    return *this;
}

CString& CString::TrimLeft()
{
    int count = 0;
    while (KxPlat::IsSpace(m_text[count]))
        ++count;
    Delete(0, count);
    return *this;
}

CString& CString::TrimLeft(wchar_t character)
{
    const wchar_t characters[] = {character, L'\0'};
    return TrimLeft(characters);
}

CString& CString::TrimLeft(const wchar_t* characters)
{
    if (characters != nullptr && *characters != L'\0')
        Delete(0, int(std::wcsspn(m_text, characters)));
    return *this;
}

CString& CString::TrimRight()
{
    int length = GetLength();
    while (length > 0 && KxPlat::IsSpace(m_text[length - 1]))
        --length;
    Truncate(length);
    return *this;
}

CString& CString::TrimRight(wchar_t character)
{
    const wchar_t characters[] = {character, L'\0'};
    return TrimRight(characters);
}

CString& CString::TrimRight(const wchar_t* characters)
{
    if (characters == nullptr || *characters == L'\0')
        return *this;
    int length = GetLength();
    while (length > 0 && std::wcschr(characters, m_text[length - 1]) != nullptr)
        --length;
    Truncate(length);
    return *this;
}

// --- formatting -------------------------------------------------------------------------------------------------

void CString::Format(const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    FormatV(format, arguments);
    va_end(arguments);
}

void CString::FormatV(const wchar_t* format, va_list arguments)
{
    const std::wstring text = KxPlat::FormatV(format, arguments);
    SetString(text.data(), int(text.size()));
}

void CString::AppendFormat(const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    AppendFormatV(format, arguments);
    va_end(arguments);
}

void CString::AppendFormatV(const wchar_t* format, va_list arguments)
{
    const std::wstring text = KxPlat::FormatV(format, arguments);
    Append(text.data(), int(text.size()));
}

CString operator+(const CString& a, const CString& b)
{
    return Joined(a, a.GetLength(), b, b.GetLength());
}

CString operator+(const CString& a, const wchar_t* b)
{
    return Joined(a, a.GetLength(), b, LengthOf(b));
}

CString operator+(const wchar_t* a, const CString& b)
{
    return Joined(a, LengthOf(a), b, b.GetLength());
}

CString operator+(const CString& a, wchar_t b)
{
    return Joined(a, a.GetLength(), &b, 1);
}

CString operator+(wchar_t a, const CString& b)
{
    return Joined(&a, 1, b, b.GetLength());
}

BOOL AfxExtractSubString(CString& field, const wchar_t* text, int index, wchar_t separator)
{
    const CString source(text);   // `text` may be `field` itself
    field.Empty();
    if (text == nullptr)
        return FALSE;
    const wchar_t* start = source;
    for (; index > 0; --index) {
        start = std::wcschr(start, separator);
        if (start == nullptr)
            return FALSE;
        ++start;
    }
    const wchar_t* end = std::wcschr(start, separator);
    field.SetString(start, end == nullptr ? LengthOf(start) : int(end - start));
    return TRUE;
}
