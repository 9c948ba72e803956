// The block that shows a dimension: made when the dimension is new or was changed.
#include "../AcDbBlockTableRecord.h"
#include "../AcDbDatabase.h"
#include "../AcDbLayerTableRecord.h"
#include "../core/DbCore.h"
#include "../core/FlatMap.h"
#include "../core/LeftPictures.h"
#include "../core/Members.h"
#include "DimPicture.h"
#include <utility>

using namespace KxPlat;

void AcDbRotatedDimension::MapAngles(const FlatMap& map)
{
    m_angle = map.Degrees(m_angle);
}

void AcDb2LineAngularDimension::MapAngles(const FlatMap& map)
{
    m_arcPoint = map.Point(m_arcPoint);
}

namespace {

// Definition points stand on a layer of their own that is not plotted. Null where it is missing and the table is busy.
AcDbObjectId PointLayer(AcDbDatabase& database)
{
    AcDbObjectId id = CoreOf(database).Table(TableKind::Layer)->find(L"Defpoints");
    AcDbLayerTable* table = nullptr;
    if (!id.isNull() || database.getLayerTable(table, AcDb::kForWrite) != Acad::eOk)
        return id;
    auto* layer = new AcDbLayerTableRecord;
    layer->setName(L"Defpoints");
    if (table->add(id, layer) == Acad::eOk) {
        layer->setLinetypeObjectId(database.continuousLinetype());
        layer->setIsPlottable(false);
        layer->close();
    } else {
        delete layer;
    }
    table->close();
    return id;
}

// A new anonymous block with these entities; null where the database takes none.
AcDbObjectId NewPicture(AcDbDatabase& database, std::vector<std::unique_ptr<AcDbEntity>>& entities)
{
    AcDbBlockTable* table = nullptr;
    if (database.getBlockTable(table, AcDb::kForWrite) != Acad::eOk)
        return AcDbObjectId();
    auto* block = new AcDbBlockTableRecord;
    block->setName(L"*D");
    AcDbObjectId id;
    const Acad::ErrorStatus status = table->add(id, block);
    table->close();
    if (status != Acad::eOk) {
        delete block;
        return AcDbObjectId();
    }
    for (std::unique_ptr<AcDbEntity>& entity : entities) {
        AcDbEntity* added = entity.release();
        if (block->appendAcDbEntity(added) == Acad::eOk)
            added->close();
        else
            delete added;
    }
    block->close();
    return id;
}

}   // namespace

Acad::ErrorStatus AcDbDimension::recomputeDimBlock(bool forceUpdate)
{
    if (database() == nullptr)
        return Acad::eNoDatabase;
    if (!forceUpdate && !m_block.isNull())
        return Acad::eOk;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    if (m_style.isNull())
        m_style = database()->dimstyle();
    DimPicture picture(*this, PointLayer(*database()));
    Picture(picture);
    const AcDbObjectId block = NewPicture(*database(), picture.entities());
    if (block.isNull())
        return Acad::eInvalidInput;
    LeavePicture(std::exchange(m_block, block));
    m_insertion = AcGePoint3d(0, 0, m_insertion.z);
    m_isStale = false;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::MovePicture(const AcGeMatrix3d& transform)
{
    if (database() == nullptr)
        return Acad::eOk;
    AcArray<AcRxObject*> pieces;
    explode(pieces);
    std::vector<std::unique_ptr<AcDbEntity>> entities;
    for (AcRxObject* piece : pieces) {
        entities.emplace_back(static_cast<AcDbEntity*>(piece));
        entities.back()->transformBy(transform);
    }
    const AcDbObjectId block = NewPicture(*database(), entities);
    if (block.isNull())
        return Acad::eInvalidInput;
    LeavePicture(std::exchange(m_block, block));
    m_insertion = AcGePoint3d();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::subClose()
{
    if (m_isStale && database() != nullptr && !isErased())
        recomputeDimBlock(true);
    else if (isErased())
        LeavePicture(m_block);
    return AcDbEntity::subClose();
}

Acad::ErrorStatus AcDbDimension::formatMeasurement(ACHAR*& text, double value, const ACHAR* dimText) const
{
    const DimVars vars(*this, m_style);
    const CString figure = Sign() + DimFigure(vars, value, IsAngle());
    text = NewString(DimText(figure, dimText == nullptr ? m_text : CString(dimText)));
    return Acad::eOk;
}
