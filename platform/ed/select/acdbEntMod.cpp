// acdbEntMod: a program's list of groups back into the object that it names.
#include "../../db/AcDbDatabase.h"
#include "../../db/AcDbLayerTableRecord.h"
#include "../../db/core/DbCore.h"
#include "../../db/core/RecordNames.h"
#include "acdbads.h"
#include "DocumentSelection.h"
#include "PutGroups.h"

using namespace KxPlat;

namespace {

// A record's name must stay free of doubles, and the current layer thawed.
bool IsAllowed(const AcDbObject& object, const ObjectGroups& groups)
{
    const auto* record = AcDbSymbolTableRecord::cast(&object);
    if (record == nullptr)
        return true;
    const GroupValue* flags = groups.Find(70);
    if (AcDbLayerTableRecord::cast(&object) != nullptr && flags != nullptr && (flags->integer() & 1) != 0 &&
        object.database()->clayer() == object.objectId())
        return false;
    const GroupValue* name = groups.Find(2);
    if (name == nullptr || record->nameText().CompareNoCase(name->text()) == 0)
        return true;
    const AcDbStub* tableStub = object.ownerId();
    const auto* table = tableStub == nullptr ? nullptr : AcDbSymbolTable::cast(tableStub->object);
    return table != nullptr && !name->text().IsEmpty() && !table->has(name->text()) && record->isRenamable();
}

}   // namespace

int acdbEntMod(const resbuf* chain)
{
    AcDbDatabase* database = CurrentDatabase();
    ObjectGroups groups;
    AcDbObject* object = nullptr;
    if (database == nullptr || !groups.Read(chain, database) || groups.self.database() != database ||
        acdbOpenObject(object, groups.self, AcDb::kForWrite) != Acad::eOk)
        return RTERROR;
    Acad::ErrorStatus status = Acad::eNotApplicable;
    if (IsAllowed(*object, groups)) {
        const CString oldName = RecordNameOf(*object);
        status = PutGroups(*object, *database, groups);
        if (status == Acad::eOk && RecordNameOf(*object) != oldName)
            RecordRenamed(*object, oldName);
    }
    object->close();
    return status == Acad::eOk ? RTNORM : RTERROR;
}
