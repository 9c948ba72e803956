// Values of LISP and of the host's C interface: selection sets, chains of result buffers, lists of DXF groups.
#pragma once
#include "../../db/core/GroupValue.h"
#include "../../rx/adsdef.h"
#include "Families.h"

namespace KxPlat::Lisp {

// Holds a selection set for as long as LISP knows it.
class PickSetCell : public HostCell {
public:
    // With `takesOver` the hold of whoever made the set becomes this cell's.
    PickSetCell(const ads_name name, bool takesOver);
    ~PickSetCell() override;
    const wchar_t* TypeName() const override { return L"PICKSET"; }
    std::wstring Printed() const override;
    bool IsSame(const HostCell& other) const override;
    const ads_name& name() const { return m_name; }

private:
    ads_name m_name;
};

Value PickSetValue(const ads_name name, bool takesOver);
// Fails in the host's words when the value is none.
const ads_name& PickSetOf(const Value& value);
void EntityNameOf(const Value& value, ads_name name);
Value EntityNameValue(const ads_name name);

// A value as the host hands it over: one buffer for an atom or a point, a list in RTLB and RTLE. The caller frees it.
// Null for a list that is nested too deep or dotted in the wrong place.
resbuf* ChainOfValue(const Value& value);
// The arguments of a function, one after another, without parentheses around them.
resbuf* ChainOfArguments(const Value* first, size_t count);
// One value, or a list of all where the chain holds several. False for unbalanced parentheses.
bool ValueOfChain(Interpreter& lisp, const resbuf* chain, Value& value);

// Each of the chain's values by itself.
bool ValuesOfChain(Interpreter& lisp, const resbuf* chain, std::vector<Value>& values);

// Association lists: ((0 . "LINE") (10 1.0 2.0 0.0) (-3 ("APP" (1000 . "x")))).
Value ValueOfGroups(const GroupList& groups);
Value ValueOfGroupChain(const resbuf* chain);
// The caller frees the chain. Fails for a member that is no group.
resbuf* GroupChainOf(const Value& list);

}   // namespace KxPlat::Lisp
