#include "CString.h"
#include "../win/CharTables.h"
#include "../win/CodePage.h"
#include "../win/Format.h"
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

struct EmptyText {
    int32_t head[4] = {-1, 0, 0, 0};
    wchar_t text[1] = {0};
};

// Never changed: every writer makes a text of its own first.
EmptyText g_empty;

}   // namespace

wchar_t* CString::NoText()
{
    return g_empty.text;
}

wchar_t* CString::NewText(int capacity)
{
    void* block = std::malloc(sizeof(Header) + (size_t(capacity) + 1) * sizeof(wchar_t));
    if (block == nullptr)
        throw std::bad_alloc();
    Header* head = static_cast<Header*>(block);
    *head = {1, 0, capacity, 0};
    return reinterpret_cast<wchar_t*>(head + 1);
}

void CString::Release()
{
    Header* head = Head();
    if (head->references > 0 && --head->references == 0)
        std::free(head);
}

CString::CString(const wchar_t* text, int length) : m_text(NoText())
{
    SetText(text, length);
}

CString::CString(const char* text) : m_text(NoText())
{
    if (text != nullptr)
        *this = CString(KxPlat::Decode(KxPlat::AnsiCodePage(), text));
}

CString::CString(wchar_t character, int repeat) : m_text(NoText())
{
    wchar_t* to = GetBufferSetLength(std::max(repeat, 0));
    std::fill(to, to + std::max(repeat, 0), character);
}

void CString::SetText(const wchar_t* text, int length)
{
    if (length <= 0 || text == nullptr) {
        Release();
        m_text = NoText();
        return;
    }
    wchar_t* fresh = NewText(length);
    std::memcpy(fresh, text, size_t(length) * sizeof(wchar_t));
    fresh[length] = 0;
    Release();   // `text` may lie in what is given up here
    m_text = fresh;
    Head()->length = length;
}

CString& CString::operator=(const CString& other)
{
    other.Share();
    Release();
    m_text = other.m_text;
    return *this;
}

CString& CString::operator=(CString&& other) noexcept
{
    std::swap(m_text, other.m_text);
    return *this;
}

CString& CString::operator=(const wchar_t* text)
{
    SetText(text, text == nullptr ? 0 : int(std::wcslen(text)));
    return *this;
}

CString& CString::operator=(const char* text)
{
    return *this = CString(text);
}

CString& CString::operator=(wchar_t character)
{
    SetText(&character, 1);
    return *this;
}

void CString::Empty()
{
    SetText(nullptr, 0);
}

wchar_t* CString::GetBuffer(int minLength)
{
    Header* head = Head();
    const int wanted = std::max(minLength, int(head->length));
    if (head->references == 1 && head->capacity >= wanted)
        return m_text;
    wchar_t* own = NewText(wanted);
    std::memcpy(own, m_text, (size_t(head->length) + 1) * sizeof(wchar_t));
    const int length = head->length;
    Release();
    m_text = own;
    Head()->length = length;
    return m_text;
}

wchar_t* CString::GetBufferSetLength(int length)
{
    wchar_t* text = GetBuffer(length);
    Head()->length = length;
    text[length] = 0;
    return text;
}

void CString::ReleaseBuffer(int length)
{
    if (Head()->references < 0)
        return;
    if (length < 0)
        length = int(wcsnlen(m_text, size_t(Head()->capacity)));
    Head()->length = std::min(length, int(Head()->capacity));
    m_text[Head()->length] = 0;
}

void CString::SetAt(int index, wchar_t character)
{
    GetBuffer()[index] = character;
}

void CString::AppendText(const wchar_t* text, int length)
{
    if (length <= 0 || text == nullptr)
        return;
    const int old = GetLength();
    const std::ptrdiff_t within = text >= m_text && text <= m_text + old ? text - m_text : -1;
    if (Head()->references != 1 || Head()->capacity < old + length)
        GetBuffer(old + length + old / 2);
    const wchar_t* from = within >= 0 ? m_text + within : text;
    std::memmove(m_text + old, from, size_t(length) * sizeof(wchar_t));
    m_text[old + length] = 0;
    Head()->length = old + length;
}

CString& CString::operator+=(const CString& other)
{
    AppendText(other.m_text, other.GetLength());
    return *this;
}

CString& CString::operator+=(const wchar_t* text)
{
    AppendText(text, text == nullptr ? 0 : int(std::wcslen(text)));
    return *this;
}

CString& CString::operator+=(wchar_t character)
{
    AppendText(&character, 1);
    return *this;
}

bool operator==(const CString& a, const CString& b)
{
    return a.GetString() == b.GetString() ||
           (a.GetLength() == b.GetLength() &&
            std::wmemcmp(a.GetString(), b.GetString(), size_t(a.GetLength())) == 0);
}

int CString::Compare(const wchar_t* other) const
{
    const int order = std::wcscmp(m_text, other == nullptr ? L"" : other);
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

int CString::CompareNoCase(const wchar_t* other) const
{
    const int order = KxPlat::CompareNoCase({m_text, size_t(GetLength())}, other == nullptr ? L"" : other);
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

// --- parts ---

CString CString::Mid(int first) const
{
    return Mid(first, GetLength());
}

CString CString::Mid(int first, int count) const
{
    first = std::clamp(first, 0, GetLength());
    count = std::clamp(count, 0, GetLength() - first);
    return first == 0 && count == GetLength() ? *this : CString(m_text + first, count);
}

CString CString::Left(int count) const
{
    return Mid(0, count);
}

CString CString::Right(int count) const
{
    return Mid(GetLength() - std::clamp(count, 0, GetLength()));
}

CString CString::SpanIncluding(const wchar_t* characters) const
{
    return Left(int(std::wcsspn(m_text, characters)));
}

CString CString::SpanExcluding(const wchar_t* characters) const
{
    return Left(int(std::wcscspn(m_text, characters)));
}

// --- changes ---

CString& CString::MakeUpper()
{
    wchar_t* text = GetBuffer();
    for (int i = 0; i < GetLength(); ++i)
        text[i] = KxPlat::Upper(text[i]);
    return *this;
}

CString& CString::MakeLower()
{
    wchar_t* text = GetBuffer();
    for (int i = 0; i < GetLength(); ++i)
        text[i] = KxPlat::Lower(text[i]);
    return *this;
}

CString& CString::MakeReverse()
{
    wchar_t* text = GetBuffer();
    std::reverse(text, text + GetLength());
    return *this;
}

template <class Accept>
CString& CString::TrimEnds(bool left, bool right, Accept&& accept)
{
    int first = 0, last = GetLength();
    while (left && first < last && accept(m_text[first]))
        ++first;
    while (right && first < last && accept(m_text[last - 1]))
        --last;
    if (first > 0 || last < GetLength())
        SetText(m_text + first, last - first);
    return *this;
}

namespace {

auto IsOneOf(const wchar_t* characters)
{
    return [characters](wchar_t c) { return std::wcschr(characters, c) != nullptr; };
}

auto Is(wchar_t character)
{
    return [character](wchar_t c) { return c == character; };
}

bool IsBlank(wchar_t character)
{
    return KxPlat::IsSpace(character);
}

}   // namespace

CString& CString::Trim()
{
    return TrimEnds(true, true, IsBlank);
}

CString& CString::Trim(wchar_t character)
{
    return TrimEnds(true, true, Is(character));
}

CString& CString::Trim(const wchar_t* characters)
{
    return TrimEnds(true, true, IsOneOf(characters));
}

CString& CString::TrimLeft()
{
    return TrimEnds(true, false, IsBlank);
}

CString& CString::TrimLeft(wchar_t character)
{
    return TrimEnds(true, false, Is(character));
}

CString& CString::TrimLeft(const wchar_t* characters)
{
    return TrimEnds(true, false, IsOneOf(characters));
}

CString& CString::TrimRight()
{
    return TrimEnds(false, true, IsBlank);
}

CString& CString::TrimRight(wchar_t character)
{
    return TrimEnds(false, true, Is(character));
}

CString& CString::TrimRight(const wchar_t* characters)
{
    return TrimEnds(false, true, IsOneOf(characters));
}

int CString::Replace(wchar_t from, wchar_t to)
{
    int count = 0;
    for (int i = 0; i < GetLength() && from != to; ++i)
        if (m_text[i] == from) {
            GetBuffer()[i] = to;
            ++count;
        }
    return count;
}

int CString::Replace(const wchar_t* from, const wchar_t* to)
{
    const int length = from == nullptr ? 0 : int(std::wcslen(from));
    if (length == 0)
        return 0;
    CString result;
    int count = 0, done = 0;
    for (int found = Find(from); found >= 0; found = Find(from, done)) {
        result.AppendText(m_text + done, found - done);
        result += to;
        done = found + length;
        ++count;
    }
    if (count > 0) {
        result.AppendText(m_text + done, GetLength() - done);
        *this = std::move(result);
    }
    return count;
}

int CString::Remove(wchar_t character)
{
    const int old = GetLength();
    wchar_t* text = GetBuffer();
    ReleaseBuffer(int(std::remove(text, text + old, character) - text));
    return old - GetLength();
}

int CString::Insert(int index, wchar_t character)
{
    const wchar_t text[] = {character, 0};
    return Insert(index, text);
}

int CString::Insert(int index, const wchar_t* text)
{
    const int at = std::clamp(index, 0, GetLength());
    CString result(m_text, at);
    result += text;
    result.AppendText(m_text + at, GetLength() - at);
    *this = std::move(result);
    return GetLength();
}

int CString::Delete(int index, int count)
{
    const int first = std::clamp(index, 0, GetLength());
    const int last = first + std::clamp(count, 0, GetLength() - first);
    if (last > first) {
        CString result(m_text, first);
        result.AppendText(m_text + last, GetLength() - last);
        *this = std::move(result);
    }
    return GetLength();
}

void CString::Truncate(int length)
{
    if (length < GetLength())
        SetText(m_text, length);
}

// --- searches ---

int CString::Find(wchar_t character, int start) const
{
    if (start < 0 || start >= GetLength())
        return -1;
    const wchar_t* found = std::wmemchr(m_text + start, character, size_t(GetLength() - start));
    return found == nullptr ? -1 : int(found - m_text);
}

int CString::Find(const wchar_t* text, int start) const
{
    if (text == nullptr || start < 0 || start > GetLength())
        return -1;
    const wchar_t* found = std::wcsstr(m_text + start, text);
    return found == nullptr ? -1 : int(found - m_text);
}

int CString::FindOneOf(const wchar_t* characters) const
{
    const wchar_t* found = std::wcspbrk(m_text, characters);
    return found == nullptr ? -1 : int(found - m_text);
}

int CString::ReverseFind(wchar_t character) const
{
    for (int i = GetLength(); i-- > 0;)
        if (m_text[i] == character)
            return i;
    return -1;
}

CString CString::Tokenize(const wchar_t* delimiters, int& start) const
{
    if (start < 0)
        return CString();
    if (start < GetLength()) {
        const wchar_t* place = m_text + start;
        place += std::wcsspn(place, delimiters);
        const int length = int(std::wcscspn(place, delimiters));
        if (*place != 0) {
            start = int(place - m_text) + length + 1;
            return CString(place, length);
        }
    }
    start = -1;
    return CString();
}

// --- formats ---

void CString::FormatV(const wchar_t* format, va_list arguments)
{
    *this = CString(KxPlat::FormatV(format, arguments));
}

void CString::Format(const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    FormatV(format, arguments);
    va_end(arguments);
}

void CString::AppendFormatV(const wchar_t* format, va_list arguments)
{
    *this += CString(KxPlat::FormatV(format, arguments));
}

void CString::AppendFormat(const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    AppendFormatV(format, arguments);
    va_end(arguments);
}
