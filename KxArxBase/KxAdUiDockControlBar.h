// A bar of the host that shows one ordinary window, which fills it below a gap of two pixels.
#pragma once
#include "KxHost.h"
#include "KxMfcEx/KxExport.h"

namespace KxArxBase {

class KXARX_API CKxAdUiDockControlBar : public CAdUiDockControlBar {
public:
    CKxAdUiDockControlBar();
    ~CKxAdUiDockControlBar() override;

    // The window becomes a child of the bar and loses its own styles; it stays the caller's, who destroys it. Null
    // leaves the bar empty, and the last window where it is.
    void SetShowWnd(CWnd* window);
    CWnd* GetShowWnd() const { return m_showWnd; }

protected:
    void SizeChanged(CRect* rect, int isFloating, int flags) override;
    // Takes the show window in again, shows it and fits it to the rectangle.
    void ResizeShowWnd(CRect& rect);
    afx_msg void OnSize(UINT type, int width, int height);
    DECLARE_MESSAGE_MAP()

private:
    void TakeIn();

    CWnd* m_showWnd = nullptr;
};

}   // namespace KxArxBase
