// The typed members of the value list: each is one of the generic ones with a group code of its own.
#include "KxAcDb.h"
#include "KxAcXDataList.h"
#include <cwchar>

namespace KxArxBase {

bool CKxAcXDataList::GetString(long index, CString& text) const
{
    text.Empty();
    return GetGenericString(index, text, AcDb::kDxfXdAsciiString);
}

bool CKxAcXDataList::GetString(long index, wchar_t* text) const
{
    CString joined;
    if (text == nullptr || !GetGenericString(index, joined, AcDb::kDxfXdAsciiString))
        return false;
    std::wcscpy(text, joined);
    return true;
}

bool CKxAcXDataList::SetString(long index, const wchar_t* text)
{
    return SetGenericString(index, text, AcDb::kDxfXdAsciiString);
}

bool CKxAcXDataList::GetLayer(long index, wchar_t* name) const
{
    CString joined;
    if (name == nullptr || !GetGenericString(index, joined, AcDb::kDxfXdLayer))
        return false;
    std::wcscpy(name, joined);
    return true;
}

bool CKxAcXDataList::SetLayer(long index, const wchar_t* name)
{
    if (name == nullptr || !CKxAcDb(nullptr, 0).IsHasSymbolTabRec(AcDbLayerTable::desc(), name))
        return false;
    return SetGenericString(index, name, AcDb::kDxfXdLayer);
}

bool CKxAcXDataList::GetReal(long index, double& value) const
{
    return GetGenericReal(index, value, AcDb::kDxfXdReal);
}

bool CKxAcXDataList::SetReal(long index, double value)
{
    return SetGenericReal(index, value, AcDb::kDxfXdReal);
}

bool CKxAcXDataList::GetDistance(long index, double& value) const
{
    return GetGenericReal(index, value, AcDb::kDxfXdDist);
}

bool CKxAcXDataList::SetDistance(long index, double value)
{
    return SetGenericReal(index, value, AcDb::kDxfXdDist);
}

bool CKxAcXDataList::GetScale(long index, double& value) const
{
    return GetGenericReal(index, value, AcDb::kDxfXdScale);
}

bool CKxAcXDataList::SetScale(long index, double value)
{
    return SetGenericReal(index, value, AcDb::kDxfXdScale);
}

bool CKxAcXDataList::GetPoint3d(long index, AcGePoint3d& point) const
{
    return GetGenericPoint3d(index, point, AcDb::kDxfXdXCoord);
}

bool CKxAcXDataList::SetPoint3d(long index, const AcGePoint3d& point)
{
    return SetGenericPoint3d(index, point, AcDb::kDxfXdXCoord);
}

bool CKxAcXDataList::GetPosition3d(long index, AcGePoint3d& position) const
{
    return GetGenericPoint3d(index, position, AcDb::kDxfXdWorldXCoord);
}

bool CKxAcXDataList::SetPosition3d(long index, const AcGePoint3d& position)
{
    return SetGenericPoint3d(index, position, AcDb::kDxfXdWorldXCoord);
}

bool CKxAcXDataList::GetDisplacement3d(long index, AcGePoint3d& displacement) const
{
    return GetGenericPoint3d(index, displacement, AcDb::kDxfXdWorldXDisp);
}

bool CKxAcXDataList::SetDisplacement3d(long index, const AcGePoint3d& displacement)
{
    return SetGenericPoint3d(index, displacement, AcDb::kDxfXdWorldXDisp);
}

bool CKxAcXDataList::GetDirection3d(long index, AcGeVector3d& direction) const
{
    AcGePoint3d stored;
    if (!GetGenericPoint3d(index, stored, AcDb::kDxfXdWorldXDir))
        return false;
    direction.set(stored.x, stored.y, stored.z);
    return true;
}

bool CKxAcXDataList::SetDirection3d(long index, const AcGeVector3d& direction)
{
    return SetGenericPoint3d(index, AcGePoint3d(direction.x, direction.y, direction.z), AcDb::kDxfXdWorldXDir);
}

// --- in the plane ----------------------------------------------------------------------------------------------------

bool CKxAcXDataList::GetPoint2d(long index, AcGePoint2d& point) const
{
    AcGePoint3d stored;
    if (!GetPoint3d(index, stored))
        return false;
    point.set(stored.x, stored.y);
    return true;
}

bool CKxAcXDataList::SetPoint2d(long index, const AcGePoint2d& point)
{
    return SetPoint3d(index, AcGePoint3d(point.x, point.y, 0));
}

bool CKxAcXDataList::GetPosition2d(long index, AcGePoint2d& position) const
{
    AcGePoint3d stored;
    if (!GetPosition3d(index, stored))
        return false;
    position.set(stored.x, stored.y);
    return true;
}

bool CKxAcXDataList::SetPosition2d(long index, const AcGePoint2d& position)
{
    return SetPosition3d(index, AcGePoint3d(position.x, position.y, 0));
}

bool CKxAcXDataList::GetDisplacement2d(long index, AcGePoint2d& displacement) const
{
    AcGePoint3d stored;
    if (!GetDisplacement3d(index, stored))
        return false;
    displacement.set(stored.x, stored.y);
    return true;
}

bool CKxAcXDataList::SetDisplacement2d(long index, const AcGePoint2d& displacement)
{
    return SetDisplacement3d(index, AcGePoint3d(displacement.x, displacement.y, 0));
}

bool CKxAcXDataList::GetDirection2d(long index, AcGeVector2d& direction) const
{
    AcGeVector3d stored;
    if (!GetDirection3d(index, stored))
        return false;
    direction.set(stored.x, stored.y);
    return true;
}

bool CKxAcXDataList::SetDirection2d(long index, const AcGeVector2d& direction)
{
    return SetDirection3d(index, AcGeVector3d(direction.x, direction.y, 0));
}

}   // namespace KxArxBase
