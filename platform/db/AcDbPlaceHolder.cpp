#include "AcDbPlaceHolder.h"
#include "core/Fields.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbPlaceHolder, AcDbObject, 0, 0, 0, ACDBPLACEHOLDER, AcDb)

const KxPlat::ClassSchema& AcDbPlaceHolder::fieldSchema()
{
    // No marker of its own stands in files.
    static const KxPlat::ClassSchema schema(&AcDbObject::fieldSchema(), "ACDBPLACEHOLDER", nullptr, {});
    return schema;
}
