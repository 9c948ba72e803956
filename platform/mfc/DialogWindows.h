// A running dialog: its model, the window objects of its controls, and the way from the user's doings to messages.
#pragma once
#include "../ui/DialogModel.h"
#include "CWnd.h"
#include <map>
#include <memory>

namespace KxPlat {

class DialogWindows : public DialogListener {
public:
    explicit DialogWindows(CWnd& dialog);
    ~DialogWindows() override;   // all window objects lose their windows
    // Gives the dialog and its controls their windows, once the model is there.
    void Open(HWND parent);
    // Destroys them, and those that the program made in the dialog.
    void Close();
    DialogWindows(const DialogWindows&) = delete;

    DialogModel model;
    CWnd& Dialog() const { return m_dialog; }
    // Ties the program's own object to a control; a control that has one already keeps it.
    void Attach(CWnd& window, DialogControl& control);
    void Detach(CWnd& window);
    // Throws CResourceException when `dialog` has no such control.
    static void AttachById(CWnd& dialog, int id, CWnd& window);
    // The radio buttons from `id` on, up to the next control that starts a group.
    static std::vector<int> RadioGroup(CWnd& dialog, int id);
    CWnd* WindowOf(DialogControl& control);
    CWnd* WindowOf(int id);

    void OnDialogEvent(const DialogEvent& event) override;
    // WM_COMMAND or WM_NOTIFY to the dialog.
    void Command(int id, UINT code, DialogControl* control);
    void Notify(DialogControl& control, UINT code);

private:
    CWnd& m_dialog;
    std::map<DialogControl*, CWnd*> m_attached;
    std::map<DialogControl*, std::unique_ptr<CWnd>> m_temporary;
};

}   // namespace KxPlat
