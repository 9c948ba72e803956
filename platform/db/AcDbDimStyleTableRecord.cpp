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
    return setGroup({int16_t(code), 0, false, value});
}

AcDbObjectId AcDbDimStyleTableRecord::idAt(int code) const
{
    if (const Annex* annex = ObjectAccess::Find(*this))
        for (const GroupValue& group : annex->others)
            if (group.code == code)
                return group.id();
    return AcDbObjectId();
}

Acad::ErrorStatus AcDbDimStyleTableRecord::setIdAt(int code, AcDbObjectId id)
{
    return id.isNull() && idAt(code).isNull() ? Acad::eOk : setGroup({int16_t(code), 0, false, id});
}

Acad::ErrorStatus AcDbDimStyleTableRecord::setGroup(GroupValue group)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    GroupList& groups = ObjectAccess::Make(*this).others;
    for (GroupValue& known : groups)
        if (known.code == group.code) {
            known.value = std::move(group.value);
            return Acad::eOk;
        }
    // The groups of a style are one run behind its flags.
    group.section = uint8_t(fields().SectionOf("AcDbDimStyleTableRecord"));
    group.startsRun = groups.empty();
    groups.push_back(std::move(group));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimStyleTableRecord::copyFrom(const AcRxObject* other)
{
    const AcDbDimStyleTableRecord* from = AcDbDimStyleTableRecord::cast(other);
    if (from == nullptr)
        return Acad::eWrongObjectType;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    const Annex* annex = ObjectAccess::Find(*from);
    GroupList groups = annex == nullptr ? GroupList() : annex->others;
    ObjectAccess::Make(*this).others = std::move(groups);
    return Acad::eOk;
}

bool AcDbDimStyleTableRecord::isErasable() const
{
    return database() == nullptr || database()->dimstyle() != objectId();
}
