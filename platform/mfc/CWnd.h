// A window: a dialog, one of its controls while the dialog runs, or one that the program made (Create) or took over
// (Attach, SubclassDlgItem). Without a window (m_hWnd null) reading gives nothing and changing does nothing.
#pragma once
#include "CCmdTarget.h"
#include "CRect.h"
#include "CString.h"

namespace KxPlat {
class DialogWindows;
struct DialogControl;
struct WindowObjects;
}   // namespace KxPlat

class CDataExchange;

class CWnd : public CCmdTarget {
public:
    CWnd() = default;
    ~CWnd() override;   // destroys its window

    HWND m_hWnd = nullptr;
    HWND GetSafeHwnd() const { return m_hWnd; }
    operator HWND() const { return m_hWnd; }
    int GetDlgCtrlID() const;
    CWnd* GetParent() const;
    CWnd* GetOwner() const { return GetParent(); }

    // --- making and taking over --------------------------------------------------------------------------------
    // A null class name stands for one of MFC's own. A child lies in its parent's client coordinates.
    virtual BOOL Create(const wchar_t* className, const wchar_t* text, DWORD style, const RECT& rect, CWnd* parent,
                        UINT id, void* context = nullptr);
    BOOL CreateEx(DWORD exStyle, const wchar_t* className, const wchar_t* text, DWORD style, int x, int y, int width,
                  int height, HWND parent, HMENU idOrMenu, void* parameter = nullptr);
    BOOL CreateEx(DWORD exStyle, const wchar_t* className, const wchar_t* text, DWORD style, const RECT& rect,
                  CWnd* parent, UINT id, void* parameter = nullptr);
    virtual BOOL DestroyWindow();
    // Ties this object to a window that has none; it does not get the window's messages.
    BOOL Attach(HWND window);
    HWND Detach();   // the window stays
    // The same, and the messages go through this object first.
    BOOL SubclassWindow(HWND window);
    BOOL SubclassDlgItem(UINT id, CWnd* dialog);
    HWND UnsubclassWindow();
    // The object of a window, else one that lives for a while; null for a null window.
    static CWnd* FromHandle(HWND window);
    static CWnd* FromHandlePermanent(HWND window);

    // --- place -------------------------------------------------------------------------------------------------
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
    void MoveWindow(LPCRECT rect, BOOL repaint = TRUE);
    BOOL SetWindowPos(const CWnd* after, int x, int y, int width, int height, UINT flags);
    CWnd* SetParent(CWnd* parent);   // the old one
    BOOL IsChild(const CWnd* window) const;
    void GetClientRect(LPRECT rect) const;
    void GetWindowRect(LPRECT rect) const;   // of the screen
    void ClientToScreen(LPPOINT point) const;
    void ClientToScreen(LPRECT rect) const;
    void ScreenToClient(LPPOINT point) const;
    void ScreenToClient(LPRECT rect) const;

    void SetWindowText(const wchar_t* text);
    void GetWindowText(CString& text) const;
    int GetWindowText(wchar_t* text, int size) const;
    int GetWindowTextLength() const;
    BOOL EnableWindow(BOOL enable = TRUE);   // TRUE when it was disabled before
    BOOL IsWindowEnabled() const;
    BOOL ShowWindow(int command);   // TRUE when it was visible before
    BOOL IsWindowVisible() const;
    DWORD GetStyle() const;
    DWORD GetExStyle() const;
    BOOL ModifyStyle(DWORD remove, DWORD add, UINT flags = 0);   // TRUE when it changed
    BOOL ModifyStyleEx(DWORD remove, DWORD add, UINT flags = 0);
    CWnd* SetFocus();   // the one that had it
    static CWnd* GetFocus();
    CWnd* SetCapture();
    static CWnd* GetCapture();
    // Has it painted anew; UpdateWindow does it at once.
    void Invalidate(BOOL erase = TRUE);
    void InvalidateRect(LPCRECT rect, BOOL erase = TRUE);
    void UpdateWindow();
    BOOL RedrawWindow(LPCRECT rect = nullptr, void* region = nullptr, UINT flags = 0);
    void SetRedraw(BOOL = TRUE) {}
    UINT_PTR SetTimer(UINT_PTR id, UINT milliseconds, TIMERPROC procedure);
    BOOL KillTimer(UINT_PTR id);
    CDC* GetDC();
    int ReleaseDC(CDC* dc);

    // Controls of a dialog. The pointer is the attached object (DDX_Control), else one that lives as long as the dialog
    // runs: a CListBox for a list box, and so on. Null for an unknown number.
    CWnd* GetDlgItem(int id) const;
    void SetDlgItemText(int id, const wchar_t* text);
    int GetDlgItemText(int id, CString& text) const;
    int GetDlgItemText(int id, wchar_t* text, int size) const;
    void SetDlgItemInt(int id, UINT value, BOOL isSigned = TRUE);
    UINT GetDlgItemInt(int id, BOOL* translated = nullptr, BOOL isSigned = TRUE) const;
    void CheckDlgButton(int id, UINT check);
    UINT IsDlgButtonChecked(int id) const;
    void CheckRadioButton(int first, int last, int checked);
    int GetCheckedRadioButton(int first, int last) const;

    int MessageBox(const wchar_t* text, const wchar_t* caption = nullptr, UINT type = MB_OK);
    // Moves values between the members and the controls; FALSE when one of them is not valid.
    BOOL UpdateData(BOOL saveAndValidate = TRUE);

    // Handled before the call returns. Controls answer the messages that their parents know, no others.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    // Sees messages to this window and those below it before they are handed on; TRUE swallows one.
    virtual BOOL PreTranslateMessage(MSG* message);

protected:
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // What the window did before it was subclassed, else what all windows do.
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Default();   // the same with the message that is being handled
    virtual BOOL PreCreateWindow(CREATESTRUCT& facts);
    virtual void PreSubclassWindow() {}
    virtual void PostNcDestroy() {}   // the last that it hears; may delete the object
    virtual LRESULT OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, BOOL& isHandled);
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
    virtual void DoDataExchange(CDataExchange* exchange);

    // What handlers of a derived class pass on to: each does what windows do by default.
    afx_msg int OnCreate(LPCREATESTRUCT facts) { return int(Default()); }
    afx_msg void OnDestroy() { Default(); }
    afx_msg void OnClose() { Default(); }
    afx_msg void OnPaint() { Default(); }
    afx_msg BOOL OnEraseBkgnd(CDC* dc) { return BOOL(Default()); }
    afx_msg void OnSize(UINT type, int width, int height) { Default(); }
    afx_msg void OnMove(int x, int y) { Default(); }
    afx_msg void OnShowWindow(BOOL show, UINT status) { Default(); }
    afx_msg void OnSetFocus(CWnd* before) { Default(); }
    afx_msg void OnKillFocus(CWnd* next) { Default(); }
    afx_msg void OnCaptureChanged(CWnd* next) { Default(); }
    afx_msg BOOL OnSetCursor(CWnd* window, UINT hit, UINT message) { return BOOL(Default()); }
    afx_msg LRESULT OnNcHitTest(CPoint screen) { return Default(); }
    afx_msg void OnTimer(UINT_PTR id) { Default(); }
    afx_msg void OnKeyDown(UINT key, UINT count, UINT flags) { Default(); }
    afx_msg void OnKeyUp(UINT key, UINT count, UINT flags) { Default(); }
    afx_msg void OnChar(UINT key, UINT count, UINT flags) { Default(); }
    afx_msg void OnMouseMove(UINT keys, CPoint place) { Default(); }
    afx_msg BOOL OnMouseWheel(UINT keys, short delta, CPoint screen) { return BOOL(Default()); }
    afx_msg void OnLButtonDown(UINT keys, CPoint place) { Default(); }
    afx_msg void OnLButtonUp(UINT keys, CPoint place) { Default(); }
    afx_msg void OnLButtonDblClk(UINT keys, CPoint place) { Default(); }
    afx_msg void OnMButtonDown(UINT keys, CPoint place) { Default(); }
    afx_msg void OnMButtonUp(UINT keys, CPoint place) { Default(); }
    afx_msg void OnRButtonDown(UINT keys, CPoint place) { Default(); }
    afx_msg void OnRButtonUp(UINT keys, CPoint place) { Default(); }
    afx_msg void OnContextMenu(CWnd* window, CPoint screen) { Default(); }
    afx_msg void OnInitMenuPopup(CMenu* menu, UINT place, BOOL isSystem) { Default(); }

    // Of a control; null for a dialog or without a window.
    KxPlat::DialogControl* Control() const { return m_control; }
    // Tells the dialog what happened to this control, as the system does after some calls.
    void NotifyParent(UINT code) const;

private:
    friend class KxPlat::DialogWindows;
    friend struct KxPlat::WindowObjects;
    BOOL RunHandler(const AFX_MSGHANDLER& handler, WPARAM wParam, LPARAM lParam, LRESULT& result);
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
    void Forget();

    KxPlat::DialogWindows* m_windows = nullptr;   // of the dialog that this is, or is in
    KxPlat::DialogControl* m_control = nullptr;
    WNDPROC m_before = nullptr;   // what the window called before it was subclassed
    bool m_isBorrowed = false;    // the window is another's
    struct {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
    } m_current = {0, 0, 0};
};

// A class for windows with this cursor; its name stays valid.
const wchar_t* AfxRegisterWndClass(UINT style, HCURSOR cursor = nullptr, HBRUSH background = nullptr,
                                   HICON icon = nullptr);
