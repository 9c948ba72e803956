// Windows of modules on the screen: bars in docks, windows that draw themselves, dialogs that stay.
#include "Desk.h"
#include "mfc/CAdUiDockControlBar.h"
#include "mfc/CDC.h"
#include "mfc/CDialog.h"
#include "mfc/CFrameWnd.h"
#include <QDockWidget>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QTest>

using namespace KxTest;

namespace {

constexpr UINT kAboutDialog = 204, kProductLabel = 1009;   // of the base module's resources

// Fills its bar, red all over, and remembers where it was clicked.
class RedWindow : public CWnd {
public:
    CPoint clicked{-1, -1};

protected:
    void OnPaint()
    {
        CPaintDC dc(this);
        CRect all;
        GetClientRect(all);
        dc.FillSolidRect(all, RGB(255, 0, 0));
    }
    void OnLButtonDown(UINT, CPoint place) { clicked = place; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(RedWindow, CWnd)
ON_WM_PAINT()
ON_WM_LBUTTONDOWN()
END_MESSAGE_MAP()

class TestBar : public CAdUiDockControlBar {
public:
    CWnd* shown = nullptr;

protected:
    void SizeChanged(CRect* rect, int, int) override
    {
        if (shown == nullptr)
            return;
        shown->SetParent(this);
        shown->ModifyStyle(0xFFFFFFFF, WS_CHILD | WS_VISIBLE);
        shown->MoveWindow(rect->left, rect->top + 2, rect->Width(), rect->Height() - 2);
    }
};

QDockWidget* Dock()
{
    return FindAs<QDockWidget>(QStringLiteral("bar.501"));
}

}   // namespace

TEST(DesktopModuleWindows, ABarIsADockWithTheModulesWindowInIt)
{
    Desk desk;
    RedWindow red;
    TestBar bar;
    ASSERT_TRUE(red.CreateEx(0, nullptr, L"", WS_POPUP, CRect(0, 0, 50, 50), AfxGetMainFrame(), 0));
    bar.shown = &red;
    ASSERT_TRUE(bar.Create(AfxGetMainFrame(), L"图纸", 501, WS_CHILD | WS_VISIBLE, CRect(0, 0, 220, 150)));
    desk.Do({
        Until([] {
            QDockWidget* dock = Dock();
            return dock != nullptr && PixelsOf(dock->widget()->grab().toImage(), qRgb(255, 0, 0)) > 10000;
        }),
        Check([&] {
            EXPECT_EQ(Dock()->windowTitle(), QStringLiteral("图纸"));
            EXPECT_FALSE(Dock()->isFloating());
            const QImage picture = Dock()->widget()->grab().toImage();
            EXPECT_NE(picture.pixel(5, 0), qRgb(255, 0, 0)) << "the gap above";
            QWidget* inside = Dock()->widget()->childAt(20, 30);
            ASSERT_NE(inside, nullptr);
            QTest::mouseClick(inside, Qt::LeftButton, {}, QPoint(20, 30));
            EXPECT_EQ(red.clicked, CPoint(20, 30));
            bar.FloatControlBar(CPoint(60, 70));
            EXPECT_TRUE(Dock()->isFloating());
            bar.DockControlBar(AFX_IDW_DOCKBAR_RIGHT);
            EXPECT_FALSE(Dock()->isFloating());
            bar.ShowControlBar(FALSE);
            EXPECT_EQ(Dock(), nullptr);
            bar.ShowControlBar(TRUE);
            EXPECT_NE(Dock(), nullptr);
            bar.DestroyWindow();
            EXPECT_EQ(Dock(), nullptr);
        }),
    });
}

TEST(DesktopModuleWindows, ADialogStaysInABar)
{
    Desk desk;
    TestBar bar;
    CDialog dialog;
    ASSERT_TRUE(bar.Create(AfxGetMainFrame(), L"关于", 501, WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 200)));
    ASSERT_TRUE(dialog.Create(kAboutDialog, &bar));
    bar.shown = &dialog;
    bar.MoveWindow(0, 0, 301, 201);
    desk.Do({
        Until([] { return Find(QStringLiteral("modelPanel")) != nullptr; }),
        Check([&] {
            QWidget* panel = Find(QStringLiteral("modelPanel"));
            EXPECT_FALSE(panel->isWindow());
            EXPECT_EQ(panel->window(), Dock()->window());
            EXPECT_EQ(panel->y(), 2);
            dialog.SetDlgItemText(kProductLabel, L"图层工具");
            bar.PostMessage(WM_NULL);
        }),
        Until([] {
            for (const QLabel* label : Find(QStringLiteral("modelPanel"))->findChildren<QLabel*>())
                if (label->text() == QStringLiteral("图层工具"))
                    return true;
            return false;
        }),
        Check([] {
            for (QPushButton* button : Find(QStringLiteral("modelPanel"))->findChildren<QPushButton*>())
                button->click();
            EXPECT_EQ(Find(QStringLiteral("modelPanel")), nullptr) << "OK ends the dialog";
        }),
    });
    bar.DestroyWindow();
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}
