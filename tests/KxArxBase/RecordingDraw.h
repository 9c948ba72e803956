// A draw context that remembers what was drawn in it, and with which traits.
#pragma once
#include "KxHost.h"
#include <string>
#include <vector>

class RecordingTraits : public AcGiSubEntityTraits {
public:
    void setColor(const Adesk::UInt16 color) override { m_color = color; }
    void setRGB(Adesk::UInt32) override {}
    void setLayer(const AcDbObjectId layer) override { m_layer = layer; }
    void setLineType(const AcDbObjectId linetype) override { m_linetype = linetype; }
    void setSelectionMarker(Adesk::GsMarker) override {}
    void setFillType(const AcGiFillType fill) override { m_fill = fill; }
    void setLineWeight(const AcDb::LineWeight) override {}
    void setLineTypeScale(double) override {}
    void setThickness(double thickness) override { m_thickness = thickness; }
    Adesk::UInt16 color() const override { return m_color; }
    bool hasRGB() const override { return false; }
    Adesk::UInt32 rgb() const override { return 0; }
    AcDbObjectId layerId() const override { return m_layer; }
    AcDbObjectId lineTypeId() const override { return m_linetype; }
    AcGiFillType fillType() const override { return m_fill; }
    AcDb::LineWeight lineWeight() const override { return AcDb::kLnWtByLayer; }
    double lineTypeScale() const override { return 1; }
    double thickness() const override { return m_thickness; }

private:
    Adesk::UInt16 m_color = 7;
    AcDbObjectId m_layer, m_linetype;
    AcGiFillType m_fill = kAcGiFillNever;
    double m_thickness = 0;
};

struct Drawn {
    std::wstring what;
    int color;
    AcDbObjectId linetype;
};

class RecordingGeometry : public AcGiWorldGeometry {
public:
    explicit RecordingGeometry(RecordingTraits& traits) : m_traits(traits) {}
    mutable std::vector<Drawn> calls;
    AcGiWorldDraw* context = nullptr;

    void getModelToWorldTransform(AcGeMatrix3d&) const override {}
    void getWorldToModelTransform(AcGeMatrix3d&) const override {}
    Adesk::Boolean pushModelTransform(const AcGeVector3d&) override { return Adesk::kFalse; }
    Adesk::Boolean pushModelTransform(const AcGeMatrix3d&) override { return Adesk::kFalse; }
    Adesk::Boolean popModelTransform() override { return Adesk::kFalse; }
    void setExtents(AcGePoint3d*) const override {}
    Adesk::Boolean circle(const AcGePoint3d&, const double, const AcGeVector3d&) const override
    {
        return Note(L"circle");
    }
    Adesk::Boolean circle(const AcGePoint3d&, const AcGePoint3d&, const AcGePoint3d&) const override
    {
        return Note(L"circle");
    }
    Adesk::Boolean circularArc(const AcGePoint3d&, const double, const AcGeVector3d&, const AcGeVector3d&, const double,
                               const AcGiArcType) const override
    {
        return Note(L"arc");
    }
    Adesk::Boolean circularArc(const AcGePoint3d&, const AcGePoint3d&, const AcGePoint3d&,
                               const AcGiArcType) const override
    {
        return Note(L"arc");
    }
    Adesk::Boolean polyline(const Adesk::UInt32, const AcGePoint3d*, const AcGeVector3d*,
                            Adesk::GsMarker) const override
    {
        return Note(L"polyline");
    }
    Adesk::Boolean polygon(const Adesk::UInt32, const AcGePoint3d*) const override { return Note(L"polygon"); }
    Adesk::Boolean mesh(const Adesk::UInt32, const Adesk::UInt32, const AcGePoint3d*, const AcGiEdgeData*,
                        const AcGiFaceData*, const AcGiVertexData*, const bool) const override
    {
        return Note(L"mesh");
    }
    Adesk::Boolean shell(const Adesk::UInt32, const AcGePoint3d*, const Adesk::UInt32, const Adesk::Int32*,
                         const AcGiEdgeData*, const AcGiFaceData*, const AcGiVertexData*, const void*,
                         const bool) const override
    {
        return Note(L"shell");
    }
    Adesk::Boolean text(const AcGePoint3d&, const AcGeVector3d&, const AcGeVector3d&, const double, const double,
                        const double, const ACHAR* message) const override
    {
        return Note(std::wstring(L"text ") + message);
    }
    Adesk::Boolean text(const AcGePoint3d&, const AcGeVector3d&, const AcGeVector3d&, const ACHAR* message,
                        const Adesk::Int32 length, const Adesk::Boolean, const AcGiTextStyle&) const override
    {
        return Note(L"text " + (length < 0 ? std::wstring(message) : std::wstring(message, size_t(length))));
    }
    Adesk::Boolean xline(const AcGePoint3d&, const AcGePoint3d&) const override { return Note(L"xline"); }
    Adesk::Boolean ray(const AcGePoint3d&, const AcGePoint3d&) const override { return Note(L"ray"); }
    Adesk::Boolean pline(const AcDbPolyline&, Adesk::UInt32, Adesk::UInt32) const override { return Note(L"pline"); }
    Adesk::Boolean draw(AcGiDrawable* drawable) const override { return drawable->worldDraw(context); }

private:
    Adesk::Boolean Note(const std::wstring& what) const
    {
        calls.push_back({what, m_traits.color(), m_traits.lineTypeId()});
        return Adesk::kFalse;
    }
    RecordingTraits& m_traits;
};

class RecordingDraw : public AcGiWorldDraw {
public:
    RecordingDraw() : m_geometry(m_traits) { m_geometry.context = this; }
    AcGiRegenType regenType() const override { return kAcGiStandardDisplay; }
    Adesk::Boolean regenAbort() const override { return Adesk::kFalse; }
    AcGiSubEntityTraits& subEntityTraits() const override { return m_traits; }
    AcGiGeometry* rawGeometry() const override { return &m_geometry; }
    Adesk::Boolean isDragging() const override { return Adesk::kFalse; }
    double deviation(const AcGiDeviationType, const AcGePoint3d&) const override { return 0.01; }
    Adesk::UInt32 numberOfIsolines() const override { return 4; }
    AcGiContext* context() override { return nullptr; }
    AcGiWorldGeometry& geometry() const override { return m_geometry; }
    std::vector<Drawn>& calls() const { return m_geometry.calls; }

private:
    mutable RecordingTraits m_traits;
    mutable RecordingGeometry m_geometry;
};
