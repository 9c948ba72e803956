#include "KxAcXData.h"
#include "Opened.h"

namespace KxArxBase {

Acad::ErrorStatus CKxAcXData::GetXData(AcDbObjectId id)
{
    if (!InitXDataList())
        return Acad::eOutOfMemory;
    if (id.isNull())
        return Acad::eNullObjectId;
    const Opened<AcDbObject> object(id, AcDb::kForRead);
    if (object.status() != Acad::eOk)
        return object.status();
    resbuf* data = object->xData(AppName());
    if (data == nullptr)
        return Acad::eInvalidResBuf;
    AdoptChain(data);
    return Acad::eOk;
}

Acad::ErrorStatus CKxAcXData::SetXData(AcDbObjectId id)
{
    const Acad::ErrorStatus registered = RegisterAppName(id);
    if (registered != Acad::eOk)
        return registered;
    if (Chain() == nullptr)
        return Acad::eInvalidInput;
    if (id.isNull())
        return Acad::eNullObjectId;
    const Opened<AcDbObject> object(id, AcDb::kForWrite);
    return object.status() != Acad::eOk ? object.status() : object->setXData(Chain());
}

Acad::ErrorStatus CKxAcXData::DeleteXData(AcDbObjectId id, const wchar_t* appName)
{
    InitXDataList();
    SetAppName(appName);
    return SetXData(id);
}

}   // namespace KxArxBase
