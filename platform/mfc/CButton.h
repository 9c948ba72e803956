// Push buttons, check boxes, radio buttons and frames.
#pragma once
#include "CWnd.h"

class CButton : public CWnd {
public:
    int GetCheck() const;
    void SetCheck(int check);   // BST_...
    UINT GetState() const { return UINT(GetCheck()); }
    void SetButtonStyle(UINT style, BOOL redraw = TRUE);
};
