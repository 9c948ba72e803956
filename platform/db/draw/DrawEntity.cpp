// The looks that an entity starts to draw with.
#include "../../gi/AcGiSubEntityTraits.h"
#include "../../rx/AcRxClass.h"
#include "../AcDbEntity.h"

Adesk::UInt32 AcDbEntity::subSetAttributes(AcGiDrawableTraits* traits)
{
    AcGiSubEntityTraits* entityTraits = AcGiSubEntityTraits::cast(traits);
    if (entityTraits != nullptr) {
        entityTraits->setLayer(layerId());
        const AcCmColor own = color();
        if (own.isByColor())
            entityTraits->setRGB(Adesk::UInt32(own.red()) << 16 | Adesk::UInt32(own.green()) << 8 | own.blue());
        else
            entityTraits->setColor(own.colorIndex());
        entityTraits->setLineType(m_linetype);
        entityTraits->setLineTypeScale(m_linetypeScale);
        entityTraits->setLineWeight(lineWeight());
    }
    return Adesk::UInt32(kDrawableIsAnEntity) | (visibility() == AcDb::kInvisible ? kDrawableIsInvisible : 0);
}
