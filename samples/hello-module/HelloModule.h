// A sample module: rooms. It draws them, keeps their names and numbers with them, and counts them.
#pragma once
#include "KxArxBase/KxArxBase.h"

namespace Hello {

class HelloModule : public KxArxBase::CArxModuleRegManage {
public:
    int InitModule() override;
    int UnloadModule() override;
    // LISP functions belong to a drawing: they are defined anew in each one that is opened.
    Acad::ErrorStatus AcrxLoadDwgMsg() override;
    Acad::ErrorStatus AcrxUnloadDwgMsg() override;

    static void CmdHelloRoom();
    static void CmdHelloTag();
    static void CmdHelloList();
    static void CmdHelloView();
    // (hello-rooms): the number of rooms of the drawing.
    static int FunHelloRooms(resbuf* arguments);
};

// Where the module's dialogs are; null before the library's entry was called.
HINSTANCE Resources();

}   // namespace Hello
