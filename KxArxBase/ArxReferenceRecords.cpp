// Local records in place of those that came with an xref.
#include "ArxReferenceState.h"
#include "KxAcDb.h"
#include "Opened.h"
#include <memory>

namespace KxArxBase {

namespace {

// Behind the bar of "xref|name"; the whole name of a local record.
CString PlainName(const CString& name)
{
    const int bar = name.Find(L'|');
    return bar > 0 ? name.Mid(bar + 1) : name;
}

CString NameOf(const AcDbSymbolTableRecord& record)
{
    const ACHAR* name = nullptr;
    record.getName(name);
    return name;
}

template <class Table>
int DependentRecords(AcDbDatabase* db, AcDbObjectIdArray& ids)
{
    Table* opened = nullptr;
    if (db == nullptr || db->getSymbolTable(opened, AcDb::kForRead) != Acad::eOk)
        return 0;
    const Opened<Table> table(opened, Acad::eOk);
    AcDbSymbolTableIterator* made = nullptr;
    if (static_cast<AcDbSymbolTable&>(*opened).newIterator(made) != Acad::eOk)
        return 0;
    const std::unique_ptr<AcDbSymbolTableIterator> it(made);
    for (; !it->done(); it->step()) {
        AcDbObjectId id;
        it->getRecordId(id);
        const Opened<AcDbSymbolTableRecord> record(id, AcDb::kForRead);
        if (record && NameOf(*record.get()).Find(L'|') > 0)
            ids.append(id);
    }
    return 1;
}

// Adds the record; where the table has one of that name already, the new one is given up and that one is the answer.
template <class Table, class Record>
int AddOrTake(AcDbDatabase* db, std::unique_ptr<Record> record, const CString& name, AcDbObjectId& id)
{
    Table* opened = nullptr;
    if (db->getSymbolTable(opened, AcDb::kForWrite) != Acad::eOk)
        return 0;
    const Opened<Table> table(opened, Acad::eOk);
    Acad::ErrorStatus es = table->has(name) ? Acad::eDuplicateRecordName : record->setName(name);
    if (es == Acad::eOk)
        es = table->add(id, record.get());
    if (es == Acad::eDuplicateRecordName)
        return table->getAt(name, id) == Acad::eOk ? 1 : 0;
    if (es != Acad::eOk)
        return 0;
    record.release()->close();
    return 1;
}

// Everything that a text style says, read from one record and written to another.
void CopyTextStyle(const AcDbTextStyleTableRecord& from, AcDbTextStyleTableRecord& to)
{
    const ACHAR *file = L"", *bigFont = L"";
    from.getFileName(file);
    from.getBigFontFileName(bigFont);
    ACHAR* face = nullptr;
    bool isBold = false, isItalic = false;
    int charset = 0, pitch = 0;
    from.font(face, isBold, isItalic, charset, pitch);
    to.setIsShapeFile(from.isShapeFile());
    to.setFileName(file);
    if (face != nullptr && *face != 0)
        to.setFont(face, isBold, isItalic, charset, pitch);
    to.setBigFontFileName(bigFont);
    acutDelString(face);
    to.setIsVertical(from.isVertical());
    to.setFlagBits(from.flagBits());
    to.setObliquingAngle(from.obliquingAngle());
    to.setPriorSize(from.priorSize());
    to.setTextSize(from.textSize());
    to.setXScale(from.xScale());
}

// A dash's shape is in a text style of its own, which has a local counterpart where its texts have one.
AcDbObjectId ShapeStyle(AcDbObjectId style)
{
    AcDbObjectId local;
    return TheReferenceState().textStyles.Lookup(style, local) ? local : style;
}

void CopyLinetype(const AcDbLinetypeTableRecord& from, AcDbLinetypeTableRecord& to)
{
    ACHAR* comments = from.comments();
    to.setComments(comments);
    acutDelString(comments);
    to.setPatternLength(from.patternLength());
    to.setIsScaledToFit(from.isScaledToFit());
    to.setNumDashes(from.numDashes());
    for (int i = 0; i < from.numDashes(); ++i) {
        to.setDashLengthAt(i, from.dashLengthAt(i));
        ACHAR* text = nullptr;
        from.textAt(i, text);
        const bool isPlain = from.shapeNumberAt(i) == 0 && *text == 0;
        if (!isPlain) {
            to.setShapeStyleAt(i, ShapeStyle(from.shapeStyleAt(i)));
            to.setShapeNumberAt(i, from.shapeNumberAt(i));
            to.setShapeOffsetAt(i, from.shapeOffsetAt(i));
            to.setShapeScaleAt(i, from.shapeScaleAt(i));
            to.setShapeRotationAt(i, from.shapeRotationAt(i));
            to.setShapeIsUcsOrientedAt(i, from.shapeIsUcsOrientedAt(i));
            if (*text != 0)
                to.setTextAt(i, text);
        }
        acutDelString(text);
    }
}

}   // namespace

int KxArxReference::GetXrefTextStyle(AcDbDatabase* db, AcDbObjectIdArray& ids)
{
    return DependentRecords<AcDbTextStyleTable>(db, ids);
}

int KxArxReference::GetXrefLineStyle(AcDbDatabase* db, AcDbObjectIdArray& ids)
{
    return DependentRecords<AcDbLinetypeTable>(db, ids);
}

namespace {

int FillMap(AcDbObjectIdArray& dependents, KxIdMap& map, int (*create)(AcDbDatabase*, AcDbObjectId, AcDbObjectId&))
{
    for (int i = 0; i < dependents.length(); ++i) {
        AcDbObjectId local;
        if (create(WorkingDb(), dependents.at(i), local) == 1)
            map.SetAt(dependents.at(i), local);
    }
    return dependents.isEmpty() ? 0 : 1;
}

}   // namespace

int KxArxReference::CopyXrefTextStyle()
{
    AcDbObjectIdArray dependents;
    GetXrefTextStyle(WorkingDb(), dependents);
    return FillMap(dependents, TheReferenceState().textStyles, &CreateOneTextStyleRecord);
}

int KxArxReference::CopyXrefLineStyle()
{
    AcDbObjectIdArray dependents;
    GetXrefLineStyle(WorkingDb(), dependents);
    return FillMap(dependents, TheReferenceState().linetypes, &CreateOneLineStyleRecord);
}

int KxArxReference::CreateOneTextStyleRecord(AcDbDatabase* db, AcDbObjectId source, AcDbObjectId& created)
{
    created.setNull();
    auto record = std::make_unique<AcDbTextStyleTableRecord>();
    {
        const Opened<AcDbTextStyleTableRecord> from(source, AcDb::kForRead);
        if (db == nullptr || from.status() != Acad::eOk)
            return 0;
        CopyTextStyle(*from.get(), *record);
    }
    return AddOrTake<AcDbTextStyleTable>(db, std::move(record), L"Standard", created);
}

int KxArxReference::CreateOneLineStyleRecord(AcDbDatabase* db, AcDbObjectId source, AcDbObjectId& created)
{
    created.setNull();
    auto record = std::make_unique<AcDbLinetypeTableRecord>();
    CString name;
    {
        const Opened<AcDbLinetypeTableRecord> from(source, AcDb::kForRead);
        if (db == nullptr || from.status() != Acad::eOk)
            return 0;
        CopyLinetype(*from.get(), *record);
        name = NameOf(*from.get());
    }
    return AddOrTake<AcDbLinetypeTable>(db, std::move(record), name, created);
}

int KxArxReference::CopyOneXrefTextSyleToCurTextTable(AcDbObjectId source, AcDbObjectId& local)
{
    KxIdMap& styles = TheReferenceState().textStyles;
    if (source.isNull())
        return 0;
    if (styles.Lookup(source, local))
        return 1;
    {
        const Opened<AcDbTextStyleTableRecord> style(source, AcDb::kForRead);
        if (style.status() != Acad::eOk)
            return 0;
        // A local style needs no copy.
        if (NameOf(*style.get()).Find(L'|') <= 0) {
            local = source;
            return 1;
        }
    }
    if (CreateOneTextStyleRecord(WorkingDb(), source, local) == 0)
        return 0;
    styles.SetAt(source, local);
    return 1;
}

// --- dimension styles ------------------------------------------------------------------------------------------------

namespace {

// The local block of an arrow, made of copies of the xref's entities where there is none.
AcDbObjectId LocalBlock(AcDbObjectId source)
{
    AcDbObjectIdArray entities;
    CString name;
    AcGePoint3d origin;
    {
        const Opened<AcDbBlockTableRecord> from(source, AcDb::kForRead);
        if (from.status() != Acad::eOk)
            return AcDbObjectId();
        name = NameOf(*from.get());
        origin = from->origin();
    }
    if (name.Find(L'|') <= 0)
        return source;
    CKxAcDb tool(WorkingDb(), 0);
    tool.BlockTableGetEntityIds(entities, name);
    AcDbObjectId id;
    const CString plain = PlainName(name);
    if (tool.GetRecWithEntyName(plain, AcDbBlockTable::desc(), id) == Acad::eOk)
        return id;
    if (AddOrTake<AcDbBlockTable>(WorkingDb(), std::make_unique<AcDbBlockTableRecord>(), plain, id) == 0)
        return AcDbObjectId();
    const Opened<AcDbBlockTableRecord> block(id, AcDb::kForWrite);
    if (block.status() != Acad::eOk)
        return AcDbObjectId();
    block->setOrigin(origin);
    for (int i = 0; i < entities.length(); ++i) {
        const Opened<AcDbEntity> entity(entities.at(i), AcDb::kForRead);
        std::unique_ptr<AcDbEntity> copy(entity ? AcDbEntity::cast(entity->clone()) : nullptr);
        if (copy == nullptr)
            continue;
        copy->setLayer(WorkingDb()->layerZero());
        copy->setLinetype(WorkingDb()->byBlockLinetype());
        if (block->appendAcDbEntity(copy.get()) == Acad::eOk)
            copy.release()->close();
    }
    return id;
}

AcDbObjectId LocalLinetypeOf(AcDbObjectId linetype)
{
    AcDbObjectId local;
    return TheReferenceState().linetypes.Lookup(linetype, local) ? local : linetype;
}

AcDbObjectId LocalTextStyleOf(AcDbObjectId style)
{
    AcDbObjectId local;
    return KxArxReference::CopyOneXrefTextSyleToCurTextTable(style, local) == 1 ? local : style;
}

struct StyleIdRow {
    AcDbObjectId (AcDbDimStyleTableRecord::*get)() const;
    Acad::ErrorStatus (AcDbDimStyleTableRecord::*set)(AcDbObjectId);
    AcDbObjectId (*local)(AcDbObjectId);
};

const StyleIdRow g_styleIds[] = {
    {&AcDbDimStyleTableRecord::dimtxsty, &AcDbDimStyleTableRecord::setDimtxsty, LocalTextStyleOf},
    {&AcDbDimStyleTableRecord::dimldrblk, &AcDbDimStyleTableRecord::setDimldrblk, LocalBlock},
    {&AcDbDimStyleTableRecord::dimblk, &AcDbDimStyleTableRecord::setDimblk, LocalBlock},
    {&AcDbDimStyleTableRecord::dimblk1, &AcDbDimStyleTableRecord::setDimblk1, LocalBlock},
    {&AcDbDimStyleTableRecord::dimblk2, &AcDbDimStyleTableRecord::setDimblk2, LocalBlock},
    {&AcDbDimStyleTableRecord::dimltype, &AcDbDimStyleTableRecord::setDimltype, LocalLinetypeOf},
    {&AcDbDimStyleTableRecord::dimltex1, &AcDbDimStyleTableRecord::setDimltex1, LocalLinetypeOf},
    {&AcDbDimStyleTableRecord::dimltex2, &AcDbDimStyleTableRecord::setDimltex2, LocalLinetypeOf},
};

}   // namespace

int KxArxReference::CopyOneXrefDimStyleToCurDimTable(AcDbObjectId source, AcDbObjectId& local)
{
    local.setNull();
    auto record = std::make_unique<AcDbDimStyleTableRecord>();
    CString name;
    {
        const Opened<AcDbDimStyleTableRecord> from(source, AcDb::kForRead);
        if (from.status() != Acad::eOk || WorkingDb() == nullptr)
            return 0;
        name = NameOf(*from.get());
        if (record->copyFrom(from.get()) != Acad::eOk)
            return 0;
    }
    if (CKxAcDb(WorkingDb(), 0).GetRecWithEntyName(PlainName(name), AcDbDimStyleTable::desc(), local) == Acad::eOk)
        return 1;
    for (const StyleIdRow& row : g_styleIds) {
        const AcDbObjectId id = (record.get()->*row.get)();
        if (!id.isNull())
            (record.get()->*row.set)(row.local(id));
    }
    return AddOrTake<AcDbDimStyleTable>(WorkingDb(), std::move(record), PlainName(name), local);
}

}   // namespace KxArxBase
