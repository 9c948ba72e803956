// What an object hands its stored values to when it is written out, one by one and each by its type.
// Programs derive filers of their own: to copy, to compare, to collect the ids that an object holds.
#pragma once
#include "../ge/AcGePoint2d.h"
#include "../ge/AcGePoint3d.h"
#include "../ge/AcGeScale3d.h"
#include "../ge/AcGeVector2d.h"
#include "../ge/AcGeVector3d.h"
#include "../rx/AcRxObject.h"
#include "../rx/adsdef.h"
#include "AcDb.h"
#include "AcDbObjectId.h"

class AcDbDwgFiler : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDwgFiler);

    virtual Acad::ErrorStatus filerStatus() const = 0;
    virtual AcDb::FilerType filerType() const = 0;
    virtual void setFilerStatus(Acad::ErrorStatus status) = 0;
    virtual void resetFilerStatus() = 0;
    virtual Acad::ErrorStatus dwgVersion(AcDb::AcDbDwgVersion& version,
                                         AcDb::MaintenanceReleaseVersion& maintenance) const;

    virtual Acad::ErrorStatus readHardOwnershipId(AcDbHardOwnershipId* id) = 0;
    virtual Acad::ErrorStatus writeHardOwnershipId(const AcDbHardOwnershipId& id) = 0;
    virtual Acad::ErrorStatus readSoftOwnershipId(AcDbSoftOwnershipId* id) = 0;
    virtual Acad::ErrorStatus writeSoftOwnershipId(const AcDbSoftOwnershipId& id) = 0;
    virtual Acad::ErrorStatus readHardPointerId(AcDbHardPointerId* id) = 0;
    virtual Acad::ErrorStatus writeHardPointerId(const AcDbHardPointerId& id) = 0;
    virtual Acad::ErrorStatus readSoftPointerId(AcDbSoftPointerId* id) = 0;
    virtual Acad::ErrorStatus writeSoftPointerId(const AcDbSoftPointerId& id) = 0;

    virtual Acad::ErrorStatus readInt8(Adesk::Int8* value) = 0;
    virtual Acad::ErrorStatus writeInt8(Adesk::Int8 value) = 0;
    virtual Acad::ErrorStatus readString(ACHAR** text) = 0;
    virtual Acad::ErrorStatus writeString(const ACHAR* text) = 0;
    virtual Acad::ErrorStatus readBChunk(ads_binary* bytes) = 0;
    virtual Acad::ErrorStatus writeBChunk(const ads_binary& bytes) = 0;
    virtual Acad::ErrorStatus readAcDbHandle(AcDbHandle* handle) = 0;
    virtual Acad::ErrorStatus writeAcDbHandle(const AcDbHandle& handle) = 0;
    virtual Acad::ErrorStatus readInt64(Adesk::Int64* value) = 0;
    virtual Acad::ErrorStatus writeInt64(Adesk::Int64 value) = 0;
    virtual Acad::ErrorStatus readInt32(Adesk::Int32* value) = 0;
    virtual Acad::ErrorStatus writeInt32(Adesk::Int32 value) = 0;
    virtual Acad::ErrorStatus readInt16(Adesk::Int16* value) = 0;
    virtual Acad::ErrorStatus writeInt16(Adesk::Int16 value) = 0;
    virtual Acad::ErrorStatus readUInt64(Adesk::UInt64* value) = 0;
    virtual Acad::ErrorStatus writeUInt64(Adesk::UInt64 value) = 0;
    virtual Acad::ErrorStatus readUInt32(Adesk::UInt32* value) = 0;
    virtual Acad::ErrorStatus writeUInt32(Adesk::UInt32 value) = 0;
    virtual Acad::ErrorStatus readUInt16(Adesk::UInt16* value) = 0;
    virtual Acad::ErrorStatus writeUInt16(Adesk::UInt16 value) = 0;
    virtual Acad::ErrorStatus readUInt8(Adesk::UInt8* value) = 0;
    virtual Acad::ErrorStatus writeUInt8(Adesk::UInt8 value) = 0;
    virtual Acad::ErrorStatus readBoolean(Adesk::Boolean* value) = 0;
    virtual Acad::ErrorStatus writeBoolean(Adesk::Boolean value) = 0;
    virtual Acad::ErrorStatus readBool(bool* value) = 0;
    virtual Acad::ErrorStatus writeBool(bool value) = 0;
    virtual Acad::ErrorStatus readDouble(double* value) = 0;
    virtual Acad::ErrorStatus writeDouble(double value) = 0;
    virtual Acad::ErrorStatus readPoint2d(AcGePoint2d* point) = 0;
    virtual Acad::ErrorStatus writePoint2d(const AcGePoint2d& point) = 0;
    virtual Acad::ErrorStatus readPoint3d(AcGePoint3d* point) = 0;
    virtual Acad::ErrorStatus writePoint3d(const AcGePoint3d& point) = 0;
    virtual Acad::ErrorStatus readVector2d(AcGeVector2d* vector) = 0;
    virtual Acad::ErrorStatus writeVector2d(const AcGeVector2d& vector) = 0;
    virtual Acad::ErrorStatus readVector3d(AcGeVector3d* vector) = 0;
    virtual Acad::ErrorStatus writeVector3d(const AcGeVector3d& vector) = 0;
    virtual Acad::ErrorStatus readScale3d(AcGeScale3d* scale) = 0;
    virtual Acad::ErrorStatus writeScale3d(const AcGeScale3d& scale) = 0;
    virtual Acad::ErrorStatus readBytes(void* bytes, Adesk::UIntPtr count) = 0;
    virtual Acad::ErrorStatus writeBytes(const void* bytes, Adesk::UIntPtr count) = 0;

    virtual Acad::ErrorStatus seek(Adesk::Int64 offset, int method) = 0;
    virtual Adesk::Int64 tell() const = 0;
};
