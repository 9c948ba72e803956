#include "KxAcXRecord.h"
#include "Opened.h"
#include <memory>

namespace KxArxBase {

namespace {

const wchar_t kRecordKey[] = L"XRecord";
// Never stays in the list when a record is removed.
const long kRemovedIndex = 101;
const Acad::ErrorStatus kNoDictionary = Acad::eRecordNotInTable;        // 128
const Acad::ErrorStatus kNoValues = Acad::eInvalidResBuf;               // 51
const Acad::ErrorStatus kDictionaryFailed = Acad::eCreateInvalidName;   // 337

Acad::ErrorStatus DictionaryOf(AcDbObjectId id, AcDb::OpenMode mode, AcDbObjectId& dictionary)
{
    const Opened<AcDbObject> object(id, mode);
    if (object.status() != Acad::eOk)
        return object.status();
    dictionary = object->extensionDictionary();
    return dictionary.isNull() ? kNoDictionary : Acad::eOk;
}

}   // namespace

Acad::ErrorStatus CKxAcXRecord::AdoptRecord(const AcDbXrecord& record)
{
    resbuf* values = nullptr;
    const Acad::ErrorStatus es = record.rbChain(&values);
    if (es != Acad::eOk)
        return es;
    if (values == nullptr)
        return kNoValues;
    AdoptChain(values);
    return Acad::eOk;
}

Acad::ErrorStatus CKxAcXRecord::GetXData(AcDbObjectId id)
{
    if (!InitXDataList())
        return Acad::eOutOfMemory;
    if (id.isNull())
        return Acad::eNullObjectId;
    AcDbObjectId dictionaryId;
    const Acad::ErrorStatus es = DictionaryOf(id, AcDb::kForRead, dictionaryId);
    if (es != Acad::eOk)
        return es;
    Opened<AcDbDictionary> dictionary(dictionaryId, AcDb::kForRead);
    if (dictionary.status() != Acad::eOk)
        return dictionary.status();
    AcDbObject* found = nullptr;
    const Acad::ErrorStatus at = dictionary->getAt(kRecordKey, found, AcDb::kForRead);
    dictionary.Close();
    const Opened<AcDbObject> object(found, at);
    if (at != Acad::eOk)
        return at;
    const AcDbXrecord* record = AcDbXrecord::cast(object.get());
    return record == nullptr ? Acad::eWrongObjectType : AdoptRecord(*record);
}

Acad::ErrorStatus CKxAcXRecord::SetXData(AcDbObjectId id)
{
    Acad::ErrorStatus es = RegisterAppName(id);
    if (es != Acad::eOk)
        return es;
    if (Chain() == nullptr)
        return Acad::eInvalidInput;
    if (id.isNull())
        return Acad::eNullObjectId;
    Opened<AcDbObject> object(id, AcDb::kForWrite);
    if (object.status() != Acad::eOk)
        return object.status();
    es = object->createExtensionDictionary();
    if (es != Acad::eOk && es != Acad::eAlreadyInDb) {
        object.Release();
        return kDictionaryFailed;
    }
    const AcDbObjectId dictionaryId = object->extensionDictionary();
    object.Close();

    Opened<AcDbDictionary> dictionary(dictionaryId, AcDb::kForWrite);
    if (dictionary.status() != Acad::eOk)
        return dictionary.status();
    auto record = std::make_unique<AcDbXrecord>();
    AcDbObjectId recordId;
    es = dictionary->setAt(kRecordKey, record.get(), recordId);
    if (es != Acad::eOk)
        return es;
    dictionary.Close();
    // The drawing owns it now.
    const Opened<AcDbXrecord> added(record.release(), es);
    return added->setFromRbChain(*Chain());
}

Acad::ErrorStatus CKxAcXRecord::DeleteXData(AcDbObjectId id, const wchar_t* appName)
{
    InitXDataList();
    SetAppName(appName);
    return SetXData(id);
}

Acad::ErrorStatus CKxAcXRecord::RemoveXRecord(AcDbObjectId id)
{
    if (!InitXDataList())
        return Acad::eOutOfMemory;
    if (id.isNull())
        return Acad::eNullObjectId;
    AcDbObjectId dictionaryId;
    Acad::ErrorStatus es = DictionaryOf(id, AcDb::kForWrite, dictionaryId);
    if (es != Acad::eOk)
        return es;
    const Opened<AcDbDictionary> dictionary(dictionaryId, AcDb::kForWrite);
    if (dictionary.status() != Acad::eOk)
        return dictionary.status();
    AcDbObject* found = nullptr;
    es = dictionary->getAt(kRecordKey, found, AcDb::kForWrite);
    if (es != Acad::eOk)
        return es;
    Opened<AcDbObject> object(found, es);
    const AcDbXrecord* record = AcDbXrecord::cast(object.get());
    if (record == nullptr)
        return Acad::eWrongObjectType;
    es = AdoptRecord(*record);
    if (es == Acad::eOk)
        Remove(kRemovedIndex);
    const AcDbObjectId recordId = object->objectId();
    object.Close();
    dictionary->remove(recordId);
    return es;
}

}   // namespace KxArxBase
