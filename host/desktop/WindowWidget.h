// One native window of a module on the screen: its pixels, and the way of the mouse and the keys to it.
#pragma once
#include "win/KxWinTypes.h"
#include <QWidget>

namespace KxDesktop {

class WindowWidget : public QWidget {
public:
    WindowWidget(HWND window, QWidget* parent, Qt::WindowFlags flags = {});

    HWND Window() const { return m_window; }
    // From now on the native window follows the size of the widget.
    void LeadSize() { m_leadsSize = true; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent*) override {}

private:
    HWND m_window;
    bool m_leadsSize = false;
};

}   // namespace KxDesktop
