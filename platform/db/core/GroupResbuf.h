// Groups as the result-buffer chains of the host's programming interface, and back.
#pragma once
#include "../../rx/acadstrc.h"
#include "../../rx/adsdef.h"
#include "GroupValue.h"

class AcDbDatabase;

namespace KxPlat {

// New chains that the caller frees with acutRelRb; null for no groups. Three reals of one point become one buffer.
resbuf* ChainOf(const GroupList& groups);
resbuf* XDataChain(const GroupList& xData, const wchar_t* appName);

// Fills `groups`; handles in the chain are looked up in `database`, which may be null. eBadDxfSequence for a code that
// a drawing cannot hold.
Acad::ErrorStatus GroupsOf(const resbuf* chain, AcDbDatabase* database, GroupList& groups);
// Replaces the data of each application that `chain` names (1001) and keeps that of the others.
Acad::ErrorStatus ReplaceXData(GroupList& xData, const resbuf* chain, AcDbDatabase* database);

}   // namespace KxPlat
