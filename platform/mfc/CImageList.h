// Pictures of one size, by number.
#pragma once
#include "CGdiObject.h"

#define ILC_COLOR 0x0000
#define ILC_MASK 0x0001
#define ILC_COLOR24 0x0018
#define ILC_COLOR32 0x0020

class CImageList : public CObject {
public:
    BOOL Create(int width, int height, UINT flags, int initial, int grow);
    BOOL DeleteImageList();
    int GetImageCount() const { return m_count; }
    int Add(CBitmap* bitmap, COLORREF mask);   // the number of the first one; -1 without a list
    BOOL Remove(int image);                    // -1: all

private:
    bool m_isMade = false;
    int m_width = 0, m_height = 0;
    int m_count = 0;
};
