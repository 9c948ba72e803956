// A bar of the host that modules fill. The base lays out what is in it: SizeChanged comes whenever the client area has
// a new size, also while the bar is dragged from edge to edge.
#pragma once
#include "CControlBar.h"

class CAdUiDockControlBar : public CControlBar {
public:
    explicit CAdUiDockControlBar(int style = 0);
    ~CAdUiDockControlBar() override;

    // A title and a number under a parent, usually the main window. Docked at the left until told otherwise.
    virtual BOOL Create(CWnd* parent, const wchar_t* title, UINT id, DWORD style = WS_CHILD | WS_VISIBLE,
                        const CRect& rect = CRect(0, 0, 0, 0), DWORD exStyle = 0);
    BOOL Create(const wchar_t* className, const wchar_t* title, DWORD style, const RECT& rect, CWnd* parent, UINT id,
                void* context = nullptr) override;

    void DockControlBar(UINT dockBar, LPRECT rect = nullptr);   // AFX_IDW_DOCKBAR_...
    void FloatControlBar(const CPoint& place);
    void ShowControlBar(BOOL show);
    void GetUsedRect(CRect& rect) const { GetClientRect(rect); }
    // The least size while it floats.
    virtual void GetFloatingMinSize(long* width, long* height);

protected:
    // `rect` is the client area that may be used.
    virtual void SizeChanged(CRect* rect, int isFloating, int flags);
    // False keeps a bar open whose cross the user has pressed.
    virtual bool OnClosing() { return true; }
    virtual bool CreateControlBar(LPCREATESTRUCT) { return true; }   // false undoes the creation
    // True while the bar has a window that lives.
    bool IsLaidOut() const { return m_hWnd != nullptr && !m_isLeaving; }

    afx_msg int OnCreate(LPCREATESTRUCT facts);
    afx_msg void OnClose();
    afx_msg void OnDestroy();
    afx_msg void OnSize(UINT type, int width, int height);
    DECLARE_MESSAGE_MAP()

private:
    int m_style;
    bool m_isLeaving = false;
};
