// Colour, layer, linetype and the like for what is drawn next.
#pragma once
#include "../db/AcDb.h"
#include "../db/AcDbObjectId.h"
#include "../rx/AcRxObject.h"
#include "AcGi.h"

class AcCmEntityColor;

class AcGiDrawableTraits : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcGiDrawableTraits);
};

class AcGiSubEntityTraits : public AcGiDrawableTraits {
public:
    ACRX_DECLARE_MEMBERS(AcGiSubEntityTraits);

    virtual void setColor(const Adesk::UInt16 color) = 0;   // 0 ByBlock, 256 ByLayer
    virtual void setRGB(Adesk::UInt32 rgb) = 0;             // 0xRRGGBB
    virtual void setLayer(const AcDbObjectId layer) = 0;
    virtual void setLineType(const AcDbObjectId linetype) = 0;
    virtual void setSelectionMarker(Adesk::GsMarker marker) = 0;
    virtual void setFillType(const AcGiFillType fill) = 0;
    virtual void setLineWeight(const AcDb::LineWeight weight) = 0;
    virtual void setLineTypeScale(double scale = 1.0) = 0;
    virtual void setThickness(double thickness) = 0;

    virtual Adesk::UInt16 color() const = 0;
    virtual bool hasRGB() const = 0;   // a true colour stands over the index
    virtual Adesk::UInt32 rgb() const = 0;
    virtual AcDbObjectId layerId() const = 0;
    virtual AcDbObjectId lineTypeId() const = 0;
    virtual AcGiFillType fillType() const = 0;
    virtual AcDb::LineWeight lineWeight() const = 0;
    virtual double lineTypeScale() const = 0;
    virtual double thickness() const = 0;
};
