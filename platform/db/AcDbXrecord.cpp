#include "AcDbXrecord.h"
#include "core/GroupListField.h"
#include "core/GroupResbuf.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbXrecord, AcDbObject, 0, 0, 0, XRECORD, AcDb)

namespace {

// Everything behind the merge style (280) is data, markers and handles included; in a text file also what looks like
// extended data, since nothing there tells a record's values from 1000 on from its extended data.
class XrecordData : public GroupListField<AcDbXrecord> {
public:
    explicit XrecordData(GroupList AcDbXrecord::*member) : GroupListField(member, {}) {}
    bool Continues(int) const override { return true; }
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
    *chain = ChainOf(m_groups);
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
    return Acad::eOk;
}

void AcDbXrecord::setMergeStyle(AcDb::DuplicateRecordCloning style)
{
    if (assertWriteEnabled() == Acad::eOk)
        m_mergeStyle = int16_t(style);
}
