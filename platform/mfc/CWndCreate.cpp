// Making windows and taking them over.
#include "../ui/WindowBackend.h"
#include "../ui/WindowClasses.h"
#include "../ui/WindowQueue.h"
#include "CWnd.h"
#include "DialogWindows.h"
#include "Escaped.h"
#include "WindowObjects.h"
#include <algorithm>
#include <map>
#include <memory>
#include <set>

using KxPlat::FindWindowOf;
using KxPlat::NativeWindow;
using KxPlat::WindowObjects;

// --- objects of windows -----------------------------------------------------------------------------------------

LRESULT CALLBACK WindowObjects::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    CWnd* object = CWnd::FromHandlePermanent(window);
    if (object == nullptr)
        return ::DefWindowProcW(window, message, wParam, lParam);
    // Whoever sent the message goes on: the host's loop, or other code of the module.
    return Guarded(L"a window", LRESULT(0), [&] { return object->Handle(message, wParam, lParam); });
}

void WindowObjects::Tie(NativeWindow& window, CWnd& object)
{
    window.object = static_cast<void*>(&object);
    object.m_hWnd = window.handle;
    object.m_before = window.procedure;
    window.procedure = Procedure;
    AddMessageFilter(PreTranslate);
    if (window.control == nullptr || window.isDrawn || object.FindMessageEntry(WM_PAINT, 0, 0) == nullptr)
        return;
    // A control that paints itself is not shown by its dialog any more.
    window.isDrawn = true;
    window.isInvalid = true;
    Windows().Styled(window.handle);
}

void WindowObjects::Untie(CWnd& object)
{
    NativeWindow* window = FindWindowOf(object.m_hWnd);
    if (window != nullptr && window->object == static_cast<void*>(&object)) {
        window->object = nullptr;
        if (object.m_before != nullptr)
            window->procedure = object.m_before;
    }
    object.m_hWnd = nullptr;
    object.m_before = nullptr;
}

bool WindowObjects::PreTranslate(MSG& message)
{
    for (HWND handle = message.hwnd; handle != nullptr;) {
        CWnd* object = CWnd::FromHandlePermanent(handle);
        if (object != nullptr && object->PreTranslateMessage(&message))
            return true;
        const NativeWindow* window = FindWindowOf(handle);
        handle = window == nullptr ? nullptr : window->parent;
    }
    return false;
}

CWnd* CWnd::FromHandlePermanent(HWND handle)
{
    const NativeWindow* window = FindWindowOf(handle);
    return window == nullptr ? nullptr : static_cast<CWnd*>(window->object);
}

CWnd* CWnd::FromHandle(HWND handle)
{
    const NativeWindow* window = FindWindowOf(handle);
    if (window == nullptr)
        return nullptr;
    if (window->object != nullptr)
        return static_cast<CWnd*>(window->object);
    const CWnd* parent = FromHandlePermanent(window->parent);
    if (window->control != nullptr && parent != nullptr && parent->m_windows != nullptr)
        return parent->m_windows->WindowOf(*window->control);
    static std::map<HWND, std::unique_ptr<CWnd>> borrowed;
    std::erase_if(borrowed, [](const auto& entry) { return FindWindowOf(entry.first) == nullptr; });
    std::unique_ptr<CWnd>& place = borrowed[handle];
    if (place == nullptr) {
        place = std::make_unique<CWnd>();
        place->m_hWnd = handle;
        place->m_isBorrowed = true;
    }
    return place.get();
}

CWnd::~CWnd()
{
    if (m_isBorrowed)
        return;
    if (m_windows != nullptr && m_control != nullptr)
        Forget();
    else if (m_hWnd != nullptr && FromHandlePermanent(m_hWnd) == this)
        KxPlat::RemoveWindow(m_hWnd);
}

// The window is gone, or another's.
void CWnd::Forget()
{
    if (m_windows != nullptr && m_control != nullptr)
        m_windows->Detach(*this);
    else
        WindowObjects::Untie(*this);
}

// --- making -----------------------------------------------------------------------------------------------------

const wchar_t* AfxRegisterWndClass(UINT style, HCURSOR cursor, HBRUSH background, HICON icon)
{
    static std::set<std::wstring> names;
    const std::wstring name = L"Afx:" + std::to_wstring(style) + L":" +
                              std::to_wstring(reinterpret_cast<uintptr_t>(cursor)) + L":" +
                              std::to_wstring(reinterpret_cast<uintptr_t>(background)) + L":" +
                              std::to_wstring(reinterpret_cast<uintptr_t>(icon));
    const auto [place, isNew] = names.insert(name);
    if (isNew) {
        WNDCLASSW kind = {};
        kind.style = style;
        kind.lpfnWndProc = ::DefWindowProcW;
        kind.hCursor = cursor;
        kind.hbrBackground = background;
        kind.lpszClassName = place->c_str();
        ::RegisterClassW(&kind);
    }
    return place->c_str();
}

BOOL CWnd::PreCreateWindow(CREATESTRUCT& facts)
{
    if (facts.lpszClass == nullptr)
        facts.lpszClass = AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursorW(nullptr, IDC_ARROW));
    return TRUE;
}

BOOL CWnd::Create(const wchar_t* className, const wchar_t* text, DWORD style, const RECT& rect, CWnd* parent, UINT id,
                  void* context)
{
    return CreateEx(0, className, text, style | WS_CHILD, rect, parent, id, context);
}

BOOL CWnd::CreateEx(DWORD exStyle, const wchar_t* className, const wchar_t* text, DWORD style, const RECT& rect,
                    CWnd* parent, UINT id, void* parameter)
{
    return CreateEx(exStyle, className, text, style, rect.left, rect.top, rect.right - rect.left,
                    rect.bottom - rect.top, parent == nullptr ? nullptr : parent->m_hWnd,
                    reinterpret_cast<HMENU>(uintptr_t(id)), parameter);
}

BOOL CWnd::CreateEx(DWORD exStyle, const wchar_t* className, const wchar_t* text, DWORD style, int x, int y, int width,
                    int height, HWND parent, HMENU idOrMenu, void* parameter)
{
    if (m_hWnd != nullptr)
        return FALSE;
    CREATESTRUCT facts = {parameter, nullptr, idOrMenu,    parent, height,    width,
                          y,         x,       LONG(style), text,   className, exStyle};
    if (!PreCreateWindow(facts)) {
        PostNcDestroy();
        return FALSE;
    }
    const auto made = [](NativeWindow& window, void* object) {
        CWnd& self = *static_cast<CWnd*>(object);
        WindowObjects::Tie(window, self);
        self.PreSubclassWindow();
    };
    return KxPlat::MakeWindow(facts, made, this) != nullptr;
}

BOOL CWnd::DestroyWindow()
{
    return m_hWnd != nullptr && KxPlat::RemoveWindow(m_hWnd);
}

// --- taking over ------------------------------------------------------------------------------------------------

BOOL CWnd::Attach(HWND handle)
{
    NativeWindow* window = FindWindowOf(handle);
    if (m_hWnd != nullptr || window == nullptr || window->object != nullptr)
        return FALSE;
    const WNDPROC procedure = window->procedure;
    WindowObjects::Tie(*window, *this);
    window->procedure = procedure;
    return TRUE;
}

HWND CWnd::Detach()
{
    const HWND handle = m_hWnd;
    if (handle != nullptr)
        Forget();
    return handle;
}

BOOL CWnd::SubclassWindow(HWND handle)
{
    NativeWindow* window = FindWindowOf(handle);
    if (m_hWnd != nullptr || window == nullptr)
        return FALSE;
    const CWnd* parent = FromHandlePermanent(window->parent);
    if (window->control != nullptr && parent != nullptr && parent->m_windows != nullptr)
        parent->m_windows->Attach(*this, *window->control);
    else if (window->object == nullptr)
        WindowObjects::Tie(*window, *this);
    if (m_hWnd != nullptr)
        PreSubclassWindow();
    return m_hWnd != nullptr;
}

BOOL CWnd::SubclassDlgItem(UINT id, CWnd* dialog)
{
    if (dialog == nullptr)
        return FALSE;
    for (HWND child : KxPlat::ChildrenOf(dialog->m_hWnd)) {
        if (FindWindowOf(child)->id == id)
            return SubclassWindow(child);
    }
    return FALSE;
}

HWND CWnd::UnsubclassWindow()
{
    return Detach();
}
