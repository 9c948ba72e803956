#include "AcDbDwgFiler.h"
#include "AcDbObject.h"
#include "core/FilerOut.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDwgFiler, AcRxObject)

Acad::ErrorStatus AcDbDwgFiler::dwgVersion(AcDb::AcDbDwgVersion& version,
                                           AcDb::MaintenanceReleaseVersion& maintenance) const
{
    version = AcDb::kDHL_1032;
    maintenance = AcDb::kMReleaseCurrent;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::dwgOut(AcDbDwgFiler* filer) const
{
    if (filer == nullptr)
        return Acad::eNullPtr;
    if (!isReadEnabled())
        return Acad::eNotOpenForRead;
    KxPlat::FileOut(*this, *filer);
    return filer->filerStatus();
}
