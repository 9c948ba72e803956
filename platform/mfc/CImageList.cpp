#include "CImageList.h"
#include <utility>

BOOL CImageList::Create(int width, int height, UINT, int, int)
{
    if (m_isMade || width <= 0 || height <= 0)
        return FALSE;
    m_width = width;
    m_height = height;
    return m_isMade = true;
}

BOOL CImageList::DeleteImageList()
{
    m_count = 0;
    return std::exchange(m_isMade, false);
}

// A wide bitmap holds several pictures side by side.
int CImageList::Add(CBitmap* bitmap, COLORREF)
{
    if (!m_isMade || bitmap == nullptr || bitmap->GetBitmapDimension().cx < m_width)
        return -1;
    const int first = m_count;
    m_count += bitmap->GetBitmapDimension().cx / m_width;
    return first;
}

BOOL CImageList::Remove(int image)
{
    if (!m_isMade || image < -1 || image >= m_count)
        return FALSE;
    m_count = image == -1 ? 0 : m_count - 1;
    return TRUE;
}
