#include "WindowQueue.h"
#include "../win/WinSystem.h"
#include "WindowBackend.h"
#include "WindowTable.h"
#include "WinUser.h"
#include <algorithm>
#include <deque>

namespace KxPlat {

namespace {

struct Timer {
    HWND window;
    UINT_PTR id;
    UINT period;
    DWORD due;
    TimerProcedure procedure;
};

// One per process: windows have one thread.
struct Queue {
    std::deque<MSG> messages;
    std::vector<Timer> timers;
    std::vector<MessageFilter> filters;
    HWND focus = nullptr;
    HWND capture = nullptr;
    POINT cursor = {0, 0};
    WORD shape = 32512;   // IDC_ARROW
    UINT_PTR lastTimer = 0;
};

Queue& TheQueue()
{
    static Queue& queue = *new Queue;   // kept to the end of the process, as the windows
    return queue;
}

constexpr DWORD kNever = 0xFFFFFFFF;
constexpr UINT kShortestPeriod = 10;   // milliseconds, as on Windows

bool IsDue(const Timer& timer, DWORD now)
{
    return int32_t(now - timer.due) >= 0;
}

MSG MessageOf(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return {window, message, wParam, lParam, GetTickCount(), TheQueue().cursor};
}

// A window that waits to be painted, its parents before it.
HWND InvalidOne()
{
    for (HWND handle : AllNativeWindows()) {
        if (FindWindowOf(handle)->isInvalid && IsShown(handle))
            return handle;
    }
    return nullptr;
}

// When there is something to do: 0 for now.
DWORD NextWork()
{
    const Queue& queue = TheQueue();
    if (!queue.messages.empty() || InvalidOne() != nullptr)
        return 0;
    DWORD soonest = kNever;
    const DWORD now = GetTickCount();
    for (const Timer& timer : queue.timers)
        soonest = std::min(soonest, IsDue(timer, now) ? 0 : timer.due - now);
    return soonest;
}

void TellWork()
{
    const DWORD next = NextWork();
    if (next != kNever)
        Windows().WorkPending(next);
}

bool TakeTimer(MSG& message, bool remove)
{
    const DWORD now = GetTickCount();
    for (Timer& timer : TheQueue().timers) {
        if (!IsDue(timer, now))
            continue;
        if (remove)
            timer.due = now + timer.period;
        message = MessageOf(timer.window, WM_TIMER, timer.id, reinterpret_cast<LPARAM>(timer.procedure));
        return true;
    }
    return false;
}

bool IsWheel(UINT message)
{
    return message == WM_MOUSEWHEEL;
}

LPARAM Packed(POINT place)
{
    return MAKELPARAM(WORD(place.x), WORD(place.y));
}

// The window that hears the mouse: children that say so let it through to their parents.
HWND HitWindow(HWND window, POINT screen)
{
    for (HWND hit = window; hit != nullptr;) {
        const NativeWindow* found = FindWindowOf(hit);
        if (found == nullptr)
            return nullptr;
        if (CallNativeWindow(hit, WM_NCHITTEST, 0, Packed(screen)) != HTTRANSPARENT)
            return hit;
        hit = found->IsChild() ? found->parent : nullptr;
    }
    return nullptr;
}

}   // namespace

// --- filters ----------------------------------------------------------------------------------------------------

void AddMessageFilter(MessageFilter filter)
{
    std::vector<MessageFilter>& filters = TheQueue().filters;
    if (std::find(filters.begin(), filters.end(), filter) == filters.end())
        filters.push_back(filter);
}

void RemoveMessageFilter(MessageFilter filter)
{
    std::erase(TheQueue().filters, filter);
}

bool FilterMessage(MSG& message)
{
    const std::vector<MessageFilter> filters = TheQueue().filters;   // one may remove itself
    return std::any_of(filters.rbegin(), filters.rend(), [&](MessageFilter filter) { return filter(message); });
}

// --- messages ---------------------------------------------------------------------------------------------------

LRESULT CallNativeWindow(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const NativeWindow* found = FindWindowOf(window);
    if (found == nullptr || found->procedure == nullptr)
        return 0;
    return found->procedure(window, message, wParam, lParam);
}

void PostNative(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    TheQueue().messages.push_back(MessageOf(window, message, wParam, lParam));
    Windows().WorkPending(0);
}

LRESULT DispatchNative(const MSG& message)
{
    if (message.message == WM_TIMER && message.lParam != 0) {
        reinterpret_cast<TimerProcedure>(message.lParam)(message.hwnd, WM_TIMER, message.wParam, message.time);
        return 0;
    }
    return CallNativeWindow(message.hwnd, message.message, message.wParam, message.lParam);
}

LRESULT DeliverMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    MSG delivered = MessageOf(window, message, wParam, lParam);
    return FilterMessage(delivered) ? 0 : DispatchNative(delivered);
}

LRESULT DeliverMouse(HWND window, UINT message, WPARAM keys, POINT place)
{
    const POINT origin = ClientOrigin(window);
    const POINT screen = {origin.x + place.x, origin.y + place.y};
    TheQueue().cursor = screen;
    const HWND capture = TheQueue().capture;
    const HWND target = FindWindowOf(capture) != nullptr ? capture : HitWindow(window, screen);
    const NativeWindow* found = FindWindowOf(target);
    if (found == nullptr || (!found->IsEnabled() && target != capture))
        return 0;
    if (target != capture)
        CallNativeWindow(target, WM_SETCURSOR, WPARAM(target), MAKELPARAM(HTCLIENT, WORD(message)));
    const POINT corner = ClientOrigin(target);
    const POINT inside = {screen.x - corner.x, screen.y - corner.y};
    return DeliverMessage(target, message, keys, Packed(IsWheel(message) ? screen : inside));
}

bool TakeMessage(MSG& message, bool remove)
{
    Queue& queue = TheQueue();
    if (!queue.messages.empty()) {
        message = queue.messages.front();
        if (remove)
            queue.messages.pop_front();
        return true;
    }
    if (const HWND invalid = InvalidOne()) {
        message = MessageOf(invalid, WM_PAINT, 0, 0);
        return true;
    }
    return TakeTimer(message, remove);
}

bool HasWaitingMessages()
{
    MSG message;
    return TakeMessage(message, false);
}

int PumpWindows()
{
    Queue& queue = TheQueue();
    int count = 0;
    for (size_t waiting = queue.messages.size(); waiting > 0 && !queue.messages.empty(); --waiting, ++count) {
        MSG message = queue.messages.front();
        queue.messages.pop_front();
        if (!FilterMessage(message))
            DispatchNative(message);
    }
    const DWORD now = GetTickCount();
    const std::vector<Timer> timers = queue.timers;
    for (const Timer& due : timers) {
        const auto timer = std::find_if(queue.timers.begin(), queue.timers.end(), [&](const Timer& other) {
            return other.window == due.window && other.id == due.id && IsDue(other, now);
        });
        if (timer == queue.timers.end())
            continue;
        timer->due = now + timer->period;
        DeliverMessage(due.window, WM_TIMER, due.id, reinterpret_cast<LPARAM>(due.procedure));
        ++count;
    }
    for (HWND window : AllNativeWindows()) {
        const NativeWindow* found = FindWindowOf(window);
        if (found == nullptr || !found->isInvalid || !IsShown(window))
            continue;
        PaintNow(window);
        ++count;
    }
    TellWork();
    return count;
}

// --- painting ---------------------------------------------------------------------------------------------------

void InvalidateWindow(HWND window, bool erase)
{
    NativeWindow* found = FindWindowOf(window);
    if (found == nullptr || !found->isDrawn)
        return;
    found->isInvalid = true;
    found->mustErase = found->mustErase || erase;
    if (IsShown(window))
        Windows().WorkPending(0);
}

void ValidateWindow(HWND window)
{
    if (NativeWindow* found = FindWindowOf(window))
        found->isInvalid = false;
}

void PaintNow(HWND window)
{
    const NativeWindow* found = FindWindowOf(window);
    if (found == nullptr || !found->isInvalid || !IsShown(window))
        return;
    CallNativeWindow(window, WM_PAINT);
    ValidateWindow(window);   // one that does not paint is not asked for ever
}

// --- focus, capture, cursor -------------------------------------------------------------------------------------

HWND FocusWindow()
{
    return TheQueue().focus;
}

HWND FocusOn(HWND window)
{
    Queue& queue = TheQueue();
    const HWND before = queue.focus;
    if (before == window || (window != nullptr && FindWindowOf(window) == nullptr))
        return before;
    queue.focus = window;
    if (before != nullptr)
        CallNativeWindow(before, WM_KILLFOCUS, WPARAM(window), 0);
    if (window != nullptr && queue.focus == window)
        CallNativeWindow(window, WM_SETFOCUS, WPARAM(before), 0);
    Windows().FocusChanged(queue.focus);
    return before;
}

HWND CaptureWindow()
{
    return TheQueue().capture;
}

HWND CaptureOn(HWND window)
{
    Queue& queue = TheQueue();
    const HWND before = queue.capture;
    if (before == window || (window != nullptr && FindWindowOf(window) == nullptr))
        return before;
    queue.capture = window;
    if (before != nullptr)
        CallNativeWindow(before, WM_CAPTURECHANGED, 0, LPARAM(window));
    Windows().CaptureChanged(queue.capture);
    return before;
}

POINT CursorPlace()
{
    return TheQueue().cursor;
}

void SetCursorPlace(POINT place)
{
    TheQueue().cursor = place;
}

WORD CursorShape()
{
    return TheQueue().shape;
}

WORD ChangeCursor(WORD shape)
{
    const WORD before = TheQueue().shape;
    TheQueue().shape = shape;
    if (before != shape)
        Windows().CursorChanged(shape);
    return before;
}

// --- timers -----------------------------------------------------------------------------------------------------

UINT_PTR StartTimer(HWND window, UINT_PTR id, UINT milliseconds, TimerProcedure procedure)
{
    Queue& queue = TheQueue();
    if (window == nullptr)
        id = ++queue.lastTimer;
    else if (FindWindowOf(window) == nullptr)
        return 0;
    StopTimer(window, id);
    const UINT period = std::max(milliseconds, kShortestPeriod);
    queue.timers.push_back({window, id, period, GetTickCount() + period, procedure});
    Windows().WorkPending(period);
    return id == 0 ? 1 : id;
}

bool StopTimer(HWND window, UINT_PTR id)
{
    return std::erase_if(TheQueue().timers,
                         [=](const Timer& timer) { return timer.window == window && timer.id == id; }) != 0;
}

void ForgetWindow(HWND window)
{
    Queue& queue = TheQueue();
    std::erase_if(queue.messages, [=](const MSG& message) { return message.hwnd == window && window != nullptr; });
    std::erase_if(queue.timers, [=](const Timer& timer) { return timer.window == window; });
    if (queue.capture == window)
        CaptureOn(nullptr);
    if (queue.focus == window) {
        queue.focus = nullptr;
        Windows().FocusChanged(nullptr);
    }
}

}   // namespace KxPlat
