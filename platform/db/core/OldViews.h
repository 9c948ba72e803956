// The views of viewports in files of before AC1015, which stand in their extended data ("MVIEW" of the application
// ACAD).
#pragma once
#include "Fields.h"

class AcDbEntity;

namespace KxPlat {

struct DbCore;

// Gives the viewports of a drawing just read the views that their extended data hold. Counts as no change.
void TakeOldViews(DbCore& core);
// The extended data for a viewport that has none of this kind; nothing for other entities.
void WriteOldView(const AcDbEntity& entity, GroupSink& sink);

}   // namespace KxPlat
