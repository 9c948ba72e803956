// The picture of the current drawing with everything that the pointer does in it: looking around, picking, selecting.
#pragma once
#include "ap/AcApDocument.h"
#include "gs/DrawingView.h"
#include "HoverText.h"
#include "InputQueue.h"
#include "ui/ViewRequest.h"
#include <map>
#include <memory>
#include <optional>
#include <QTimer>
#include <QWidget>

namespace KxDesktop {

class DrawingArea : public QWidget {
public:
    DrawingArea(InputQueue& queue, QWidget* parent);
    ~DrawingArea() override;

    // Null for none. Each document keeps its own view.
    void ShowDocument(AcApDocument* document);
    // The document is about to go.
    void Forget(AcApDocument* document);
    // The drawing may have changed: the picture follows.
    void Follow();
    // Everything is to be taken down anew, once, when the picture is next drawn.
    void RegenerateSoon() { m_needsRegeneration = true; }

    void SetPrompt(const KxPlat::InputRequest& request);
    void SetBusy();
    void SetBackground(uint32_t rgb);
    void SetShowsGrips(bool areShown);

    void ZoomExtents();
    // As the command ZOOM asks for it.
    void Look(const KxPlat::ViewRequest& request);
    void ZoomBy(double factor);
    // The next rectangle is looked at instead of selected in.
    void BeginZoomWindow();

    // What was selected before a command, of the current document.
    std::vector<AcDbObjectId> Selected() const;
    void Select(std::vector<AcDbObjectId> ids);
    // A rectangle that was begun ends; false when there was none.
    bool DropRectangle();

    std::function<void(const AcGePoint3d&)> pointerMoved;
    std::function<void()> selectionChanged;
    std::function<void(const QPoint& global)> menuWanted;
    // A key that is no business of the picture's.
    std::function<void(QKeyEvent*)> typed;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    bool event(QEvent* event) override;

private:
    enum class RectangleUse { Selection, Zoom };

    KxPlat::DrawingView* View() const { return m_view; }
    QPointF OnDevice(const QPointF& place) const;
    void DrawOn();
    void LookAtCenter(const KxPlat::ViewRequest& request);
    void PickPoint(const QPointF& place);
    void Click(const QPointF& place, Qt::KeyboardModifiers keys);
    void ClickForObjects(const QPointF& place, bool removes);
    void FinishRectangle(const QPointF& place, bool removes);
    void TakeObjects(const std::vector<AcDbObjectId>& ids, bool removes, const QPointF& place);
    void ShowChosen();
    void PaintRectangle(QPainter& painter) const;
    void PaintRubberBand(QPainter& painter) const;
    void PaintCrosshair(QPainter& painter) const;
    bool WantsObjects() const;
    bool PicksPoints() const;

    InputQueue& m_queue;
    AcApDocument* m_document = nullptr;
    KxPlat::DrawingView* m_view = nullptr;
    std::map<AcApDocument*, std::unique_ptr<KxPlat::DrawingView>> m_views;
    std::optional<KxPlat::Camera> m_previous;   // before the last ZOOM
    QTimer m_drawTimer;
    HoverText m_hover;
    uint32_t m_background = 0;
    bool m_showsGrips = true;
    bool m_needsRegeneration = false;

    bool m_isAsking = false;
    KxPlat::InputKind m_kind = KxPlat::InputKind::Command;
    std::optional<AcGePoint3d> m_base;
    QPointF m_pointer;
    bool m_isPointerHere = false;
    std::optional<QPointF> m_pan;         // where the middle button went down, or was last
    std::optional<QPointF> m_rectangle;   // its first corner
    QPointF m_pressed;
    RectangleUse m_use = RectangleUse::Selection;
    bool m_zoomsWindow = false;
};

}   // namespace KxDesktop
