// A field for text.
#pragma once
#include "CWnd.h"

class CEdit : public CWnd {
public:
    void LimitText(int count = 0);   // of what the user enters; 0: no limit
    BOOL SetReadOnly(BOOL readOnly = TRUE);
    // What would be typed over is the backend's matter.
    void SetSel(int, int, BOOL = FALSE) {}
    void ReplaceSel(const wchar_t* text, BOOL canUndo = FALSE);   // appends
};
