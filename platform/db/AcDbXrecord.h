// A list of values under a name: whatever an application wants to keep in a drawing.
#pragma once
#include "AcDbObject.h"
#include "core/GroupValue.h"

class AcDbXrecord : public AcDbObject {
public:
    ACDB_DECLARE_MEMBERS(AcDbXrecord);

    // The caller frees the chain with acutRelRb. Null, with eOk, for a record without values.
    Acad::ErrorStatus rbChain(resbuf** chain, AcDbDatabase* auxiliaryDatabase = nullptr) const;
    Acad::ErrorStatus setFromRbChain(const resbuf& chain, AcDbDatabase* auxiliaryDatabase = nullptr);
    bool isXlateReferences() const { return m_translatesReferences; }
    void setXlateReferences(bool translate) { m_translatesReferences = translate; }
    AcDb::DuplicateRecordCloning mergeStyle() const { return AcDb::DuplicateRecordCloning(m_mergeStyle); }
    void setMergeStyle(AcDb::DuplicateRecordCloning style);

    const KxPlat::GroupList& groups() const { return m_groups; }
    KxPlat::GroupList& groups() { return m_groups; }

private:
    KxPlat::GroupList m_groups;
    int16_t m_mergeStyle = 1;
    bool m_translatesReferences = false;
};
