#include "WindowWidget.h"
#include "ui/WindowQueue.h"
#include "ui/WindowTable.h"
#include <QCloseEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

using namespace KxPlat;

namespace KxDesktop {

namespace {

struct ButtonRow {
    Qt::MouseButton button;
    UINT down, up, twice;
    WPARAM key;
};

const ButtonRow g_buttons[] = {
    {Qt::LeftButton, 0x0201, 0x0202, 0x0203, 0x0001},
    {Qt::RightButton, 0x0204, 0x0205, 0x0206, 0x0002},
    {Qt::MiddleButton, 0x0207, 0x0208, 0x0209, 0x0010},
};
constexpr UINT kMouseMove = 0x0200, kMouseWheel = 0x020A, kKeyDown = 0x0100, kKeyUp = 0x0101, kChar = 0x0102;
constexpr WPARAM kShift = 0x0004, kControl = 0x0008;

// Keys that have another number than their letter.
struct KeyRow {
    int key;
    WPARAM code;
};
const KeyRow g_keys[] = {
    {Qt::Key_Backspace, 0x08}, {Qt::Key_Tab, 0x09},     {Qt::Key_Return, 0x0D},   {Qt::Key_Enter, 0x0D},
    {Qt::Key_Shift, 0x10},     {Qt::Key_Control, 0x11}, {Qt::Key_Alt, 0x12},      {Qt::Key_Escape, 0x1B},
    {Qt::Key_Space, 0x20},     {Qt::Key_PageUp, 0x21},  {Qt::Key_PageDown, 0x22}, {Qt::Key_End, 0x23},
    {Qt::Key_Home, 0x24},      {Qt::Key_Left, 0x25},    {Qt::Key_Up, 0x26},       {Qt::Key_Right, 0x27},
    {Qt::Key_Down, 0x28},      {Qt::Key_Insert, 0x2D},  {Qt::Key_Delete, 0x2E},
};

WPARAM CodeOf(int key)
{
    for (const KeyRow& row : g_keys)
        if (row.key == key)
            return row.code;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12)
        return WPARAM(0x70 + key - Qt::Key_F1);
    return key < 0x100 ? WPARAM(key) : 0;
}

WPARAM KeysOf(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers)
{
    WPARAM keys = 0;
    for (const ButtonRow& row : g_buttons)
        if ((buttons & row.button) != 0)
            keys |= row.key;
    if ((modifiers & Qt::ShiftModifier) != 0)
        keys |= kShift;
    if ((modifiers & Qt::ControlModifier) != 0)
        keys |= kControl;
    return keys;
}

void Deliver(HWND window, UINT message, const QMouseEvent& event)
{
    const QPoint place = event.position().toPoint();
    DeliverMouse(window, message, KeysOf(event.buttons(), event.modifiers()), {place.x(), place.y()});
}

const ButtonRow* RowOf(Qt::MouseButton button)
{
    for (const ButtonRow& row : g_buttons)
        if (row.button == button)
            return &row;
    return nullptr;
}

}   // namespace

WindowWidget::WindowWidget(HWND window, QWidget* parent, Qt::WindowFlags flags)
    : QWidget(parent, flags), m_window(window)
{
    setObjectName(QStringLiteral("window.%1").arg(reinterpret_cast<quintptr>(window)));
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void WindowWidget::paintEvent(QPaintEvent*)
{
    PaintNow(m_window);
    QPainter painter(this);
    NativeWindow* window = FindWindowOf(m_window);
    if (window == nullptr || window->Width() <= 0 || window->Height() <= 0) {
        painter.fillRect(rect(), palette().window());
        return;
    }
    const std::vector<uint32_t>& pixels = window->Pixels();
    const QImage image(reinterpret_cast<const uchar*>(pixels.data()), window->Width(), window->Height(),
                       qsizetype(window->Width()) * 4, QImage::Format_RGB32);
    painter.fillRect(rect(), palette().window());
    painter.drawImage(0, 0, image);
}

void WindowWidget::resizeEvent(QResizeEvent*)
{
    const NativeWindow* window = FindWindowOf(m_window);
    if (window == nullptr || !m_leadsSize)
        return;
    const RECT now = window->rect;
    PlaceWindow(m_window, {now.left, now.top, now.left + width(), now.top + height()});
}

void WindowWidget::mousePressEvent(QMouseEvent* event)
{
    if (const ButtonRow* row = RowOf(event->button()))
        Deliver(m_window, row->down, *event);
}

void WindowWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (const ButtonRow* row = RowOf(event->button()))
        Deliver(m_window, row->up, *event);
}

void WindowWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (const ButtonRow* row = RowOf(event->button()))
        Deliver(m_window, row->twice, *event);
}

void WindowWidget::mouseMoveEvent(QMouseEvent* event)
{
    Deliver(m_window, kMouseMove, *event);
}

void WindowWidget::wheelEvent(QWheelEvent* event)
{
    const QPoint place = event->position().toPoint();
    const WPARAM delta = WPARAM(WORD(short(event->angleDelta().y()))) << 16;
    DeliverMouse(m_window, kMouseWheel, KeysOf(event->buttons(), event->modifiers()) | delta, {place.x(), place.y()});
}

void WindowWidget::keyPressEvent(QKeyEvent* event)
{
    if (const WPARAM code = CodeOf(event->key()); code != 0)
        DeliverMessage(m_window, kKeyDown, code, 1);
    for (const QChar letter : event->text())
        DeliverMessage(m_window, kChar, letter.unicode(), 1);
}

void WindowWidget::keyReleaseEvent(QKeyEvent* event)
{
    if (const WPARAM code = CodeOf(event->key()); code != 0)
        DeliverMessage(m_window, kKeyUp, code, LPARAM(0xC0000001));
}

void WindowWidget::focusInEvent(QFocusEvent*)
{
    FocusOn(m_window);
}

// The window decides itself whether it goes.
void WindowWidget::closeEvent(QCloseEvent* event)
{
    event->ignore();
    CallNativeWindow(m_window, WM_CLOSE);
}

}   // namespace KxDesktop
