#include "DbPurge.h"
#include "KxAcDb.h"
#include "Opened.h"
#include <memory>

namespace KxArxBase::Db {

namespace {

// Dictionaries whose entries are styles that objects choose; all others hold data.
const wchar_t* const g_styleDictionaries[] = {L"ACAD_MLINESTYLE", L"ACAD_PLOTSTYLENAME", L"ACAD_MATERIAL",
                                              L"ACAD_TABLESTYLE", L"ACAD_MLEADERSTYLE"};

void CollectRecords(CKxAcDb& db, AcRxClass* table, AcDbObjectIdArray& ids)
{
    AcDbSymbolTableIterator* opened = nullptr;
    const Acad::ErrorStatus es = db.NewIterator(table, opened);
    const std::unique_ptr<AcDbSymbolTableIterator> it(opened);
    for (; es == Acad::eOk && !it->done(); it->step()) {
        AcDbObjectId id;
        it->getRecordId(id);
        ids.append(id);
    }
}

void CollectEntries(CKxAcDb& db, const wchar_t* name, AcDbObjectIdArray& ids)
{
    AcDbObject* opened = nullptr;
    const Acad::ErrorStatus es = db.NODOpenObject(name, opened, AcDb::kForRead);
    const Opened<AcDbObject> object(opened, es);
    const AcDbDictionary* dictionary = object ? AcDbDictionary::cast(object.get()) : nullptr;
    if (dictionary == nullptr)
        return;
    const std::unique_ptr<AcDbDictionaryIterator> it(dictionary->newIterator());
    for (; !it->done(); it->next())
        ids.append(it->objectId());
}

}   // namespace

Acad::ErrorStatus PurgeDatabase(AcDbDatabase* db)
{
    AcRxClass* const tables[] = {AcDbBlockTable::desc(),     AcDbLayerTable::desc(),    AcDbLinetypeTable::desc(),
                                 AcDbTextStyleTable::desc(), AcDbDimStyleTable::desc(), AcDbRegAppTable::desc()};
    CKxAcDb toolkit(db, 0);
    for (;;) {
        AcDbObjectIdArray ids;
        for (AcRxClass* table : tables)
            CollectRecords(toolkit, table, ids);
        for (const wchar_t* name : g_styleDictionaries)
            CollectEntries(toolkit, name, ids);
        Acad::ErrorStatus es = db->purge(ids);
        if (es != Acad::eOk || ids.isEmpty())
            return es;
        es = toolkit.EraseObjects(ids, 0);
        if (es != Acad::eOk)
            return es;
    }
}

}   // namespace KxArxBase::Db
