// A set of objects in the order in which they were chosen, and the table of all sets that modules and LISP programs
// hold.
#pragma once
#include "../../db/AcDbObject.h"
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace KxPlat {

// Ids are appended without a look at what is there; what was put in twice is found when the set is next read.
class SelectionSet {
public:
    explicit SelectionSet(AcDbDatabase* database) : m_database(database) {}

    void Append(AcDbObjectId id)
    {
        m_isClean = m_isClean && (m_ids.size() == m_start || IsBehindLast(id));
        m_ids.push_back(id);
        if (!m_index.empty())
            m_index.insert(id);
    }
    void Assign(std::vector<AcDbObjectId> ids);   // none of them twice
    bool Remove(AcDbObjectId id);
    bool Has(AcDbObjectId id) const;
    size_t Length() const;
    AcDbObjectId At(size_t index) const;   // null behind the end
    std::vector<AcDbObjectId> Ids() const;
    AcDbDatabase* database() const { return m_database; }

private:
    bool IsBehindLast(AcDbObjectId id) const;
    void Clean() const;

    AcDbDatabase* m_database;
    mutable std::vector<AcDbObjectId> m_ids;
    size_t m_start = 0;                                 // programs that take objects off the front leave a gap there
    mutable bool m_isClean = true;                      // known to hold nothing twice
    mutable std::unordered_set<AcDbObjectId> m_index;   // empty until membership is asked of a large set
};

// Names of sets as the host's interface hands them out: a number, and a mark that no entity name has.
class SelectionSets {
public:
    static SelectionSets& All();

    // The new set is held once.
    SelectionSet& New(AcDbDatabase* database, ads_name name);
    // Null for a name that is none, or no more.
    SelectionSet* Find(const ads_name name) const;
    // A set lives while a module or a LISP value holds it.
    void Hold(const ads_name name);
    bool Release(const ads_name name);
    // The objects of a drawing that is closed are gone: sets of it become empty.
    void Forget(AcDbDatabase* database);
    size_t Count() const { return m_sets.size(); }

private:
    struct Entry {
        SelectionSet set;
        int holders;
    };
    std::unordered_map<Adesk::IntPtr, std::unique_ptr<Entry>> m_sets;
    Adesk::IntPtr m_last = 0;
    // The sets asked for last, even and odd numbers apart: programs copy one set to another member by member.
    mutable std::pair<Adesk::IntPtr, SelectionSet*> m_recent[2] = {};
};

bool IsSelectionSetName(const ads_name name);

}   // namespace KxPlat
