// Takes down what entities draw. The one world-draw context of the platform's own graphics.
#pragma once
#include "../gi/AcGiDrawable.h"
#include "../gi/AcGiWorldDraw.h"
#include "../gi/DrawNotes.h"
#include "DisplayList.h"
#include <memory>

namespace KxPlat {

class ListGeometry;
class ListTraits;
class Scene;

class ListBuilder : public AcGiWorldDraw, public DrawNotes {
public:
    // `scene` knows the boxes of blocks.
    ListBuilder(DisplayList& list, Scene& scene);
    ~ListBuilder() override;

    // Draws an entity that is open for read, or something of no drawing.
    void Add(AcGiDrawable& drawable);
    void Finish();   // closes the box of the last entity

    void Note(DrawNote note) override { m_list.Note(note); }
    AcGiRegenType regenType() const override { return kAcGiStandardDisplay; }
    Adesk::Boolean regenAbort() const override { return Adesk::kFalse; }
    AcGiSubEntityTraits& subEntityTraits() const override;
    AcGiGeometry* rawGeometry() const override;
    Adesk::Boolean isDragging() const override { return Adesk::kFalse; }
    double deviation(AcGiDeviationType type, const AcGePoint3d& around) const override { return 0; }
    Adesk::UInt32 numberOfIsolines() const override { return 4; }
    AcGiContext* context() override;
    AcGiWorldGeometry& geometry() const override;

private:
    class Context;

    DisplayList& m_list;
    bool m_isOpen = false;   // the last entity's box still grows
    std::unique_ptr<ListTraits> m_traits;
    std::unique_ptr<ListGeometry> m_geometry;
    std::unique_ptr<Context> m_context;
};

}   // namespace KxPlat
