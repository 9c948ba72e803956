#include "ResBufs.h"
#include "acutads.h"
#include <algorithm>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <iterator>

namespace {

using KxPlat::ResKind;

struct TypeRange {
    int first;
    int last;
    ResKind kind;
};

// Ascending. Codes below zero are the special ones of filters and entity lists.
constexpr TypeRange kTypes[] = {
    {-5, -5, ResKind::EntityName},   // reactors
    {-4, -4, ResKind::Text},         // condition of a filter
    {-3, -3, ResKind::None},         // start of extended data
    {-2, -1, ResKind::EntityName},
    {0, 4, ResKind::Text},
    {5, 5, ResKind::Text},
    {6, 9, ResKind::Text},
    {10, 17, ResKind::Point},
    {18, 59, ResKind::Real},
    {60, 79, ResKind::Short},
    {90, 99, ResKind::Long},
    {100, 100, ResKind::Text},
    {101, 102, ResKind::Text},
    {105, 105, ResKind::Text},
    {110, 119, ResKind::Point},
    {120, 149, ResKind::Real},
    {160, 169, ResKind::Int64},
    {170, 179, ResKind::Short},
    {210, 219, ResKind::Point},
    {220, 239, ResKind::Real},
    {270, 299, ResKind::Short},
    {300, 309, ResKind::Text},
    {310, 319, ResKind::Binary},
    {320, 329, ResKind::Text},
    {330, 369, ResKind::EntityName},
    {370, 389, ResKind::Short},
    {390, 399, ResKind::EntityName},
    {400, 409, ResKind::Short},
    {410, 419, ResKind::Text},
    {420, 429, ResKind::Long},
    {430, 439, ResKind::Text},
    {440, 459, ResKind::Long},
    {460, 469, ResKind::Real},
    {470, 479, ResKind::Text},
    {480, 481, ResKind::EntityName},
    {999, 1003, ResKind::Text},
    {1004, 1004, ResKind::Binary},
    {1005, 1009, ResKind::Text},
    {1010, 1013, ResKind::Point},
    {1040, 1042, ResKind::Real},
    {1070, 1070, ResKind::Short},
    {1071, 1071, ResKind::Long},
    {RTNONE, RTNONE, ResKind::None},
    {RTREAL, RTREAL, ResKind::Real},
    {RTPOINT, RTPOINT, ResKind::Point},
    {RTSHORT, RTSHORT, ResKind::Short},
    {RTANG, RTANG, ResKind::Real},
    {RTSTR, RTSTR, ResKind::Text},
    {RTENAME, RTPICKS, ResKind::EntityName},
    {RTORINT, RTORINT, ResKind::Real},
    {RT3DPOINT, RT3DPOINT, ResKind::Point},
    {RTLONG, RTLONG, ResKind::Long},
    {RTVOID, RTVOID, ResKind::None},
    {RTLB, RTNIL, ResKind::None},
    {RTDXF0, RTDXF0, ResKind::Text},
    {RTT, RTT, ResKind::None},
    {RTMODAL, RTMODAL, ResKind::None},
};

long g_live = 0;

ACHAR* NewText(std::wstring_view text)
{
    auto* copy = static_cast<ACHAR*>(std::malloc((text.size() + 1) * sizeof(ACHAR)));
    if (copy == nullptr)
        return nullptr;
    std::copy(text.begin(), text.end(), copy);
    copy[text.size()] = 0;
    return copy;
}

void SetBytes(resbuf* buffer, const char* bytes, short length)
{
    buffer->resval.rbinary = {};
    if (bytes == nullptr || length <= 0)
        return;
    auto* copy = static_cast<char*>(std::malloc(size_t(length)));
    if (copy == nullptr)
        return;
    std::memcpy(copy, bytes, size_t(length));
    buffer->resval.rbinary = {length, copy};
}

// Takes the value that follows a type in a variable argument list. Integers of any width arrive in a slot whose low
// half is the value.
void TakeValue(resbuf* buffer, ResKind kind, va_list& arguments)
{
    ads_u_val& value = buffer->resval;
    switch (kind) {
    case ResKind::Real:
        value.rreal = va_arg(arguments, double);
        return;
    case ResKind::Point: {
        const double* point = va_arg(arguments, const double*);
        // A 2D point is two reals long.
        std::copy_n(point, buffer->restype == RTPOINT ? 2 : 3, value.rpoint);
        return;
    }
    case ResKind::Short:
        value.rint = short(va_arg(arguments, int));
        return;
    case ResKind::Long:
        value.rlong = va_arg(arguments, int);
        return;
    case ResKind::Int64:
        value.mnInt64 = va_arg(arguments, Adesk::Int64);
        return;
    case ResKind::Text: {
        const ACHAR* text = va_arg(arguments, const ACHAR*);
        value.rstring = text == nullptr ? nullptr : NewText(text);
        return;
    }
    case ResKind::EntityName: {
        const Adesk::IntPtr* name = va_arg(arguments, const Adesk::IntPtr*);
        ads_name_set(name, value.rlname);
        return;
    }
    case ResKind::Binary: {
        const ads_binary* bytes = va_arg(arguments, const ads_binary*);
        SetBytes(buffer, bytes->buf, bytes->clen);
        return;
    }
    case ResKind::None:
    case ResKind::Unknown:
        return;
    }
}

void FreeOne(resbuf* buffer)
{
    const ResKind kind = KxPlat::ResKindOf(buffer->restype);
    if (kind == ResKind::Text)
        std::free(buffer->resval.rstring);
    else if (kind == ResKind::Binary)
        std::free(buffer->resval.rbinary.buf);
    delete buffer;
    --g_live;
}

}   // namespace

namespace KxPlat {

ResKind ResKindOf(int restype)
{
    const auto* row = std::lower_bound(std::begin(kTypes), std::end(kTypes), restype,
                                       [](const TypeRange& range, int type) { return range.last < type; });
    return row != std::end(kTypes) && row->first <= restype ? row->kind : ResKind::Unknown;
}

resbuf* CopyOne(const resbuf* buffer)
{
    resbuf* copy = acutNewRb(buffer->restype);
    const ResKind kind = ResKindOf(buffer->restype);
    if (kind == ResKind::Text)
        copy->resval.rstring = buffer->resval.rstring == nullptr ? nullptr : NewText(buffer->resval.rstring);
    else if (kind == ResKind::Binary)
        SetBytes(copy, buffer->resval.rbinary.buf, buffer->resval.rbinary.clen);
    else
        copy->resval = buffer->resval;
    return copy;
}

resbuf* CopyChain(const resbuf* chain)
{
    ChainBuilder copy;
    for (; chain != nullptr; chain = chain->rbnext)
        copy.Add(CopyOne(chain));
    return copy.Take();
}

resbuf* NewTextRb(int restype, std::wstring_view text)
{
    resbuf* buffer = acutNewRb(restype);
    buffer->resval.rstring = NewText(text);
    return buffer;
}

resbuf* NewRealRb(int restype, double value)
{
    resbuf* buffer = acutNewRb(restype);
    buffer->resval.rreal = value;
    return buffer;
}

resbuf* NewPointRb(int restype, double x, double y, double z)
{
    resbuf* buffer = acutNewRb(restype);
    buffer->resval.rpoint[X] = x;
    buffer->resval.rpoint[Y] = y;
    buffer->resval.rpoint[Z] = z;
    return buffer;
}

resbuf* NewShortRb(int restype, int value)
{
    resbuf* buffer = acutNewRb(restype);
    buffer->resval.rint = short(value);
    return buffer;
}

resbuf* NewLongRb(int restype, Adesk::Int32 value)
{
    resbuf* buffer = acutNewRb(restype);
    buffer->resval.rlong = value;
    return buffer;
}

resbuf* NewNameRb(int restype, const ads_name name)
{
    resbuf* buffer = acutNewRb(restype);
    ads_name_set(name, buffer->resval.rlname);
    return buffer;
}

resbuf* NewBinaryRb(int restype, std::string_view bytes)
{
    resbuf* buffer = acutNewRb(restype);
    SetBytes(buffer, bytes.data(), short(std::min<size_t>(bytes.size(), 32767)));
    return buffer;
}

void SetText(resbuf* buffer, std::wstring_view text)
{
    ACHAR* copy = NewText(text);   // `text` may be the text that is replaced
    std::free(buffer->resval.rstring);
    buffer->resval.rstring = copy;
}

resbuf* LastOf(resbuf* chain)
{
    while (chain != nullptr && chain->rbnext != nullptr)
        chain = chain->rbnext;
    return chain;
}

void ChainBuilder::Add(resbuf* chain)
{
    if (chain == nullptr)
        return;
    (m_first == nullptr ? m_first : m_last->rbnext) = chain;
    m_last = LastOf(chain);
}

resbuf* ChainBuilder::Take()
{
    resbuf* chain = m_first;
    m_first = m_last = nullptr;
    return chain;
}

long LiveResBufs()
{
    return g_live;
}

}   // namespace KxPlat

resbuf* acutNewRb(int restype)
{
    auto* buffer = new resbuf();
    buffer->restype = short(restype);
    ++g_live;
    return buffer;
}

int acutRelRb(resbuf* chain)
{
    while (chain != nullptr) {
        resbuf* next = chain->rbnext;
        FreeOne(chain);
        chain = next;
    }
    return RTNORM;
}

resbuf* acutBuildList(int restype, ...)
{
    KxPlat::ChainBuilder chain;
    va_list arguments;
    va_start(arguments, restype);
    bool isKnown = true;
    for (int type = restype; type != 0 && type != RTNONE && isKnown; type = va_arg(arguments, int)) {
        const ResKind kind = KxPlat::ResKindOf(type);
        isKnown = kind != ResKind::Unknown;
        if (!isKnown)
            break;
        resbuf* buffer = acutNewRb(type == RTDXF0 ? 0 : type);
        TakeValue(buffer, kind, arguments);
        chain.Add(buffer);
    }
    va_end(arguments);
    resbuf* built = chain.Take();
    if (isKnown)
        return built;
    acutRelRb(built);
    return nullptr;
}

Acad::ErrorStatus acutNewString(const ACHAR* source, ACHAR*& copy)
{
    copy = source == nullptr ? nullptr : NewText(source);
    return source != nullptr && copy == nullptr ? Acad::eOutOfMemory : Acad::eOk;
}

void acutDelString(ACHAR*& text)
{
    std::free(text);
    text = nullptr;
}

Acad::ErrorStatus acutUpdString(const ACHAR* source, ACHAR*& target)
{
    ACHAR* copy = nullptr;
    const Acad::ErrorStatus status = acutNewString(source, copy);
    if (status != Acad::eOk)
        return status;
    std::free(target);
    target = copy;
    return Acad::eOk;
}
