// What everything that is drawn has in common: layer, linetype, colour, lineweight, visibility.
#pragma once
#include "../ge/AcGeMatrix3d.h"
#include "../ge/AcGeVector3d.h"
#include "AcCmColor.h"
#include "AcDbExtents.h"
#include "AcDbObject.h"
#include <vector>

class AcGePlane;

namespace KxPlat {
class CurvePieces;
struct DbCore;
}   // namespace KxPlat

class AcDbEntity : public AcDbObject {
public:
    ACDB_DECLARE_MEMBERS(AcDbEntity);

    AcDbEntity();

    AcDbObjectId blockId() const { return ownerId(); }

    AcCmColor color() const;
    Adesk::UInt16 colorIndex() const;
    virtual Acad::ErrorStatus setColor(const AcCmColor& color, bool doSubents = true);
    virtual Acad::ErrorStatus setColorIndex(Adesk::UInt16 color, bool doSubents = true);

    AcDbObjectId layerId() const { return m_layer; }
    ACHAR* layer() const;   // the caller frees it with acutDelString
    virtual Acad::ErrorStatus setLayer(AcDbObjectId layer, bool doSubents = true, bool allowHiddenLayer = false);
    virtual Acad::ErrorStatus setLayer(const ACHAR* layer, bool doSubents = true, bool allowHiddenLayer = false);

    AcDbObjectId linetypeId() const;
    ACHAR* linetype() const;
    virtual Acad::ErrorStatus setLinetype(AcDbObjectId linetype, bool doSubents = true);
    virtual Acad::ErrorStatus setLinetype(const ACHAR* linetype, bool doSubents = true);
    double linetypeScale() const { return m_linetypeScale; }
    virtual Acad::ErrorStatus setLinetypeScale(double scale, bool doSubents = true);

    AcDb::LineWeight lineWeight() const { return AcDb::LineWeight(m_lineWeight); }
    virtual Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight, bool doSubents = true);
    AcDb::Visibility visibility() const { return m_invisible != 0 ? AcDb::kInvisible : AcDb::kVisible; }
    virtual Acad::ErrorStatus setVisibility(AcDb::Visibility visibility, bool doSubents = true);

    // Layer, colour, linetype and the rest taken from another entity.
    Acad::ErrorStatus setPropertiesFrom(const AcDbEntity* entity, bool doSubents = true);
    // The defaults of the database: current layer, colour, linetype.
    void setDatabaseDefaults();
    void setDatabaseDefaults(AcDbDatabase* database);

    // World extents of what is drawn; eInvalidExtents for an entity without any.
    virtual Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const { return Acad::eInvalidExtents; }
    virtual Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) { return Acad::eNotApplicable; }
    virtual Acad::ErrorStatus getTransformedCopy(const AcGeMatrix3d& transform, AcDbEntity*& copy) const;
    virtual Acad::ErrorStatus explode(AcArray<AcRxObject*>& pieces) const { return Acad::eNotApplicable; }
    // The places where the outlines of both meet are added to `points`, each once. With a plane they meet as seen along
    // its normal, and the points are those of this entity.
    virtual Acad::ErrorStatus intersectWith(const AcDbEntity* other, AcDb::Intersect type, AcArray<AcGePoint3d>& points,
                                            Adesk::GsMarker thisMarker = 0, Adesk::GsMarker otherMarker = 0) const;
    virtual Acad::ErrorStatus intersectWith(const AcDbEntity* other, AcDb::Intersect type, const AcGePlane& plane,
                                            AcArray<AcGePoint3d>& points, Adesk::GsMarker thisMarker = 0,
                                            Adesk::GsMarker otherMarker = 0) const;
    virtual bool isPlanar() const { return false; }
    virtual Acad::ErrorStatus getEcs(AcGeMatrix3d& ecs) const;
    virtual void list() const {}

    // For blocks and files: where the entity lies, as group 67 says it.
    void setInPaperSpace(bool isInPaperSpace) { m_isInPaperSpace = isInPaperSpace; }
    bool isInPaperSpace() const { return m_isInPaperSpace != 0; }
    // Called when the entity has joined a database: what it owns (vertices, attributes) joins too.
    virtual void adoptParts(KxPlat::DbCore& core) {}
    // The entities that it owns, in file order, their end mark included.
    virtual const std::vector<AcDbStub*>* parts() const { return nullptr; }
    virtual void attachPart(AcDbStub* part) {}
    // Adds the lines by which the entity is seen, in world axes; false for an entity that has none of its own.
    virtual bool addOutline(KxPlat::CurvePieces& pieces) const { return false; }

protected:
    Adesk::UInt32 subSetAttributes(AcGiDrawableTraits* traits) override;

private:
    AcDbObjectId m_layer;
    AcDbObjectId m_linetype;   // null: ByLayer
    double m_linetypeScale = 1.0;
    int32_t m_trueColor;         // kNoTrueColor or 0xRRGGBB
    int16_t m_color = 256;       // 0 ByBlock, 256 ByLayer
    int16_t m_lineWeight = -1;   // hundredths of a millimetre
    int16_t m_invisible = 0;
    int16_t m_isInPaperSpace = 0;   // as the file said; the owner decides when written
};

Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErasedEntity = false);
