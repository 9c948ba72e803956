// The value that one insertion of a block has for a tag. It belongs to the insertion.
#pragma once
#include "AcDbAttributeDefinition.h"

class AcDbAttribute : public KxPlat::TaggedText {
public:
    ACDB_DECLARE_MEMBERS(AcDbAttribute);

    AcDbAttribute() = default;
    AcDbAttribute(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag,
                  AcDbObjectId style = AcDbObjectId());

    // Looks and place of the definition, moved to where the block is inserted.
    Acad::ErrorStatus setAttributeFromBlock(const AcDbAttributeDefinition* definition, const AcGeMatrix3d& transform);
    Acad::ErrorStatus setAttributeFromBlock(const AcGeMatrix3d& transform) { return transformBy(transform); }

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) override;
};
