#include "MessageBoxes.h"
#include "QtText.h"
#include "win/KxWinTypes.h"
#include <iterator>
#include <QMessageBox>
#include <QPushButton>

namespace KxDesktop {

namespace {

constexpr unsigned kIconMask = 0xF0;

struct Button {
    int code;
    QMessageBox::StandardButton button;
};

// The buttons of each kind, in the order of MB_DEFBUTTON1 to 3.
const Button g_buttons[][3] = {
    {{IDOK, QMessageBox::Ok}, {}, {}},
    {{IDOK, QMessageBox::Ok}, {IDCANCEL, QMessageBox::Cancel}, {}},
    {{IDABORT, QMessageBox::Abort}, {IDRETRY, QMessageBox::Retry}, {IDIGNORE, QMessageBox::Ignore}},
    {{IDYES, QMessageBox::Yes}, {IDNO, QMessageBox::No}, {IDCANCEL, QMessageBox::Cancel}},
    {{IDYES, QMessageBox::Yes}, {IDNO, QMessageBox::No}, {}},
    {{IDRETRY, QMessageBox::Retry}, {IDCANCEL, QMessageBox::Cancel}, {}},
};

QMessageBox::Icon IconOf(unsigned type)
{
    switch (type & kIconMask) {
    case MB_ICONERROR:
        return QMessageBox::Critical;
    case MB_ICONQUESTION:
        return QMessageBox::Question;
    case MB_ICONWARNING:
        return QMessageBox::Warning;
    case MB_ICONINFORMATION:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

}   // namespace

int RunMessageBox(QWidget& parent, std::wstring_view text, std::wstring_view caption, unsigned type)
{
    const unsigned kind = type & MB_TYPEMASK;
    const Button(&buttons)[3] = g_buttons[kind < std::size(g_buttons) ? kind : 0];
    QMessageBox box(&parent);
    box.setObjectName(QStringLiteral("messageBox"));
    box.setWindowTitle(caption.empty() ? parent.windowTitle() : ToQt(caption));
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQt(text));
    box.setIcon(IconOf(type));
    const unsigned wanted = (type & MB_DEFMASK) >> 8;
    for (unsigned at = 0; at < 3 && buttons[at].code != 0; ++at) {
        QPushButton* button = box.addButton(buttons[at].button);
        button->setObjectName(QStringLiteral("message.%1").arg(buttons[at].code));
        if (at == wanted || at == 0)
            box.setDefaultButton(button);
        if (buttons[at].code == IDCANCEL)
            box.setEscapeButton(button);
    }
    const int pressed = box.exec();
    for (const Button& button : buttons)
        if (button.code != 0 && int(button.button) == pressed)
            return button.code;
    return kind == MB_OK ? IDOK : IDCANCEL;
}

}   // namespace KxDesktop
