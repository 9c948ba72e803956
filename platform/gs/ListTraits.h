// The traits of the moment while a display list is made.
#pragma once
#include "../gi/AcGiSubEntityTraits.h"
#include "DisplayList.h"

namespace KxPlat {

class ListTraits : public AcGiSubEntityTraits {
public:
    void setColor(Adesk::UInt16 color) override
    {
        m_color = color;
        look.color = color == 0     ? kColorByBlock
                     : color == 256 ? kColorByLayer
                     : color > 256  ? kColorBackground
                                    : kColorIndexed | color;
    }
    void setRGB(Adesk::UInt32 rgb) override { look.color = rgb & 0xFFFFFF; }
    void setLayer(AcDbObjectId layer) override { look.layer = layer; }
    void setLineType(AcDbObjectId linetype) override { look.linetype = linetype; }
    void setSelectionMarker(Adesk::GsMarker) override {}
    void setFillType(AcGiFillType fill) override { m_fill = fill; }
    void setLineWeight(AcDb::LineWeight weight) override { look.lineWeight = int16_t(weight); }
    void setLineTypeScale(double scale) override { look.linetypeScale = float(scale); }
    void setThickness(double thickness) override { m_thickness = thickness; }

    Adesk::UInt16 color() const override { return m_color; }
    bool hasRGB() const override { return look.color < kColorByLayer; }
    Adesk::UInt32 rgb() const override { return hasRGB() ? look.color : 0; }
    AcDbObjectId layerId() const override { return look.layer; }
    AcDbObjectId lineTypeId() const override { return look.linetype; }
    AcGiFillType fillType() const override { return m_fill; }
    AcDb::LineWeight lineWeight() const override { return AcDb::LineWeight(look.lineWeight); }
    double lineTypeScale() const override { return look.linetypeScale; }
    double thickness() const override { return m_thickness; }

    // What an entity starts with.
    void Reset()
    {
        look = Look();
        m_color = 256;
        m_fill = kAcGiFillNever;
        m_thickness = 0;
    }

    struct State {
        Look look;
        Adesk::UInt16 color;
        AcGiFillType fill;
        double thickness;
    };
    State Save() const { return {look, m_color, m_fill, m_thickness}; }
    void Restore(const State& state)
    {
        look = state.look;
        m_color = state.color;
        m_fill = state.fill;
        m_thickness = state.thickness;
    }

    Look look;

private:
    Adesk::UInt16 m_color = 256;
    AcGiFillType m_fill = kAcGiFillNever;
    double m_thickness = 0;
};

}   // namespace KxPlat
