// Which entities a selection takes: a list of groups that they must have, with operators in groups -4 and applications
// behind a group -3.
#pragma once
#include "../../db/AcDbEntity.h"
#include "../../db/core/GroupValue.h"
#include <memory>
#include <string>

namespace KxPlat {

class SelectionFilter {
public:
    // Takes everything.
    SelectionFilter();
    ~SelectionFilter();

    // False for a list that makes no sense: unbalanced or unknown operators, groups of unknown type.
    bool Read(const resbuf* chain);
    bool IsEmpty() const { return m_root == nullptr; }
    bool Takes(const AcDbEntity& entity) const;

private:
    struct Node;
    class Parser;
    class Subject;

    std::unique_ptr<Node> m_root;
};

}   // namespace KxPlat
