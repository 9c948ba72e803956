// Which object a window has.
#pragma once
#include "../ui/WindowTable.h"
#include "CWnd.h"

namespace KxPlat {

struct WindowObjects {
    // Hands a message to the window's object, to the default where there is none.
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    // Ties both; the window's messages go through the object from now on.
    static void Tie(NativeWindow& window, CWnd& object);
    static void Untie(CWnd& object);
    // Where PreTranslateMessage is asked, from the window of a message upwards.
    static bool PreTranslate(MSG& message);
};

}   // namespace KxPlat
