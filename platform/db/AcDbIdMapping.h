// Which object became which when objects are cloned.
#pragma once
#include "../rx/acadstrc.h"
#include "AcDb.h"
#include "AcDbObjectId.h"
#include <unordered_map>
#include <vector>

class AcDbIdPair {
public:
    AcDbIdPair() = default;
    AcDbIdPair(AcDbObjectId key, AcDbObjectId value, bool isCloned, bool isPrimary = false, bool isOwnerXlated = true)
        : m_key(key), m_value(value), m_isCloned(isCloned), m_isPrimary(isPrimary), m_isOwnerXlated(isOwnerXlated)
    {
    }
    AcDbObjectId key() const { return m_key; }
    AcDbObjectId value() const { return m_value; }
    bool isCloned() const { return m_isCloned; }
    bool isPrimary() const { return m_isPrimary; }
    bool isOwnerXlated() const { return m_isOwnerXlated; }
    void setKey(AcDbObjectId key) { m_key = key; }
    void setValue(AcDbObjectId value) { m_value = value; }

private:
    AcDbObjectId m_key, m_value;
    bool m_isCloned = false;
    bool m_isPrimary = false;
    bool m_isOwnerXlated = false;
};

class AcDbIdMapping {
public:
    // Adds a pair; false when the key is there already.
    bool assign(const AcDbIdPair& pair);
    // Fills in the pair whose key is `pair.key()`.
    bool compute(AcDbIdPair& pair) const;
    bool del(AcDbObjectId key);
    AcDbObjectId find(AcDbObjectId key) const;

    Acad::ErrorStatus destDb(AcDbDatabase*& database) const;
    void setDestDb(AcDbDatabase* database) { m_destination = database; }
    AcDb::DeepCloneType deepCloneContext() const { return m_context; }
    void setDeepCloneContext(AcDb::DeepCloneType context) { m_context = context; }
    AcDb::DuplicateRecordCloning duplicateRecordCloning() const { return m_cloning; }
    void setDuplicateRecordCloning(AcDb::DuplicateRecordCloning cloning) { m_cloning = cloning; }

    const std::vector<AcDbIdPair>& pairs() const { return m_pairs; }

private:
    std::vector<AcDbIdPair> m_pairs;   // in the order in which they were made
    std::unordered_map<AcDbObjectId, std::size_t> m_index;
    AcDbDatabase* m_destination = nullptr;
    AcDb::DeepCloneType m_context = AcDb::kDcCopy;
    AcDb::DuplicateRecordCloning m_cloning = AcDb::kDrcIgnore;
};

class AcDbIdMappingIter {
public:
    explicit AcDbIdMappingIter(AcDbIdMapping& map) : m_map(map) {}
    void start() { m_at = 0; }
    bool getMap(AcDbIdPair& pair) const
    {
        if (done())
            return false;
        pair = m_map.pairs()[m_at];
        return true;
    }
    bool next() { return ++m_at < m_map.pairs().size(); }
    bool done() const { return m_at >= m_map.pairs().size(); }

private:
    const AcDbIdMapping& m_map;
    std::size_t m_at = 0;
};
