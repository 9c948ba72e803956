// A bar at an edge of the host's main window, or floating above it.
#pragma once
#include "CWnd.h"

// clang-format off
#define CBRS_ALIGN_LEFT 0x1000U
#define CBRS_ALIGN_TOP 0x2000U
#define CBRS_ALIGN_RIGHT 0x4000U
#define CBRS_ALIGN_BOTTOM 0x8000U
#define CBRS_ALIGN_ANY 0xF000U
#define CBRS_TOOLTIPS 0x0010U
#define CBRS_FLYBY 0x0020U
#define CBRS_SIZE_DYNAMIC 0x0004U
#define AFX_IDW_DOCKBAR_TOP 0xE81BU
#define AFX_IDW_DOCKBAR_LEFT 0xE81CU
#define AFX_IDW_DOCKBAR_RIGHT 0xE81DU
#define AFX_IDW_DOCKBAR_BOTTOM 0xE81EU
// clang-format on

class CFrameWnd;

class CControlBar : public CWnd {
public:
    // At which edges it may be docked, as CBRS_ALIGN_ flags; 0 for none.
    void EnableDocking(DWORD sides) { m_dwDockStyle = sides; }
    BOOL IsFloating() const { return m_isFloating; }
    UINT GetDockBar() const { return m_isFloating ? 0 : m_dockBar; }   // AFX_IDW_DOCKBAR_...
    DWORD GetBarStyle() const { return m_dwStyle; }
    void SetBarStyle(DWORD style) { m_dwStyle = style; }
    CFrameWnd* GetDockingFrame() const;

protected:
    LRESULT OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, BOOL& isHandled) override;

    DWORD m_dwStyle = 0;   // CBRS_ flags
    DWORD m_dwDockStyle = 0;

private:
    friend class CFrameWnd;
    BOOL m_isFloating = TRUE;
    UINT m_dockBar = 0;   // where it was docked last
};
