// One command of the command line.
#pragma once
#include "../rx/AcRxObject.h"

#define ACRX_CMD_MODAL 0x00000000
#define ACRX_CMD_TRANSPARENT 0x00000001
#define ACRX_CMD_USEPICKSET 0x00000002
#define ACRX_CMD_REDRAW 0x00000004
#define ACRX_CMD_NOPERSPECTIVE 0x00000008
#define ACRX_CMD_NOMULTIPLE 0x00000010
#define ACRX_CMD_NOTILEMODE 0x00000020
#define ACRX_CMD_NOPAPERSPACE 0x00000040
#define ACRX_CMD_PLOTONLY 0x00000080
#define ACRX_CMD_NOOEM 0x00000100
#define ACRX_CMD_UNDEFINED 0x00000200
#define ACRX_CMD_INPROGRESS 0x00000400
#define ACRX_CMD_DEFUN 0x00000800
#define ACRX_CMD_NOINTERNALLOCK 0x00010000
#define ACRX_CMD_DOCREADLOCK 0x00080000
#define ACRX_CMD_DOCEXCLUSIVELOCK 0x00100000
#define ACRX_CMD_SESSION 0x00200000
#define ACRX_CMD_INTERRUPTIBLE 0x00400000
#define ACRX_CMD_NOHISTORY 0x00800000
#define ACRX_CMD_NO_UNDO_MARKER 0x01000000

typedef void (*AcRxFunctionPtr)();
class AcEdUIContext;

class AcEdCommand : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEdCommand);
    virtual void functionAddr(AcRxFunctionPtr function) = 0;
    virtual AcRxFunctionPtr functionAddr() const = 0;
    virtual Adesk::Int32 commandFlags() const = 0;
    virtual const ACHAR* globalName() const = 0;
    virtual const ACHAR* localName() const = 0;
    virtual AcEdUIContext* UIContext() const = 0;
    virtual AcRxObject* commandApp() const = 0;
    virtual const ACHAR* groupName() const = 0;
    virtual int functionCode() const = 0;
};
