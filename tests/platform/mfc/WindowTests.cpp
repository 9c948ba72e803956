#include "mfc/CDC.h"
#include "mfc/CDialog.h"
#include "mfc/CMenu.h"
#include "mfc/CStatic.h"
#include "mfc/CWnd.h"
#include "TestModule.h"
#include "TestResources.h"
#include "ui/ScriptedUi.h"
#include "ui/WindowBackend.h"
#include "ui/WindowQueue.h"
#include "ui/WindowTable.h"
#include "win/TopWindows.h"
#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>
#include <thread>

namespace {

std::string Text(POINT point)
{
    return std::to_string(point.x) + "," + std::to_string(point.y);
}

// Writes down what it hears.
class HearingWindow : public CWnd {
public:
    std::string heard;
    std::function<void(CDC&)> paints;
    LRESULT hit = HTCLIENT;
    bool swallows = false;
    int refuses = 0;

    std::string Take()
    {
        std::string taken = heard;
        heard.clear();
        return taken;
    }
    BOOL PreTranslateMessage(MSG* message) override { return swallows && message->message == WM_KEYDOWN; }

protected:
    int OnCreate(LPCREATESTRUCT facts)
    {
        heard += "create" + std::to_string(facts->cx) + " ";
        return refuses;
    }
    void OnDestroy() { heard += "destroy "; }
    void OnPaint()
    {
        heard += "paint ";
        CPaintDC dc(this);
        if (paints)
            paints(dc);
    }
    void OnSize(UINT, int width, int height) { heard += "size" + Text({width, height}) + " "; }
    void OnMove(int x, int y) { heard += "move" + Text({x, y}) + " "; }
    void OnLButtonDown(UINT keys, CPoint place) { heard += "down" + std::to_string(keys) + ":" + Text(place) + " "; }
    void OnMouseMove(UINT, CPoint place) { heard += "mouse" + Text(place) + " "; }
    BOOL OnMouseWheel(UINT keys, short delta, CPoint screen)
    {
        heard += "wheel" + std::to_string(keys) + ":" + std::to_string(delta) + ":" + Text(screen) + " ";
        return TRUE;
    }
    void OnSetFocus(CWnd* before) { heard += before == nullptr ? "focus " : "focusFrom "; }
    void OnKillFocus(CWnd*) { heard += "unfocus "; }
    void OnCaptureChanged(CWnd*) { heard += "uncapture "; }
    void OnKeyDown(UINT key, UINT, UINT) { heard += "key" + std::to_string(key) + " "; }
    void OnTimer(UINT_PTR id) { heard += "timer" + std::to_string(id) + " "; }
    LRESULT OnNcHitTest(CPoint) { return hit; }
    void OnPlain() { heard += "command "; }
    void OnMany(UINT id) { heard += "many" + std::to_string(id) + " "; }
    void OnUpdateMany(CCmdUI* item)
    {
        item->SetCheck(item->m_nID == 31);
        item->Enable(item->m_nID != 32);
    }
    LRESULT OnOwn(WPARAM wParam, LPARAM lParam) { return LRESULT(wParam) * 10 + lParam; }
    void PostNcDestroy() override { heard += "gone "; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(HearingWindow, CWnd)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_PAINT()
ON_WM_SIZE()
ON_WM_MOVE()
ON_WM_LBUTTONDOWN()
ON_WM_MOUSEMOVE()
ON_WM_MOUSEWHEEL()
ON_WM_SETFOCUS()
ON_WM_KILLFOCUS()
ON_WM_CAPTURECHANGED()
ON_WM_KEYDOWN()
ON_WM_TIMER()
ON_WM_NCHITTEST()
ON_COMMAND(7, &HearingWindow::OnPlain)
ON_COMMAND_RANGE(30, 39, &HearingWindow::OnMany)
ON_UPDATE_COMMAND_UI_RANGE(30, 39, &HearingWindow::OnUpdateMany)
ON_MESSAGE(WM_APP + 5, &HearingWindow::OnOwn)
END_MESSAGE_MAP()

class RecordingBackend : public KxPlat::WindowBackend {
public:
    RecordingBackend() { KxPlat::SetWindowBackend(this); }
    ~RecordingBackend() override { KxPlat::SetWindowBackend(nullptr); }
    std::string seen;
    UINT choice = 0;
    KxPlat::MenuModel menu;
    POINT menuPlace = {0, 0};

    void Created(HWND) override { seen += "created "; }
    void Destroyed(HWND) override { seen += "destroyed "; }
    void Shown(HWND window) override { seen += KxPlat::FindWindowOf(window)->IsVisible() ? "shown " : "hidden "; }
    void PixelsChanged(HWND) override { seen += "pixels "; }
    UINT TrackMenu(HWND, const KxPlat::MenuModel& model, POINT at) override
    {
        menu = model;
        menuPlace = at;
        return choice;
    }
};

struct TwoWindows {
    HearingWindow top, child;
    TwoWindows()
    {
        EXPECT_TRUE(
            top.CreateEx(0, nullptr, L"上", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 50, 300, 200, nullptr, nullptr));
        EXPECT_TRUE(child.Create(nullptr, L"下", WS_CHILD | WS_VISIBLE, CRect(10, 20, 110, 70), &top, 42));
        top.Take();
        child.Take();
    }
};

}   // namespace

TEST(Windows, HearOfTheirLifeInOrder)
{
    RecordingBackend backend;
    HearingWindow window;
    EXPECT_TRUE(window.CreateEx(0, nullptr, L"a", WS_POPUP | WS_VISIBLE, CRect(3, 4, 23, 14), nullptr, 0));
    EXPECT_EQ(window.Take(), "create20 size20,10 move3,4 ");
    EXPECT_FALSE(window.CreateEx(0, nullptr, L"a", 0, CRect(), nullptr, 0)) << "it has a window already";
    window.MoveWindow(3, 4, 30, 10);
    EXPECT_EQ(window.Take(), "size30,10 ");
    window.SetWindowPos(nullptr, 5, 6, 0, 0, SWP_NOSIZE);
    EXPECT_EQ(window.Take(), "move5,6 ");
    window.SetWindowPos(nullptr, 5, 6, 30, 10, 0);
    EXPECT_EQ(window.Take(), "") << "nothing moved";
    const HWND handle = window.m_hWnd;
    EXPECT_EQ(CWnd::FromHandle(handle), &window);
    EXPECT_TRUE(window.DestroyWindow());
    EXPECT_EQ(window.Take(), "destroy gone ");
    EXPECT_EQ(window.m_hWnd, nullptr);
    EXPECT_FALSE(::IsWindow(handle));
    EXPECT_EQ(CWnd::FromHandle(handle), nullptr);
    EXPECT_EQ(backend.seen, "created shown destroyed ");
}

TEST(Windows, OneThatRefusesItsCreationIsGone)
{
    HearingWindow window;
    window.refuses = -1;
    EXPECT_FALSE(window.CreateEx(0, nullptr, L"", WS_POPUP, CRect(0, 0, 5, 5), nullptr, 0));
    EXPECT_EQ(window.Take(), "create5 destroy gone ");
    EXPECT_EQ(window.m_hWnd, nullptr);
    EXPECT_TRUE(KxPlat::AllNativeWindows().empty());
    EXPECT_FALSE(window.CreateEx(0, L"NoSuchClass", L"", WS_POPUP, CRect(), nullptr, 0));
    EXPECT_FALSE(window.Create(nullptr, L"", WS_CHILD, CRect(), nullptr, 1)) << "a child without a parent";
}

TEST(Windows, ChildrenLieInTheirParents)
{
    TwoWindows windows;
    CRect rect;
    windows.child.GetWindowRect(rect);
    EXPECT_EQ(rect, CRect(110, 70, 210, 120));
    windows.child.GetClientRect(rect);
    EXPECT_EQ(rect, CRect(0, 0, 100, 50));
    CPoint point(115, 75);
    windows.child.ScreenToClient(&point);
    EXPECT_EQ(point, CPoint(5, 5));
    windows.child.ClientToScreen(rect);
    EXPECT_EQ(rect, CRect(110, 70, 210, 120));
    EXPECT_EQ(windows.child.GetParent(), &windows.top);
    EXPECT_EQ(windows.top.GetDlgItem(42), &windows.child);
    EXPECT_EQ(windows.child.GetDlgCtrlID(), 42);
    EXPECT_TRUE(windows.top.IsChild(&windows.child));
    EXPECT_TRUE(windows.child.IsWindowVisible());
    windows.top.ShowWindow(SW_HIDE);
    EXPECT_FALSE(windows.child.IsWindowVisible()) << "hidden with its parent";
    windows.top.DestroyWindow();
    EXPECT_EQ(windows.child.Take(), "destroy gone ") << "and destroyed with it";
    EXPECT_EQ(windows.child.m_hWnd, nullptr);
}

TEST(Windows, AWindowMovesToAnotherParentButNotIntoItself)
{
    TwoWindows windows;
    HearingWindow other;
    other.CreateEx(0, nullptr, L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, 50, 50), nullptr, 0);
    EXPECT_EQ(windows.child.SetParent(&other), &windows.top);
    EXPECT_EQ(windows.child.GetParent(), &other);
    CRect rect;
    windows.child.GetWindowRect(rect);
    EXPECT_EQ(rect.TopLeft(), CPoint(10, 20));
    other.ModifyStyle(0, WS_CHILD);
    other.SetParent(&windows.child);
    EXPECT_EQ(other.GetParent(), nullptr);
}

TEST(Windows, StylesAndTextsAreKeptAndAnswerTheSystemsCalls)
{
    TwoWindows windows;
    const HWND child = windows.child;
    wchar_t text[8] = {};
    EXPECT_EQ(::GetWindowTextW(child, text, 8), 1);
    EXPECT_STREQ(text, L"下");
    ::SetWindowTextW(child, L"新名");
    CString now;
    windows.child.GetWindowText(now);
    EXPECT_STREQ(now, L"新名");
    EXPECT_EQ(DWORD(::GetWindowLongW(child, GWL_STYLE)), WS_CHILD | WS_VISIBLE);
    EXPECT_TRUE(windows.child.ModifyStyle(0xFFFFFFFF, 0x50000044));
    EXPECT_EQ(windows.child.GetStyle(), 0x50000044u);
    EXPECT_FALSE(windows.child.ModifyStyle(0, 0x44)) << "it had these";
    EXPECT_TRUE(windows.child.ModifyStyleEx(0, WS_EX_TOOLWINDOW));
    EXPECT_EQ(::GetWindowLongPtrW(child, GWL_EXSTYLE), LONG_PTR(WS_EX_TOOLWINDOW));
    EXPECT_EQ(::GetParent(child), windows.top.m_hWnd);
    EXPECT_EQ(::SetWindowLongPtrW(child, GWLP_USERDATA, 77), 0);
    EXPECT_EQ(::GetWindowLongPtrW(child, GWLP_USERDATA), 77);
    EXPECT_EQ(::SendMessageW(child, WM_APP + 5, 3, 4), 34);
}

TEST(Windows, TheMouseGoesToTheCaptureElseWhereTheWindowsLetItThrough)
{
    TwoWindows windows;
    KxPlat::DeliverMouse(windows.child, WM_LBUTTONDOWN, MK_LBUTTON, {5, 6});
    EXPECT_EQ(windows.child.Take(), "down1:5,6 ");
    windows.child.SetCapture();
    KxPlat::DeliverMouse(windows.top, WM_MOUSEMOVE, 0, {5, 200});
    EXPECT_EQ(windows.child.Take(), "mouse-5,180 ") << "in its own coordinates, outside of it, too";
    EXPECT_EQ(windows.top.Take(), "");
    ::ReleaseCapture();
    EXPECT_EQ(windows.child.Take(), "uncapture ");
    windows.child.hit = HTTRANSPARENT;
    KxPlat::DeliverMouse(windows.child, WM_MOUSEMOVE, 0, {1, 2});
    EXPECT_EQ(windows.top.Take(), "mouse11,22 ");
    windows.child.hit = HTCLIENT;
    windows.child.EnableWindow(FALSE);
    KxPlat::DeliverMouse(windows.child, WM_LBUTTONDOWN, 0, {1, 2});
    EXPECT_EQ(windows.child.Take(), "");
    windows.child.EnableWindow(TRUE);
    KxPlat::DeliverMouse(windows.child, WM_MOUSEWHEEL, MAKEWPARAM(MK_SHIFT, WORD(-120)), {5, 6});
    EXPECT_EQ(windows.child.Take(), "wheel4:-120:115,76 ") << "a wheel tells its place on the screen";
    POINT cursor;
    ::GetCursorPos(&cursor);
    EXPECT_EQ(CPoint(cursor), CPoint(115, 76));
    EXPECT_EQ(KxPlat::WindowAt(windows.top, {15, 25}), windows.child.m_hWnd);
    EXPECT_EQ(KxPlat::WindowAt(windows.top, {5, 25}), windows.top.m_hWnd);
}

TEST(Windows, FocusIsTakenFromOneAndGivenToTheOther)
{
    TwoWindows windows;
    EXPECT_EQ(windows.top.SetFocus(), nullptr);
    EXPECT_EQ(windows.child.SetFocus(), &windows.top);
    EXPECT_EQ(windows.top.Take(), "focus unfocus ");
    EXPECT_EQ(windows.child.Take(), "focusFrom ");
    EXPECT_EQ(CWnd::GetFocus(), &windows.child);
    windows.child.DestroyWindow();
    EXPECT_EQ(::GetFocus(), nullptr);
}

TEST(Windows, MessagesWaitAndFiltersSeeThemFirst)
{
    TwoWindows windows;
    static std::vector<UINT> filtered;
    const KxPlat::MessageFilter filter = [](MSG& message) {
        filtered.push_back(message.message);
        return message.message == WM_APP;
    };
    KxPlat::PumpWindows();
    windows.child.Take();
    KxPlat::AddMessageFilter(filter);
    windows.child.PostMessage(WM_APP);
    windows.child.PostMessage(WM_KEYDOWN, VK_F1);
    windows.child.PostMessage(WM_COMMAND, 7);
    windows.child.PostMessage(WM_COMMAND, 33);
    EXPECT_EQ(windows.child.Take(), "") << "not yet";
    EXPECT_EQ(KxPlat::PumpWindows(), 4);
    EXPECT_EQ(windows.child.Take(), "key112 command many33 ");
    EXPECT_EQ(filtered, (std::vector<UINT>{WM_APP, WM_KEYDOWN, WM_COMMAND, WM_COMMAND}));
    windows.top.swallows = true;
    windows.child.PostMessage(WM_KEYDOWN, VK_F1);
    KxPlat::PumpWindows();
    EXPECT_EQ(windows.child.Take(), "") << "a parent may swallow it";
    filtered.clear();
    windows.child.PostMessage(WM_APP);
    MSG message;
    EXPECT_TRUE(::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE));
    EXPECT_TRUE(::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, UINT(WM_APP));
    EXPECT_FALSE(::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    windows.child.PostMessage(WM_KEYDOWN, VK_F1);
    windows.child.DestroyWindow();
    KxPlat::PumpWindows();
    EXPECT_TRUE(filtered.empty()) << "messages to a window that is gone are gone";
    KxPlat::RemoveMessageFilter(filter);
}

TEST(Windows, AHandlerThatThrowsIsToldAndTheWindowLives)
{
    KxPlat::ScriptedUi ui;
    KxPlat::SetUi(&ui);
    TwoWindows windows;
    windows.child.paints = [](CDC&) { throw std::runtime_error("no ink"); };
    KxPlat::PumpWindows();
    EXPECT_EQ(ui.complained, L"a window: no ink\n");
    windows.child.paints = nullptr;
    windows.child.Take();
    windows.child.Invalidate();
    KxPlat::PumpWindows();
    EXPECT_EQ(windows.child.Take(), "paint ");
    EXPECT_EQ(windows.child.SendMessage(WM_APP + 5, 2, 1), 21);
    KxPlat::SetUi(nullptr);
}

TEST(Windows, TimersComeWhenTheyAreDue)
{
    TwoWindows windows;
    KxPlat::PumpWindows();
    windows.child.Take();
    windows.child.SetTimer(3, 60000, nullptr);
    KxPlat::PumpWindows();
    EXPECT_EQ(windows.child.Take(), "");
    windows.child.SetTimer(3, 10, nullptr);   // in place of the first one
    std::this_thread::sleep_for(std::chrono::milliseconds(15));
    KxPlat::PumpWindows();
    EXPECT_EQ(windows.child.Take(), "timer3 ");
    EXPECT_TRUE(windows.child.KillTimer(3));
    EXPECT_FALSE(windows.child.KillTimer(3));
    std::this_thread::sleep_for(std::chrono::milliseconds(15));
    KxPlat::PumpWindows();
    EXPECT_EQ(windows.child.Take(), "");
}

TEST(Windows, WhatIsInvalidIsPaintedOnce)
{
    RecordingBackend backend;
    TwoWindows windows;
    windows.child.paints = [](CDC& dc) { dc.FillSolidRect(CRect(0, 0, 2, 1), RGB(1, 2, 3)); };
    KxPlat::PumpWindows();
    EXPECT_EQ(windows.child.Take(), "paint ");
    KxPlat::PumpWindows();
    EXPECT_EQ(windows.child.Take(), "");
    windows.child.Invalidate();
    windows.child.Invalidate();
    windows.child.UpdateWindow();
    EXPECT_EQ(windows.child.Take(), "paint ");
    const std::vector<uint32_t>& pixels = KxPlat::FindWindowOf(windows.child)->Pixels();
    ASSERT_EQ(pixels.size(), 5000u);
    EXPECT_EQ(pixels[1], 0x010203u);
    EXPECT_EQ(pixels[2], 0xFFFFFFu);
    windows.child.ShowWindow(SW_HIDE);
    windows.child.Invalidate();
    KxPlat::PumpWindows();
    EXPECT_EQ(windows.child.Take(), "") << "hidden windows wait";
    backend.seen.clear();
    windows.child.ShowWindow(SW_SHOW);
    KxPlat::PumpWindows();
    EXPECT_EQ(backend.seen, "shown pixels ");
}

TEST(Windows, PicturesAreCutToTheWindow)
{
    TwoWindows windows;
    windows.child.MoveWindow(0, 0, 3, 2);
    const std::vector<uint32_t> picture = {1, 2, 3, 4, 5, 6, 7, 8};
    EXPECT_TRUE(KxPlat::PutPixels(windows.child, picture.data(), 4, 2));
    EXPECT_EQ(KxPlat::FindWindowOf(windows.child)->Pixels(), (std::vector<uint32_t>{1, 2, 3, 5, 6, 7}));
    EXPECT_FALSE(KxPlat::PutPixels(nullptr, picture.data(), 4, 2));
    EXPECT_FALSE(KxPlat::PutPixels(windows.child, nullptr, 4, 2));
}

TEST(Windows, SubclassedOnesAreHeardFirstAndGoOnWithout)
{
    static int asked;
    asked = 0;
    WNDCLASSW kind = {};
    kind.lpszClassName = L"TestCounter";
    kind.lpfnWndProc = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
        return message == WM_APP ? ++asked : ::DefWindowProcW(window, message, wParam, lParam);
    };
    ASSERT_NE(::RegisterClassW(&kind), 0);
    EXPECT_EQ(::RegisterClassW(&kind), 0) << "once only";
    const HWND plain =
        ::CreateWindowExW(0, L"testcounter", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(plain, nullptr);
    EXPECT_EQ(CWnd::FromHandle(plain)->SendMessage(WM_APP), 1);
    {
        HearingWindow window;
        EXPECT_TRUE(window.SubclassWindow(plain));
        EXPECT_EQ(::SendMessageW(plain, WM_APP + 5, 1, 1), 11);
        EXPECT_EQ(::SendMessageW(plain, WM_APP, 0, 0), 2) << "what it does not handle goes on";
        EXPECT_EQ(window.UnsubclassWindow(), plain);
    }
    EXPECT_EQ(::SendMessageW(plain, WM_APP, 0, 0), 3);
    EXPECT_TRUE(::DestroyWindow(plain));
    EXPECT_TRUE(::UnregisterClassW(L"TestCounter", nullptr));
}

// --- menus ------------------------------------------------------------------------------------------------------

TEST(PopupMenus, TheChoiceComesAsACommandAndItemsAreUpdatedBefore)
{
    RecordingBackend backend;
    TwoWindows windows;
    KxPlat::PumpWindows();
    windows.child.Take();
    CMenu menu;
    menu.CreatePopupMenu();
    for (UINT id : {30u, 31u, 32u})
        menu.AppendMenu(MF_STRING, id, (L"项" + std::to_wstring(id)).c_str());
    backend.choice = 32;
    EXPECT_TRUE(menu.TrackPopupMenu(0, 200, 100, &windows.child));
    EXPECT_EQ(windows.child.Take(), "") << "posted";
    KxPlat::PumpWindows();
    EXPECT_EQ(windows.child.Take(), "many32 ");
    ASSERT_EQ(backend.menu.items.size(), 3u);
    EXPECT_EQ(backend.menu.items[1].text, L"项31");
    EXPECT_EQ(CPoint(backend.menuPlace), CPoint(200, 100));
    const UINT flags[] = {0, MF_CHECKED, MF_GRAYED | MF_DISABLED};
    for (size_t i = 0; i < 3; ++i)
        EXPECT_EQ(backend.menu.items[i].flags, flags[i]);
    EXPECT_EQ(menu.TrackPopupMenu(TPM_RETURNCMD, 0, 0, &windows.child), 32);
    backend.choice = 0;
    EXPECT_TRUE(menu.TrackPopupMenu(0, 0, 0, &windows.child));
    KxPlat::PumpWindows();
    EXPECT_EQ(windows.child.Take(), "") << "nothing chosen";
    EXPECT_FALSE(menu.TrackPopupMenu(0, 0, 0, nullptr));
}

// --- windows in dialogs -----------------------------------------------------------------------------------------

namespace {

class HostingDialog : public CDialog {
public:
    HostingDialog() : CDialog(IDD_TEST) {}
    HearingWindow placed, made;

protected:
    BOOL OnInitDialog() override
    {
        CDialog::OnInitDialog();
        EXPECT_TRUE(placed.SubclassDlgItem(IDC_ROWS, this));
        EXPECT_TRUE(made.Create(nullptr, L"", WS_CHILD | WS_VISIBLE, CRect(1, 2, 11, 12), this, 900));
        return TRUE;
    }
};

class LookingUi : public KxPlat::ScriptedUi {
public:
    std::function<void(KxPlat::DialogModel&)> look;
    int RunDialog(KxPlat::DialogModel& dialog) override
    {
        look(dialog);
        return dialog.Result();
    }
};

}   // namespace

TEST(DialogWindows, HoldControlsThatDrawThemselves)
{
    const TestModule module("TestResources");
    LookingUi ui;
    KxPlat::SetUi(&ui);
    HostingDialog dialog;
    ui.look = [&](KxPlat::DialogModel& model) {
        const KxPlat::NativeWindow* placed = KxPlat::FindWindowOf(model.Find(IDC_ROWS)->window);
        ASSERT_NE(placed, nullptr);
        EXPECT_TRUE(placed->isDrawn);
        EXPECT_EQ(placed->parent, model.window);
        EXPECT_GT(placed->Width(), 0);
        EXPECT_FALSE(KxPlat::FindWindowOf(model.Find(IDOK)->window)->isDrawn) << "the dialog shows this one";
        EXPECT_EQ(dialog.GetDlgItem(900), &dialog.made);
        dialog.placed.Take();
        KxPlat::PumpWindows();
        EXPECT_EQ(dialog.placed.Take(), "paint ");
        KxPlat::DeliverMouse(model.Find(IDC_ROWS)->window, WM_LBUTTONDOWN, MK_LBUTTON, {1, 1});
        EXPECT_EQ(dialog.placed.Take(), "down1:1,1 ");
        dialog.made.Take();
        model.Press(IDCANCEL);
    };
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.placed.Take(), "destroy gone ");
    EXPECT_EQ(dialog.made.Take(), "destroy gone ");
    EXPECT_EQ(dialog.placed.m_hWnd, nullptr);
    EXPECT_TRUE(KxPlat::AllNativeWindows().empty());
    KxPlat::SetUi(nullptr);
}

TEST(DialogWindows, ModelessOnesStayUntilTheyAreDestroyed)
{
    const TestModule module("TestResources");
    HearingWindow owner;
    owner.CreateEx(0, nullptr, L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, 400, 300), nullptr, 0);
    CDialog dialog;
    EXPECT_FALSE(dialog.Create(9999u, &owner)) << "no such template";
    ASSERT_TRUE(dialog.Create(IDD_TEST, &owner));
    EXPECT_NE(dialog.GetDlgItem(IDOK), nullptr);
    dialog.SetDlgItemText(IDC_NAME, L"墙");
    CString text;
    dialog.GetDlgItemText(IDC_NAME, text);
    EXPECT_STREQ(text, L"墙");
    EXPECT_EQ(dialog.GetParent(), &owner);
    EXPECT_TRUE(dialog.DestroyWindow());
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_EQ(dialog.GetDlgItem(IDOK), nullptr);
    ASSERT_TRUE(dialog.Create(IDD_TEST, &owner)) << "and again";
    owner.DestroyWindow();
    EXPECT_EQ(dialog.m_hWnd, nullptr) << "destroyed with its owner";
}
