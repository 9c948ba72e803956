#include "AcDbDimStyleTableRecord.h"
#include "AcDbDatabase.h"
#include "core/Fields.h"
#include "core/ObjectAccess.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbDimStyleTableRecord, AcDbSymbolTableRecord, 0, 0, 0, DIMSTYLE, AcDb)
ACRX_CONS_DEFINE_MEMBERS(AcDbDimStyleTable, AcDbSymbolTable, 1)

const ClassSchema& AcDbDimStyleTableRecord::fieldSchema()
{
    static const ClassSchema schema(&AcDbSymbolTableRecord::fieldSchema(), "DIMSTYLE", "AcDbDimStyleTableRecord",
                                    {
                                        Text(2, &AcDbDimStyleTableRecord::m_name).always(),
                                        Int16(70, &AcDbDimStyleTableRecord::m_flags).always(),
                                    });
    return schema;
}

const ClassSchema& AcDbDimStyleTable::fieldSchema()
{
    static const ClassSchema schema(&AcDbSymbolTable::fieldSchema(), "TABLE", nullptr, {});
    return schema;
}

double AcDbDimStyleTableRecord::real(int code, double byDefault) const
{
    if (const Annex* annex = ObjectAccess::Find(*this))
        for (const GroupValue& group : annex->others)
            if (group.code == code)
                return group.real();
    return byDefault;
}

Acad::ErrorStatus AcDbDimStyleTableRecord::setReal(int code, double value)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    GroupList& groups = ObjectAccess::Make(*this).others;
    for (GroupValue& group : groups)
        if (group.code == code) {
            group.value = value;
            return Acad::eOk;
        }
    // The groups of a style are one run behind its flags.
    const bool isFirst = groups.empty();
    groups.push_back({int16_t(code), uint8_t(fields().SectionOf("AcDbDimStyleTableRecord")), isFirst, value});
    return Acad::eOk;
}

bool AcDbDimStyleTableRecord::isErasable() const
{
    return database() == nullptr || database()->dimstyle() != objectId();
}
