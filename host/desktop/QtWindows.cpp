#include "QtWindows.h"
#include "ModelDialog.h"
#include "QtText.h"
#include "ui/WindowQueue.h"
#include "ui/WindowTable.h"
#include "WindowWidget.h"
#include <QDockWidget>
#include <QEvent>
#include <QFontMetrics>
#include <QImage>
#include <QMainWindow>
#include <QMenu>
#include <QPainter>

using namespace KxPlat;

namespace KxDesktop {

namespace {

struct CursorRow {
    WORD shape;
    Qt::CursorShape cursor;
};
const CursorRow g_cursors[] = {
    {32512, Qt::ArrowCursor},     {32513, Qt::IBeamCursor},        {32514, Qt::WaitCursor},
    {32515, Qt::CrossCursor},     {32642, Qt::SizeFDiagCursor},    {32643, Qt::SizeBDiagCursor},
    {32644, Qt::SizeHorCursor},   {32645, Qt::SizeVerCursor},      {32646, Qt::SizeAllCursor},
    {32648, Qt::ForbiddenCursor}, {32649, Qt::PointingHandCursor},
};

struct SideRow {
    DockSide side;
    Qt::DockWidgetArea area;
    uint32_t align;
};
const SideRow g_sides[] = {
    {DockSide::Left, Qt::LeftDockWidgetArea, 0x1000},
    {DockSide::Top, Qt::TopDockWidgetArea, 0x2000},
    {DockSide::Right, Qt::RightDockWidgetArea, 0x4000},
    {DockSide::Bottom, Qt::BottomDockWidgetArea, 0x8000},
};

constexpr UINT kPopup = 0x0010, kSeparator = 0x0800, kChecked = 0x0008, kGrayed = 0x0003;

void Fill(QMenu& menu, const std::vector<MenuModel::Item>& items)
{
    for (const MenuModel::Item& item : items) {
        if ((item.flags & kSeparator) != 0) {
            menu.addSeparator();
        } else if ((item.flags & kPopup) != 0) {
            QMenu* below = menu.addMenu(ToQt(item.text));
            below->setEnabled((item.flags & kGrayed) == 0);
            Fill(*below, item.below);
        } else {
            QAction* action = menu.addAction(ToQt(item.text));
            action->setObjectName(QStringLiteral("item.%1").arg(item.id));
            action->setData(item.id);
            action->setCheckable((item.flags & kChecked) != 0);
            action->setChecked((item.flags & kChecked) != 0);
            action->setEnabled((item.flags & kGrayed) == 0);
        }
    }
}

bool IsFrame(const NativeWindow& window)
{
    return window.className == kFrameClass;
}

}   // namespace

// The cross of a dock is the bar's to answer.
class QtWindows::DockCloser : public QObject {
public:
    DockCloser(QDockWidget& dock, HWND bar) : QObject(&dock), m_bar(bar) { dock.installEventFilter(this); }
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() != QEvent::Close)
            return QObject::eventFilter(object, event);
        event->ignore();
        CallNativeWindow(m_bar, WM_CLOSE);
        return true;
    }

private:
    HWND m_bar;
};

QtWindows::QtWindows(QMainWindow& main) : m_main(main)
{
    m_work.setSingleShot(true);
    QObject::connect(&m_work, &QTimer::timeout, &main, [this] { Work(); });
    SetWindowBackend(this);
    for (HWND window : AllNativeWindows())
        Created(window);
}

QtWindows::~QtWindows()
{
    SetWindowBackend(nullptr);
    for (const auto& [window, widget] : m_widgets)
        delete widget.data();
    for (const auto& [window, panel] : m_panels)
        delete panel.data();
    for (const auto& [bar, dock] : m_docks)
        delete dock.data();
}

// --- windows and their widgets ---

WindowWidget* QtWindows::Find(HWND window) const
{
    const auto found = m_widgets.find(window);
    return found == m_widgets.end() ? nullptr : found->second.data();
}

WindowWidget* QtWindows::Make(HWND handle)
{
    if (WindowWidget* made = Find(handle))
        return made;
    const NativeWindow* window = FindWindowOf(handle);
    if (window == nullptr || window->dialog != nullptr || IsFrame(*window) ||
        (window->control != nullptr && !window->isDrawn))
        return nullptr;
    QWidget* parent = &m_main;
    const NativeWindow* above = FindWindowOf(window->parent);
    QRect place(window->rect.left, window->rect.top, window->Width(), window->Height());
    if (window->IsChild()) {
        if (above == nullptr || IsFrame(*above))
            return nullptr;   // a bar has its place once it is docked
        if (above->dialog != nullptr) {
            const auto dialog = m_dialogs.find(above->dialog);
            if (dialog == m_dialogs.end())
                return nullptr;
            parent = dialog->second.widget;
            place = dialog->second.placed(window->rect);
        } else {
            parent = Make(window->parent);
        }
        if (parent == nullptr)
            return nullptr;
    }
    auto* widget = new WindowWidget(handle, parent, window->IsChild() ? Qt::Widget : Qt::Window);
    m_widgets[handle] = widget;
    widget->setGeometry(place);
    widget->setWindowTitle(ToQt(window->Text()));
    widget->setEnabled(window->IsEnabled());
    widget->setVisible(window->IsVisible());
    if (place.width() != window->Width() || place.height() != window->Height())
        PlaceWindow(handle, {window->rect.left, window->rect.top, window->rect.left + place.width(),
                             window->rect.top + place.height()});
    widget->LeadSize();
    MakeChildren(handle);
    return widget;
}

void QtWindows::MakeChildren(HWND window)
{
    for (HWND child : ChildrenOf(window)) {
        Make(child);
        if (const NativeWindow* made = FindWindowOf(child); made->dialog != nullptr && made->IsVisible())
            Shown(child);
    }
}

QWidget* QtWindows::Panel(HWND handle)
{
    if (const auto made = m_panels.find(handle); made != m_panels.end() && made->second)
        return made->second;
    const NativeWindow* window = FindWindowOf(handle);
    if (window == nullptr || window->dialog == nullptr || m_dialogs.count(window->dialog) != 0)
        return nullptr;
    QWidget* parent = &m_main;
    if (window->IsChild())
        parent = Make(window->parent);
    if (parent == nullptr)
        return nullptr;
    QWidget* panel = NewModelPanel(*parent, *window->dialog, *this, window->IsChild());
    m_panels[handle] = panel;
    if (window->IsChild())
        panel->setGeometry(window->rect.left, window->rect.top, window->Width(), window->Height());
    return panel;
}

void QtWindows::DropPanel(HWND handle)
{
    const auto made = m_panels.find(handle);
    if (made == m_panels.end())
        return;
    m_dialogs.erase(FindWindowOf(handle)->dialog);
    delete made->second.data();
    m_panels.erase(made);
}

void QtWindows::BeginDialog(DialogModel& model, QWidget& widget, PlaceOf placed)
{
    m_dialogs[&model] = {&widget, std::move(placed)};
    for (HWND handle : AllNativeWindows())
        if (const NativeWindow* window = FindWindowOf(handle); window != nullptr && window->dialog == &model)
            MakeChildren(handle);
}

// Their widgets go with the dialog.
void QtWindows::EndDialog(DialogModel& model)
{
    m_dialogs.erase(&model);
}

void QtWindows::FollowMainWindow()
{
    for (HWND handle : AllNativeWindows()) {
        const NativeWindow* window = FindWindowOf(handle);
        if (window == nullptr || !IsFrame(*window))
            continue;
        const QRect place = m_main.geometry();
        PlaceWindow(handle, {place.left(), place.top(), place.right() + 1, place.bottom() + 1});
    }
}

void QtWindows::Created(HWND window)
{
    if (const NativeWindow* made = FindWindowOf(window); made != nullptr && IsFrame(*made))
        FollowMainWindow();
    else
        Make(window);
}

void QtWindows::Destroyed(HWND window)
{
    DropPanel(window);
    delete Find(window);
    m_widgets.erase(window);
    if (const auto dock = m_docks.find(window); dock != m_docks.end()) {
        delete dock->second.data();
        m_docks.erase(dock);
    }
}

void QtWindows::Placed(HWND handle)
{
    if (const auto panel = m_panels.find(handle); panel != m_panels.end() && panel->second) {
        const NativeWindow* window = FindWindowOf(handle);
        if (window->IsChild())
            panel->second->setGeometry(window->rect.left, window->rect.top, window->Width(), window->Height());
        return;
    }
    WindowWidget* widget = Find(handle);
    const NativeWindow* window = FindWindowOf(handle);
    if (widget == nullptr || window == nullptr || m_docks.count(handle) != 0)
        return;
    const QRect place(window->rect.left, window->rect.top, window->Width(), window->Height());
    if (widget->size() != place.size())
        widget->resize(place.size());
    const NativeWindow* above = FindWindowOf(window->parent);
    if (!window->IsChild() || above == nullptr || above->dialog == nullptr)
        widget->move(place.topLeft());
}

void QtWindows::Reparented(HWND window)
{
    if (m_panels.count(window) != 0) {
        DropPanel(window);
        return Shown(window);
    }
    delete Find(window);
    m_widgets.erase(window);
    Make(window);
}

void QtWindows::Styled(HWND window)
{
    // One that stood by itself may have become part of another, or left it.
    const auto found = m_panels.find(window);
    const QWidget* shown = found != m_panels.end() ? found->second.data() : Find(window);
    if (shown != nullptr && m_docks.count(window) == 0 && shown->isWindow() == FindWindowOf(window)->IsChild())
        return Reparented(window);
    if (WindowWidget* widget = Find(window))
        widget->setEnabled(FindWindowOf(window)->IsEnabled());
}

void QtWindows::Shown(HWND window)
{
    if (QWidget* panel = Panel(window))
        return panel->setVisible(FindWindowOf(window)->IsVisible());
    if (WindowWidget* widget = Make(window); widget != nullptr && m_docks.count(window) == 0)
        widget->setVisible(FindWindowOf(window)->IsVisible());
}

void QtWindows::TextChanged(HWND window)
{
    const NativeWindow* now = FindWindowOf(window);
    if (WindowWidget* widget = Find(window))
        widget->setWindowTitle(ToQt(now->Text()));
    if (const auto dock = m_docks.find(window); dock != m_docks.end() && dock->second)
        dock->second->setWindowTitle(ToQt(now->Text()));
}

void QtWindows::PixelsChanged(HWND window)
{
    if (WindowWidget* widget = Find(window))
        widget->update();
}

void QtWindows::FocusChanged(HWND window)
{
    if (WindowWidget* widget = Find(window))
        widget->setFocus();
}

void QtWindows::CursorChanged(WORD shape)
{
    Qt::CursorShape cursor = shape == 0 ? Qt::BlankCursor : Qt::ArrowCursor;
    for (const CursorRow& row : g_cursors)
        if (row.shape == shape)
            cursor = row.cursor;
    for (const auto& [window, widget] : m_widgets)
        if (widget && (widget->underMouse() || window == CaptureWindow()))
            widget->setCursor(cursor);
}

// --- menus, docks, texts ---

UINT QtWindows::TrackMenu(HWND owner, const MenuModel& model, POINT at)
{
    QMenu menu(&m_main);
    menu.setObjectName(QStringLiteral("trackedMenu"));
    Fill(menu, model.items);
    QPoint place(at.x, at.y);
    if (const WindowWidget* widget = Find(owner)) {
        const POINT origin = ClientOrigin(owner);
        place = widget->mapToGlobal(place - QPoint(origin.x, origin.y));
    }
    const QAction* chosen = menu.exec(place);
    return chosen == nullptr ? 0 : chosen->data().toUInt();
}

QDockWidget* QtWindows::DockOf(HWND bar)
{
    if (const auto found = m_docks.find(bar); found != m_docks.end() && found->second)
        return found->second;
    const NativeWindow* window = FindWindowOf(bar);
    auto* dock = new QDockWidget(ToQt(window->Text()), &m_main);
    dock->setObjectName(QStringLiteral("bar.%1").arg(window->id));
    delete Find(bar);
    auto* widget = new WindowWidget(bar, dock);
    m_widgets[bar] = widget;
    widget->setMinimumSize(40, 40);
    dock->setWidget(widget);
    m_docks[bar] = dock;
    new DockCloser(*dock, bar);
    const auto tell = [this, bar](DockSide side) {
        if (!m_isDocking)
            CallNativeWindow(bar, kBarDockedMessage, WPARAM(side), 0);
    };
    QObject::connect(dock, &QDockWidget::topLevelChanged, dock, [tell](bool isFloating) {
        if (isFloating)
            tell(DockSide::Floating);
    });
    QObject::connect(dock, &QDockWidget::dockLocationChanged, dock, [tell](Qt::DockWidgetArea area) {
        for (const SideRow& row : g_sides)
            if (row.area == area)
                tell(row.side);
    });
    return dock;
}

bool QtWindows::Dock(const DockRequest& request)
{
    if (FindWindowOf(request.bar) == nullptr)
        return false;
    m_isDocking = true;
    QDockWidget* dock = DockOf(request.bar);
    const RECT& floating = request.floating;
    const QSize size(std::max(40, int(floating.right - floating.left)),
                     std::max(40, int(floating.bottom - floating.top)));
    Qt::DockWidgetAreas allowed;
    for (const SideRow& row : g_sides)
        if ((request.allowed & row.align) != 0)
            allowed |= row.area;
    dock->setAllowedAreas(allowed);
    if (request.side == DockSide::Floating) {
        if (m_main.dockWidgetArea(dock) == Qt::NoDockWidgetArea)
            m_main.addDockWidget(Qt::LeftDockWidgetArea, dock);
        dock->setFloating(true);
        dock->move(floating.left, floating.top);
        dock->resize(size);
    } else {
        for (const SideRow& row : g_sides)
            if (row.side == request.side && (m_main.dockWidgetArea(dock) != row.area || dock->isFloating())) {
                dock->setFloating(false);
                m_main.addDockWidget(row.area, dock);
                m_main.resizeDocks({dock}, {size.width()}, Qt::Horizontal);
                m_main.resizeDocks({dock}, {size.height()}, Qt::Vertical);
            }
    }
    dock->setVisible(request.isVisible);
    WindowWidget* widget = Find(request.bar);
    widget->LeadSize();
    MakeChildren(request.bar);
    m_isDocking = false;
    return true;
}

TextMask QtWindows::DrawnText(std::wstring_view text, int height)
{
    QFont font;
    font.setPixelSize(std::max(1, height));
    const QFontMetrics metrics(font);
    const QString shown = ToQt(text);
    QImage image(std::max(1, metrics.horizontalAdvance(shown)), std::max(1, metrics.height()),
                 QImage::Format_Grayscale8);
    image.fill(0);
    QPainter painter(&image);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(0, metrics.ascent(), shown);
    painter.end();
    TextMask mask;
    mask.width = image.width();
    mask.height = image.height();
    for (int y = 0; y < image.height(); ++y)
        mask.coverage.insert(mask.coverage.end(), image.constScanLine(y), image.constScanLine(y) + image.width());
    return mask;
}

// --- messages ---

void QtWindows::WorkPending(DWORD milliseconds)
{
    const int wait = int(std::min<DWORD>(milliseconds, 1000));
    if (!m_work.isActive() || m_work.remainingTime() > wait)
        m_work.start(wait);
}

void QtWindows::Work()
{
    PumpWindows();
    for (const auto& [window, panel] : m_panels)
        if (panel && panel->isVisible())
            FollowModelPanel(*panel);
    if (HasWaitingMessages())
        WorkPending(0);
}

}   // namespace KxDesktop
