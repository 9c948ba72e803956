#include "DrawingArea.h"
#include "ap/Documents.h"
#include "db/AcDbDatabase.h"
#include "ed/select/DocumentSelection.h"
#include <cmath>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

using namespace KxPlat;

namespace KxDesktop {

namespace {

constexpr double kPickBox = 6;           // half of it, pixels
constexpr double kDrag = 4;              // a pointer that moves less with its button down has clicked
constexpr double kSliceOfDrawing = 12;   // milliseconds between looks at the user
constexpr double kWheelStep = 1.25;
constexpr size_t kMostWithGrips = 100;   // of more objects grips would hide the picture

}   // namespace

DrawingArea::DrawingArea(InputQueue& queue, QWidget* parent)
    : QWidget(parent), m_queue(queue), m_hover(*this, [this](const QPointF& place) {
          const QPointF at = OnDevice(place);
          return View() != nullptr && !m_pan && !m_rectangle ? View()->EntityAt(at.x(), at.y(), kPickBox)
                                                             : AcDbObjectId();
      })
{
    setObjectName(QStringLiteral("drawingArea"));
    setMouseTracking(true);
    setFocusPolicy(Qt::ClickFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setCursor(Qt::BlankCursor);
    setMinimumSize(120, 90);
    m_drawTimer.setSingleShot(true);
    m_drawTimer.setInterval(0);
    connect(&m_drawTimer, &QTimer::timeout, this, [this] { DrawOn(); });
}

DrawingArea::~DrawingArea() = default;

// --- what is shown ---

void DrawingArea::ShowDocument(AcApDocument* document)
{
    if (document == m_document)
        return;
    m_document = document;
    m_rectangle.reset();
    m_previous.reset();
    m_hover.SetDocument(document);
    m_view = nullptr;
    if (document != nullptr) {
        std::unique_ptr<DrawingView>& view = m_views[document];
        if (view == nullptr) {
            view = std::make_unique<DrawingView>(*document->database());
            view->SetBackground(m_background);
        }
        m_view = view.get();
        m_view->Resize(int(width() * devicePixelRatioF()), int(height() * devicePixelRatioF()));
    }
    Follow();
}

void DrawingArea::Forget(AcApDocument* document)
{
    if (document == m_document)
        ShowDocument(nullptr);
    m_views.erase(document);
}

void DrawingArea::Follow()
{
    if (View() != nullptr) {
        View()->SetBackground(m_background);
        View()->ShowBlock(m_document->database()->currentSpaceId());
        if (std::exchange(m_needsRegeneration, false))
            View()->Regenerate();
        else
            View()->Changed();
        ShowChosen();
    }
    m_drawTimer.start();
}

// A picture that takes long comes in pieces, so that the wheel and the keys keep working.
void DrawingArea::DrawOn()
{
    if (View() != nullptr && !View()->Advance(kSliceOfDrawing))
        m_drawTimer.start();
    update();
}

void DrawingArea::SetBackground(uint32_t rgb)
{
    m_background = rgb;
    Follow();
}

void DrawingArea::SetShowsGrips(bool areShown)
{
    m_showsGrips = areShown;
    Follow();
}

void DrawingArea::ZoomExtents()
{
    if (View() != nullptr)
        View()->ZoomExtents();
    m_drawTimer.start();
}

void DrawingArea::LookAtCenter(const ViewRequest& request)
{
    Camera camera = View()->camera();
    const double height = request.isRelative ? camera.fieldHeight / request.number : request.number;
    camera.fieldWidth *= height / camera.fieldHeight;
    camera.fieldHeight = height;
    camera.target = AcGePoint3d(request.points[0][0], request.points[0][1], 0);
    View()->SetCamera(camera);
}

void DrawingArea::Look(const ViewRequest& request)
{
    if (View() == nullptr)
        return;
    const Camera before = View()->camera();
    const double middle[2] = {View()->width() / 2.0, View()->height() / 2.0};
    switch (request.kind) {
    case ViewRequest::Kind::All:
    case ViewRequest::Kind::Extents:
        View()->ZoomExtents();
        break;
    case ViewRequest::Kind::Previous:
        if (m_previous)
            View()->SetCamera(*m_previous);
        break;
    case ViewRequest::Kind::Window: {
        const DevicePoint a = View()->ToDevice({request.points[0][0], request.points[0][1], 0});
        const DevicePoint b = View()->ToDevice({request.points[1][0], request.points[1][1], 0});
        View()->ZoomWindow(a.x, a.y, b.x, b.y);
        break;
    }
    case ViewRequest::Kind::Center:
        LookAtCenter(request);
        break;
    case ViewRequest::Kind::Scale:
        // A plain number counts from the whole drawing.
        if (!request.isRelative)
            View()->ZoomExtents();
        View()->ZoomAt(middle[0], middle[1], request.number);
        break;
    }
    m_previous = before;
    m_drawTimer.start();
}

void DrawingArea::ZoomBy(double factor)
{
    if (View() != nullptr)
        View()->ZoomAt(View()->width() / 2.0, View()->height() / 2.0, factor);
    m_drawTimer.start();
}

void DrawingArea::BeginZoomWindow()
{
    m_zoomsWindow = true;
    DropRectangle();
}

// --- prompts ---

void DrawingArea::SetPrompt(const InputRequest& request)
{
    m_isAsking = true;
    m_kind = request.kind;
    m_base.reset();
    if (request.basePoint != nullptr)
        m_base = AcGePoint3d(request.basePoint[0], request.basePoint[1], request.basePoint[2]);
    Follow();
}

void DrawingArea::SetBusy()
{
    m_isAsking = false;
    m_base.reset();
    m_rectangle.reset();
    m_hover.Hide();
}

bool DrawingArea::WantsObjects() const
{
    return m_isAsking &&
           (m_kind == InputKind::Command || m_kind == InputKind::Selection || m_kind == InputKind::Entity);
}

bool DrawingArea::PicksPoints() const
{
    return m_isAsking && (m_kind == InputKind::Point || m_kind == InputKind::Number);
}

std::vector<AcDbObjectId> DrawingArea::Selected() const
{
    if (m_document == nullptr)
        return {};
    std::vector<AcDbObjectId> ids = PartOf<DocumentSelection>(*m_document).pickFirst;
    std::erase_if(ids, [](const AcDbObjectId& id) { return id.isNull() || id.isErased(); });
    return ids;
}

void DrawingArea::Select(std::vector<AcDbObjectId> ids)
{
    if (m_document == nullptr)
        return;
    PartOf<DocumentSelection>(*m_document).pickFirst = std::move(ids);
    ShowChosen();
    m_drawTimer.start();
    if (selectionChanged)
        selectionChanged();
}

// What the running command has been given so far, else what was selected before a command.
void DrawingArea::ShowChosen()
{
    const DocumentSelection& selection = PartOf<DocumentSelection>(*m_document);
    const bool isChoosing = selection.choosing != nullptr;
    std::vector<AcDbObjectId> shown = isChoosing ? selection.choosing->Ids() : Selected();
    const bool hasGrips = m_showsGrips && !isChoosing && shown.size() <= kMostWithGrips;
    View()->Highlight(std::move(shown), hasGrips);
}

bool DrawingArea::DropRectangle()
{
    const bool had = m_rectangle.has_value();
    m_rectangle.reset();
    update();
    return had;
}

// --- the pointer ---

QPointF DrawingArea::OnDevice(const QPointF& place) const
{
    return place * devicePixelRatioF();
}

void DrawingArea::wheelEvent(QWheelEvent* event)
{
    if (View() == nullptr || event->angleDelta().y() == 0)
        return;
    m_hover.Hide();
    const QPointF at = OnDevice(event->position());
    View()->ZoomAt(at.x(), at.y(), std::pow(kWheelStep, event->angleDelta().y() / 120.0));
    m_drawTimer.start();
}

void DrawingArea::mousePressEvent(QMouseEvent* event)
{
    if (View() == nullptr)
        return;
    m_hover.Hide();
    m_pressed = event->position();
    if (event->button() == Qt::MiddleButton) {
        m_pan = event->position();
        setCursor(Qt::ClosedHandCursor);
    } else if (event->button() == Qt::LeftButton) {
        Click(event->position(), event->modifiers());
    }
}

void DrawingArea::mouseMoveEvent(QMouseEvent* event)
{
    m_pointer = event->position();
    m_isPointerHere = true;
    if (View() == nullptr)
        return;
    if (m_pan) {
        const QPointF way = OnDevice(event->position() - *m_pan);
        View()->Pan(way.x(), way.y());
        m_pan = event->position();
        m_drawTimer.start();
    }
    const QPointF at = OnDevice(event->position());
    const AcGePoint3d point = View()->ToWorld(at.x(), at.y());
    if (pointerMoved)
        pointerMoved(point);
    if (m_isAsking)
        m_hover.Moved(event->position(), point);
    update();
}

// A rectangle that was dragged ends where the button is let go; one that was clicked waits for its second click.
void DrawingArea::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::MiddleButton) {
        m_pan.reset();
        setCursor(Qt::BlankCursor);
    } else if (event->button() == Qt::LeftButton) {
        if (m_rectangle && (event->position() - m_pressed).manhattanLength() > kDrag)
            FinishRectangle(event->position(), (event->modifiers() & Qt::ShiftModifier) != 0);
    } else if (event->button() == Qt::RightButton) {
        if (m_kind == InputKind::Command && m_isAsking && menuWanted)
            menuWanted(event->globalPosition().toPoint());
        else if (m_isAsking)
            m_queue.Type(L"");
    }
}

void DrawingArea::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::MiddleButton)
        ZoomExtents();
    else
        mousePressEvent(event);
}

void DrawingArea::Click(const QPointF& place, Qt::KeyboardModifiers keys)
{
    const bool removes = (keys & Qt::ShiftModifier) != 0;
    const QPointF at = OnDevice(place);
    if (m_rectangle) {
        FinishRectangle(place, removes);
    } else if (m_zoomsWindow) {
        m_rectangle = place;
        m_use = RectangleUse::Zoom;
    } else if (WantsObjects()) {
        ClickForObjects(place, removes);
    } else if (PicksPoints()) {
        PickPoint(at);
    }
}

// The input point filter has the last word on where the point is.
void DrawingArea::PickPoint(const QPointF& at)
{
    AcArray<AcDbObjectId> under;
    if (const AcDbObjectId id = View()->EntityAt(at.x(), at.y(), kPickBox); !id.isNull())
        under.append(id);
    const AcGePoint3d raw = View()->ToWorld(at.x(), at.y());
    const AcGePoint3d point = FilterPoint(*m_document, raw, m_base.value_or(raw), under).point;
    m_queue.Pick({point.x, point.y, point.z});
}

void DrawingArea::ClickForObjects(const QPointF& place, bool removes)
{
    const QPointF at = OnDevice(place);
    const AcDbObjectId id = View()->EntityAt(at.x(), at.y(), kPickBox);
    if (!id.isNull()) {
        TakeObjects({id}, removes, place);
    } else if (m_kind == InputKind::Entity) {
        const AcGePoint3d point = View()->ToWorld(at.x(), at.y());
        m_queue.Pick({point.x, point.y, point.z});
    } else {
        m_rectangle = place;
        m_use = RectangleUse::Selection;
    }
}

void DrawingArea::FinishRectangle(const QPointF& place, bool removes)
{
    const QPointF from = OnDevice(*m_rectangle), to = OnDevice(place);
    m_rectangle.reset();
    update();
    if (m_use == RectangleUse::Zoom) {
        m_zoomsWindow = false;
        View()->ZoomWindow(from.x(), from.y(), to.x(), to.y());
        m_drawTimer.start();
        return;
    }
    const bool isCrossing = to.x() < from.x();
    TakeObjects(View()->EntitiesIn(from.x(), from.y(), to.x(), to.y(), isCrossing), removes, place);
}

void DrawingArea::TakeObjects(const std::vector<AcDbObjectId>& ids, bool removes, const QPointF& place)
{
    if (ids.empty())
        return;
    if (m_kind != InputKind::Command) {
        std::vector<void*> objects;
        objects.reserve(ids.size());
        for (const AcDbObjectId& id : ids)
            objects.push_back(static_cast<AcDbStub*>(id));
        const QPointF at = OnDevice(place);
        const AcGePoint3d point = View()->ToWorld(at.x(), at.y());
        m_queue.Pick(objects, {point.x, point.y, point.z});
        return;
    }
    std::vector<AcDbObjectId> selected = Selected();
    std::erase_if(selected, [&](const AcDbObjectId& id) { return std::find(ids.begin(), ids.end(), id) != ids.end(); });
    if (!removes)
        selected.insert(selected.end(), ids.begin(), ids.end());
    Select(std::move(selected));
}

void DrawingArea::keyPressEvent(QKeyEvent* event)
{
    if (typed)
        typed(event);
}

// Keys of the window's own shortcuts are typed here first: a letter is the start of a command.
bool DrawingArea::event(QEvent* event)
{
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Tab)
        return true;
    return QWidget::event(event);
}

void DrawingArea::leaveEvent(QEvent*)
{
    m_isPointerHere = false;
    m_hover.Hide();
    update();
}

void DrawingArea::resizeEvent(QResizeEvent*)
{
    if (View() != nullptr)
        View()->Resize(int(width() * devicePixelRatioF()), int(height() * devicePixelRatioF()));
    m_drawTimer.start();
}

// --- painting ---

void DrawingArea::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (View() == nullptr) {
        painter.fillRect(rect(), QColor::fromRgb(m_background));
        return;
    }
    const Image& picture = View()->PictureSoFar();
    QImage image(reinterpret_cast<const uchar*>(picture.Row(0)), picture.width(), picture.height(),
                 qsizetype(picture.width()) * 4, QImage::Format_RGB32);
    image.setDevicePixelRatio(devicePixelRatioF());
    painter.fillRect(rect(), QColor::fromRgb(m_background));
    painter.drawImage(0, 0, image);
    PaintRectangle(painter);
    PaintRubberBand(painter);
    PaintCrosshair(painter);
}

void DrawingArea::PaintRectangle(QPainter& painter) const
{
    if (!m_rectangle)
        return;
    const QRectF area = QRectF(*m_rectangle, m_pointer).normalized();
    const bool isCrossing = m_use == RectangleUse::Selection && m_pointer.x() < m_rectangle->x();
    QColor color(isCrossing ? QColor(46, 160, 90) : QColor(60, 120, 220));
    QColor inside = color;
    inside.setAlpha(50);
    painter.setPen(QPen(color.lighter(120), 1, isCrossing ? Qt::DashLine : Qt::SolidLine));
    painter.setBrush(inside);
    painter.drawRect(area);
}

void DrawingArea::PaintRubberBand(QPainter& painter) const
{
    if (!m_base || !m_isPointerHere || !PicksPoints())
        return;
    const DevicePoint base = View()->ToDevice(*m_base);
    painter.setPen(QPen(QColor(230, 150, 30), 1, Qt::DashLine));
    painter.drawLine(QPointF(base.x, base.y) / devicePixelRatioF(), m_pointer);
}

// The lines tell that a point is wanted, the box that an object is.
void DrawingArea::PaintCrosshair(QPainter& painter) const
{
    if (!m_isPointerHere || m_pan)
        return;
    const bool isDark = QColor::fromRgb(m_background).lightness() < 128;
    const QColor color = isDark ? QColor(225, 228, 232) : QColor(40, 44, 50);
    painter.setPen(QPen(color, 1));
    painter.setBrush(Qt::NoBrush);
    const bool isBoxOnly = m_isAsking && (m_kind == InputKind::Selection || m_kind == InputKind::Entity);
    const double box = WantsObjects() ? kPickBox / devicePixelRatioF() : 0;
    const QPointF at(std::floor(m_pointer.x()) + 0.5, std::floor(m_pointer.y()) + 0.5);
    if (box > 0)
        painter.drawRect(QRectF(at.x() - box, at.y() - box, 2 * box, 2 * box));
    if (isBoxOnly)
        return;
    painter.drawLine(QPointF(0, at.y()), QPointF(at.x() - box, at.y()));
    painter.drawLine(QPointF(at.x() + box, at.y()), QPointF(width(), at.y()));
    painter.drawLine(QPointF(at.x(), 0), QPointF(at.x(), at.y() - box));
    painter.drawLine(QPointF(at.x(), at.y() + box), QPointF(at.x(), height()));
}

}   // namespace KxDesktop
