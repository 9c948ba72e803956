// Message maps: which member of a class answers a command, a notification or a message.
// A class writes DECLARE_MESSAGE_MAP() in its body, and in one source
//     BEGIN_MESSAGE_MAP(CMyDialog, CDialog)
//         ON_BN_CLICKED(IDC_APPLY, &CMyDialog::OnApply)
//     END_MESSAGE_MAP()
// A message that a class has no row for goes to the map of its base.
#pragma once
#include "../ui/ControlStyles.h"
#include "AfxHandler.h"

struct AFX_CMDHANDLERINFO;

struct AFX_MSGMAP_ENTRY {
    UINT nMessage;
    UINT nCode;   // of WM_COMMAND and WM_NOTIFY
    UINT nID;
    UINT nLastID;
    AFX_MSGHANDLER handler;
};

struct AFX_MSGMAP {
    const AFX_MSGMAP* (*pfnGetBaseMap)();   // null at the root
    const AFX_MSGMAP_ENTRY* lpEntries;      // up to one without a handler
};

// What a WM_NOTIFY brings to OnCmdMsg.
struct AFX_NOTIFY {
    LRESULT* pResult;
    NMHDR* pNMHDR;
};

class CCmdTarget : public CObject {
public:
    ~CCmdTarget() override;
    // Runs the handler of a command; `code` is the notification code, with WM_NOTIFY in its high word for a
    // notification. FALSE when no map has one.
    virtual BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info);

protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;
    // The first row for a message of a window; null when no map has one.
    const AFX_MSGMAP_ENTRY* FindMessageEntry(UINT message, UINT code, UINT id) const;
};

// clang-format off
#define afx_msg
#define DECLARE_MESSAGE_MAP()                                                                                          \
protected:                                                                                                             \
    static const AFX_MSGMAP* GetThisMessageMap();                                                                      \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                                                         \
    const AFX_MSGMAP* theClass::GetMessageMap() const { return GetThisMessageMap(); }                                  \
    const AFX_MSGMAP* theClass::GetThisMessageMap()                                                                    \
    {                                                                                                                  \
        [[maybe_unused]] typedef theClass ThisClass;                                                                   \
        typedef baseClass TheBaseClass;                                                                                \
        static const AFX_MSGMAP_ENTRY _messageEntries[] = {
#define END_MESSAGE_MAP()                                                                                              \
            {0, 0, 0, 0, {}}                                                                                           \
        };                                                                                                             \
        static const AFX_MSGMAP messageMap = {&TheBaseClass::GetThisMessageMap, _messageEntries};                      \
        return &messageMap;                                                                                            \
    }

#define AFX_MSG_ROW(message, code, first, last, type, member)                                                          \
    {UINT(message), UINT(code), UINT(first), UINT(last),                                                               \
     static_cast<AFX_MSGHANDLER::type>(member)},
#define ON_CONTROL(code, id, member) AFX_MSG_ROW(WM_COMMAND, WORD(code), WORD(id), WORD(id), PlainMember, member)
#define ON_CONTROL_RANGE(code, first, last, member) AFX_MSG_ROW(WM_COMMAND, WORD(code), WORD(first), WORD(last), RangeMember, member)
#define ON_COMMAND(id, member) ON_CONTROL(0, id, member)
#define ON_COMMAND_RANGE(first, last, member) ON_CONTROL_RANGE(0, first, last, member)
#define ON_NOTIFY(code, id, member) AFX_MSG_ROW(WM_NOTIFY, WORD(code), WORD(id), WORD(id), NotifyMember, member)
#define ON_MESSAGE(number, member) AFX_MSG_ROW(number, 0, 0, 0, MessageMember, member)
#define ON_BN_CLICKED(id, member) ON_CONTROL(BN_CLICKED, id, member)
#define ON_BN_DOUBLECLICKED(id, member) ON_CONTROL(BN_DOUBLECLICKED, id, member)
#define ON_EN_CHANGE(id, member) ON_CONTROL(EN_CHANGE, id, member)
#define ON_EN_UPDATE(id, member) ON_CONTROL(EN_UPDATE, id, member)
#define ON_EN_KILLFOCUS(id, member) ON_CONTROL(EN_KILLFOCUS, id, member)
#define ON_LBN_SELCHANGE(id, member) ON_CONTROL(LBN_SELCHANGE, id, member)
#define ON_LBN_DBLCLK(id, member) ON_CONTROL(LBN_DBLCLK, id, member)
#define ON_CBN_SELCHANGE(id, member) ON_CONTROL(CBN_SELCHANGE, id, member)
#define ON_CBN_EDITCHANGE(id, member) ON_CONTROL(CBN_EDITCHANGE, id, member)
#define ON_CBN_DBLCLK(id, member) ON_CONTROL(CBN_DBLCLK, id, member)
#define ON_WM_DESTROY() AFX_MSG_ROW(WM_DESTROY, 0, 0, 0, PlainMember, &ThisClass::OnDestroy)
#define ON_WM_CLOSE() AFX_MSG_ROW(WM_CLOSE, 0, 0, 0, PlainMember, &ThisClass::OnClose)
#define ON_WM_PAINT() AFX_MSG_ROW(WM_PAINT, 0, 0, 0, PlainMember, &ThisClass::OnPaint)
#define ON_WM_TIMER() AFX_MSG_ROW(WM_TIMER, 0, 0, 0, TimerMember, &ThisClass::OnTimer)
#define ON_WM_SIZE() AFX_MSG_ROW(WM_SIZE, 0, 0, 0, SizeMember, &ThisClass::OnSize)
#define ON_WM_MOVE() AFX_MSG_ROW(WM_MOVE, 0, 0, 0, MoveMember, &ThisClass::OnMove)
#define ON_WM_CREATE() AFX_MSG_ROW(WM_CREATE, 0, 0, 0, CreateMember, &ThisClass::OnCreate)
#define ON_WM_SHOWWINDOW() AFX_MSG_ROW(WM_SHOWWINDOW, 0, 0, 0, ShowMember, &ThisClass::OnShowWindow)
#define ON_WM_ERASEBKGND() AFX_MSG_ROW(WM_ERASEBKGND, 0, 0, 0, EraseMember, &ThisClass::OnEraseBkgnd)
#define ON_WM_SETCURSOR() AFX_MSG_ROW(WM_SETCURSOR, 0, 0, 0, CursorMember, &ThisClass::OnSetCursor)
#define ON_WM_SETFOCUS() AFX_MSG_ROW(WM_SETFOCUS, 0, 0, 0, WindowMember, &ThisClass::OnSetFocus)
#define ON_WM_KILLFOCUS() AFX_MSG_ROW(WM_KILLFOCUS, 0, 0, 0, WindowMember, &ThisClass::OnKillFocus)
#define ON_WM_CAPTURECHANGED() AFX_MSG_ROW(WM_CAPTURECHANGED, 0, 0, 0, WindowMember, &ThisClass::OnCaptureChanged)
#define ON_WM_NCHITTEST() AFX_MSG_ROW(WM_NCHITTEST, 0, 0, 0, HitTestMember, &ThisClass::OnNcHitTest)
#define ON_WM_KEYDOWN() AFX_MSG_ROW(WM_KEYDOWN, 0, 0, 0, KeyMember, &ThisClass::OnKeyDown)
#define ON_WM_KEYUP() AFX_MSG_ROW(WM_KEYUP, 0, 0, 0, KeyMember, &ThisClass::OnKeyUp)
#define ON_WM_CHAR() AFX_MSG_ROW(WM_CHAR, 0, 0, 0, KeyMember, &ThisClass::OnChar)
#define ON_WM_MOUSEMOVE() AFX_MSG_ROW(WM_MOUSEMOVE, 0, 0, 0, MouseMember, &ThisClass::OnMouseMove)
#define ON_WM_MOUSEWHEEL() AFX_MSG_ROW(WM_MOUSEWHEEL, 0, 0, 0, WheelMember, &ThisClass::OnMouseWheel)
#define ON_WM_LBUTTONDOWN() AFX_MSG_ROW(WM_LBUTTONDOWN, 0, 0, 0, MouseMember, &ThisClass::OnLButtonDown)
#define ON_WM_LBUTTONUP() AFX_MSG_ROW(WM_LBUTTONUP, 0, 0, 0, MouseMember, &ThisClass::OnLButtonUp)
#define ON_WM_LBUTTONDBLCLK() AFX_MSG_ROW(WM_LBUTTONDBLCLK, 0, 0, 0, MouseMember, &ThisClass::OnLButtonDblClk)
#define ON_WM_MBUTTONDOWN() AFX_MSG_ROW(WM_MBUTTONDOWN, 0, 0, 0, MouseMember, &ThisClass::OnMButtonDown)
#define ON_WM_MBUTTONUP() AFX_MSG_ROW(WM_MBUTTONUP, 0, 0, 0, MouseMember, &ThisClass::OnMButtonUp)
#define ON_WM_RBUTTONDOWN() AFX_MSG_ROW(WM_RBUTTONDOWN, 0, 0, 0, MouseMember, &ThisClass::OnRButtonDown)
#define ON_WM_RBUTTONUP() AFX_MSG_ROW(WM_RBUTTONUP, 0, 0, 0, MouseMember, &ThisClass::OnRButtonUp)
#define ON_WM_CONTEXTMENU() AFX_MSG_ROW(WM_CONTEXTMENU, 0, 0, 0, ContextMember, &ThisClass::OnContextMenu)
#define ON_WM_INITMENUPOPUP() AFX_MSG_ROW(WM_INITMENUPOPUP, 0, 0, 0, InitMenuMember, &ThisClass::OnInitMenuPopup)
// Asked before a menu is shown; the rows have a message number of their own.
#define CN_UPDATE_COMMAND_UI (-1)
#define ON_UPDATE_COMMAND_UI(id, member) AFX_MSG_ROW(0xFFFF, 0xFFFF, WORD(id), WORD(id), UpdateMember, member)
#define ON_UPDATE_COMMAND_UI_RANGE(first, last, member) AFX_MSG_ROW(0xFFFF, 0xFFFF, WORD(first), WORD(last), UpdateMember, member)
// clang-format on
