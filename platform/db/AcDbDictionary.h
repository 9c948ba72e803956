// Objects by name. Names are kept as given and found without regard to case. Entries keep the order of the file.
#pragma once
#include "AcDbObject.h"
#include <memory>
#include <vector>

class AcDbDictionary;

class AcDbDictionaryIterator {
public:
    explicit AcDbDictionaryIterator(const AcDbDictionary& dictionary);

    const ACHAR* name() const;
    AcDbObjectId objectId() const;
    Acad::ErrorStatus getObject(AcDbObject*& object, AcDb::OpenMode mode = AcDb::kForRead) const;
    bool done() const { return m_at >= m_entries.size(); }
    bool next();
    bool setPosition(AcDbObjectId id);

private:
    std::vector<std::pair<CString, AcDbObjectId>> m_entries;   // as they were when the iterator was made
    std::size_t m_at = 0;
};

class AcDbDictionary : public AcDbObject {
public:
    ACDB_DECLARE_MEMBERS(AcDbDictionary);

    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObject*& object, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id) const;
    template <class T>
    Acad::ErrorStatus getAt(const ACHAR* name, T*& object, AcDb::OpenMode mode) const
    {
        object = nullptr;
        AcDbObjectId id;
        const Acad::ErrorStatus status = getAt(name, id);
        return status == Acad::eOk ? acdbOpenObject(object, id, mode) : status;
    }
    bool has(const ACHAR* name) const;
    bool has(AcDbObjectId id) const;
    Acad::ErrorStatus nameAt(AcDbObjectId id, ACHAR*& name) const;   // the caller frees it with acutDelString
    Adesk::UInt32 numEntries() const;

    // Gives the name to `object`, which joins the database open for write when it is new; an object of that name is
    // erased.
    Acad::ErrorStatus setAt(const ACHAR* name, AcDbObject* object, AcDbObjectId& id);
    Acad::ErrorStatus remove(const ACHAR* name);
    Acad::ErrorStatus remove(const ACHAR* name, AcDbObjectId& id);
    Acad::ErrorStatus remove(AcDbObjectId id);
    bool setName(const ACHAR* oldName, const ACHAR* newName);
    AcDbDictionaryIterator* newIterator() const { return new AcDbDictionaryIterator(*this); }

    bool isTreatElementsAsHard() const { return m_isHard != 0; }
    void setTreatElementsAsHard(bool hard);
    AcDb::DuplicateRecordCloning mergeStyle() const { return AcDb::DuplicateRecordCloning(m_mergeStyle); }
    void setMergeStyle(AcDb::DuplicateRecordCloning style);

    struct Entry {
        CString name;
        AcDbObjectId id;
        int16_t code = 0;   // 350 or 360 where the file says so; 0: as the dictionary treats its elements
    };
    // In file order; entries of erased objects are still there.
    const std::vector<Entry>& entries() const { return m_entries; }
    // Takes out an entry that names nothing.
    void dropEntry(const CString& name)
    {
        std::erase_if(m_entries,
                      [&](const Entry& entry) { return entry.id.objectClass() == nullptr && entry.name == name; });
    }

protected:
    Acad::ErrorStatus subErase(bool erasing) override;

private:
    friend class DictionaryEntries;
    const Entry* find(const ACHAR* name) const;

    std::vector<Entry> m_entries;
    int16_t m_isHard = 0;
    int16_t m_mergeStyle = 1;
};

// A dictionary that answers for names it lacks with one default object.
class AcDbDictionaryWithDefault : public AcDbDictionary {
public:
    ACDB_DECLARE_MEMBERS(AcDbDictionaryWithDefault);

    AcDbObjectId defaultId() const { return m_default; }
    Acad::ErrorStatus setDefaultId(AcDbObjectId id);

private:
    AcDbObjectId m_default;
};
