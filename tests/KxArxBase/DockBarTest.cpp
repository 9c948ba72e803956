#include "KxArxBase/KxAdUiDockControlBar.h"
#include "ui/WindowBackend.h"
#include "ui/WindowTable.h"
#include <gtest/gtest.h>

namespace {

class TestBar : public KxArxBase::CKxAdUiDockControlBar {
public:
    bool closes = true;
    int sizes = 0;
    CRect last;

protected:
    void SizeChanged(CRect* rect, int isFloating, int flags) override
    {
        ++sizes;
        last = *rect;
        CKxAdUiDockControlBar::SizeChanged(rect, isFloating, flags);
        EXPECT_EQ(CRect(*rect), last) << "the base's rectangle stays";
    }
    bool OnClosing() override { return closes; }
};

CRect InParent(const CWnd& window)
{
    return KxPlat::FindWindowOf(window.m_hWnd)->rect;
}

// A window as a module makes it, with styles that do not belong into a bar.
struct Shown : CWnd {
    Shown()
    {
        EXPECT_TRUE(CreateEx(WS_EX_TOOLWINDOW, nullptr, L"", WS_POPUP | WS_CAPTION | WS_THICKFRAME, CRect(5, 5, 45, 25),
                             nullptr, 0));
    }
};

class DockBar : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_bar.Create(acedGetAcadFrame(), L"图纸", 501, WS_CHILD | WS_VISIBLE, CRect(0, 0, 200, 120)));
    }
    void TearDown() override { m_bar.DestroyWindow(); }
    TestBar m_bar;
};

}   // namespace

TEST_F(DockBar, WithoutAWindowItResizesWithoutError)
{
    m_bar.sizes = 0;
    m_bar.MoveWindow(0, 0, 90, 80);
    EXPECT_EQ(m_bar.sizes, 1);
    EXPECT_EQ(m_bar.last, CRect(0, 0, 90, 80));
    EXPECT_EQ(m_bar.GetShowWnd(), nullptr);
    m_bar.SetShowWnd(nullptr);
    m_bar.MoveWindow(0, 0, 91, 80);
}

TEST_F(DockBar, TheShowWindowBecomesAChildWithTheBarsStyles)
{
    Shown shown;
    m_bar.SetShowWnd(&shown);
    EXPECT_EQ(m_bar.GetShowWnd(), &shown);
    EXPECT_EQ(shown.GetParent(), &m_bar);
    EXPECT_EQ(shown.GetStyle(), 0x50000044u);
    EXPECT_EQ(shown.GetExStyle(), 0u);
    EXPECT_EQ(InParent(shown).Size(), CSize(40, 20)) << "its size comes with the bar's";
    m_bar.SetShowWnd(nullptr);
    EXPECT_EQ(m_bar.GetShowWnd(), nullptr);
    EXPECT_TRUE(::IsWindow(shown.m_hWnd)) << "it is the caller's";
}

TEST_F(DockBar, AfterEachResizeItFillsTheBarBelowTwoPixels)
{
    Shown shown;
    m_bar.SetShowWnd(&shown);
    struct Row {
        int width, height;
    };
    for (const Row& row : {Row{300, 200}, Row{10, 500}, Row{301, 2}}) {
        shown.ModifyStyle(0x44, WS_BORDER);   // what others did meanwhile is undone
        shown.ShowWindow(SW_HIDE);
        m_bar.MoveWindow(0, 0, row.width, row.height);
        EXPECT_EQ(InParent(shown), CRect(0, 2, row.width, row.height));
        EXPECT_EQ(shown.GetStyle(), 0x50000044u);
        EXPECT_TRUE(shown.IsWindowVisible());
    }
}

TEST_F(DockBar, IsDockedAtTheSidesThatItAllowsAndFloats)
{
    Shown shown;
    m_bar.SetShowWnd(&shown);
    CRect frame;
    acedGetAcadFrame()->GetClientRect(frame);
    EXPECT_FALSE(m_bar.IsFloating());
    EXPECT_EQ(InParent(m_bar), CRect(0, 0, 200, frame.Height())) << "at the left at first";
    m_bar.DockControlBar(AFX_IDW_DOCKBAR_RIGHT);
    EXPECT_EQ(InParent(m_bar), CRect(frame.Width() - 200, 0, frame.Width(), frame.Height()));
    m_bar.EnableDocking(CBRS_ALIGN_LEFT | CBRS_ALIGN_RIGHT);
    m_bar.DockControlBar(AFX_IDW_DOCKBAR_BOTTOM);
    EXPECT_EQ(m_bar.GetDockBar(), AFX_IDW_DOCKBAR_RIGHT) << "not allowed there";
    m_bar.FloatControlBar(CPoint(30, 40));
    EXPECT_TRUE(m_bar.IsFloating());
    EXPECT_EQ(InParent(m_bar).TopLeft(), CPoint(30, 40));
    m_bar.MoveWindow(30, 40, 150, 100);
    EXPECT_EQ(InParent(shown), CRect(0, 2, 150, 100));
}

TEST_F(DockBar, ItsCrossHidesItUnlessItObjects)
{
    m_bar.closes = false;
    m_bar.SendMessage(WM_CLOSE);
    EXPECT_TRUE(m_bar.IsWindowVisible());
    m_bar.closes = true;
    m_bar.SendMessage(WM_CLOSE);
    EXPECT_FALSE(m_bar.IsWindowVisible());
    EXPECT_TRUE(::IsWindow(m_bar.m_hWnd)) << "hidden, not destroyed";
    m_bar.ShowControlBar(TRUE);
    EXPECT_TRUE(m_bar.IsWindowVisible());
}

TEST(DockBarBackend, HearsWhereABarIsAndTellsWhereItWent)
{
    struct Backend : KxPlat::WindowBackend {
        KxPlat::DockRequest last;
        Backend() { KxPlat::SetWindowBackend(this); }
        ~Backend() override { KxPlat::SetWindowBackend(nullptr); }
        bool Dock(const KxPlat::DockRequest& request) override
        {
            last = request;
            KxPlat::PlaceWindow(request.bar, {7, 8, 107, 208});
            return true;
        }
    } backend;
    TestBar bar;
    Shown shown;
    bar.Create(acedGetAcadFrame(), L"图纸", 502);
    bar.SetShowWnd(&shown);
    bar.DockControlBar(AFX_IDW_DOCKBAR_TOP);
    EXPECT_EQ(backend.last.bar, bar.m_hWnd);
    EXPECT_EQ(backend.last.side, KxPlat::DockSide::Top);
    EXPECT_EQ(backend.last.allowed, CBRS_ALIGN_ANY);
    KxPlat::PlaceWindow(bar.m_hWnd, {0, 0, 60, 70});   // the user drags its edge
    EXPECT_EQ(InParent(shown), CRect(0, 2, 60, 70));
    bar.SendMessage(KxPlat::kBarDockedMessage, WPARAM(KxPlat::DockSide::Floating));
    EXPECT_TRUE(bar.IsFloating());
    bar.SendMessage(KxPlat::kBarDockedMessage, WPARAM(KxPlat::DockSide::Bottom));
    EXPECT_EQ(bar.GetDockBar(), AFX_IDW_DOCKBAR_BOTTOM);
    bar.ShowControlBar(FALSE);
    EXPECT_FALSE(backend.last.isVisible);
}
