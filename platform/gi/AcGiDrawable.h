// Whatever can show itself in a view.
#pragma once
#include "../db/AcDbObjectId.h"
#include "../rx/AcRxObject.h"

class AcGiDrawableTraits;
class AcGiViewportDraw;
class AcGiWorldDraw;

class AcGiDrawable : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcGiDrawable);

    enum SetAttributesFlags {
        kDrawableNone = 0,
        kDrawableIsAnEntity = 1,
        kDrawableUsesNesting = 2,
        kDrawableIsCompoundObject = 4,
        kDrawableViewIndependentViewportDraw = 8,
        kDrawableIsInvisible = 16,
        kDrawableHasAttributes = 32,
        kDrawableRegenDraw = 64
    };

    // Settles colour, layer and the like before the drawing; answers flags.
    Adesk::UInt32 setAttributes(AcGiDrawableTraits* traits) { return subSetAttributes(traits); }
    // True when all was drawn; false asks for viewportDraw() in each view.
    Adesk::Boolean worldDraw(AcGiWorldDraw* worldDraw) { return subWorldDraw(worldDraw); }
    void viewportDraw(AcGiViewportDraw* viewportDraw) { subViewportDraw(viewportDraw); }

    virtual Adesk::Boolean isPersistent() const = 0;
    virtual AcDbObjectId id() const = 0;

protected:
    virtual Adesk::UInt32 subSetAttributes(AcGiDrawableTraits* traits) { return kDrawableNone; }
    virtual Adesk::Boolean subWorldDraw(AcGiWorldDraw* worldDraw) { return Adesk::kTrue; }
    virtual void subViewportDraw(AcGiViewportDraw* viewportDraw) {}
};
