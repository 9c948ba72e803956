// Running commands from code, and the hooks into the host's message loop.
#include "../mfc/CFrameWnd.h"
#include "../mfc/Escaped.h"
#include "../rx/ResBufs.h"
#include "../ui/WindowQueue.h"
#include "acedads.h"
#include "Prompt.h"
#include "Session.h"
#include <algorithm>
#include <cstdarg>

namespace {

using KxPlat::ResKind;
using KxPlat::Session;

// One argument of acedCommand, by its type.
resbuf* NextArgument(int type, va_list arguments)
{
    switch (type) {
    case RTSTR: {
        const ACHAR* text = va_arg(arguments, const ACHAR*);
        return KxPlat::NewTextRb(RTSTR, text != nullptr ? text : L"");
    }
    case RTSHORT:
        return KxPlat::NewShortRb(RTSHORT, va_arg(arguments, int));
    case RTLONG:
        return KxPlat::NewLongRb(RTLONG, va_arg(arguments, int));
    case RTREAL:
    case RTANG:
    case RTORINT:
        return KxPlat::NewRealRb(RTREAL, va_arg(arguments, double));
    case RTPOINT: {
        const double* point = va_arg(arguments, const double*);
        return KxPlat::NewPointRb(RTPOINT, point[X], point[Y], 0);
    }
    case RT3DPOINT: {
        const double* point = va_arg(arguments, const double*);
        return KxPlat::NewPointRb(RT3DPOINT, point[X], point[Y], point[Z]);
    }
    case RTENAME:
    case RTPICKS: {
        const Adesk::IntPtr* name = va_arg(arguments, const Adesk::IntPtr*);
        return KxPlat::NewNameRb(type, name);
    }
    default:
        return nullptr;
    }
}

template <class Function>
int AddTo(std::vector<Function>& functions, Function function)
{
    if (function == nullptr || std::find(functions.begin(), functions.end(), function) != functions.end())
        return 0;
    functions.push_back(function);
    return 1;
}

}   // namespace

int acedCommand(int rtype, ...)
{
    va_list arguments;
    va_start(arguments, rtype);
    KxPlat::ChainBuilder chain;
    bool isKnown = true;
    for (int type = rtype; isKnown && type != RTNONE && type != 0; type = va_arg(arguments, int)) {
        resbuf* argument = NextArgument(type, arguments);
        isKnown = argument != nullptr;
        if (isKnown)
            chain.Add(argument);
    }
    va_end(arguments);
    resbuf* first = chain.Take();
    const int answer = isKnown ? acedCmd(first) : RTERROR;
    if (first != nullptr)
        acutRelRb(first);
    return answer;
}

int acedCmd(const resbuf* arguments)
{
    Session* session = Session::Current();
    if (session == nullptr)
        return RTERROR;
    return arguments != nullptr ? session->line().RunArguments(arguments) : RTNORM;
}

void ads_queueexpr(const ACHAR* expression)
{
    AcApDocument* document = acDocManager->curDocument();
    if (document != nullptr && expression != nullptr)
        acDocManager->sendStringToExecute(document, expression, true, false, false);
}

// The queue of windows calls PassMessage from the first hook on; without hooks it lets everything through.
int acedRegisterFilterWinMsg(AcedFilterWinMsgFn function)
{
    KxPlat::AddMessageFilter(KxPlat::PassMessage);
    return KxPlat::TheEditor() != nullptr ? AddTo(KxPlat::TheEditor()->filters, function) : 0;
}

int acedRemoveFilterWinMsg(AcedFilterWinMsgFn function)
{
    return KxPlat::TheEditor() != nullptr ? int(std::erase(KxPlat::TheEditor()->filters, function)) : 0;
}

int acedRegisterWatchWinMsg(AcedWatchWinMsgFn function)
{
    KxPlat::AddMessageFilter(KxPlat::PassMessage);
    return KxPlat::TheEditor() != nullptr ? AddTo(KxPlat::TheEditor()->watches, function) : 0;
}

int acedRemoveWatchWinMsg(AcedWatchWinMsgFn function)
{
    return KxPlat::TheEditor() != nullptr ? int(std::erase(KxPlat::TheEditor()->watches, function)) : 0;
}

// Filters run newest first, until one of them takes the message; then all watchers see it.
bool KxPlat::PassMessage(MSG& message)
{
    EditorState* editor = TheEditor();
    if (editor == nullptr)
        return false;
    const std::vector<AcedFilterWinMsgFn> filters = editor->filters;
    for (auto filter = filters.rbegin(); filter != filters.rend(); ++filter) {
        if (KxPlat::Guarded(L"a filter of messages", 0, [&] { return (*filter)(&message); }) != 0)
            return true;
    }
    const std::vector<AcedWatchWinMsgFn> watches = editor->watches;
    for (const AcedWatchWinMsgFn watch : watches)
        KxPlat::Guarded(L"a watch on messages", true, [&] { return watch(&message), true; });
    return false;
}

CMDIFrameWnd* acedGetAcadFrame()
{
    return AfxGetMainFrame();
}

void InitAcUiDLL() {}
