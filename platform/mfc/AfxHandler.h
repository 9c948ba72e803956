// A member that answers a message, of one of the signatures that handlers have.
#pragma once
#include "../ui/WinUser.h"
#include "CObject.h"
#include "CRect.h"

class CCmdTarget;
class CCmdUI;
class CDC;
class CMenu;
class CWnd;

struct AFX_MSGHANDLER {
    enum Kind {
        None,
        Plain,
        Range,
        Notify,
        Message,
        Timer,
        Size,
        Move,
        Mouse,
        Wheel,
        Key,
        Window,
        HitTest,
        Erase,
        Cursor,
        Create,
        Context,
        Show,
        InitMenu,
        Update
    };
    typedef void (CCmdTarget::*PlainMember)();
    typedef void (CCmdTarget::*RangeMember)(UINT id);
    typedef void (CCmdTarget::*NotifyMember)(NMHDR* header, LRESULT* result);
    typedef LRESULT (CCmdTarget::*MessageMember)(WPARAM wParam, LPARAM lParam);
    typedef void (CCmdTarget::*TimerMember)(UINT_PTR id);
    typedef void (CCmdTarget::*SizeMember)(UINT type, int width, int height);
    typedef void (CCmdTarget::*MoveMember)(int x, int y);
    typedef void (CCmdTarget::*MouseMember)(UINT keys, CPoint place);
    typedef BOOL (CCmdTarget::*WheelMember)(UINT keys, short delta, CPoint screen);
    typedef void (CCmdTarget::*KeyMember)(UINT key, UINT count, UINT flags);
    typedef void (CCmdTarget::*WindowMember)(CWnd* other);
    typedef LRESULT (CCmdTarget::*HitTestMember)(CPoint screen);
    typedef BOOL (CCmdTarget::*EraseMember)(CDC* dc);
    typedef BOOL (CCmdTarget::*CursorMember)(CWnd* window, UINT hit, UINT message);
    typedef int (CCmdTarget::*CreateMember)(LPCREATESTRUCT facts);
    typedef void (CCmdTarget::*ContextMember)(CWnd* window, CPoint screen);
    typedef void (CCmdTarget::*ShowMember)(BOOL show, UINT status);
    typedef void (CCmdTarget::*InitMenuMember)(CMenu* menu, UINT place, BOOL isSystem);
    typedef void (CCmdTarget::*UpdateMember)(CCmdUI* item);

    constexpr AFX_MSGHANDLER() : kind(None), plain(nullptr) {}
    constexpr AFX_MSGHANDLER(PlainMember member) : kind(Plain), plain(member) {}
    constexpr AFX_MSGHANDLER(RangeMember member) : kind(Range), range(member) {}
    constexpr AFX_MSGHANDLER(NotifyMember member) : kind(Notify), notify(member) {}
    constexpr AFX_MSGHANDLER(MessageMember member) : kind(Message), message(member) {}
    constexpr AFX_MSGHANDLER(TimerMember member) : kind(Timer), timer(member) {}
    constexpr AFX_MSGHANDLER(SizeMember member) : kind(Size), size(member) {}
    constexpr AFX_MSGHANDLER(MoveMember member) : kind(Move), move(member) {}
    constexpr AFX_MSGHANDLER(MouseMember member) : kind(Mouse), mouse(member) {}
    constexpr AFX_MSGHANDLER(WheelMember member) : kind(Wheel), wheel(member) {}
    constexpr AFX_MSGHANDLER(KeyMember member) : kind(Key), key(member) {}
    constexpr AFX_MSGHANDLER(WindowMember member) : kind(Window), window(member) {}
    constexpr AFX_MSGHANDLER(HitTestMember member) : kind(HitTest), hitTest(member) {}
    constexpr AFX_MSGHANDLER(EraseMember member) : kind(Erase), erase(member) {}
    constexpr AFX_MSGHANDLER(CursorMember member) : kind(Cursor), cursor(member) {}
    constexpr AFX_MSGHANDLER(CreateMember member) : kind(Create), create(member) {}
    constexpr AFX_MSGHANDLER(ContextMember member) : kind(Context), context(member) {}
    constexpr AFX_MSGHANDLER(ShowMember member) : kind(Show), show(member) {}
    constexpr AFX_MSGHANDLER(InitMenuMember member) : kind(InitMenu), initMenu(member) {}
    constexpr AFX_MSGHANDLER(UpdateMember member) : kind(Update), update(member) {}

    Kind kind;
    union {
        PlainMember plain;
        RangeMember range;
        NotifyMember notify;
        MessageMember message;
        TimerMember timer;
        SizeMember size;
        MoveMember move;
        MouseMember mouse;
        WheelMember wheel;
        KeyMember key;
        WindowMember window;
        HitTestMember hitTest;
        EraseMember erase;
        CursorMember cursor;
        CreateMember create;
        ContextMember context;
        ShowMember show;
        InitMenuMember initMenu;
        UpdateMember update;
    };
};
