// A device context: lines, areas, texts and pictures on the client area of a window or on a bitmap.
// What is selected must outlive its selection.
#pragma once
#include "CGdiObject.h"
#include "CString.h"

class CWnd;

class CDC : public CObject {
public:
    CDC() = default;
    ~CDC() override;

    HDC m_hDC = nullptr;
    HDC GetSafeHdc() const { return m_hDC; }
    static CDC* FromHandle(HDC dc) { return reinterpret_cast<CDC*>(dc); }
    BOOL CreateCompatibleDC(CDC* like);   // draws on the bitmap that is selected
    BOOL DeleteDC();

    // Each answers what was selected before.
    CPen* SelectObject(CPen* pen);
    CBrush* SelectObject(CBrush* brush);
    CBitmap* SelectObject(CBitmap* bitmap);   // memory contexts only
    CGdiObject* SelectStockObject(int number);
    int SetROP2(int mode);   // how lines and areas mix with what is there
    int GetROP2() const { return m_rop; }
    COLORREF SetTextColor(COLORREF color);
    COLORREF SetBkColor(COLORREF color);
    int SetBkMode(int mode);

    CPoint MoveTo(int x, int y);   // the place before
    CPoint MoveTo(POINT place) { return MoveTo(place.x, place.y); }
    BOOL LineTo(int x, int y);   // without the last pixel
    BOOL LineTo(POINT place) { return LineTo(place.x, place.y); }
    BOOL Polyline(const POINT* points, int count);
    BOOL Rectangle(int left, int top, int right, int bottom);   // pen around, brush inside
    BOOL Rectangle(LPCRECT rect) { return Rectangle(rect->left, rect->top, rect->right, rect->bottom); }
    void FillRect(LPCRECT rect, CBrush* brush);
    void FillSolidRect(LPCRECT rect, COLORREF color);
    void FrameRect(LPCRECT rect, CBrush* brush);
    COLORREF SetPixel(int x, int y, COLORREF color);
    COLORREF GetPixel(int x, int y) const;   // 0xFFFFFFFF outside
    BOOL BitBlt(int x, int y, int width, int height, CDC* source, int fromX, int fromY, DWORD rop);
    BOOL TextOut(int x, int y, const wchar_t* text, int count);
    BOOL TextOut(int x, int y, const CString& text);
    CSize GetTextExtent(const CString& text) const;

protected:
    explicit CDC(HWND window) : m_hDC(reinterpret_cast<HDC>(this)), m_window(window) {}
    // The pixels that it draws on now; null without any.
    uint32_t* Pixels(int& width, int& height) const;
    HWND Window() const { return m_window; }

private:
    void Mix(int x, int y, COLORREF color, int rop);
    void Span(int left, int right, int y, COLORREF color, int rop);
    void Segment(POINT from, POINT to);

    HWND m_window = nullptr;
    CBitmap* m_bitmap = nullptr;
    CPen* m_pen = nullptr;       // null: black, one pixel
    CBrush* m_brush = nullptr;   // null: white
    CPoint m_place;
    int m_rop = R2_COPYPEN;
    COLORREF m_textColor = 0, m_backColor = 0xFFFFFF;
    int m_backMode = OPAQUE;
};

// For drawing outside of a painting.
class CClientDC : public CDC {
public:
    explicit CClientDC(CWnd* window);
    ~CClientDC() override;
};

// For the handler of WM_PAINT: what was invalid is valid from here on, and what was drawn is shown at its end.
class CPaintDC : public CDC {
public:
    explicit CPaintDC(CWnd* window);
    ~CPaintDC() override;
};
