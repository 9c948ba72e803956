#include "ListBuilder.h"
#include "../rx/AcRxClass.h"
#include "ListGeometry.h"
#include "ListTraits.h"
#include "Scene.h"

namespace KxPlat {

class ListBuilder::Context : public AcGiContext {
public:
    explicit Context(AcDbDatabase* database) : m_database(database) {}
    AcDbDatabase* database() const override { return m_database; }

private:
    AcDbDatabase* m_database;
};

ListBuilder::ListBuilder(DisplayList& list, Scene& scene)
    : m_list(list),
      m_traits(std::make_unique<ListTraits>()),
      m_geometry(std::make_unique<ListGeometry>(list, *this, *m_traits, scene)),
      m_context(std::make_unique<Context>(&scene.database()))
{
}

ListBuilder::~ListBuilder() = default;

void ListBuilder::Add(AcGiDrawable& drawable)
{
    Finish();
    m_isOpen = true;
    m_list.entities.push_back({drawable.id(), uint32_t(m_list.items.size()), 0, {}, {}});
    m_traits->Reset();
    if ((drawable.setAttributes(m_traits.get()) & AcGiDrawable::kDrawableIsInvisible) == 0)
        drawable.worldDraw(this);
}

void ListBuilder::Finish()
{
    if (!m_isOpen)
        return;
    m_isOpen = false;
    EntitySpan& span = m_list.entities.back();
    span.itemCount = uint32_t(m_list.items.size()) - span.firstItem;
    m_geometry->TakeBox(span);
    m_geometry->ForgetBox();
}

AcGiSubEntityTraits& ListBuilder::subEntityTraits() const
{
    return *m_traits;
}

AcGiGeometry* ListBuilder::rawGeometry() const
{
    return m_geometry.get();
}

AcGiWorldGeometry& ListBuilder::geometry() const
{
    return *m_geometry;
}

AcGiContext* ListBuilder::context()
{
    return m_context.get();
}

}   // namespace KxPlat
