// A table of named records: the nine tables differ in the class of their records only.
// Records keep the order in which they were added; an erased record stays in its place and is passed over.
#pragma once
#include "AcDbSymbolTableRecord.h"
#include "core/NameIndex.h"
#include <vector>

class AcDbSymbolTable;

class AcDbSymbolTableIterator {
public:
    AcDbSymbolTableIterator(const AcDbSymbolTable& table, bool skipErased);
    virtual ~AcDbSymbolTableIterator() = default;

    void start(bool atBeginning = true, bool skipDeleted = true);
    bool done() const { return m_at >= m_count || m_at < 0; }
    void step(bool forward = true, bool skipDeleted = true);
    Acad::ErrorStatus getRecordId(AcDbObjectId& id) const;
    Acad::ErrorStatus getRecord(AcDbSymbolTableRecord*& record, AcDb::OpenMode mode = AcDb::kForRead,
                                bool openErasedRecord = false) const;
    Acad::ErrorStatus seek(AcDbObjectId id);
    Acad::ErrorStatus seek(const AcDbSymbolTableRecord* record);

protected:
    Acad::ErrorStatus open(AcDbObject*& record, AcDb::OpenMode mode, bool erasedToo) const;

private:
    void skip(int direction, bool skipDeleted);

    // Records that join the table while the iterator runs are met at the end; ones that leave were only erased.
    const std::vector<AcDbStub*>& m_records;
    std::ptrdiff_t m_at = 0;
    std::ptrdiff_t m_count = 0;
};

class AcDbSymbolTable : public AcDbObject {
public:
    ACDB_DECLARE_MEMBERS(AcDbSymbolTable);

    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id, bool getErasedRecord = false) const;
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                            bool openErasedRecord = false) const;
    bool has(const ACHAR* name) const;
    bool has(AcDbObjectId id) const;
    Acad::ErrorStatus newIterator(AcDbSymbolTableIterator*& iterator, bool atBeginning = true,
                                  bool skipDeleted = true) const;
    // The table must be open for write. A block named by an asterisk and one letter gets a number behind it. The record
    // stays open for write and belongs to the database from then on.
    Acad::ErrorStatus add(AcDbSymbolTableRecord* record);
    Acad::ErrorStatus add(AcDbObjectId& id, AcDbSymbolTableRecord* record);
    virtual AcRxClass* recordClass() const = 0;

    // In table order, erased ones included.
    const std::vector<AcDbStub*>& records() const { return m_records; }
    // For readers of files: the record has its handle and id already.
    void attach(AcDbStub* record);
    void renamed(const AcDbSymbolTableRecord& record, const CString& oldName);
    AcDbStub* find(std::wstring_view name, bool erasedToo = false) const;

protected:
    int16_t m_writtenCount = 0;   // as the file has it; not trusted

private:
    std::vector<AcDbStub*> m_records;
    KxPlat::NameIndex m_index;
    long m_lastAnonymous = 0;   // number given last to an anonymous block
};

namespace KxPlat {

// The typed half of a table: the same members with the record's own class.
template <class Record>
class TypedIterator : public AcDbSymbolTableIterator {
public:
    using AcDbSymbolTableIterator::AcDbSymbolTableIterator;
    using AcDbSymbolTableIterator::getRecord;
    Acad::ErrorStatus getRecord(Record*& record, AcDb::OpenMode mode = AcDb::kForRead,
                                bool openErasedRecord = false) const
    {
        AcDbObject* opened = nullptr;
        const Acad::ErrorStatus status = open(opened, mode, openErasedRecord);
        record = static_cast<Record*>(opened);
        return status;
    }
};

template <class Record, class Iterator>
class TypedTable : public AcDbSymbolTable {
public:
    using AcDbSymbolTable::add;
    using AcDbSymbolTable::getAt;
    using AcDbSymbolTable::newIterator;
    Acad::ErrorStatus getAt(const ACHAR* name, Record*& record, AcDb::OpenMode mode,
                            bool openErasedRecord = false) const
    {
        AcDbSymbolTableRecord* found = nullptr;
        const Acad::ErrorStatus status = AcDbSymbolTable::getAt(name, found, mode, openErasedRecord);
        record = static_cast<Record*>(found);
        return status;
    }
    Acad::ErrorStatus newIterator(Iterator*& iterator, bool atBeginning = true, bool skipDeleted = true) const
    {
        iterator = new Iterator(*this, skipDeleted);
        iterator->start(atBeginning, skipDeleted);
        return Acad::eOk;
    }
    AcRxClass* recordClass() const override { return Record::desc(); }
};

}   // namespace KxPlat
