#include "DialogWindows.h"
#include "CButton.h"
#include "CComboBox.h"
#include "CEdit.h"
#include "CException.h"
#include "CListBox.h"
#include "CListCtrl.h"
#include "CStatic.h"
#include "WindowObjects.h"

namespace KxPlat {

namespace {

std::unique_ptr<CWnd> WindowFor(ControlKind kind)
{
    switch (kind) {
    case ControlKind::Label:
        return std::make_unique<CStatic>();
    case ControlKind::Button:
    case ControlKind::CheckBox:
    case ControlKind::RadioButton:
    case ControlKind::GroupBox:
        return std::make_unique<CButton>();
    case ControlKind::Edit:
        return std::make_unique<CEdit>();
    case ControlKind::ListBox:
        return std::make_unique<CListBox>();
    case ControlKind::ComboBox:
        return std::make_unique<CComboBox>();
    case ControlKind::ListView:
        return std::make_unique<CListCtrl>();
    default:
        return std::make_unique<CWnd>();
    }
}

// What the system sends for each thing a user does, by kind of control.
struct CodeRow {
    DialogEvent::Type type;
    ControlKind kind;
    UINT code;
    bool notifies;   // WM_NOTIFY
};

const CodeRow kCodes[] = {
    {DialogEvent::Type::Text, ControlKind::Edit, EN_UPDATE, false},
    {DialogEvent::Type::Text, ControlKind::Edit, EN_CHANGE, false},
    {DialogEvent::Type::Text, ControlKind::ComboBox, CBN_EDITUPDATE, false},
    {DialogEvent::Type::Text, ControlKind::ComboBox, CBN_EDITCHANGE, false},
    {DialogEvent::Type::Selection, ControlKind::ListBox, LBN_SELCHANGE, false},
    {DialogEvent::Type::Selection, ControlKind::ComboBox, CBN_SELCHANGE, false},
    {DialogEvent::Type::Selection, ControlKind::ListView, LVN_ITEMCHANGED, true},
    {DialogEvent::Type::Selection, ControlKind::ListView, NM_CLICK, true},
    {DialogEvent::Type::RowChecks, ControlKind::ListView, LVN_ITEMCHANGED, true},
    {DialogEvent::Type::DoubleClick, ControlKind::ListBox, LBN_DBLCLK, false},
    {DialogEvent::Type::DoubleClick, ControlKind::ComboBox, CBN_DBLCLK, false},
    {DialogEvent::Type::DoubleClick, ControlKind::ListView, NM_DBLCLK, true},
};

}   // namespace

DialogWindows::DialogWindows(CWnd& dialog) : m_dialog(dialog)
{
    model.listener = this;
    dialog.m_windows = this;
}

DialogWindows::~DialogWindows()
{
    Close();
    m_dialog.m_windows = nullptr;
}

void DialogWindows::Open(HWND parent)
{
    WindowPlan plan;
    plan.parent = parent;
    plan.className = L"#32770";
    plan.rect = PixelsOf(model.rect, model.fontSize);
    plan.procedure = WindowObjects::Procedure;
    plan.dialog = &model;
    NativeWindow& dialog = AddWindow(plan);
    model.window = dialog.handle;
    WindowObjects::Tie(dialog, m_dialog);
    for (const auto& control : model.Controls()) {
        WindowPlan below;
        below.parent = model.window;
        below.className = control->className;
        below.rect = PixelsOf(control->rect, model.fontSize);
        below.id = UINT(control->id);
        below.procedure = WindowObjects::Procedure;
        below.control = control.get();
        control->window = AddWindow(below).handle;
    }
}

void DialogWindows::Close()
{
    RemoveWindow(model.window);
    while (!m_attached.empty())
        Detach(*m_attached.begin()->second);
    model.window = nullptr;
}

void DialogWindows::Attach(CWnd& window, DialogControl& control)
{
    NativeWindow* native = FindWindowOf(control.window);
    if (native == nullptr || !m_attached.emplace(&control, &window).second)
        return;
    if (CWnd* temporary = static_cast<CWnd*>(native->object))
        WindowObjects::Untie(*temporary);
    window.m_windows = this;
    window.m_control = &control;
    WindowObjects::Tie(*native, window);
}

void DialogWindows::Detach(CWnd& window)
{
    m_attached.erase(window.m_control);
    WindowObjects::Untie(window);
    window.m_windows = nullptr;
    window.m_control = nullptr;
}

void DialogWindows::AttachById(CWnd& dialog, int id, CWnd& window)
{
    if (window.m_hWnd != nullptr)
        return;
    DialogControl* control = dialog.m_windows == nullptr ? nullptr : dialog.m_windows->model.Find(id);
    if (control == nullptr)
        AfxThrowResourceException();
    dialog.m_windows->Attach(window, *control);
}

std::vector<int> DialogWindows::RadioGroup(CWnd& dialog, int id)
{
    std::vector<int> members;
    bool inside = false;
    for (const auto& control : dialog.m_windows->model.Controls()) {
        if (control->id != id && inside && (control->style & WS_GROUP) != 0)
            break;
        inside = inside || control->id == id;
        if (inside && control->kind == ControlKind::RadioButton)
            members.push_back(control->id);
    }
    return members;
}

CWnd* DialogWindows::WindowOf(DialogControl& control)
{
    const auto attached = m_attached.find(&control);
    if (attached != m_attached.end())
        return attached->second;
    NativeWindow* native = FindWindowOf(control.window);
    if (native == nullptr)
        return nullptr;
    std::unique_ptr<CWnd>& window = m_temporary[&control];
    if (window == nullptr)
        window = WindowFor(control.kind);
    if (window->m_hWnd == nullptr) {
        window->m_windows = this;
        window->m_control = &control;
        WindowObjects::Tie(*native, *window);
    }
    return window.get();
}

CWnd* DialogWindows::WindowOf(int id)
{
    DialogControl* control = model.Find(id);
    return control == nullptr ? nullptr : WindowOf(*control);
}

void DialogWindows::OnDialogEvent(const DialogEvent& event)
{
    if (event.type == DialogEvent::Type::Press)
        return Command(event.id, BN_CLICKED, event.control);
    // A list box without LBS_NOTIFY keeps quiet.
    if (event.control->kind == ControlKind::ListBox && (event.control->style & LBS_NOTIFY) == 0)
        return;
    for (const CodeRow& row : kCodes) {
        if (row.type != event.type || row.kind != event.control->kind || model.Ended())
            continue;
        if (row.notifies)
            Notify(*event.control, row.code);
        else
            Command(event.id, row.code, event.control);
    }
}

void DialogWindows::Command(int id, UINT code, DialogControl* control)
{
    m_dialog.SendMessage(WM_COMMAND, MAKEWPARAM(WORD(id), code),
                         control == nullptr ? 0 : reinterpret_cast<LPARAM>(control->window));
}

void DialogWindows::Notify(DialogControl& control, UINT code)
{
    NMLISTVIEW notice = {};
    notice.hdr = {control.window, UINT_PTR(control.id), code};
    notice.iItem = control.focusedRow;
    const bool isRow = notice.iItem >= 0 && notice.iItem < int(control.rows.size());
    if (isRow && control.rows[size_t(notice.iItem)].selected)
        notice.uNewState = LVIS_SELECTED | LVIS_FOCUSED;
    notice.uChanged = code == LVN_ITEMCHANGED ? LVIF_STATE : 0;
    m_dialog.SendMessage(WM_NOTIFY, WPARAM(control.id), reinterpret_cast<LPARAM>(&notice));
}

}   // namespace KxPlat
