// A block definition: the entities of a block, of the model space or of a layout, in drawing order.
// The records "BLOCK" and "ENDBLK" of a file are objects of their own, which the definition owns.
#pragma once
#include "AcDbEntity.h"
#include "AcDbSymbolTable.h"
#include <vector>

class AcDbSortentsTable;

class AcDbBlockBegin : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbBlockBegin);

private:
    friend class AcDbBlockTableRecord;
    CString m_name;
    CString m_name2;
    CString m_path;
    CString m_comments;
    int16_t m_flags = 0;
    AcGePoint3d m_origin;
};

class AcDbBlockEnd : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbBlockEnd);
};

class AcDbBlockTableRecord;

class AcDbBlockTableRecordIterator {
public:
    AcDbBlockTableRecordIterator(const AcDbBlockTableRecord& block, bool skipErased);

    void start(bool atBeginning = true, bool skipDeleted = true);
    void step(bool forward = true, bool skipDeleted = true);
    bool done() const { return m_at < 0 || m_at >= m_count; }
    Acad::ErrorStatus getEntityId(AcDbObjectId& id) const;
    Acad::ErrorStatus getEntity(AcDbEntity*& entity, AcDb::OpenMode mode, bool openErasedEntity = false) const;
    Acad::ErrorStatus seek(AcDbObjectId id);

private:
    void skip(int direction, bool skipDeleted);

    const std::vector<AcDbStub*>& m_entities;
    std::ptrdiff_t m_at = 0;
    std::ptrdiff_t m_count = 0;
};

class AcDbBlockTableRecord : public AcDbSymbolTableRecord {
public:
    ACDB_DECLARE_MEMBERS(AcDbBlockTableRecord);

    // The entity stays open for write and belongs to the database from then on.
    Acad::ErrorStatus appendAcDbEntity(AcDbEntity* entity);
    Acad::ErrorStatus appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity);
    Acad::ErrorStatus newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning = true,
                                  bool skipDeleted = true) const;

    AcGePoint3d origin() const;
    Acad::ErrorStatus setOrigin(const AcGePoint3d& origin);
    Acad::ErrorStatus pathName(ACHAR*& path) const;
    Acad::ErrorStatus setPathName(const ACHAR* path);
    ACHAR* comments() const;
    Acad::ErrorStatus setComments(const ACHAR* comments);

    bool isAnonymous() const;
    bool isDependent() const override { return (blockFlags() & 16) != 0; }
    void setDependent(bool dependent) override;
    bool isFromExternalReference() const { return (blockFlags() & 4) != 0; }
    bool isFromOverlayReference() const { return (blockFlags() & 8) != 0; }
    // Of a block that stands for another drawing: whether its contents are there.
    AcDb::XrefStatus xrefStatus() const;
    void setXrefStatus(AcDb::XrefStatus status) { m_xrefStatus = status; }
    bool isUnloaded() const { return xrefStatus() == AcDb::kXrfUnloaded; }
    bool hasAttributeDefinitions() const;
    bool isLayout() const { return !m_layout.isNull(); }
    AcDbObjectId getLayoutId() const { return m_layout; }
    Acad::ErrorStatus setLayoutId(AcDbObjectId layout);
    AcDb::UnitsValue blockInsertUnits() const { return AcDb::UnitsValue(m_units); }
    Acad::ErrorStatus setBlockInsertUnits(AcDb::UnitsValue units);
    bool explodable() const { return m_explodable != 0; }

    Acad::ErrorStatus openBlockBegin(AcDbBlockBegin*& begin, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus openBlockEnd(AcDbBlockEnd*& end, AcDb::OpenMode mode = AcDb::kForRead);
    // The live references to this block, and with `directOnly` false also those that reach it through other blocks.
    Acad::ErrorStatus getBlockReferenceIds(AcDbObjectIdArray& ids, bool directOnly = true, bool forceValidity = false);
    // The table of the draw order. To create it the record must be open for write; eKeyNotFound where there is none.
    Acad::ErrorStatus getSortentsTable(AcDbSortentsTable*& table, AcDb::OpenMode mode, bool createIfNecessary);

    // For readers and writers of files.
    std::vector<AcDbStub*>& entities() { return m_entities; }
    const std::vector<AcDbStub*>& entities() const { return m_entities; }
    void attach(AcDbStub* entity) { m_entities.push_back(entity); }
    AcDbStub* beginStub() const { return m_begin; }
    AcDbStub* endStub() const { return m_end; }
    void setBegin(AcDbStub* begin);
    void setEnd(AcDbStub* end) { m_end = end; }
    int16_t blockFlags() const;
    void setBlockFlags(int16_t flags);
    // Makes BLOCK and ENDBLK where a record has none yet.
    void completeBlock();
    bool isModelSpace() const;
    bool isPaperSpace() const;
    // For files that have no table of blocks.
    void takeNameFromBegin();
    // The other way round: BLOCK takes the record's name.
    void nameBegin();

protected:
    bool isErasable() const override;
    Acad::ErrorStatus subErase(bool erasing) override;

private:
    AcDbBlockBegin* beginObject() const;

    std::vector<AcDbStub*> m_entities;
    AcDbStub* m_begin = nullptr;
    AcDbStub* m_end = nullptr;
    AcDbObjectId m_layout;
    AcDb::XrefStatus m_xrefStatus = AcDb::kXrfUnresolved;
    int16_t m_units = 0;
    int16_t m_explodable = 1;
    int16_t m_scaleUniformly = 0;
};

class AcDbBlockTableIterator : public KxPlat::TypedIterator<AcDbBlockTableRecord> {
    using TypedIterator::TypedIterator;
};

class AcDbBlockTable : public KxPlat::TypedTable<AcDbBlockTableRecord, AcDbBlockTableIterator> {
public:
    ACDB_DECLARE_MEMBERS(AcDbBlockTable);
};

#define ACDB_MODEL_SPACE L"*Model_Space"
#define ACDB_PAPER_SPACE L"*Paper_Space"
