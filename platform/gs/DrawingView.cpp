#include "DrawingView.h"
#include "../db/AcDbBlockTableRecord.h"
#include "../db/AcDbDatabase.h"
#include "../db/core/DbCore.h"
#include "Emphasis.h"
#include "Frame.h"
#include "PickPainter.h"
#include "ShapeDrawer.h"
#include <algorithm>
#include <cmath>
#include <optional>

namespace KxPlat {

namespace {

constexpr int kLargest = 16384;           // pixels of a side
constexpr double kSmallestField = 1e-9;   // drawing units; nearer, numbers end
constexpr double kLargestField = 1e16;
constexpr double kPixelsPerMm = 96 / 25.4;

bool IsUsable(const Camera& camera)
{
    const double numbers[] = {camera.target.x,    camera.target.y,    camera.target.z,   camera.direction.x,
                              camera.direction.y, camera.direction.z, camera.fieldWidth, camera.fieldHeight};
    return std::all_of(std::begin(numbers), std::end(numbers), [](double each) { return std::isfinite(each); });
}

}   // namespace

struct DrawingView::State {
    explicit State(AcDbDatabase& drawing) : database(drawing), scene(drawing) {}

    AcDbDatabase& database;
    Scene scene;
    uint32_t background = 0;
    RenderMode mode = RenderMode::Optimized2d;
    bool showsWeights = false;
    AcDbObjectId block;
    std::unordered_map<const AcDbStub*, Camera> cameras;
    std::vector<AcDbObjectId> highlighted;
    bool showsGrips = true;
    std::function<bool()> isAborted;

    // `base` is what was drawn last, whole or a sketch; `back` is being drawn; `shown` is `base` with its highlights.
    Image base{1, 1, 0}, back{1, 1, 0}, shown{1, 1, 0};
    std::unique_ptr<Frame> frame;
    bool isStale = true;        // `base` shows something else
    bool isWhole = false;       // `base` is no sketch
    bool isShownStale = true;   // highlights or `base` changed
    uint64_t number = 0;
    double secondsPerEntity = 0;   // of the last whole frame

    AcDbObjectId Block() const { return block.isNull() ? AcDbObjectId(CoreOf(database).modelSpace) : block; }
    int Width() const { return base.width(); }
    int Height() const { return base.height(); }

    void Touch()
    {
        isStale = true;
        isWhole = false;
        frame.reset();
    }
    void BaseChanged()
    {
        isShownStale = true;
        ++number;
    }

    Camera& CameraNow()
    {
        const auto [place, isNew] = cameras.try_emplace(Block());
        if (isNew)
            Extents(place->second);
        return place->second;
    }
    void Extents(Camera& camera)
    {
        const Box box = scene.VisibleBoxOf(Block());
        if (!box.isEmpty())
            camera.Fit(box.min, box.max, Width(), Height());
        else
            camera.fieldWidth = camera.fieldHeight = 100;
    }
    Projection ProjectionNow() { return Projection(CameraNow(), Width(), Height()); }

    std::vector<Sight> Sights()
    {
        Sight page;
        page.block = Block();
        page.camera = CameraNow();
        page.width = Width();
        page.height = Height();
        std::vector<Sight> sights = {page};
        if (page.block != AcDbObjectId(CoreOf(database).modelSpace))
            AddSightsOfViewports(scene, page.block, ProjectionNow(), sights);
        return sights;
    }
    DrawOptions Options() const
    {
        DrawOptions options;
        options.background = background;
        options.mode = mode;
        options.usesIndex = true;
        options.pixelsPerMm = showsWeights || scene.showsLineWeights() ? kPixelsPerMm : 0;
        options.isAborted = isAborted;
        return options;
    }
    bool IsDeep() const { return mode > RenderMode::Wireframe; }

    bool Advance(double milliseconds);
    void Sketch(double seconds, size_t count);
    bool Shift(double dx, double dy);
    void DrawStrip(int left, int top, int width, int height);
    const Image& Shown();
    std::vector<AcDbStub*> Pick(double left, double top, double width, double height, bool wholly);
};

// A frame that the time does not suffice for is drawn behind what is shown, which meanwhile is a sketch.
bool DrawingView::State::Advance(double milliseconds)
{
    if (isWhole)
        return true;
    const auto time = std::chrono::microseconds(int64_t(std::clamp(milliseconds, 0.0, 1e9) * 1000));
    const Frame::Clock::time_point end = Frame::Clock::now() + time;
    if (frame == nullptr) {
        frame = std::make_unique<Frame>(scene, Sights(), Options(), back);
        const double expected = secondsPerEntity * double(frame->Size());
        if (isStale && expected * 1000 > milliseconds)
            Sketch(milliseconds / 1000, frame->Size());
    }
    const Frame::Clock::time_point begin = Frame::Clock::now();
    const size_t before = frame->drawn();
    const bool isDone = frame->Advance(end);
    const double seconds = std::chrono::duration<double>(Frame::Clock::now() - begin).count();
    if (frame->drawn() > before + 4096)
        secondsPerEntity = seconds / double(frame->drawn() - before);
    if (!isDone) {
        if (isStale) {
            base = back;   // half of it is better than none
            BaseChanged();
        }
        return false;
    }
    std::swap(base, back);
    frame.reset();
    isStale = false;
    isWhole = true;
    BaseChanged();
    return true;
}

// Every so many-th entity, as many as the time allows.
void DrawingView::State::Sketch(double seconds, size_t count)
{
    const auto affordable = size_t(std::max(seconds / secondsPerEntity, 1000.0));
    Frame sketch(scene, Sights(), Options(), base);
    sketch.Advance(Frame::Clock::time_point::max(), (count + affordable - 1) / affordable);
    isStale = false;
    BaseChanged();
}

// A moved picture needs drawing only where it was not before. False when all must be drawn.
bool DrawingView::State::Shift(double dx, double dy)
{
    const bool isStraight = std::abs(dx - std::round(dx)) < 1e-6 && std::abs(dy - std::round(dy)) < 1e-6;
    if (!isWhole || !isStraight || IsDeep() || CameraNow().isPerspective || Sights().size() > 1)
        return false;
    const int x = int(std::lround(dx)), y = int(std::lround(dy));
    if (std::abs(x) >= Width() / 2 || std::abs(y) >= Height() / 2)
        return false;
    base.Shift(x, y);
    if (x != 0)
        DrawStrip(x > 0 ? 0 : Width() + x, 0, std::abs(x), Height());
    if (y != 0)
        DrawStrip(0, y > 0 ? 0 : Height() + y, Width(), std::abs(y));
    BaseChanged();
    return true;
}

void DrawingView::State::DrawStrip(int left, int top, int width, int height)
{
    Image part(width, height, background);
    ImagePainter painter(part);
    DrawScene(scene, Block(), ProjectionNow().Window(left, top, width, height), Options(), painter);
    base.Put(part, left, top);
}

const Image& DrawingView::State::Shown()
{
    if (highlighted.empty())
        return base;
    if (!isShownStale)
        return shown;
    isShownStale = false;
    shown = base;
    DrawEmphasis(scene, Block(), ProjectionNow(), Options(), highlighted, showsGrips, shown);
    return shown;
}

std::vector<AcDbStub*> DrawingView::State::Pick(double left, double top, double width, double height, bool wholly)
{
    PickPainter painter(width, height, wholly);
    DrawOptions options = Options();
    options.mode = RenderMode::Wireframe;
    options.ignoresLinetypes = true;
    options.cutsNothing = wholly;
    DrawScene(scene, Block(), ProjectionNow().Window(left, top, width, height), options, painter);
    return painter.Found();
}

// --- the view --------------------------------------------------------------------------------------------------------

DrawingView::DrawingView(AcDbDatabase& database) : m_state(std::make_unique<State>(database)) {}

DrawingView::~DrawingView() = default;

AcDbDatabase& DrawingView::database() const
{
    return m_state->database;
}

Scene& DrawingView::scene()
{
    return m_state->scene;
}

void DrawingView::Resize(int width, int height)
{
    width = std::clamp(width, 1, kLargest);
    height = std::clamp(height, 1, kLargest);
    if (width == m_state->Width() && height == m_state->Height())
        return;
    m_state->frame.reset();
    m_state->base = Image(width, height, m_state->background);
    m_state->back = m_state->base;
    m_state->Touch();
    m_state->BaseChanged();
}

int DrawingView::width() const
{
    return m_state->Width();
}

int DrawingView::height() const
{
    return m_state->Height();
}

void DrawingView::SetBackground(uint32_t rgb)
{
    if (m_state->background == rgb)
        return;
    m_state->background = rgb;
    m_state->Touch();
}

uint32_t DrawingView::background() const
{
    return m_state->background;
}

void DrawingView::SetRenderMode(RenderMode mode)
{
    if (m_state->mode == mode)
        return;
    m_state->mode = mode;
    m_state->Touch();
}

RenderMode DrawingView::renderMode() const
{
    return m_state->mode;
}

void DrawingView::ShowLineWeights(bool areShown)
{
    m_state->showsWeights = areShown;
    m_state->Touch();
}

void DrawingView::ShowBlock(AcDbObjectId block)
{
    if (m_state->block == block)
        return;
    m_state->block = block;
    m_state->highlighted.clear();
    m_state->Touch();
}

AcDbObjectId DrawingView::block() const
{
    return m_state->Block();
}

const Camera& DrawingView::camera() const
{
    return m_state->CameraNow();
}

void DrawingView::SetCamera(const Camera& camera)
{
    if (!IsUsable(camera))
        return;
    Camera& now = m_state->CameraNow();
    now = camera;
    now.fieldWidth = std::clamp(camera.fieldWidth, kSmallestField, kLargestField);
    now.fieldHeight = std::clamp(camera.fieldHeight, kSmallestField, kLargestField);
    m_state->Touch();
}

void DrawingView::ZoomExtents()
{
    Camera camera = m_state->CameraNow();
    m_state->Extents(camera);
    SetCamera(camera);
}

void DrawingView::ZoomWindow(double x1, double y1, double x2, double y2)
{
    if (x1 == x2 && y1 == y2)
        return;
    Camera camera = m_state->CameraNow();
    camera.target = m_state->ProjectionNow().ToTargetPlane((x1 + x2) / 2, (y1 + y2) / 2);
    const double share = std::max(std::abs(x2 - x1) / width(), std::abs(y2 - y1) / height());
    camera.fieldWidth *= share;
    camera.fieldHeight *= share;
    SetCamera(camera);
}

void DrawingView::ZoomAt(double x, double y, double factor)
{
    if (!(factor > 0) || !std::isfinite(factor))
        return;
    Camera camera = m_state->CameraNow();
    if (std::min(camera.fieldWidth, camera.fieldHeight) / factor < kSmallestField ||
        std::max(camera.fieldWidth, camera.fieldHeight) / factor > kLargestField)
        return;
    const AcGePoint3d under = m_state->ProjectionNow().ToTargetPlane(x, y);
    camera.target = under + (camera.target - under) * (1 / factor);
    camera.fieldWidth /= factor;
    camera.fieldHeight /= factor;
    if (camera.isPerspective)
        camera.eyeDistance /= factor;
    SetCamera(camera);
}

void DrawingView::Pan(double dx, double dy)
{
    if ((dx == 0 && dy == 0) || !std::isfinite(dx) || !std::isfinite(dy))
        return;
    Camera& camera = m_state->CameraNow();
    const Projection before = m_state->ProjectionNow();
    camera.target = before.ToTargetPlane(width() / 2.0 - dx, height() / 2.0 - dy);
    if (!m_state->Shift(dx, dy))
        m_state->Touch();
}

void DrawingView::Orbit(double toRight, double down)
{
    if (!std::isfinite(toRight) || !std::isfinite(down))
        return;
    Camera camera = m_state->CameraNow();
    camera.Orbit(toRight, down);
    SetCamera(camera);
}

void DrawingView::SetPerspective(bool isPerspective)
{
    Camera camera = m_state->CameraNow();
    camera.isPerspective = isPerspective;
    camera.eyeDistance = 2 * std::max(camera.fieldWidth, camera.fieldHeight);
    SetCamera(camera);
}

AcGePoint3d DrawingView::ToWorld(double x, double y) const
{
    const Camera& camera = m_state->CameraNow();
    const AcGePoint3d onTarget = m_state->ProjectionNow().ToTargetPlane(x, y);
    AcGeVector3d way = camera.direction.normal();
    if (camera.isPerspective)
        way = (camera.target + way * camera.eyeDistance - onTarget).normal();
    if (std::abs(way.z) < 0.02)
        return onTarget;
    AcGePoint3d onGround = onTarget - way * (onTarget.z / way.z);
    onGround.z = 0;
    return onGround;
}

DevicePoint DrawingView::ToDevice(const AcGePoint3d& point) const
{
    return m_state->ProjectionNow()(point);
}

double DrawingView::PixelSize() const
{
    return 1 / m_state->ProjectionNow().Scale();
}

AcDbObjectId DrawingView::EntityAt(double x, double y, double aperture)
{
    const double reach = std::max(aperture, 0.5);
    const std::vector<AcDbStub*> found = m_state->Pick(x - reach, y - reach, 2 * reach, 2 * reach, false);
    return found.empty() ? AcDbObjectId() : AcDbObjectId(found.back());
}

std::vector<AcDbObjectId> DrawingView::EntitiesIn(double x1, double y1, double x2, double y2, bool crossing)
{
    const std::vector<AcDbStub*> found =
        m_state->Pick(std::min(x1, x2), std::min(y1, y2), std::abs(x2 - x1), std::abs(y2 - y1), !crossing);
    return {found.begin(), found.end()};
}

void DrawingView::Highlight(std::vector<AcDbObjectId> entities, bool showsGrips)
{
    if (entities == m_state->highlighted && showsGrips == m_state->showsGrips)
        return;
    m_state->highlighted = std::move(entities);
    m_state->showsGrips = showsGrips;
    m_state->BaseChanged();
}

const std::vector<AcDbObjectId>& DrawingView::highlighted() const
{
    return m_state->highlighted;
}

void DrawingView::Changed()
{
    m_state->frame.reset();
    const uint64_t before = m_state->scene.tablesNumber();
    if (!m_state->scene.Update() && before == m_state->scene.tablesNumber())
        return;
    std::erase_if(m_state->highlighted, [](const AcDbObjectId& id) { return id.isErased(); });
    if (!m_state->block.isNull() && m_state->block.isErased())
        m_state->block = AcDbObjectId();
    m_state->Touch();
}

void DrawingView::Regenerate()
{
    m_state->frame.reset();
    m_state->scene.Forget();
    m_state->Touch();
}

bool DrawingView::Advance(double milliseconds)
{
    return m_state->Advance(milliseconds);
}

bool DrawingView::IsWhole() const
{
    return m_state->isWhole;
}

const Image& DrawingView::PictureSoFar()
{
    return m_state->Shown();
}

const Image& DrawingView::Picture()
{
    while (!m_state->Advance(1e9) && !(m_state->isAborted && m_state->isAborted())) {
    }
    return m_state->Shown();
}

uint64_t DrawingView::pictureNumber() const
{
    return m_state->number;
}

void DrawingView::SetAbort(std::function<bool()> isAborted)
{
    m_state->isAborted = std::move(isAborted);
}

std::wstring DrawingView::LeftOut() const
{
    return m_state->scene.LeftOutText();
}

}   // namespace KxPlat
