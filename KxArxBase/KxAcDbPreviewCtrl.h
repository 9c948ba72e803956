// A child window that shows a drawing: zoom with the wheel, drag to pan, zoom or orbit, preset views, shading, and a
// menu of all that on the right button. Until a database is set, every handler does nothing.
// The database must outlive what is shown of it: SetAcDb another one, or Clear, first. One that the control read from a
// file is its own.
#pragma once
#include "KxHost.h"
#include "KxMfcEx/KxExport.h"

namespace KxArxBase {

class KXARX_API CKxAcDbPreviewCtrl : public CWnd {
public:
    CKxAcDbPreviewCtrl();
    ~CKxAcDbPreviewCtrl() override;

    // Shows the model space as it was last looked at. Before the control has its window it is shown with that.
    void SetAcDb(AcDbDatabase* db);
    // DWG or DXF. On a failure the control is left empty.
    Acad::ErrorStatus SetAcDbFromFileName(const wchar_t* fileName);
    void Clear();
    void ZoomExtent();
    // By the numbers of the menu's items; others do nothing.
    void SetRenderMode(unsigned int menuId);
    void SetViewMode(unsigned int menuId);
    void GetIcon() {}

protected:
    enum Mode : uint32_t { kPan = 1, kOrbit = 2, kZoom = 4, kWindowZoom = 8, kZoomLock = 16 };

    void InitCtrl(AcDbDatabase* db);
    void InitGS();
    // The view of the active viewport: the size of what is seen, the point in its middle (of the viewport's target,
    // with `useCenter` of what the user looked at), the direction to the eye, and the twist in radians. False without
    // one.
    bool GetActiveViewPortInfo(double& height, double& width, AcGePoint3d& target, AcGeVector3d& viewDir, double& twist,
                               int useCenter);
    void PostNcDestroy() override;

    afx_msg void OnPaint();
    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg void OnSetFocus(CWnd* before);
    afx_msg LRESULT OnNcHitTest(CPoint screen);
    afx_msg void OnLButtonDown(UINT keys, CPoint place);
    afx_msg void OnLButtonUp(UINT keys, CPoint place);
    afx_msg void OnMButtonDown(UINT keys, CPoint place);
    afx_msg void OnMButtonUp(UINT keys, CPoint place);
    afx_msg void OnMouseMove(UINT keys, CPoint place);
    afx_msg BOOL OnMouseWheel(UINT keys, short delta, CPoint screen);
    afx_msg void OnRButtonUp(UINT keys, CPoint place);

    afx_msg void OnExtentZoom();
    afx_msg void OnWinZoom();
    afx_msg void OnPanning();
    afx_msg void OnRandomZoom();
    afx_msg void OnOrbiting();
    afx_msg void OnLockZoom();
    afx_msg void OnFileSaveAs();
    afx_msg void OnParallel();
    afx_msg void OnPerspective();
    afx_msg void OnWireFrame();
    afx_msg void OnHideLine();
    afx_msg void OnFlatShareded();
    afx_msg void OnGouraudSharded();
    afx_msg void OnFlatShardedWireFrame();
    afx_msg void OnGouraudShardedWireFrame();
    afx_msg void OnTopView();
    afx_msg void OnBottomView();
    afx_msg void OnFrontView();
    afx_msg void OnBackView();
    afx_msg void OnLeftView();
    afx_msg void OnRightView();
    afx_msg void OnSWView();
    afx_msg void OnSEView();
    afx_msg void OnNEView();
    afx_msg void OnNWView();
    DECLARE_MESSAGE_MAP()

    CMenu m_menu;
    CImageList m_images;
    HCURSOR m_cursors[3];   // while panning, orbiting, zooming
    AcGsView* m_view = nullptr;
    AcGsDevice* m_device = nullptr;
    AcGsModel* m_model = nullptr;
    uint32_t m_mode = kPan;
    // What a drag that is going on does.
    unsigned char m_isPanning = 0;
    unsigned char m_isOrbiting = 0;
    unsigned char m_isZooming = 0;
    unsigned char m_isWindowZooming = 0;
    CPoint m_start, m_last;   // of the drag, client coordinates
    AcDbExtents m_extents;
    AcDbDatabase* m_db = nullptr;
    float m_zoomFactor = 1.0f;   // of the zoom drag so far

private:
    enum Check : unsigned int { kCheck = 0, kUncheck = 1, kToggle = 2 };

    void SetChecked(unsigned int id, unsigned int how);
    void ReleaseGraphics();
    void AddModelSpace();
    void MeasureExtents();
    void ShowActiveView();
    void SetProjection(bool isPerspective);
    CRect ClientRect() const;
    // A way on the device, pixels to the right and up, in the axes of the camera.
    AcGeVector3d WayOf(double right, double up) const;
    void BeginDrag(CPoint place);
    void PanTo(CPoint place);
    void OrbitTo(CPoint place);
    void ZoomTo(CPoint place);
    void ZoomToWindow();

    bool m_ownsDb = false;
    int m_stepsForward = 0;   // of the wheel, made at one place and not yet taken back
    CPoint m_wheelPlace;
};

}   // namespace KxArxBase
