#include "DxfClasses.h"
#include "../db/AcDbObject.h"
#include "../rx/AcRxClass.h"
#include "../win/CodePage.h"

namespace KxPlat {

namespace {

// Group 70 (71 for the last rows) under a mask. The first row that fits decides; a row with mask 0 always fits.
struct FlagRow {
    std::string_view dxfName;
    int mask;
    int value;
    const wchar_t* className;
};

constexpr FlagRow kByFlags[] = {
    {"POLYLINE", 8, 8, L"AcDb3dPolyline"},
    {"POLYLINE", 16, 16, L"AcDbPolygonMesh"},
    {"POLYLINE", 64, 64, L"AcDbPolyFaceMesh"},
    {"POLYLINE", 0, 0, L"AcDb2dPolyline"},
    {"VERTEX", 192, 192, L"AcDbPolyFaceMeshVertex"},
    {"VERTEX", 128, 128, L"AcDbFaceRecord"},
    {"VERTEX", 64, 64, L"AcDbPolygonMeshVertex"},
    {"VERTEX", 32, 32, L"AcDb3dPolylineVertex"},
    {"VERTEX", 0, 0, L"AcDb2dVertex"},
    {"DIMENSION", 7, 0, L"AcDbRotatedDimension"},
    {"DIMENSION", 7, 1, L"AcDbAlignedDimension"},
    {"DIMENSION", 7, 2, L"AcDb2LineAngularDimension"},
    {"DIMENSION", 7, 3, L"AcDbDiametricDimension"},
    {"DIMENSION", 7, 4, L"AcDbRadialDimension"},
    {"DIMENSION", 7, 5, L"AcDb3PointAngularDimension"},
    {"DIMENSION", 7, 6, L"AcDbOrdinateDimension"},
};

AcRxClass* Named(const std::vector<AcRxClass*>& classes, std::wstring_view name)
{
    for (AcRxClass* aClass : classes)
        if (name == aClass->name())
            return aClass;
    return nullptr;
}

}   // namespace

DxfClasses::DxfClasses()
{
    for (AcRxClass* aClass : KnownClasses())
        if (aClass->dxfName() != nullptr && aClass->isDerivedFrom(AcDbObject::desc()))
            m_byName[ToUtf8(aClass->dxfName())].push_back(aClass);
}

const std::vector<AcRxClass*>& DxfClasses::Candidates(std::string_view dxfName) const
{
    static const std::vector<AcRxClass*> none;
    const auto place = m_byName.find(dxfName);
    return place == m_byName.end() ? none : place->second;
}

AcRxClass* DxfClasses::Choose(std::string_view dxfName, const RecordSigns& signs) const
{
    const std::vector<AcRxClass*>& candidates = Candidates(dxfName);
    if (candidates.size() < 2)
        return candidates.empty() ? nullptr : candidates[0];
    AcRxClass* chosen = nullptr;
    for (const std::string& marker : signs.markers)
        if (AcRxClass* named = Named(candidates, FromUtf8(marker)))
            chosen = named;
    if (chosen == nullptr && dxfName == "INSERT" && (signs.flags > 1 || signs.count > 1))
        chosen = Named(candidates, L"AcDbMInsertBlock");
    for (const FlagRow& row : kByFlags)
        if (chosen == nullptr && row.dxfName == dxfName && (signs.flags & row.mask) == row.value)
            chosen = Named(candidates, row.className);
    return chosen != nullptr ? chosen : candidates[0];
}

}   // namespace KxPlat
