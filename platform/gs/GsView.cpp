#include "../db/AcDbBlockTableRecord.h"
#include "../db/AcDbDatabase.h"
#include "../db/AcDbEntity.h"
#include "../rx/AcRxClass.h"
#include "DepthPainter.h"
#include "GsObjects.h"
#include "ListBuilder.h"
#include <algorithm>
#include <cmath>

namespace KxPlat {

namespace {

// A view of nothing has still a camera.
constexpr double kSmallestField = 1e-9, kLargestField = 1e16;

bool IsUsable(double field)
{
    return field >= kSmallestField && field <= kLargestField;
}

}   // namespace

GsView::~GsView()
{
    eraseAll();
    if (m_device != nullptr)
        m_device->erase(this);
}

AcGsDevice* GsView::device() const
{
    return m_device;
}

void GsView::SetDevice(GsDevice* device)
{
    m_device = device;
    m_isValid = false;
}

void GsView::setViewport(const AcGePoint2d& lowerLeft, const AcGePoint2d& upperRight)
{
    m_lowerLeft = lowerLeft;
    m_upperRight = upperRight;
    m_isValid = false;
}

void GsView::setViewport(const AcGsDCRect& rect)
{
    const double width = m_device == nullptr ? 1 : m_device->picture().width();
    const double height = m_device == nullptr ? 1 : m_device->picture().height();
    setViewport(AcGePoint2d(double(rect.m_min.x) / width, double(rect.m_min.y) / height),
                AcGePoint2d(double(rect.m_max.x) / width, double(rect.m_max.y) / height));
}

void GsView::getViewport(AcGePoint2d& lowerLeft, AcGePoint2d& upperRight) const
{
    lowerLeft = m_lowerLeft;
    upperRight = m_upperRight;
}

void GsView::getViewport(AcGsDCRect& rect) const
{
    const Place place = PlaceOnDevice();
    const long height = m_device == nullptr ? 1 : m_device->picture().height();
    rect = AcGsDCRect(place.left, place.left + place.width, height - place.top - place.height, height - place.top);
}

GsView::Place GsView::PlaceOnDevice() const
{
    const double width = m_device == nullptr ? 1 : m_device->picture().width();
    const double height = m_device == nullptr ? 1 : m_device->picture().height();
    Place place;
    place.left = int(std::lround(m_lowerLeft.x * width));
    place.top = int(std::lround((1 - m_upperRight.y) * height));
    place.width = std::clamp(int(std::lround((m_upperRight.x - m_lowerLeft.x) * width)), 1, int(width));
    place.height = std::clamp(int(std::lround((m_upperRight.y - m_lowerLeft.y) * height)), 1, int(height));
    return place;
}

void GsView::setView(const AcGePoint3d& position, const AcGePoint3d& target, const AcGeVector3d& upVector,
                     double fieldWidth, double fieldHeight, AcGsView::Projection projection)
{
    const AcGeVector3d toEye = position - target;
    if (toEye.isZeroLength() || upVector.isZeroLength() || !std::isfinite(toEye.length()) || !IsUsable(fieldWidth) ||
        !IsUsable(fieldHeight))
        return;
    m_camera.target = target;
    m_camera.direction = toEye.normal();
    m_camera.up = upVector.normal();
    m_camera.eyeDistance = toEye.length();
    m_camera.fieldWidth = fieldWidth;
    m_camera.fieldHeight = fieldHeight;
    m_camera.isPerspective = projection == kPerspective;
    m_isValid = false;
}

void GsView::dolly(const AcGeVector3d& vector)
{
    AcGeVector3d x, y, z;
    m_camera.Axes(x, y, z);
    const AcGePoint3d target = m_camera.target + x * vector.x + y * vector.y + z * vector.z;
    if (!std::isfinite(target.x) || !std::isfinite(target.y) || !std::isfinite(target.z))
        return;
    m_camera.target = target;
    m_isValid = false;
}

void GsView::roll(double angle)
{
    AcGeVector3d x, y, z;
    m_camera.Axes(x, y, z);
    m_camera.up = y.rotateBy(angle, z);
    m_isValid = false;
}

void GsView::orbit(double xOrbit, double yOrbit)
{
    if (!std::isfinite(xOrbit) || !std::isfinite(yOrbit))
        return;
    m_camera.Orbit(0, -xOrbit);
    m_camera.Orbit(-yOrbit, 0);
    m_isValid = false;
}

void GsView::zoom(double factor)
{
    if (!(factor > 0) || !IsUsable(m_camera.fieldWidth / factor) || !IsUsable(m_camera.fieldHeight / factor))
        return;
    m_camera.fieldWidth /= factor;
    m_camera.fieldHeight /= factor;
    m_isValid = false;
}

void GsView::zoomExtents(const AcGePoint3d& minPoint, const AcGePoint3d& maxPoint)
{
    const double min[] = {minPoint.x, minPoint.y, minPoint.z}, max[] = {maxPoint.x, maxPoint.y, maxPoint.z};
    const Place place = PlaceOnDevice();
    Camera fitted = m_camera;
    fitted.Fit(min, max, place.width, place.height);
    if (!IsUsable(fitted.fieldWidth) || !IsUsable(fitted.fieldHeight))
        return;
    m_camera = fitted;
    m_isValid = false;
}

AcGeMatrix3d GsView::viewingMatrix() const
{
    AcGeVector3d x, y, z;
    m_camera.Axes(x, y, z);
    AcGeMatrix3d toWorld;
    toWorld.setCoordSystem(position(), x, y, z);
    return toWorld.inverse();
}

// The smaller of the two scales counts, so that all of the field is seen.
AcGeMatrix3d GsView::projectionMatrix() const
{
    const Place place = PlaceOnDevice();
    const double scale = std::min(place.width / m_camera.fieldWidth, place.height / m_camera.fieldHeight);
    AcGeMatrix3d projection;
    projection.entry[0][0] = 2 * scale / place.width;
    projection.entry[1][1] = 2 * scale / place.height;
    projection.entry[2][2] = 1 / m_camera.eyeDistance;
    return projection;
}

AcGeMatrix3d GsView::screenMatrix() const
{
    AcGsDCRect rect;
    getViewport(rect);
    AcGeMatrix3d screen;
    screen.entry[0][0] = double(rect.m_max.x - rect.m_min.x) / 2;
    screen.entry[1][1] = double(rect.m_max.y - rect.m_min.y) / 2;
    screen.entry[0][3] = double(rect.m_max.x + rect.m_min.x) / 2;
    screen.entry[1][3] = double(rect.m_max.y + rect.m_min.y) / 2;
    return screen;
}

// --- what is shown ---------------------------------------------------------------------------------------------------

GsModel& GsView::ModelOf(const Shown& shown)
{
    return shown.model == nullptr ? m_own : *shown.model;
}

bool GsView::add(AcGiDrawable* drawable, AcGsModel* model)
{
    if (drawable == nullptr)
        return false;
    Shown shown;
    shown.model = static_cast<GsModel*>(model);
    shown.id = drawable->isPersistent() ? drawable->id() : AcDbObjectId();
    shown.drawable = shown.id.isNull() ? drawable : nullptr;
    shown.database = shown.id.isNull() ? acdbHostApplicationServices()->workingDatabase() : shown.id.database();
    if (shown.database == nullptr)
        return false;
    ModelOf(shown).Acquire(*shown.database);
    m_shown.push_back(shown);
    m_isValid = false;
    return true;
}

bool GsView::erase(AcGiDrawable* drawable)
{
    if (drawable == nullptr)
        return false;
    const AcDbObjectId id = drawable->isPersistent() ? drawable->id() : AcDbObjectId();
    const auto place = std::find_if(m_shown.begin(), m_shown.end(), [&](const Shown& shown) {
        return id.isNull() ? shown.drawable == drawable : shown.id == id;
    });
    if (place == m_shown.end())
        return false;
    ModelOf(*place).Release(*place->database);
    m_shown.erase(place);
    m_isValid = false;
    return true;
}

void GsView::eraseAll()
{
    for (const Shown& shown : m_shown)
        ModelOf(shown).Release(*shown.database);
    m_shown.clear();
    m_isValid = false;
}

void GsView::freezeLayer(AcDbObjectId layer)
{
    m_frozen.insert(layer);
    m_isValid = false;
}

void GsView::thawLayer(AcDbObjectId layer)
{
    m_frozen.erase(layer);
    m_isValid = false;
}

void GsView::clearFrozenLayers()
{
    m_frozen.clear();
    m_isValid = false;
}

void GsView::setMode(RenderMode mode)
{
    m_mode = mode;
    m_isValid = false;
}

void GsView::hide()
{
    m_isVisible = false;
    m_isValid = false;
}

void GsView::show()
{
    m_isVisible = true;
    m_isValid = false;
}

void GsView::update()
{
    if (m_device != nullptr)
        m_device->update(nullptr);
}

// --- drawing ---------------------------------------------------------------------------------------------------------

void GsView::Draw(Image& page, uint32_t background)
{
    m_isValid = true;
    if (!m_isVisible)
        return;
    const Place place = PlaceOnDevice();
    Image picture(place.width, place.height, background);
    const KxPlat::Projection projection(m_camera, place.width, place.height);
    DrawOptions options;
    options.background = background;
    options.mode = KxPlat::RenderMode(m_mode);
    options.usesIndex = true;
    if (!m_frozen.empty())
        options.layerFilter = [this](const AcDbStub* layer) {
            return m_frozen.count(AcDbObjectId(const_cast<AcDbStub*>(layer))) == 0;
        };
    if (m_mode > kWireframe) {
        DepthPainter painter(picture, options.mode, background);
        painter.Reset(projection.DepthScale());
        for (const Shown& shown : m_shown)
            DrawOne(shown, projection, options, painter);
    } else {
        ImagePainter painter(picture);
        for (const Shown& shown : m_shown)
            DrawOne(shown, projection, options, painter);
    }
    page.Put(picture, place.left, place.top);
}

void GsView::DrawOne(const Shown& shown, const KxPlat::Projection& projection, const DrawOptions& options,
                     Painter& painter)
{
    Scene* scene = ModelOf(shown).SceneOf(*shown.database);
    if (scene == nullptr || (!shown.id.isNull() && shown.id.isErased()))
        return;
    scene->Update();
    const KxPlat::Projection own = projection.Within(ModelOf(shown).transform());
    const AcRxClass* kind = shown.id.isNull() ? nullptr : shown.id.objectClass();
    if (kind != nullptr && kind->isDerivedFrom(AcDbBlockTableRecord::desc())) {
        DrawScene(*scene, shown.id, own, options, painter);
        return;
    }
    DisplayList list;
    ListBuilder builder(list, *scene);
    AcDbEntity* entity = nullptr;
    if (shown.drawable != nullptr)
        builder.Add(*shown.drawable);
    else if (acdbOpenAcDbEntity(entity, shown.id, AcDb::kForRead) == Acad::eOk) {
        builder.Add(*entity);
        entity->close();
    }
    builder.Finish();
    SceneWalk walk(*scene, list, own, options, painter);
    walk.Draw(walk.Size());
}

}   // namespace KxPlat
