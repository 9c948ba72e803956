// What files of the oldest version (AC1009) hold in place of entities that they do not know.
#pragma once
#include "../db/core/Fields.h"
#include <string_view>

class AcDbEntity;

namespace KxPlat {

// A sink that also begins records.
class RecordSink : public GroupSink {
public:
    // `handle`: of an object that is in no drawing; 0: it is written without one.
    virtual void Record(std::string_view type, const AcDbObject& object, uint64_t handle = 0) = 0;
};

// False for an entity that is written as it is. Curves become polylines, paragraphs lines of text; what has no old form
// is left out.
bool WriteOldForm(const AcDbEntity& entity, RecordSink& sink);

// A table of which only the bits of a DWG file are known becomes an insert of the block that shows it. False for all
// else.
bool WriteTableAsInsert(const AcDbEntity& entity, RecordSink& sink);

}   // namespace KxPlat
