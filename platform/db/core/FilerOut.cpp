#include "FilerOut.h"
#include "../AcDbBlockTableRecord.h"
#include "../AcDbDwgFiler.h"
#include "../AcDbEntity.h"
#include "../AcDbSymbolTable.h"
#include "Fields.h"
#include "ObjectAccess.h"
#include <algorithm>
#include <climits>

namespace KxPlat {

namespace {

void WriteId(AcDbDwgFiler& filer, AcDbObjectId id, Reference kind)
{
    switch (kind) {
    case Reference::HardOwner:
        filer.writeHardOwnershipId(id);
        break;
    case Reference::SoftOwner:
        filer.writeSoftOwnershipId(id);
        break;
    case Reference::HardPointer:
        filer.writeHardPointerId(id);
        break;
    default:
        filer.writeSoftPointerId(id);
    }
}

// Groups of lists, of extended data, and those that no field claims.
class FilerSink : public GroupSink {
public:
    explicit FilerSink(AcDbDwgFiler& filer) : m_filer(filer) {}

    void Real(int, double value) override { m_filer.writeDouble(value); }
    void Integer(int code, int64_t value) override
    {
        switch (KindOfGroup(code)) {
        case GroupKind::Int16:
            m_filer.writeInt16(Adesk::Int16(value));
            break;
        case GroupKind::Int64:
            m_filer.writeInt64(value);
            break;
        case GroupKind::Bool:
            m_filer.writeBool(value != 0);
            break;
        default:
            m_filer.writeInt32(Adesk::Int32(value));
        }
    }
    void Text(int, const CString& value) override { m_filer.writeString(value); }
    void Id(int code, AcDbObjectId value) override { WriteId(m_filer, value, ReferenceOfGroup(code)); }
    void Name(int, AcDbObjectId record, TableKind) override { m_filer.writeHardPointerId(record); }
    // A chunk counts its bytes in 15 bits; longer data is several chunks.
    void Binary(int, const Bytes& value) override
    {
        static char none[1] = {};
        const size_t size = value == nullptr ? 0 : value->size();
        size_t at = 0;
        do {
            ads_binary chunk;
            chunk.clen = short(std::min(size - at, size_t(SHRT_MAX)));
            chunk.buf = size == 0 ? none : const_cast<char*>(value->data()) + at;
            m_filer.writeBChunk(chunk);
            at += size_t(chunk.clen);
        } while (at < size);
    }
    void Marker(int, std::string_view) override {}

private:
    AcDbDwgFiler& m_filer;
};

void WriteField(const AcDbObject& object, const Field& field, AcDbDwgFiler& filer, FilerSink& sink)
{
    if (field.isCount)
        return;
    switch (field.type) {
    case FieldType::Int16:
        filer.writeInt16(field.in<int16_t>(object));
        break;
    case FieldType::Int32:
        filer.writeInt32(field.in<int32_t>(object));
        break;
    case FieldType::Int64:
        filer.writeInt64(field.in<int64_t>(object));
        break;
    case FieldType::Real:
        filer.writeDouble(field.in<double>(object));
        break;
    case FieldType::Point2:
        filer.writePoint2d(field.in<AcGePoint2d>(object));
        break;
    case FieldType::Point3:
        filer.writePoint3d(field.in<AcGePoint3d>(object));
        break;
    case FieldType::Text:
        filer.writeString(field.in<CString>(object));
        break;
    case FieldType::Id:
    case FieldType::Name:
        WriteId(filer, field.in<AcDbObjectId>(object), field.reference);
        break;
    case FieldType::Bytes:
        sink.Binary(field.code, field.in<Bytes>(object));
        break;
    case FieldType::List:
        field.list->Get(object, sink, AcDb::kDHL_1032);
        break;
    }
}

void WriteOwned(AcDbDwgFiler& filer, const std::vector<AcDbStub*>& owned, Reference kind)
{
    for (AcDbStub* stub : owned)
        if (!stub->erased)
            WriteId(filer, stub, kind);
}

// What a file keeps by nesting, not by a handle group: records of a table, entities of a block, parts of an entity.
void WriteContents(const AcDbObject& object, AcDbDwgFiler& filer)
{
    if (const AcDbSymbolTable* table = AcDbSymbolTable::cast(&object))
        WriteOwned(filer, table->records(), Reference::SoftOwner);
    if (const AcDbBlockTableRecord* block = AcDbBlockTableRecord::cast(&object)) {
        filer.writeHardOwnershipId(AcDbObjectId(block->beginStub()));
        WriteOwned(filer, block->entities(), Reference::HardOwner);
        filer.writeHardOwnershipId(AcDbObjectId(block->endStub()));
    }
    const AcDbEntity* entity = AcDbEntity::cast(&object);
    if (entity != nullptr && entity->parts() != nullptr)
        WriteOwned(filer, *entity->parts(), Reference::HardOwner);
}

}   // namespace

void FileOut(const AcDbObject& object, AcDbDwgFiler& filer)
{
    FilerSink sink(filer);
    const Annex* annex = ObjectAccess::Find(object);
    filer.writeSoftPointerId(object.ownerId());
    if (annex != nullptr) {
        for (AcDbObjectId reactor : annex->reactors)
            filer.writeSoftPointerId(reactor);
        filer.writeHardOwnershipId(annex->extensionDictionary);
    }
    for (const Section& section : object.fields().sections())
        for (const Field& field : section.fields)
            WriteField(object, field, filer, sink);
    if (annex != nullptr) {
        for (const GroupValue& group : annex->others)
            sink.Value(group);
        for (const GroupValue& group : annex->xData)
            sink.Value(group);
    }
    WriteContents(object, filer);
}

}   // namespace KxPlat
