#include "KxAcXDataList.h"
#include "KxAcDb.h"
#include "ResBufList.h"
#include <algorithm>
#include <cmath>
#include <cwchar>
#include <limits>

namespace KxArxBase {

namespace {

const wchar_t kDefaultName[] = L"KxCadBase";
const int kPieceLength = 254;   // characters in one group of text
const short kNameGroup = AcDb::kDxfRegAppName;
const short kTagGroup = AcDb::kDxfXdInteger32;

bool IsTextGroup(int code)
{
    return code == AcDb::kDxfXdAsciiString || code == AcDb::kDxfXdLayer;
}

}   // namespace

CKxAcXDataList::CKxAcXDataList(const wchar_t* appName) : m_list(std::make_shared<ResBufList>())
{
    TakeName(appName == nullptr || *appName == 0 ? kDefaultName : appName);
    if (!InitXDataList())
        m_list.reset();
}

CKxAcXDataList::~CKxAcXDataList() = default;

void CKxAcXDataList::TakeName(const wchar_t* appName)
{
    const size_t room = std::size(m_appName) - 1;
    const size_t length = std::min(std::wcslen(appName), room);
    std::copy_n(appName, length, m_appName);
    std::fill(m_appName + length, std::end(m_appName), L'\0');
}

bool CKxAcXDataList::InitXDataList()
{
    if (m_list == nullptr)
        return false;
    m_list->Clear();
    return m_list->Append(acutBuildList(kNameGroup, m_appName, 0));
}

void CKxAcXDataList::Clear()
{
    InitXDataList();
}

void CKxAcXDataList::SetAppName(const wchar_t* appName)
{
    if (appName == nullptr || *appName == 0)
        return;
    TakeName(appName);
    if (m_list == nullptr)
        return;
    resbuf* name = acutBuildList(kNameGroup, m_appName, 0);
    if (name == nullptr)
        return;
    m_list->RemoveBehind(nullptr);
    m_list->InsertBehind(nullptr, name);
}

CString CKxAcXDataList::GetAppName() const
{
    return m_appName;
}

resbuf* CKxAcXDataList::Chain() const
{
    return m_list == nullptr ? nullptr : m_list->Head();
}

void CKxAcXDataList::AdoptChain(resbuf* chain)
{
    if (m_list == nullptr)
        m_list = std::make_shared<ResBufList>();
    m_list->Adopt(chain);
}

resbuf* CKxAcXDataList::GetTag(long index) const
{
    resbuf* at = Chain();
    if (at == nullptr)
        return nullptr;
    for (at = at->rbnext; at != nullptr; at = at->rbnext->rbnext) {
        if (at->restype == kTagGroup && at->resval.rlong == index)
            return at;
        if (at->rbnext == nullptr)
            break;
    }
    return nullptr;
}

bool CKxAcXDataList::IsExistTag(long index) const
{
    return GetTag(index) != nullptr;
}

bool CKxAcXDataList::SetTag(long index)
{
    if (m_list == nullptr || index != int32_t(index) || GetTag(index) != nullptr)
        return false;
    return m_list->Append(acutBuildList(kTagGroup, int(index), 0));
}

bool CKxAcXDataList::Remove(long index)
{
    resbuf* tag = GetTag(index);
    if (tag == nullptr)
        return false;
    const bool isText = tag->rbnext != nullptr && IsTextGroup(tag->rbnext->restype);
    m_list->RemoveBehind(tag);
    while (isText && tag->rbnext != nullptr && IsTextGroup(tag->rbnext->restype))
        m_list->RemoveBehind(tag);
    m_list->RemoveBehind(m_list->Before(tag));
    return true;
}

// --- texts -----------------------------------------------------------------------------------------------------------

int CKxAcXDataList::_tsplitString(const wchar_t* text, CStringArray& parts, int size) const
{
    parts.RemoveAll();
    const CString whole(text);
    for (int start = 0; size >= 1 && start < whole.GetLength(); start += size)
        parts.Add(whole.Mid(start, size));
    return int(parts.GetSize());
}

bool CKxAcXDataList::SetGenericString(long index, const wchar_t* text, short code)
{
    CStringArray parts;
    if (index != int32_t(index) || _tsplitString(text, parts, kPieceLength) == 0)
        return false;
    // The count of pieces stays odd, so that the next tag is again two steps away.
    if (parts.GetSize() % 2 == 0)
        parts.Add(L"");
    if (IsExistTag(index))
        Remove(index);
    if (!SetTag(index))
        return false;
    for (INT_PTR i = 0; i < parts.GetSize(); ++i) {
        if (m_list->Append(acutBuildList(code, parts[i].GetString(), 0)))
            continue;
        Remove(index);
        return false;
    }
    return true;
}

bool CKxAcXDataList::GetGenericString(long index, CString& text, short code) const
{
    const resbuf* piece = ValueOf(index, code);
    if (piece == nullptr)
        return false;
    for (; piece != nullptr && piece->restype == code; piece = piece->rbnext)
        if (piece->resval.rstring != nullptr && *piece->resval.rstring != 0)
            text += piece->resval.rstring;
    return true;
}

// --- values of one group ---------------------------------------------------------------------------------------------

resbuf* CKxAcXDataList::ValueOf(long index, short code) const
{
    resbuf* tag = GetTag(index);
    resbuf* value = tag == nullptr ? nullptr : tag->rbnext;
    return value != nullptr && value->restype == code ? value : nullptr;
}

// Takes over `value`. A value of another type makes room, all its pieces: a piece left behind would shift the tags.
bool CKxAcXDataList::SetValue(long index, resbuf* value)
{
    resbuf* tag = GetTag(index);
    if (value == nullptr) {
        Remove(index);
        return false;
    }
    if (tag == nullptr || tag->rbnext == nullptr) {
        if (tag == nullptr && !SetTag(index)) {
            acutRelRb(value);
            return false;
        }
        return m_list->Append(value);
    }
    const bool wasText = IsTextGroup(tag->rbnext->restype);
    m_list->RemoveBehind(tag);
    while (wasText && tag->rbnext != nullptr && IsTextGroup(tag->rbnext->restype))
        m_list->RemoveBehind(tag);
    return m_list->InsertBehind(tag, value);
}

bool CKxAcXDataList::GetGenericReal(long index, double& value, short code) const
{
    const resbuf* found = ValueOf(index, code);
    if (found == nullptr)
        return false;
    value = found->resval.rreal;
    return true;
}

bool CKxAcXDataList::SetGenericReal(long index, double value, short code)
{
    return std::isfinite(value) && SetValue(index, acutBuildList(code, value, 0));
}

bool CKxAcXDataList::GetGenericPoint3d(long index, AcGePoint3d& point, short code) const
{
    const resbuf* found = ValueOf(index, code);
    if (found == nullptr)
        return false;
    point.set(found->resval.rpoint[X], found->resval.rpoint[Y], found->resval.rpoint[Z]);
    return true;
}

bool CKxAcXDataList::SetGenericPoint3d(long index, const AcGePoint3d& point, short code)
{
    const ads_point coordinates = {point.x, point.y, point.z};
    for (double coordinate : coordinates)
        if (!std::isfinite(coordinate))
            return false;
    return SetValue(index, acutBuildList(code, coordinates, 0));
}

bool CKxAcXDataList::GetInteger(long index, int& value) const
{
    const resbuf* found = ValueOf(index, AcDb::kDxfXdInteger16);
    if (found == nullptr)
        return false;
    value = found->resval.rint;
    return true;
}

bool CKxAcXDataList::SetInteger(long index, int value)
{
    return value == int16_t(value) && SetValue(index, acutBuildList(AcDb::kDxfXdInteger16, value, 0));
}

bool CKxAcXDataList::GetLong(long index, long& value) const
{
    const resbuf* found = ValueOf(index, AcDb::kDxfXdInteger32);
    if (found == nullptr)
        return false;
    value = found->resval.rlong;
    return true;
}

bool CKxAcXDataList::SetLong(long index, long value)
{
    return value == int32_t(value) && SetValue(index, acutBuildList(AcDb::kDxfXdInteger32, int(value), 0));
}

bool CKxAcXDataList::GetHandle(long index, AcDbHandle& handle) const
{
    const resbuf* found = ValueOf(index, AcDb::kDxfXdHandle);
    if (found == nullptr || found->resval.rstring == nullptr)
        return false;
    handle = AcDbHandle(found->resval.rstring);
    return true;
}

bool CKxAcXDataList::SetHandle(long index, const AcDbHandle& handle)
{
    wchar_t digits[17];
    handle.getIntoAsciiBuffer(digits);
    return SetValue(index, acutBuildList(AcDb::kDxfXdHandle, digits, 0));
}

// --- the application's name ------------------------------------------------------------------------------------------

namespace {

// Without the list of values that a search of the table makes.
bool IsRegistered(AcDbDatabase* database, const wchar_t* name)
{
    AcDbRegAppTable* table = nullptr;
    if (database == nullptr || database->getSymbolTable(table, AcDb::kForRead) != Acad::eOk)
        return false;
    const bool has = table->has(name);
    table->close();
    return has;
}

}   // namespace

Acad::ErrorStatus CKxAcXDataList::RegisterAppName(AcDbObjectId id) const
{
    AcDbDatabase* working = acdbHostApplicationServices()->workingDatabase();
    if (IsRegistered(id.isNull() ? working : id.database(), m_appName))
        return Acad::eOk;
    if (!id.isNull() && id.database() != working) {
        AcDbSymbolTableRecord* record = nullptr;
        const Acad::ErrorStatus es =
            CKxAcDb(id.database(), 0)
                .OpenRecWithEntyName(m_appName, AcDbRegAppTableRecord::desc(), record, AcDb::kForRead, 1);
        if (record != nullptr)
            record->close();
        return es == Acad::eOk ? es : Acad::eInvalidInput;
    }
    return acdbRegApp(m_appName) == RTNORM ? Acad::eOk : Acad::eInvalidInput;
}

}   // namespace KxArxBase
