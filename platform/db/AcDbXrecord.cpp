#include "AcDbXrecord.h"
#include "core/GroupListField.h"
#include "core/GroupResbuf.h"
#include "core/ObjectAccess.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbXrecord, AcDbObject, 0, 0, 0, XRECORD, AcDb)

namespace {

// Everything behind the merge style (280) is data, markers and handles included.
class XrecordData : public GroupListField<AcDbXrecord> {
public:
    explicit XrecordData(GroupList AcDbXrecord::*member) : GroupListField(member, {}) {}
};

}   // namespace

const ClassSchema& AcDbXrecord::fieldSchema()
{
    static const XrecordData data(&AcDbXrecord::m_groups);
    static const ClassSchema schema(&AcDbObject::fieldSchema(), "XRECORD", "AcDbXrecord",
                                    {
                                        Int16(280, &AcDbXrecord::m_mergeStyle).always().since(AcDb::kDHL_1015),
                                        List(&data),
                                    });
    return schema;
}

Acad::ErrorStatus AcDbXrecord::rbChain(resbuf** chain, AcDbDatabase*) const
{
    if (chain == nullptr)
        return Acad::eInvalidInput;
    // Where values from 1000 on begin, a text file cannot tell a record's data from its extended data: it is all data.
    const Annex* annex = ObjectAccess::Find(*this);
    GroupList groups = m_groups;
    if (annex != nullptr)
        groups.insert(groups.end(), annex->xData.begin(), annex->xData.end());
    *chain = ChainOf(groups);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbXrecord::setFromRbChain(const resbuf& chain, AcDbDatabase* auxiliaryDatabase)
{
    GroupList groups;
    const Acad::ErrorStatus read =
        GroupsOf(&chain, auxiliaryDatabase != nullptr ? auxiliaryDatabase : database(), groups);
    if (read != Acad::eOk)
        return read;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    m_groups = std::move(groups);
    if (hasXData())
        ObjectAccess::Make(*this).xData.clear();
    return Acad::eOk;
}

void AcDbXrecord::setMergeStyle(AcDb::DuplicateRecordCloning style)
{
    if (assertWriteEnabled() == Acad::eOk)
        m_mergeStyle = int16_t(style);
}
