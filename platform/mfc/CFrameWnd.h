// The host's main window, as modules see it: the owner of their dialogs and the place of their bars.
#pragma once
#include "CControlBar.h"

class CFrameWnd : public CWnd {
public:
    void EnableDocking(DWORD sides) { m_sides = sides; }
    // At an edge (AFX_IDW_DOCKBAR_...; 0 takes the first one that the bar allows), or floating at a place of the
    // screen.
    void DockControlBar(CControlBar* bar, UINT dockBar = 0, LPCRECT rect = nullptr);
    void FloatControlBar(CControlBar* bar, CPoint place, DWORD style = CBRS_ALIGN_TOP);
    void ShowControlBar(CControlBar* bar, BOOL show, BOOL delay);
    void RecalcLayout() {}

private:
    void Place(CControlBar& bar, const RECT& floating);
    DWORD m_sides = CBRS_ALIGN_ANY;
};

class CMDIFrameWnd : public CFrameWnd {};

// The main window; it is in the table of windows from the first call on.
CMDIFrameWnd* AfxGetMainFrame();
CWnd* AfxGetMainWnd();
