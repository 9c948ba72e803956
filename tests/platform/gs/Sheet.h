// A drawing to put entities on, and the picture of it.
#pragma once
#include "db/AcDbBlockReference.h"
#include "db/AcDbBlockTableRecord.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbLayerTableRecord.h"
#include "db/AcDbLine.h"
#include "db/core/DbCore.h"
#include "gs/Image.h"
#include "gs/SceneWalk.h"
#include <gtest/gtest.h>

// 100 by 100 units of the model from the origin, one pixel each, on white; y counts upwards as in the drawing.
class Sheet : public ::testing::Test {
protected:
    void SetUp() override { m_openBefore = KxPlat::OpenObjectCount(); }
    void TearDown() override { EXPECT_EQ(KxPlat::OpenObjectCount(), m_openBefore); }

    AcDbObjectId Named(KxPlat::TableKind kind, const wchar_t* name)
    {
        AcDbObjectId id;
        EXPECT_EQ(KxPlat::CoreOf(db).Table(kind)->getAt(name, id), Acad::eOk);
        return id;
    }
    AcDbObjectId Model() { return Named(KxPlat::TableKind::Block, ACDB_MODEL_SPACE); }

    AcDbObjectId AddLayer(const wchar_t* name, Adesk::UInt16 color)
    {
        AcDbLayerTable* table = nullptr;
        db.getSymbolTable(table, AcDb::kForWrite);
        auto* layer = new AcDbLayerTableRecord;
        layer->setName(name);
        AcCmColor index;
        index.setColorIndex(color);
        layer->setColor(index);
        EXPECT_EQ(table->add(layer), Acad::eOk);
        const AcDbObjectId id = layer->objectId();
        layer->close();
        table->close();
        return id;
    }
    AcDbObjectId AddBlock(const wchar_t* name)
    {
        AcDbBlockTable* table = nullptr;
        db.getSymbolTable(table, AcDb::kForWrite);
        auto* block = new AcDbBlockTableRecord;
        block->setName(name);
        EXPECT_EQ(table->add(block), Acad::eOk);
        const AcDbObjectId id = block->objectId();
        block->close();
        table->close();
        return id;
    }
    // Takes the entity over.
    AcDbObjectId Add(AcDbEntity* entity, AcDbObjectId block = AcDbObjectId())
    {
        AcDbBlockTableRecord* space = nullptr;
        EXPECT_EQ(acdbOpenObject(space, block.isNull() ? Model() : block, AcDb::kForWrite), Acad::eOk);
        AcDbObjectId id;
        EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
        entity->close();
        space->close();
        return id;
    }
    // Through the middles of the pixels that are named.
    AcDbLine* Line(double x1, double y1, double x2, double y2, AcDbObjectId layer = AcDbObjectId(),
                   Adesk::UInt16 color = 256)
    {
        auto* line = new AcDbLine(AcGePoint3d(x1 + 0.5, y1 + 0.5, 0), AcGePoint3d(x2 + 0.5, y2 + 0.5, 0));
        line->setDatabaseDefaults(&db);
        if (!layer.isNull())
            line->setLayer(layer);
        line->setColorIndex(color);
        return line;
    }

    KxPlat::Image Drawn()
    {
        KxPlat::Scene scene(db);
        return Drawn(scene);
    }
    KxPlat::Image Drawn(KxPlat::Scene& scene)
    {
        KxPlat::Image image(100, 100, options.background);
        KxPlat::ImagePainter painter(image);
        const KxPlat::Camera camera = KxPlat::Camera::Over(0, 0, 100, 100, 0);
        KxPlat::DrawScene(scene, Model(), KxPlat::Projection(camera, 100, 100), options, painter);
        return image;
    }
    static uint32_t At(const KxPlat::Image& image, int x, int y) { return image.At(x, 99 - y); }
    // Pixels that are not background.
    int Inked(const KxPlat::Image& image) const
    {
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += image.At(x, y) != options.background;
        return count;
    }

    AcDbDatabase db;
    KxPlat::DrawOptions options;

private:
    long m_openBefore = 0;
};
