// The C interface to the command line: commands, prompts, system variables, LISP functions, files.
// Each answers RTNORM (5100) on success, RTCAN on Esc, RTNONE on Enter where that is allowed, RTKWORD on a keyword, and
// RTERROR on failure; the system variable ERRNO then says why.
#pragma once
#include "../rx/acutads.h"
#include "../win/KxWinTypes.h"
#include "select/acdbads.h"
#include "select/acedSelection.h"

class CMDIFrameWnd;

// Runs commands with the given pieces of input. What the pieces leave open is asked from whoever called.
int acedCommand(int rtype, ...);
int acedCmd(const resbuf* arguments);

// Options and keywords for the next prompt only. "Yes No _Yes No": global names behind the underscore.
int acedInitGet(int bits, const ACHAR* keywords);
int acedGetString(int allowBlanks, const ACHAR* prompt, ACHAR* result);   // `result`: at least 512 characters
int acedGetInt(const ACHAR* prompt, int* result);
int acedGetReal(const ACHAR* prompt, ads_real* result);
int acedGetPoint(const ads_point base, const ACHAR* prompt, ads_point result);
int acedGetCorner(const ads_point base, const ACHAR* prompt, ads_point result);
int acedGetDist(const ads_point base, const ACHAR* prompt, ads_real* result);
int acedGetAngle(const ads_point base, const ACHAR* prompt, ads_real* result);   // radians
int acedGetOrient(const ads_point base, const ACHAR* prompt, ads_real* result);
int acedGetKword(const ACHAR* prompt, ACHAR* result);
int acedGetInput(ACHAR* text);   // the keyword or text that the last prompt got
int acedEntSel(const ACHAR* prompt, ads_name entity, ads_point picked);

int acedPrompt(const ACHAR* text);
int acutPrintf(const ACHAR* format, ...);
int acedAlert(const ACHAR* text);
int acedUsrBrk();   // nonzero when the user asked to stop
int acedUpdateDisplay();
int acedRedraw(const ads_name entity, int mode);

// A text result is the caller's: free it with acutDelString.
int acedGetVar(const ACHAR* name, resbuf* result);
int acedSetVar(const ACHAR* name, const resbuf* value);
// Values that outlive the session; "ACAD" is the support path.
int acedGetEnv(const ACHAR* name, ACHAR* value, size_t length);
int acedSetEnv(const ACHAR* name, const ACHAR* value);

int acedFindFile(const ACHAR* name, ACHAR* found);   // `found`: at least MAX_PATH characters
int acedGetFileD(const ACHAR* title, const ACHAR* initial, const ACHAR* extensions, int flags, resbuf* result);

// Functions that a module gives to LISP, in the current document.
int acedDefun(const ACHAR* name, short code);
int acedUndef(const ACHAR* name, short code);
int acedRegFunc(int (*function)(), int code);
int acedGetFunCode();
resbuf* acedGetArgs();   // the caller frees it
int acedRetList(const resbuf* list);
int acedRetVal(const resbuf* value);
int acedRetStr(const ACHAR* text);
int acedRetInt(int value);
int acedRetReal(ads_real value);
int acedRetPoint(const ads_point value);
int acedRetName(const ads_name name, int type);
int acedRetNil();
int acedRetT();
int acedRetVoid();
int acedGetSym(const ACHAR* name, resbuf** value);   // the caller frees it; null for nil
int acedPutSym(const ACHAR* name, resbuf* value);
int acedInvoke(const resbuf* call, resbuf** result);

int acedArxLoad(const ACHAR* file);
int acedArxUnload(const ACHAR* file);
resbuf* acedArxLoaded();   // file names; the caller frees it

// Evaluated, or typed, as soon as the command line is idle.
void ads_queueexpr(const ACHAR* expression);

// Messages of the host's windows, before (filter: a nonzero answer swallows it) and after they are dealt with.
typedef int (*AcedFilterWinMsgFn)(MSG* message);
typedef void (*AcedWatchWinMsgFn)(const MSG* message);
int acedRegisterFilterWinMsg(AcedFilterWinMsgFn function);
int acedRemoveFilterWinMsg(AcedFilterWinMsgFn function);
int acedRegisterWatchWinMsg(AcedWatchWinMsgFn function);
int acedRemoveWatchWinMsg(AcedWatchWinMsgFn function);

// The host's main window, the parent of bars and dialogs of modules.
CMDIFrameWnd* acedGetAcadFrame();

// Dialog classes of the host; nothing needs to be set up here.
void InitAcUiDLL();
