#include "ed/Session.h"
#include "KxArxBase/GiHooks.h"
#include "KxArxBase/KxMessages.h"
#include "TestUi.h"
#include "ui/WindowQueue.h"
#include <gtest/gtest.h>

using KxArxBase::Gi::HookMessage;
using KxMfcEx::KxHookData;

namespace {

KxHookData Record(KxHookData::Kind kind, uint32_t message)
{
    KxHookData data;
    data.kind = kind;
    data.message = message;
    data.wParam = 1;
    data.lParam = 2;
    return data;
}

// What registering and removing says, with traces on.
class Hooks : public testing::Test {
protected:
    Hooks() { KxArxBase::G_bOutDebugCmdMsg = 1; }
    ~Hooks() override
    {
        HookMessage(nullptr, 1);
        HookMessage(nullptr, 1);
        KxArxBase::G_bOutDebugCmdMsg = 0;
    }
    TestUi ui;
    KxPlat::Session session;
};

}   // namespace

TEST_F(Hooks, OneHookServesAllRecordsOfAKind)
{
    KxHookData key = Record(KxHookData::kFilter, 0x100);
    KxHookData click = Record(KxHookData::kFilter, 0x203);
    EXPECT_EQ(HookMessage(&key, 0), Acad::eOk);
    EXPECT_EQ(ui.Taken(), L"\n*** KxCadFilterWinMsg Register ok!"
                          L"\n*** Add HookData Message: 100 WParam: 1 LParam: 2 !");
    EXPECT_EQ(HookMessage(&click, 0), Acad::eOk);
    EXPECT_EQ(ui.Taken(), L"\n*** Add HookData Message: 203 WParam: 1 LParam: 2 !");
    KxHookData watch = Record(KxHookData::kWatch, 0x100);   // takes the place of the filter record
    EXPECT_EQ(HookMessage(&watch, 0), Acad::eOk);
    EXPECT_EQ(ui.Taken(), L"\n*** KxCadWatchWinMsg Register ok!");

    // Both are installed: the first removal keeps the filter's bit, and the watch hook stays with the host.
    EXPECT_EQ(HookMessage(nullptr, 1), Acad::eOk);
    EXPECT_EQ(ui.Taken(), L"\n*** KxCadFilterWinMsg Remove ok!");
    EXPECT_EQ(HookMessage(&key, 0), Acad::eOk);
    EXPECT_EQ(ui.Taken(), L"\n*** Add HookData Message: 100 WParam: 1 LParam: 2 !");
}

TEST_F(Hooks, AnUnknownKindIsStoredAllTheSame)
{
    KxHookData odd = Record(KxHookData::Kind(7), 0x555);
    EXPECT_EQ(int(HookMessage(&odd, 0)), 40005);
    EXPECT_EQ(ui.Taken(), L"\n*** Add HookData Message: 555 WParam: 1 LParam: 2 !");
    EXPECT_EQ(int(HookMessage(&odd, 0)), 40005);
    EXPECT_EQ(ui.Taken(), L"");   // replaced
}

TEST_F(Hooks, SeeWhatComesToTheWindowsOfTheProgram)
{
    struct Heard : CWnd {
        std::wstring text;
        LRESULT OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, BOOL& isHandled) override
        {
            if (message == WM_KEYDOWN || message == WM_APP)
                text += message == WM_APP ? L"a" : L"k" + std::to_wstring(wParam);
            return CWnd::OnWndMsg(message, wParam, lParam, isHandled);
        }
    } window;
    window.CreateEx(0, nullptr, L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, 9, 9), nullptr, 0);
    // Once removed, the module's own filter is not registered a second time, so the host's is asked here.
    static int filtered;
    filtered = 0;
    const AcedFilterWinMsgFn filter = [](MSG* message) {
        ++filtered;
        return message->message == WM_KEYDOWN && message->wParam == VK_F1 ? 1 : 0;
    };
    std::wstring seen;
    KxHookData watched = Record(KxHookData::kWatch, WM_APP);
    watched.userData = &seen;
    watched.callback = [](void* userData, MSG*) {
        static_cast<std::wstring*>(userData)->append(L"w");
        return 1;
    };
    ASSERT_NE(acedRegisterFilterWinMsg(filter), 0);
    HookMessage(&watched, 0);
    window.PostMessage(WM_KEYDOWN, VK_F1);
    window.PostMessage(WM_KEYDOWN, VK_F12);
    window.PostMessage(WM_APP);
    window.PostMessage(WM_APP + 1);
    KxPlat::PumpWindows();
    EXPECT_EQ(filtered, 4);
    EXPECT_EQ(seen, L"w");
    EXPECT_EQ(window.text, L"k123a") << "the filter swallowed the other key, a watch swallows nothing";
    acedRemoveFilterWinMsg(filter);
    window.PostMessage(WM_KEYDOWN, VK_F1);
    KxPlat::PumpWindows();
    EXPECT_EQ(window.text, L"k123ak112");
}
