// The nine symbol tables of a file.
#pragma once
#include "../db/AcDbSymbolTable.h"
#include "../db/core/DefaultDrawing.h"
#include "DxfInput.h"
#include "DxfNames.h"

namespace KxPlat {

template <class Tags>
class DxfTables {
public:
    explicit DxfTables(DxfInput<Tags>& in) : m_in(in) {}

    // All nine, so that names can be looked up from the start; each gets its handle when the file tells it.
    void MakeAll()
    {
        for (const DxfTableName& row : kDxfTables) {
            AcDbStub*& stub = m_in.core.tables[size_t(row.kind)];
            stub = m_in.core.handles.NewUnnamed();
            stub->object = NewTable(row.kind);
            ObjectAccess::Stub(*stub->object) = stub;
            ObjectAccess::State(*stub->object) &= ~uint32_t(kNewObject);
            m_in.NumberLater(stub);
        }
    }
    // From the first record of the section to its ENDSEC; false at the end of the file.
    bool Read()
    {
        while (!m_in.IsEndOfSection()) {
            if (m_in.IsRecord("TABLE")) {
                if (!ReadTable())
                    return false;
                continue;
            }
            if (!m_in.IsRecord("ENDTAB"))
                m_in.Mend("this record stands in no table:", m_in.tags.Text());
            if (!m_in.Skip())
                return false;
        }
        return true;
    }
    // Joins a record to its table: the one that was read last, or one that the file implies but does not have.
    void Attach(TableKind kind, AcDbSymbolTableRecord* record, bool wasRead = true)
    {
        AcDbSymbolTable* table = m_in.core.Table(kind);
        AcDbStub* own = wasRead ? m_in.Adopt(record, table->objectId()) : m_in.AdoptMade(record, table->objectId());
        m_in.core.ResolvePlaceholder(kind, record);
        if (AcDbObjectId(own) != record->objectId())
            m_in.Moved(own, record->objectId());
        table->attach(record->objectId());
    }

private:
    static const DxfTableName* RowOf(std::string_view name)
    {
        for (const DxfTableName& row : kDxfTables)
            if (name == row.name)
                return &row;
        return nullptr;
    }
    bool ReadTable()
    {
        const DxfTableName* row = nullptr;
        if (!m_in.tags.Next())
            return false;
        if (m_in.tags.code() == 2)
            row = RowOf(m_in.tags.Text());
        if (row == nullptr) {
            m_in.Mend("no table has this name:", m_in.tags.code() == 2 ? m_in.tags.Text() : "");
            return SkipTable();
        }
        m_in.core.form.tableOrder.emplace_back(row->name);
        AcDbStub* stub = m_in.core.tables[size_t(row->kind)];
        const bool isFirst = ObjectAccess::Shape(*stub->object) == 0;
        std::unique_ptr<AcDbObject> second;
        if (!isFirst) {
            m_in.Mend("this table was there before:", row->name);
            second.reset(NewTable(row->kind));
        }
        if (!m_in.Read(isFirst ? *stub->object : *second))
            return false;
        if (isFirst)
            m_in.Number(stub);
        return ReadRecords(*row);
    }
    bool ReadRecords(const DxfTableName& row)
    {
        while (!m_in.IsRecord("ENDTAB") && !m_in.IsEndOfSection() && !m_in.IsRecord("TABLE")) {
            if (!m_in.IsRecord(row.name)) {
                m_in.Mend("this record is of another table:", m_in.tags.Text());
                if (!m_in.Skip())
                    return false;
                continue;
            }
            AcDbSymbolTableRecord* record = NewRecord(row.kind);
            const bool isMore = m_in.Read(*record);
            Attach(row.kind, record);
            if (!isMore)
                return false;
        }
        return !m_in.IsRecord("ENDTAB") || m_in.Skip();
    }
    bool SkipTable()
    {
        while (m_in.Skip())
            if (m_in.IsRecord("ENDTAB"))
                return m_in.Skip();
            else if (m_in.IsEndOfSection() || m_in.IsRecord("TABLE"))
                return true;
        return false;
    }

    DxfInput<Tags>& m_in;
};

}   // namespace KxPlat
