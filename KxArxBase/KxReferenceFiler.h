// Collects the ids that an object stores, by their kind: write an open object out to the filer with dwgOut, close it,
// and take the arrays. Ids stand in the order in which the object writes them; an id written twice is there twice,
// null ids are left out. The owner of an object is among its soft pointers, what a table, a block or a polyline
// contains among its owned ids.
#pragma once
#include "KxHost.h"
#include "KxMfcEx/KxExport.h"

namespace KxArxBase {

class KXARX_API CKxReferenceFiler : public AcDbDwgFiler {
public:
    ACRX_DECLARE_MEMBERS(CKxReferenceFiler);

    CKxReferenceFiler();
    CKxReferenceFiler(const CKxReferenceFiler& other) = default;
    CKxReferenceFiler& operator=(const CKxReferenceFiler& other) = default;

    void GetHardPointerIds(AcDbObjectIdArray& ids) const { ids = m_hardPointers; }
    void GetSoftPointerIds(AcDbObjectIdArray& ids) const { ids = m_softPointers; }
    void GetHardOwnershipIds(AcDbObjectIdArray& ids) const { ids = m_hardOwnerships; }
    void GetSoftOwnershipIds(AcDbObjectIdArray& ids) const { ids = m_softOwnerships; }
    // Empties the four arrays for the next object.
    void Reset();

    Acad::ErrorStatus filerStatus() const override { return Acad::eOk; }
    AcDb::FilerType filerType() const override { return AcDb::kIdFiler; }
    void setFilerStatus(Acad::ErrorStatus) override {}
    void resetFilerStatus() override {}
    Acad::ErrorStatus writeHardOwnershipId(const AcDbHardOwnershipId& id) override;
    Acad::ErrorStatus writeSoftOwnershipId(const AcDbSoftOwnershipId& id) override;
    Acad::ErrorStatus writeHardPointerId(const AcDbHardPointerId& id) override;
    Acad::ErrorStatus writeSoftPointerId(const AcDbSoftPointerId& id) override;

    // Values are of no interest here, and nothing is read.
    Acad::ErrorStatus readHardOwnershipId(AcDbHardOwnershipId*) override { return Acad::eOk; }
    Acad::ErrorStatus readSoftOwnershipId(AcDbSoftOwnershipId*) override { return Acad::eOk; }
    Acad::ErrorStatus readHardPointerId(AcDbHardPointerId*) override { return Acad::eOk; }
    Acad::ErrorStatus readSoftPointerId(AcDbSoftPointerId*) override { return Acad::eOk; }
    Acad::ErrorStatus readString(ACHAR**) override { return Acad::eOk; }
    Acad::ErrorStatus writeString(const ACHAR*) override { return Acad::eOk; }
    Acad::ErrorStatus readBChunk(ads_binary*) override { return Acad::eOk; }
    Acad::ErrorStatus writeBChunk(const ads_binary&) override { return Acad::eOk; }
    Acad::ErrorStatus readAcDbHandle(AcDbHandle*) override { return Acad::eOk; }
    Acad::ErrorStatus writeAcDbHandle(const AcDbHandle&) override { return Acad::eOk; }
    Acad::ErrorStatus readInt8(Adesk::Int8*) override { return Acad::eOk; }
    Acad::ErrorStatus writeInt8(Adesk::Int8) override { return Acad::eOk; }
    Acad::ErrorStatus readInt64(Adesk::Int64*) override { return Acad::eOk; }
    Acad::ErrorStatus writeInt64(Adesk::Int64) override { return Acad::eOk; }
    Acad::ErrorStatus readInt32(Adesk::Int32*) override { return Acad::eOk; }
    Acad::ErrorStatus writeInt32(Adesk::Int32) override { return Acad::eOk; }
    Acad::ErrorStatus readInt16(Adesk::Int16*) override { return Acad::eOk; }
    Acad::ErrorStatus writeInt16(Adesk::Int16) override { return Acad::eOk; }
    Acad::ErrorStatus readUInt64(Adesk::UInt64*) override { return Acad::eOk; }
    Acad::ErrorStatus writeUInt64(Adesk::UInt64) override { return Acad::eOk; }
    Acad::ErrorStatus readUInt32(Adesk::UInt32*) override { return Acad::eOk; }
    Acad::ErrorStatus writeUInt32(Adesk::UInt32) override { return Acad::eOk; }
    Acad::ErrorStatus readUInt16(Adesk::UInt16*) override { return Acad::eOk; }
    Acad::ErrorStatus writeUInt16(Adesk::UInt16) override { return Acad::eOk; }
    Acad::ErrorStatus readUInt8(Adesk::UInt8*) override { return Acad::eOk; }
    Acad::ErrorStatus writeUInt8(Adesk::UInt8) override { return Acad::eOk; }
    Acad::ErrorStatus readBoolean(Adesk::Boolean*) override { return Acad::eOk; }
    Acad::ErrorStatus writeBoolean(Adesk::Boolean) override { return Acad::eOk; }
    Acad::ErrorStatus readBool(bool*) override { return Acad::eOk; }
    Acad::ErrorStatus writeBool(bool) override { return Acad::eOk; }
    Acad::ErrorStatus readDouble(double*) override { return Acad::eOk; }
    Acad::ErrorStatus writeDouble(double) override { return Acad::eOk; }
    Acad::ErrorStatus readPoint2d(AcGePoint2d*) override { return Acad::eOk; }
    Acad::ErrorStatus writePoint2d(const AcGePoint2d&) override { return Acad::eOk; }
    Acad::ErrorStatus readPoint3d(AcGePoint3d*) override { return Acad::eOk; }
    Acad::ErrorStatus writePoint3d(const AcGePoint3d&) override { return Acad::eOk; }
    Acad::ErrorStatus readVector2d(AcGeVector2d*) override { return Acad::eOk; }
    Acad::ErrorStatus writeVector2d(const AcGeVector2d&) override { return Acad::eOk; }
    Acad::ErrorStatus readVector3d(AcGeVector3d*) override { return Acad::eOk; }
    Acad::ErrorStatus writeVector3d(const AcGeVector3d&) override { return Acad::eOk; }
    Acad::ErrorStatus readScale3d(AcGeScale3d*) override { return Acad::eOk; }
    Acad::ErrorStatus writeScale3d(const AcGeScale3d&) override { return Acad::eOk; }
    Acad::ErrorStatus readBytes(void*, Adesk::UIntPtr) override { return Acad::eOk; }
    Acad::ErrorStatus writeBytes(const void*, Adesk::UIntPtr) override { return Acad::eOk; }
    Acad::ErrorStatus seek(Adesk::Int64, int) override { return Acad::eOk; }
    Adesk::Int64 tell() const override { return 0; }

private:
    AcDbObjectIdArray m_hardPointers, m_softPointers, m_hardOwnerships, m_softOwnerships;
};

}   // namespace KxArxBase
