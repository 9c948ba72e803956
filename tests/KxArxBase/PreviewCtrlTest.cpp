#include "DrawingTest.h"
#include "ed/Session.h"
#include "KxArxBase/KxAcDbPreviewCtrl.h"
#include "resources/resource.h"
#include "ui/WindowBackend.h"
#include "ui/WindowQueue.h"
#include "ui/WindowTable.h"
#include "win/Files.h"
#include <cmath>
#include <map>

namespace KxTest {

namespace {

class TestCtrl : public KxArxBase::CKxAcDbPreviewCtrl {
public:
    AcGsView* view() const { return m_view; }
    uint32_t mode() const { return m_mode; }
    bool IsChecked(UINT id)
    {
        CMenu* menu = m_menu.GetSubMenu(0);
        return menu != nullptr && (menu->GetMenuState(id, MF_BYCOMMAND) & MF_CHECKED) != 0;
    }
    // Those of the four modes and the lock, in the menu's order.
    std::string Checks()
    {
        std::string checks;
        const std::pair<UINT, char> items[] = {
            {ID_PREVIEW_PAN, 'p'}, {ID_PREVIEW_ZOOM, 'z'}, {ID_PREVIEW_ORBIT, 'o'}, {ID_PREVIEW_LOCK_ZOOM, 'l'}};
        for (const auto& [id, letter] : items)
            checks += IsChecked(id) ? letter : '-';
        return checks;
    }
    using CKxAcDbPreviewCtrl::GetActiveViewPortInfo;
};

class MenuBackend : public KxPlat::WindowBackend {
public:
    MenuBackend() { KxPlat::SetWindowBackend(this); }
    ~MenuBackend() override { KxPlat::SetWindowBackend(nullptr); }
    UINT choice = 0;
    int shown = 0;
    POINT place = {0, 0};
    std::map<UINT, std::wstring> texts;

    UINT TrackMenu(HWND, const KxPlat::MenuModel& menu, POINT at) override
    {
        ++shown;
        place = at;
        Collect(menu.items);
        return choice;
    }

private:
    void Collect(const std::vector<KxPlat::MenuModel::Item>& items)
    {
        for (const KxPlat::MenuModel::Item& item : items) {
            if (item.id != 0)
                texts[item.id] = item.text;
            Collect(item.below);
        }
    }
};

// A diagonal through a box of 100 by 50 by 20, seen from above in 200 by 100 pixels: the field of 105 by 52.5 fits
// exactly, so one unit is 200 / 105 pixels.
class Preview : public Drawing {
protected:
    static constexpr double kScale = 200.0 / 105;

    void SetUp() override
    {
        AcDbLine* line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(100, 50, 20));
        ASSERT_EQ(db.AddEntToSpace(line, 1), Acad::eOk);
        ASSERT_TRUE(parent.CreateEx(0, nullptr, L"", WS_POPUP | WS_VISIBLE, CRect(300, 200, 700, 500), nullptr, 0));
        ASSERT_TRUE(ctrl.Create(nullptr, L"", WS_CHILD | WS_VISIBLE, CRect(20, 10, 220, 110), &parent, 900));
        ctrl.SetAcDb(&drawing);
        ASSERT_NE(ctrl.view(), nullptr);
        ctrl.SetViewMode(ID_PREVIEW_TOP);
    }
    void TearDown() override
    {
        ctrl.Clear();
        parent.DestroyWindow();
        Drawing::TearDown();
    }

    void Command(UINT id) { ctrl.SendMessage(WM_COMMAND, id); }
    void Send(UINT message, int x, int y, WPARAM keys = 0)
    {
        ctrl.SendMessage(message, keys, MAKELPARAM(WORD(x), WORD(y)));
    }
    void Drag(int x1, int y1, int x2, int y2)
    {
        Send(WM_LBUTTONDOWN, x1, y1, MK_LBUTTON);
        Send(WM_MOUSEMOVE, x2, y2, MK_LBUTTON);
        Send(WM_LBUTTONUP, x2, y2);
    }
    void Wheel(int delta, int x, int y)
    {
        CPoint place(x, y);
        ctrl.ClientToScreen(&place);
        ctrl.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, WORD(delta)), MAKELPARAM(WORD(place.x), WORD(place.y)));
    }
    // Client coordinates, y down.
    AcGePoint2d Seen(const AcGePoint3d& point)
    {
        AcGePoint3d device = point;
        device.transformBy(ctrl.view()->worldToDeviceMatrix());
        return AcGePoint2d(device.x, 100 - device.y);
    }
    AcGePoint3d Under(double x, double y)
    {
        AcGePoint3d world(x, 100 - y, 0);
        world.transformBy(ctrl.view()->worldToDeviceMatrix().inverse());
        return world;
    }
    double Scale() { return std::min(200 / ctrl.view()->fieldWidth(), 100 / ctrl.view()->fieldHeight()); }
    void ExpectSeen(const AcGePoint3d& point, double x, double y)
    {
        EXPECT_NEAR(Seen(point).x, x, 1e-6);
        EXPECT_NEAR(Seen(point).y, y, 1e-6);
    }
    void ExpectDirection(double x, double y, double z)
    {
        const AcGeVector3d toEye = (ctrl.view()->position() - ctrl.view()->target()).normal();
        EXPECT_NEAR(toEye.x, x, 1e-6);
        EXPECT_NEAR(toEye.y, y, 1e-6);
        EXPECT_NEAR(toEye.z, z, 1e-6);
    }

    CWnd parent;
    TestCtrl ctrl;
};

}   // namespace

TEST_F(Preview, MenuItemsTurnModesAndChecks)
{
    struct Row {
        UINT id;
        const char* checks;
        uint32_t mode;
    };
    const Row rows[] = {
        {0, "p---", 1},
        {ID_PREVIEW_WINDOW_ZOOM, "p---", 9},
        {ID_PREVIEW_ORBIT, "--o-", 2},
        {ID_PREVIEW_ZOOM, "-z--", 4},
        {ID_PREVIEW_WINDOW_ZOOM, "-z--", 12},
        {ID_PREVIEW_LOCK_ZOOM, "p--l", 17},   // from zoom mode: back to panning
        {ID_PREVIEW_ZOOM, "p--l", 17},        // locked
        {ID_PREVIEW_WINDOW_ZOOM, "p--l", 17},
        {ID_PREVIEW_ORBIT, "--ol", 18},
        {ID_PREVIEW_LOCK_ZOOM, "--o-", 2},   // orbiting goes on
        {ID_PREVIEW_PAN, "p---", 1},
        {ID_PREVIEW_PAN, "p---", 1},
    };
    for (const Row& row : rows) {
        if (row.id != 0)
            Command(row.id);
        EXPECT_EQ(ctrl.Checks(), row.checks) << row.id;
        EXPECT_EQ(ctrl.mode(), row.mode) << row.id;
    }
}

TEST_F(Preview, PresetViewsLookWhereTheirNamesSay)
{
    const double s = std::sqrt(1.0 / 3);
    struct Row {
        UINT id;
        double direction[3], up[3];
    };
    const Row rows[] = {
        {32782, {0, 0, 1}, {0, 1, 0}},   {32783, {0, 0, -1}, {0, 1, 0}}, {32784, {0, -1, 0}, {0, 0, 1}},
        {32785, {0, 1, 0}, {0, 0, 1}},   {32786, {-1, 0, 0}, {0, 0, 1}}, {32787, {1, 0, 0}, {0, 0, 1}},
        {32788, {-s, -s, s}, {0, 0, 1}}, {32789, {s, -s, s}, {0, 0, 1}}, {32790, {s, s, s}, {0, 0, 1}},
        {32791, {-s, s, s}, {0, 0, 1}},
    };
    for (const bool isPerspective : {false, true}) {
        Command(isPerspective ? ID_PREVIEW_PERSPECTIVE : ID_PREVIEW_PARALLEL);
        EXPECT_EQ(ctrl.IsChecked(ID_PREVIEW_PERSPECTIVE), isPerspective);
        EXPECT_EQ(ctrl.IsChecked(ID_PREVIEW_PARALLEL), !isPerspective);
        for (const Row& row : rows) {
            SCOPED_TRACE(row.id);
            Command(row.id);
            const AcGsView& view = *ctrl.view();
            ExpectDirection(row.direction[0], row.direction[1], row.direction[2]);
            EXPECT_TRUE(view.target().isEqualTo(AcGePoint3d(50, 25, 10)));
            EXPECT_NEAR(view.fieldWidth(), 105, 1e-9);
            EXPECT_NEAR(view.fieldHeight(), 52.5, 1e-9);
            EXPECT_EQ(view.isPerspective(), isPerspective);
            // The up vector may be given square to the direction.
            EXPECT_GT(view.upVector().dotProduct(AcGeVector3d(row.up[0], row.up[1], row.up[2])), 0.5);
            if (isPerspective) {
                EXPECT_NEAR((view.position() - view.target()).length(), 100000, 1e-6);
            }
        }
    }
    Command(ID_PREVIEW_TOP);
    Command(ID_PREVIEW_PARALLEL);
    const AcGePoint2d corner = Seen(AcGePoint3d(100, 50, 0));
    EXPECT_GT(corner.x, 100);
    EXPECT_LT(corner.y, 50) << "above the middle";
}

TEST_F(Preview, RenderModesAreThoseOfTheMenu)
{
    for (UINT id = ID_PREVIEW_WIREFRAME; id <= ID_PREVIEW_GOURAUD_EDGES; ++id) {
        Command(id);
        EXPECT_EQ(int(ctrl.view()->mode()), int(id) - 32774 + 2);
        for (UINT other = ID_PREVIEW_WIREFRAME; other <= ID_PREVIEW_GOURAUD_EDGES; ++other)
            EXPECT_EQ(ctrl.IsChecked(other), other == id);
    }
    ctrl.SetRenderMode(ID_PREVIEW_TOP);
    EXPECT_TRUE(ctrl.IsChecked(ID_PREVIEW_GOURAUD_EDGES)) << "no render mode";
}

TEST_F(Preview, TheWheelKeepsThePointUnderTheCursor)
{
    struct Row {
        std::vector<int> deltas;
        double factor;
    };
    const Row rows[] = {{{120}, 1.5},
                        {{0}, 1.5},
                        {{1200}, 1.5},
                        {{-120}, 0.5},
                        {{-1}, 0.5},
                        {{120, 120}, 2.25},
                        {{-120, -120}, 0.25},
                        {{120, 120, -120, -120}, 1},
                        {{120, -120, -120}, 0.5}};
    for (const Row& row : rows) {
        for (const CPoint place : {CPoint(100, 50), CPoint(13, 7), CPoint(199, 99), CPoint(60, 90)}) {
            ctrl.SetViewMode(ID_PREVIEW_TOP);
            const AcGePoint3d under = Under(place.x, place.y);
            for (const int delta : row.deltas)
                Wheel(delta, place.x, place.y);
            EXPECT_NEAR(Scale(), kScale * row.factor, 1e-9);
            ExpectSeen(under, place.x, place.y);
        }
    }
}

TEST_F(Preview, TheWheelKeepsThePointInSlantedViews)
{
    ctrl.SetViewMode(ID_PREVIEW_SOUTH_WEST);
    const AcGePoint3d under = Under(40, 30);
    for (const int delta : {120, 120, -120, -120})
        Wheel(delta, 40, 30);
    EXPECT_NEAR(Scale(), kScale, 1e-9);
    ExpectSeen(under, 40, 30);
}

TEST_F(Preview, AWheelElsewhereStartsAnew)
{
    Wheel(120, 100, 50);
    Wheel(-120, 101, 50);
    EXPECT_NEAR(Scale(), kScale * 0.75, 1e-9);
}

TEST_F(Preview, ALeftDragPansAndTheDrawingFollowsTheMouse)
{
    const AcGePoint3d under = Under(50, 60);
    Send(WM_LBUTTONDOWN, 50, 60, MK_LBUTTON);
    EXPECT_EQ(CWnd::GetCapture(), &ctrl);
    EXPECT_EQ(CWnd::GetFocus(), &ctrl);
    EXPECT_EQ(KxPlat::CursorShape(), 32515);
    for (const CPoint place : {CPoint(60, 50), CPoint(-30, 250), CPoint(80, 30)}) {
        Send(WM_MOUSEMOVE, place.x, place.y, MK_LBUTTON);
        ExpectSeen(under, place.x, place.y);
    }
    Send(WM_LBUTTONUP, 80, 30);
    EXPECT_EQ(CWnd::GetCapture(), nullptr);
    Send(WM_MOUSEMOVE, 10, 10);
    ExpectSeen(under, 80, 30);
    EXPECT_NEAR(Scale(), kScale, 1e-9);
}

TEST_F(Preview, TheMiddleButtonPansInEveryMode)
{
    for (const UINT mode : {UINT(ID_PREVIEW_ORBIT), UINT(ID_PREVIEW_ZOOM), UINT(ID_PREVIEW_PAN)}) {
        Command(mode);
        const AcGePoint3d under = Under(100, 50);
        Send(WM_MBUTTONDOWN, 100, 50, MK_MBUTTON);
        Send(WM_MOUSEMOVE, 120, 40, MK_MBUTTON);
        ExpectSeen(under, 120, 40);
        Send(WM_MBUTTONUP, 120, 40);
        EXPECT_EQ(CWnd::GetCapture(), &ctrl);
        Send(WM_MOUSEMOVE, 10, 10);
        ExpectSeen(under, 120, 40);
        ::ReleaseCapture();
    }
}

TEST_F(Preview, AZoomDragUpwardsZoomsIn)
{
    Command(ID_PREVIEW_ZOOM);
    Send(WM_LBUTTONDOWN, 100, 80, MK_LBUTTON);
    struct Row {
        int y;
        double factor;
    };
    for (const Row& row : {Row{60, 1.2}, Row{30, 1.5}, Row{80, 1.0}, Row{130, 0.5}, Row{5000, 0.01}, Row{80, 1.0}}) {
        Send(WM_MOUSEMOVE, 70, row.y, MK_LBUTTON);
        EXPECT_NEAR(Scale(), kScale * row.factor, 1e-5) << row.y;
    }
    Send(WM_LBUTTONUP, 70, 80);
    EXPECT_TRUE(ctrl.view()->target().isEqualTo(AcGePoint3d(50, 25, 10))) << "the middle stays";
}

TEST_F(Preview, LockedALeftDragPans)
{
    Command(ID_PREVIEW_ZOOM);
    Command(ID_PREVIEW_LOCK_ZOOM);
    Command(ID_PREVIEW_WINDOW_ZOOM);
    const AcGePoint3d under = Under(100, 50);
    Drag(100, 50, 90, 20);
    ExpectSeen(under, 90, 20);
    EXPECT_NEAR(Scale(), kScale, 1e-9);
}

TEST_F(Preview, AWindowIsZoomedToOnce)
{
    struct Row {
        int x1, y1, x2, y2;
        double ratio;
    };
    const Row rows[] = {{100, 20, 180, 60, 2.5}, {180, 60, 100, 20, 2.5}, {0, 0, 50, 50, 2}, {10, 10, 110, 20, 2}};
    for (const Row& row : rows) {
        ctrl.SetViewMode(ID_PREVIEW_TOP);
        Command(ID_PREVIEW_WINDOW_ZOOM);
        const AcGePoint3d middle = Under((row.x1 + row.x2) / 2.0, (row.y1 + row.y2) / 2.0);
        Drag(row.x1, row.y1, row.x2, row.y2);
        EXPECT_NEAR(Scale(), kScale * row.ratio, 1e-9);
        ExpectSeen(middle, 100, 50);
        EXPECT_EQ(ctrl.mode(), 1u) << "the next drag pans";
    }
    ctrl.SetViewMode(ID_PREVIEW_TOP);
    Command(ID_PREVIEW_WINDOW_ZOOM);
    Drag(40, 40, 40, 41);
    EXPECT_NEAR(Scale(), kScale, 1e-9) << "a click is no window";
}

TEST_F(Preview, OrbitTurnsTheDrawingAsABall)
{
    Command(ID_PREVIEW_ORBIT);
    const double half = 0.5, root = std::sqrt(0.75);
    // The ball has a radius of 40 pixels: 20 from its middle are 30 degrees.
    Drag(100, 50, 120, 50);
    ExpectDirection(-half, 0, root);
    Command(ID_PREVIEW_TOP);
    Drag(100, 50, 100, 30);
    ExpectDirection(0, -half, root);
    Command(ID_PREVIEW_TOP);
    Drag(100, 50, 199, 50);
    ExpectDirection(-1, 0, 0);
    Command(ID_PREVIEW_TOP);
    Drag(150, 95, 180, 99);
    ExpectDirection(0, 0, 1);   // beside the ball
    EXPECT_TRUE(ctrl.view()->target().isEqualTo(AcGePoint3d(50, 25, 10)));
}

TEST_F(Preview, PaintingShowsTheDrawingAndTheWindowThatIsDragged)
{
    KxPlat::PumpWindows();
    const auto pixel = [&](int x, int y) { return KxPlat::FindWindowOf(ctrl.m_hWnd)->Pixels()[size_t(y * 200 + x)]; };
    const auto lit = [&](int left, int top, int right, int bottom) {
        int count = 0;
        for (int y = top; y < bottom; ++y) {
            for (int x = left; x < right; ++x)
                count += pixel(x, y) != 0;
        }
        return count;
    };
    EXPECT_GT(lit(0, 50, 100, 100), 20) << "the line, from the lower left";
    EXPECT_GT(lit(100, 0, 200, 50), 20);
    EXPECT_EQ(lit(0, 0, 90, 45), 0);
    Command(ID_PREVIEW_WINDOW_ZOOM);
    Send(WM_LBUTTONDOWN, 10, 10, MK_LBUTTON);
    Send(WM_MOUSEMOVE, 60, 30, MK_LBUTTON);
    KxPlat::PumpWindows();
    EXPECT_GT(lit(10, 10, 60, 11), 15) << "its upper edge";
    EXPECT_GT(lit(60, 10, 61, 31), 5);
    EXPECT_EQ(lit(20, 12, 55, 28), 0) << "hollow";
    Send(WM_MOUSEMOVE, 30, 20, MK_LBUTTON);
    KxPlat::PumpWindows();
    EXPECT_EQ(lit(60, 10, 61, 31), 0) << "the old one is gone";
    Send(WM_LBUTTONUP, 30, 20);
}

TEST_F(Preview, TheViewFollowsTheSizeOfTheWindow)
{
    ctrl.MoveWindow(20, 10, 400, 200);
    EXPECT_NEAR((ctrl.view()->worldToDeviceMatrix() * AcGePoint3d(50, 25, 10)).x, 200, 1e-6);
    EXPECT_NEAR((ctrl.view()->worldToDeviceMatrix() * AcGePoint3d(50, 25, 10)).y, 100, 1e-6);
    Wheel(120, 200, 100);
    EXPECT_TRUE(ctrl.view()->target().isEqualTo(AcGePoint3d(50, 25, 10))) << "the new middle";
}

TEST_F(Preview, TheRightButtonShowsTheMenuAtTheCursor)
{
    MenuBackend backend;
    backend.choice = ID_PREVIEW_ORBIT;
    Send(WM_RBUTTONUP, 30, 40);
    EXPECT_EQ(backend.shown, 1);
    EXPECT_EQ(CPoint(backend.place), CPoint(350, 250));
    KxPlat::PumpWindows();
    EXPECT_EQ(ctrl.mode(), 2u);
    EXPECT_EQ(backend.texts.size(), 25u);
    EXPECT_EQ(backend.texts[32769], L"范围缩放");
    EXPECT_EQ(backend.texts[32779], L"带边框体着色");
    EXPECT_EQ(backend.texts[32791], L"西北等轴测");
}

TEST_F(Preview, ExtentsAreShownWholeFromEverySide)
{
    for (const UINT view :
         {UINT(ID_PREVIEW_TOP), UINT(ID_PREVIEW_FRONT), UINT(ID_PREVIEW_LEFT), UINT(ID_PREVIEW_NORTH_EAST)}) {
        ctrl.SetViewMode(view);
        Wheel(120, 0, 0);
        Command(ID_PREVIEW_EXTENTS);
        for (const AcGePoint3d& corner : {AcGePoint3d(0, 0, 0), AcGePoint3d(100, 50, 20), AcGePoint3d(100, 0, 20)}) {
            const AcGePoint2d seen = Seen(corner);
            EXPECT_TRUE(seen.x > 0 && seen.x < 200 && seen.y > 0 && seen.y < 100) << view;
        }
        EXPECT_TRUE(ctrl.view()->target().isEqualTo(AcGePoint3d(50, 25, 10)));
    }
    ctrl.SetViewMode(ID_PREVIEW_FRONT);
    ctrl.ZoomExtent();
    EXPECT_NEAR(ctrl.view()->fieldWidth(), 105, 1e-9);
    EXPECT_NEAR(ctrl.view()->fieldHeight(), 21, 1e-9);
}

TEST_F(Preview, SavesTheDrawingUnderAnotherName)
{
    struct FileUi : TestUi {
        std::wstring path, title, extensions;
        bool forSave = false;
        bool AskFileName(const KxPlat::FileRequest& request, std::wstring& answer) override
        {
            title = request.title;
            extensions = request.extensions;
            forSave = request.forSave;
            answer = path;
            return !path.empty();
        }
        KxPlat::InputEvent Ask(const KxPlat::InputRequest&) override
        {
            KxPlat::InputEvent event;
            event.type = path.empty() ? KxPlat::InputEvent::Type::Cancel : KxPlat::InputEvent::Type::Text;
            event.text = path;
            return event;
        }
    } files;
    const KxPlat::Session session;
    Command(ID_PREVIEW_SAVE_AS);
    EXPECT_EQ(files.shown, L"") << "cancelled";
    files.path = L"C:\\no\\such\\folder\\a.dwg";
    Command(ID_PREVIEW_SAVE_AS);
    EXPECT_EQ(files.shown, L"另存文件失败");
}

TEST_F(Preview, GetsTheViewOfTheActiveViewport)
{
    {
        AcDbViewportTable* table = nullptr;
        ASSERT_EQ(drawing.getSymbolTable(table, AcDb::kForRead), Acad::eOk);
        AcDbViewportTableRecord* record = nullptr;
        const Acad::ErrorStatus es = table->getAt(L"*Active", record, AcDb::kForWrite);
        table->close();
        const Opened<AcDbViewportTableRecord> active(record, es);
        ASSERT_TRUE(active);
        active->setHeight(40);
        active->setAspectRatio(2);
        active->setTarget(AcGePoint3d(1, 2, 3));
        active->setCenterPoint(AcGePoint2d(10, 5));
        active->setViewDirection(AcGeVector3d(0, -2, 0));
        active->setViewTwist(0.25);
    }
    double height = 0, width = 0, twist = 0;
    AcGePoint3d target;
    AcGeVector3d direction;
    ASSERT_TRUE(ctrl.GetActiveViewPortInfo(height, width, target, direction, twist, 0));
    EXPECT_EQ(height, 40);
    EXPECT_EQ(width, 80);
    EXPECT_NEAR(twist, 0.25, 1e-12);
    EXPECT_TRUE(target.isEqualTo(AcGePoint3d(1, 2, 3)));
    EXPECT_TRUE(direction.isEqualTo(AcGeVector3d(0, -2, 0)));
    ctrl.SetAcDb(&drawing);
    EXPECT_NEAR(ctrl.view()->fieldHeight(), 40, 1e-9);
    ExpectDirection(0, -1, 0);
    // From the front, x runs along X and y along Z; turned by a quarter of a radian the other way.
    const double c = std::cos(0.25), s = std::sin(0.25);
    EXPECT_TRUE(ctrl.view()->target().isEqualTo(AcGePoint3d(1 + 10 * c + 5 * s, 2, 3 - 10 * s + 5 * c)));
}

TEST_F(Preview, ShowsFilesOfItsOwn)
{
    const std::wstring path = KxPlat::DrivePath(std::string(KX_TEST_DATA) + "/house_r2010.dxf");
    EXPECT_EQ(ctrl.SetAcDbFromFileName(path.c_str()), Acad::eOk);
    ASSERT_NE(ctrl.view(), nullptr);
    KxPlat::PumpWindows();
    const std::vector<uint32_t>& pixels = KxPlat::FindWindowOf(ctrl.m_hWnd)->Pixels();
    EXPECT_GT(std::count_if(pixels.begin(), pixels.end(), [](uint32_t rgb) { return rgb != 0; }), 50);
    EXPECT_NE(ctrl.SetAcDbFromFileName(L"C:\\no such.dwg"), Acad::eOk);
    EXPECT_EQ(ctrl.view(), nullptr);
    EXPECT_EQ(ctrl.SetAcDbFromFileName(nullptr), Acad::eInvalidInput);
}

TEST_F(Preview, WithoutADatabaseNothingHappens)
{
    MenuBackend backend;
    ctrl.Clear();
    ::SetFocus(parent);
    for (UINT id = ID_PREVIEW_WINDOW_ZOOM; id <= ID_PREVIEW_ORBIT; ++id)
        Command(id);
    Drag(10, 10, 50, 50);
    Wheel(120, 5, 5);
    Send(WM_MBUTTONDOWN, 1, 1);
    Send(WM_MBUTTONUP, 1, 1);
    Send(WM_RBUTTONUP, 1, 1);
    ctrl.MoveWindow(0, 0, 50, 50);
    KxPlat::PumpWindows();
    EXPECT_EQ(ctrl.mode(), 1u);
    EXPECT_EQ(ctrl.Checks(), "p---");
    EXPECT_TRUE(ctrl.IsChecked(ID_PREVIEW_PARALLEL));
    EXPECT_EQ(backend.shown, 0);
    EXPECT_EQ(CWnd::GetFocus(), &parent);
    EXPECT_EQ(CWnd::GetCapture(), nullptr);
}

TEST_F(Preview, ADatabaseMayComeBeforeTheWindowAndStayBehindIt)
{
    TestCtrl early;
    early.SetAcDb(&drawing);
    EXPECT_EQ(early.view(), nullptr);
    ASSERT_TRUE(early.Create(nullptr, L"", WS_CHILD | WS_VISIBLE, CRect(0, 0, 40, 30), &parent, 901));
    KxPlat::PumpWindows();
    EXPECT_NE(early.view(), nullptr);
    early.DestroyWindow();
    EXPECT_EQ(early.view(), nullptr);
    ASSERT_TRUE(early.Create(nullptr, L"", WS_CHILD | WS_VISIBLE, CRect(0, 0, 40, 30), &parent, 901));
    KxPlat::PumpWindows();
    EXPECT_NE(early.view(), nullptr);
}

TEST(PreviewOfNothing, HasACameraToo)
{
    TestUi ui;
    AcDbDatabase empty;
    CWnd parent;
    parent.CreateEx(0, nullptr, L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, 50, 50), nullptr, 0);
    TestCtrl ctrl;
    ctrl.Create(nullptr, L"", WS_CHILD | WS_VISIBLE, CRect(0, 0, 0, 0), &parent, 900);
    ctrl.SetAcDb(&empty);
    ASSERT_NE(ctrl.view(), nullptr);
    ctrl.ZoomExtent();
    ctrl.SetViewMode(ID_PREVIEW_SOUTH_WEST);
    ctrl.SendMessage(WM_COMMAND, ID_PREVIEW_ORBIT);
    ctrl.SendMessage(WM_LBUTTONDOWN, 0, MAKELPARAM(1, 1));
    ctrl.SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(9, 9));
    ctrl.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(9, 9));
    KxPlat::PumpWindows();
    EXPECT_TRUE(std::isfinite(ctrl.view()->position().x));
    EXPECT_GT(ctrl.view()->fieldWidth(), 0);
    ctrl.Clear();
}

}   // namespace KxTest
