// The groups of an object from which its values are taken when it is written.
#pragma once
#include "DwgOutput.h"

namespace KxPlat {

// The groups of one list, or those that no field claims, each to be taken once.
class GroupBucket {
public:
    GroupBucket(const ListField* list, int section) : list(list), section(section) {}
    void Fill(const AcDbObject& object);
    // Leaves out entries whose objects the file will not hold.
    void Thin(const DwgOutput& output);

    // The next group of this code within the row, taken; null when there is none left.
    const GroupValue* Take(int code);
    size_t CountOf(int code) const;   // of those not taken
    // Narrows the view to the row that begins with the next group of `code`; the view before comes back.
    struct View {
        size_t begin, end;
    };
    View EnterRow(int code);
    void Leave(View before) { m_view = before; }
    const GroupList& groups() const { return *m_groups; }

    const ListField* list;
    int section;   // of other groups

private:
    bool Fits(size_t i, int code) const
    {
        return !m_isTaken[i] && (*m_groups)[i].code == code && (list != nullptr || (*m_groups)[i].section == section);
    }
    GroupList m_own;
    const GroupList* m_groups = nullptr;
    std::vector<bool> m_isTaken;
    View m_view = {0, 0};
    size_t m_next = 0;
};

}   // namespace KxPlat
