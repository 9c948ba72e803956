#include "KxAcDbPreviewCtrl.h"
#include "DbGeometry.h"
#include "GiFile.h"
#include "KxAcDb.h"
#include "Opened.h"
#include "resources/resource.h"

namespace KxArxBase {

BEGIN_MESSAGE_MAP(CKxAcDbPreviewCtrl, CWnd)
ON_WM_PAINT()
ON_WM_SIZE()
ON_WM_SETFOCUS()
ON_WM_NCHITTEST()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_MBUTTONDOWN()
ON_WM_MBUTTONUP()
ON_WM_MOUSEMOVE()
ON_WM_MOUSEWHEEL()
ON_WM_RBUTTONUP()
ON_COMMAND(ID_PREVIEW_EXTENTS, &CKxAcDbPreviewCtrl::OnExtentZoom)
ON_COMMAND(ID_PREVIEW_WINDOW_ZOOM, &CKxAcDbPreviewCtrl::OnWinZoom)
ON_COMMAND(ID_PREVIEW_PAN, &CKxAcDbPreviewCtrl::OnPanning)
ON_COMMAND(ID_PREVIEW_ZOOM, &CKxAcDbPreviewCtrl::OnRandomZoom)
ON_COMMAND(ID_PREVIEW_ORBIT, &CKxAcDbPreviewCtrl::OnOrbiting)
ON_COMMAND(ID_PREVIEW_LOCK_ZOOM, &CKxAcDbPreviewCtrl::OnLockZoom)
ON_COMMAND(ID_PREVIEW_SAVE_AS, &CKxAcDbPreviewCtrl::OnFileSaveAs)
ON_COMMAND(ID_PREVIEW_PARALLEL, &CKxAcDbPreviewCtrl::OnParallel)
ON_COMMAND(ID_PREVIEW_PERSPECTIVE, &CKxAcDbPreviewCtrl::OnPerspective)
ON_COMMAND(ID_PREVIEW_WIREFRAME, &CKxAcDbPreviewCtrl::OnWireFrame)
ON_COMMAND(ID_PREVIEW_HIDDEN, &CKxAcDbPreviewCtrl::OnHideLine)
ON_COMMAND(ID_PREVIEW_FLAT, &CKxAcDbPreviewCtrl::OnFlatShareded)
ON_COMMAND(ID_PREVIEW_GOURAUD, &CKxAcDbPreviewCtrl::OnGouraudSharded)
ON_COMMAND(ID_PREVIEW_FLAT_EDGES, &CKxAcDbPreviewCtrl::OnFlatShardedWireFrame)
ON_COMMAND(ID_PREVIEW_GOURAUD_EDGES, &CKxAcDbPreviewCtrl::OnGouraudShardedWireFrame)
ON_COMMAND(ID_PREVIEW_TOP, &CKxAcDbPreviewCtrl::OnTopView)
ON_COMMAND(ID_PREVIEW_BOTTOM, &CKxAcDbPreviewCtrl::OnBottomView)
ON_COMMAND(ID_PREVIEW_FRONT, &CKxAcDbPreviewCtrl::OnFrontView)
ON_COMMAND(ID_PREVIEW_BACK, &CKxAcDbPreviewCtrl::OnBackView)
ON_COMMAND(ID_PREVIEW_LEFT, &CKxAcDbPreviewCtrl::OnLeftView)
ON_COMMAND(ID_PREVIEW_RIGHT, &CKxAcDbPreviewCtrl::OnRightView)
ON_COMMAND(ID_PREVIEW_SOUTH_WEST, &CKxAcDbPreviewCtrl::OnSWView)
ON_COMMAND(ID_PREVIEW_SOUTH_EAST, &CKxAcDbPreviewCtrl::OnSEView)
ON_COMMAND(ID_PREVIEW_NORTH_EAST, &CKxAcDbPreviewCtrl::OnNEView)
ON_COMMAND(ID_PREVIEW_NORTH_WEST, &CKxAcDbPreviewCtrl::OnNWView)
END_MESSAGE_MAP()

CKxAcDbPreviewCtrl::CKxAcDbPreviewCtrl()
{
    for (HCURSOR& cursor : m_cursors)
        cursor = ::LoadCursorW(nullptr, IDC_CROSS);
    m_menu.LoadMenu(IDR_PREVIEW_MENU);
}

CKxAcDbPreviewCtrl::~CKxAcDbPreviewCtrl()
{
    Clear();
    if (GetSafeHwnd() != nullptr)
        DestroyWindow();
}

// --- what is shown -------------------------------------------------------------------------------------------------

void CKxAcDbPreviewCtrl::SetAcDb(AcDbDatabase* db)
{
    Clear();
    if (db != nullptr)
        InitCtrl(db);
}

Acad::ErrorStatus CKxAcDbPreviewCtrl::SetAcDbFromFileName(const wchar_t* fileName)
{
    Clear();
    if (fileName == nullptr || *fileName == 0)
        return Acad::eInvalidInput;
    AcDbDatabase* db = new AcDbDatabase(false, true);
    const CString extension = CString(fileName).Right(4);
    const Acad::ErrorStatus es =
        extension.CompareNoCase(L".dxf") == 0 ? db->dxfIn(fileName) : db->readDwgFile(fileName);
    if (es != Acad::eOk) {
        delete db;
        return es;
    }
    m_ownsDb = true;
    InitCtrl(db);
    return Acad::eOk;
}

void CKxAcDbPreviewCtrl::InitCtrl(AcDbDatabase* db)
{
    m_db = db;
    MeasureExtents();
    InitGS();
}

// What is drawn counts, not what the file says of its extents.
void CKxAcDbPreviewCtrl::MeasureExtents()
{
    CKxAcDb db(m_db, 0);
    AcDbObjectIdArray ids;
    db.BlockTableGetEntityIds(ids, ACDB_MODEL_SPACE);
    m_extents = AcDbExtents();
    Db::GetExtents(m_extents, ids, 0);
}

void CKxAcDbPreviewCtrl::InitGS()
{
    AcGsManager* manager = acgsGetGsManager();
    if (m_view != nullptr || m_db == nullptr || GetSafeHwnd() == nullptr || manager == nullptr)
        return;
    AcGsClassFactory* factory = manager->getGSClassFactory();
    const CRect rect = ClientRect();
    m_device = manager->createAutoCADDevice(GetSafeHwnd());
    m_device->onSize(rect.Width(), rect.Height());
    m_device->setBackgroundColor(AcGsColor{0, 0, 0});
    m_model = factory->createModel(AcGsModel::kMain);
    m_view = factory->createView();
    m_device->add(m_view);
    AddModelSpace();
    ShowActiveView();
    Invalidate();
}

void CKxAcDbPreviewCtrl::AddModelSpace()
{
    AcDbBlockTable* table = nullptr;
    if (m_db->getSymbolTable(table, AcDb::kForRead) != Acad::eOk)
        return;
    AcDbBlockTableRecord* record = nullptr;
    const Acad::ErrorStatus es = table->getAt(ACDB_MODEL_SPACE, record, AcDb::kForRead);
    table->close();
    if (const Opened<AcDbBlockTableRecord> space(record, es); space)
        m_view->add(space.get(), m_model);
}

void CKxAcDbPreviewCtrl::ReleaseGraphics()
{
    AcGsManager* manager = acgsGetGsManager();
    if (m_view == nullptr || manager == nullptr)
        return;
    m_view->eraseAll();
    m_device->erase(m_view);
    manager->getGSClassFactory()->deleteView(m_view);
    manager->getGSClassFactory()->deleteModel(m_model);
    manager->destroyAutoCADDevice(m_device);
    m_view = nullptr;
    m_model = nullptr;
    m_device = nullptr;
}

void CKxAcDbPreviewCtrl::Clear()
{
    ReleaseGraphics();
    if (m_ownsDb)
        delete m_db;
    m_ownsDb = false;
    m_db = nullptr;
    m_extents = AcDbExtents();
    m_isPanning = m_isOrbiting = m_isZooming = m_isWindowZooming = 0;
    m_stepsForward = 0;
    Invalidate();
}

void CKxAcDbPreviewCtrl::PostNcDestroy()
{
    ReleaseGraphics();
}

void CKxAcDbPreviewCtrl::OnPaint()
{
    CPaintDC dc(this);
    InitGS();   // a database may have come before the window
    if (m_view == nullptr) {
        dc.FillSolidRect(ClientRect(), RGB(0, 0, 0));
        return;
    }
    if (m_isWindowZooming == 0) {
        m_view->invalidate();   // the drawing may have changed meanwhile
        m_device->update();
        return;
    }
    m_device->update();
    CPen pen(PS_DOT, 1, RGB(255, 255, 255));
    CRect frame(m_start.x, m_start.y, m_last.x, m_last.y);
    frame.NormalizeRect();
    CPen* before = dc.SelectObject(&pen);
    dc.SelectStockObject(NULL_BRUSH);
    dc.Rectangle(frame.left, frame.top, frame.right + 1, frame.bottom + 1);
    dc.SelectObject(before);
}

void CKxAcDbPreviewCtrl::OnSize(UINT type, int width, int height)
{
    CWnd::OnSize(type, width, height);
    if (m_view == nullptr)
        return;
    m_device->onSize(width, height);
    Invalidate();
}

void CKxAcDbPreviewCtrl::OnSetFocus(CWnd* before)
{
    CWnd::OnSetFocus(before);
}

// A label that this control took the place of would let the mouse through.
LRESULT CKxAcDbPreviewCtrl::OnNcHitTest(CPoint)
{
    return HTCLIENT;
}

CRect CKxAcDbPreviewCtrl::ClientRect() const
{
    CRect rect;
    GetClientRect(rect);
    return rect;
}

// --- the menu ------------------------------------------------------------------------------------------------------

void CKxAcDbPreviewCtrl::SetChecked(unsigned int id, unsigned int how)
{
    CMenu* menu = m_menu.GetSubMenu(0);
    if (menu == nullptr)
        return;
    const bool isChecked = (menu->GetMenuState(id, MF_BYCOMMAND) & MF_CHECKED) != 0;
    const bool wanted = how == kToggle ? !isChecked : how == kCheck;
    if (wanted != isChecked)
        menu->CheckMenuItem(id, MF_BYCOMMAND | (wanted ? MF_CHECKED : MF_UNCHECKED));
}

void CKxAcDbPreviewCtrl::OnRButtonUp(UINT, CPoint place)
{
    CMenu* menu = m_menu.GetSubMenu(0);
    if (m_view == nullptr || menu == nullptr)
        return;
    ClientToScreen(&place);
    menu->TrackPopupMenu(0, place.x, place.y, this);
}

void CKxAcDbPreviewCtrl::OnExtentZoom()
{
    ZoomExtent();
}

void CKxAcDbPreviewCtrl::OnWinZoom()
{
    if (m_view != nullptr && (m_mode & kZoomLock) == 0)
        m_mode |= kWindowZoom;
}

void CKxAcDbPreviewCtrl::OnPanning()
{
    if (m_view == nullptr)
        return;
    SetChecked(ID_PREVIEW_PAN, kCheck);
    SetChecked(ID_PREVIEW_ZOOM, kUncheck);
    SetChecked(ID_PREVIEW_ORBIT, kUncheck);
    m_mode = (m_mode | kPan) & ~(kZoom | kOrbit | kWindowZoom);
}

void CKxAcDbPreviewCtrl::OnRandomZoom()
{
    if (m_view == nullptr || (m_mode & kZoomLock) != 0)
        return;
    SetChecked(ID_PREVIEW_ZOOM, kCheck);
    SetChecked(ID_PREVIEW_ORBIT, kUncheck);
    SetChecked(ID_PREVIEW_PAN, kUncheck);
    m_mode = (m_mode | kZoom) & ~(kOrbit | kPan | kWindowZoom);
}

void CKxAcDbPreviewCtrl::OnOrbiting()
{
    if (m_view == nullptr)
        return;
    SetChecked(ID_PREVIEW_ORBIT, kCheck);
    SetChecked(ID_PREVIEW_ZOOM, kUncheck);
    SetChecked(ID_PREVIEW_PAN, kUncheck);
    m_mode = (m_mode | kOrbit) & ~(kZoom | kPan | kWindowZoom);
}

void CKxAcDbPreviewCtrl::OnLockZoom()
{
    if (m_view == nullptr)
        return;
    SetChecked(ID_PREVIEW_LOCK_ZOOM, kToggle);
    m_mode ^= kZoomLock;
    if ((m_mode & kZoom) != 0) {
        SetChecked(ID_PREVIEW_ZOOM, kUncheck);
        SetChecked(ID_PREVIEW_PAN, kCheck);
        m_mode = (m_mode | kPan) & ~kZoom;
    }
    m_mode &= ~kWindowZoom;
}

void CKxAcDbPreviewCtrl::OnFileSaveAs()
{
    CString name;
    if (m_view == nullptr || Gi::AskSaveFileName(L"图形另存为", L"dwg", name) != 0)
        return;
    if (m_db->saveAs(name, true, AcDb::kDHL_1024, nullptr) != Acad::eOk)
        AfxMessageBox(L"另存文件失败");
}

}   // namespace KxArxBase
