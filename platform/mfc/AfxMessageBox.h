// A question or notice in a box of its own. The answer is one of the ID codes of its buttons.
#pragma once
#include "../win/KxWinTypes.h"

int AfxMessageBox(const wchar_t* text, UINT type = MB_OK, UINT helpId = 0);
// By the number of a string resource.
int AfxMessageBox(UINT promptId, UINT type = MB_OK, UINT helpId = UINT(-1));
// The caption of message boxes that name none.
const wchar_t* AfxGetAppName();
