#include "GroupResbuf.h"
#include "../../rx/acutads.h"
#include "../../rx/ResBufs.h"
#include "../../win/CharTables.h"
#include "../AcDbDatabase.h"
#include "../AcDbSymbolTable.h"
#include "DbCore.h"

namespace KxPlat {

namespace {

bool IsPointCode(int code)
{
    return (code >= 10 && code <= 18) || (code >= 110 && code <= 112) || (code >= 210 && code <= 219) ||
           (code >= 1010 && code <= 1013);
}

resbuf* BufferOf(const GroupValue& group)
{
    const int code = group.code;
    if (const CString* text = std::get_if<CString>(&group.value))
        return NewTextRb(code, std::wstring_view(*text, size_t(text->GetLength())));
    if (const double* real = std::get_if<double>(&group.value))
        return NewRealRb(code, *real);
    if (const Bytes* bytes = std::get_if<Bytes>(&group.value))
        return NewBinaryRb(code, *bytes == nullptr ? std::string_view() : std::string_view(**bytes));
    if (const AcDbObjectId* id = std::get_if<AcDbObjectId>(&group.value)) {
        if (code == 1005 || (code >= 320 && code <= 329)) {
            wchar_t digits[17];
            id->handle().getIntoAsciiBuffer(digits);
            return NewTextRb(code, digits);
        }
        ads_name name = {id->asOldId(), 0};
        return NewNameRb(code, name);
    }
    const int64_t number = std::get<int64_t>(group.value);
    if (ResKindOf(code) == ResKind::Short)
        return NewShortRb(code, int(number));
    if (ResKindOf(code) == ResKind::Int64) {
        resbuf* buffer = acutNewRb(code);
        buffer->resval.mnInt64 = number;
        return buffer;
    }
    return NewLongRb(code, Adesk::Int32(number));
}

// The group and its next ones, code + 10 and code + 20, as one point; how many groups that were.
size_t PointAt(const GroupList& groups, size_t at, double (&point)[3])
{
    point[0] = groups[at].real();
    point[1] = point[2] = 0;
    size_t count = 1;
    while (count < 3 && at + count < groups.size() && groups[at + count].code == groups[at].code + 10 * int(count)) {
        point[count] = groups[at + count].real();
        ++count;
    }
    return count;
}

void AppendPoint(GroupList& groups, int code, const double* point, int count)
{
    for (int i = 0; i < count; ++i)
        groups.push_back({int16_t(code + 10 * i), 0, false, point[i]});
}

}   // namespace

resbuf* ChainOf(const GroupList& groups)
{
    ChainBuilder chain;
    for (size_t i = 0; i < groups.size();) {
        if (!IsPointCode(groups[i].code)) {
            chain.Add(BufferOf(groups[i++]));
            continue;
        }
        double point[3];
        const int code = groups[i].code;
        i += PointAt(groups, i, point);
        chain.Add(NewPointRb(code, point[0], point[1], point[2]));
    }
    return chain.Take();
}

namespace {

// Where the data of the application that starts at `at` ends.
size_t EndOfApplication(const GroupList& xData, size_t at)
{
    size_t end = at + 1;
    while (end < xData.size() && xData[end].code != 1001)
        ++end;
    return end;
}

bool IsNamed(const GroupValue& group, const wchar_t* appName)
{
    const CString name = group.text();
    return group.code == 1001 && EqualNoCase(std::wstring_view(name, size_t(name.GetLength())), appName);
}

}   // namespace

resbuf* XDataChain(const GroupList& xData, const wchar_t* appName)
{
    if (appName == nullptr || *appName == 0)
        return ChainOf(xData);
    for (size_t i = 0; i < xData.size(); ++i)
        if (IsNamed(xData[i], appName))
            return ChainOf(GroupList(xData.begin() + std::ptrdiff_t(i),
                                     xData.begin() + std::ptrdiff_t(EndOfApplication(xData, i))));
    return nullptr;
}

namespace {

// A point buffer is three groups; the third is missing only where the code can have two.
bool AppendBuffer(const resbuf& buffer, AcDbDatabase* database, GroupList& groups)
{
    const int code = buffer.restype;
    GroupValue group;
    group.code = int16_t(code);
    switch (ResKindOf(code)) {
    case ResKind::Real:
        group.value = double(buffer.resval.rreal);
        break;
    case ResKind::Point:
        AppendPoint(groups, code, buffer.resval.rpoint, 3);
        return true;
    case ResKind::Short:
        group.value = int64_t(buffer.resval.rint);
        break;
    case ResKind::Long:
        group.value = int64_t(buffer.resval.rlong);
        break;
    case ResKind::Int64:
        group.value = int64_t(buffer.resval.mnInt64);
        break;
    case ResKind::EntityName: {
        AcDbObjectId id;
        id.setFromOldId(buffer.resval.rlname[0]);
        group.value = id;
        break;
    }
    case ResKind::Binary:
        if (buffer.resval.rbinary.clen < 0)
            return false;
        group.value = std::make_shared<const std::string>(
            buffer.resval.rbinary.buf == nullptr ? "" : buffer.resval.rbinary.buf, size_t(buffer.resval.rbinary.clen));
        break;
    case ResKind::Text: {
        const wchar_t* text = buffer.resval.rstring == nullptr ? L"" : buffer.resval.rstring;
        if (code == 1005 || (code >= 320 && code <= 329))
            group.value = AcDbObjectId(database == nullptr ? nullptr : CoreOf(*database).handles.Get(AcDbHandle(text)));
        else
            group.value = CString(text);
        break;
    }
    default:
        return false;
    }
    groups.push_back(std::move(group));
    return true;
}

}   // namespace

Acad::ErrorStatus GroupsOf(const resbuf* chain, AcDbDatabase* database, GroupList& groups)
{
    size_t count = 0;
    for (const resbuf* at = chain; at != nullptr; at = at->rbnext)
        ++count;
    groups.reserve(groups.size() + count);
    for (const resbuf* at = chain; at != nullptr; at = at->rbnext)
        if (at->restype < 0 || at->restype >= 5000 || !AppendBuffer(*at, database, groups))
            return Acad::eBadDxfSequence;
    return Acad::eOk;
}

Acad::ErrorStatus ReplaceXData(GroupList& xData, const resbuf* chain, AcDbDatabase* database)
{
    if (chain->restype != 1001)
        return Acad::eBadDxfSequence;
    GroupList added;
    const Acad::ErrorStatus status = GroupsOf(chain, database, added);
    if (status != Acad::eOk)
        return status;
    for (const GroupValue& group : added) {
        if (group.code < 1000)
            return Acad::eBadDxfSequence;
        if (group.code == 1001 && database != nullptr) {
            AcDbObjectId app;
            if (CoreOf(*database).Table(TableKind::RegApp)->getAt(group.text(), app) != Acad::eOk)
                return Acad::eRegappIdNotFound;
        }
    }
    for (size_t i = 0; i < added.size();) {
        const size_t end = EndOfApplication(added, i);
        for (size_t old = 0; old < xData.size();)
            if (IsNamed(xData[old], added[i].text()))
                xData.erase(xData.begin() + std::ptrdiff_t(old),
                            xData.begin() + std::ptrdiff_t(EndOfApplication(xData, old)));
            else
                old = EndOfApplication(xData, old);
        if (end > i + 1)
            xData.insert(xData.end(), added.begin() + std::ptrdiff_t(i), added.begin() + std::ptrdiff_t(end));
        i = end;
    }
    return Acad::eOk;
}

}   // namespace KxPlat
