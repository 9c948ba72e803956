#include "ControlWidgets.h"
#include "ListWidgets.h"
#include "QtText.h"
#include "ui/ControlStyles.h"
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>

using namespace KxPlat;

namespace KxDesktop {

namespace {

// A widget of one class and how it follows its control.
template <class W>
class Simple : public ControlWidget {
public:
    using FollowFn = std::function<void(W&, const DialogControl&)>;
    Simple(DialogControl& control, W* widget, FollowFn follow)
        : ControlWidget(control), m_widget(widget), m_follow(std::move(follow))
    {
    }
    QWidget& Widget() override { return *m_widget; }
    void Follow() override
    {
        const QSignalBlocker quiet(m_widget);
        m_follow(*m_widget, Control());
    }

private:
    W* m_widget;
    FollowFn m_follow;
};

template <class W>
std::unique_ptr<ControlWidget> Made(DialogControl& control, W* widget, typename Simple<W>::FollowFn follow)
{
    return std::make_unique<Simple<W>>(control, widget, std::move(follow));
}

// A label without marks shows its "&" as it is.
QString LabelText(const DialogControl& control)
{
    QString text = ToQt(control.text);
    if ((control.style & SS_NOPREFIX) != 0)
        text.replace(QLatin1Char('&'), QLatin1String("&&"));
    return text;
}

std::unique_ptr<ControlWidget> NewLabel(QWidget& parent, DialogControl& control)
{
    auto* label = new QLabel(&parent);
    label->setWordWrap(control.rect.height > 10);
    const uint32_t side = control.style & 3;
    label->setAlignment((side == SS_RIGHT    ? Qt::AlignRight
                         : side == SS_CENTER ? Qt::AlignHCenter
                                             : Qt::AlignLeft) |
                        (control.rect.height > 10 ? Qt::AlignTop : Qt::AlignVCenter));
    return Made<QLabel>(control, label, [](QLabel& shown, const DialogControl& now) {
        shown.setTextFormat(Qt::PlainText);
        shown.setText(shown.buddy() != nullptr ? LabelText(now) : ToQt(WithoutMark(now.text)));
    });
}

std::unique_ptr<ControlWidget> NewButton(QWidget& parent, DialogControl& control, const ControlReport& report)
{
    auto* button = new QPushButton(&parent);
    button->setAutoDefault(false);
    QObject::connect(button, &QPushButton::clicked, button,
                     [report, id = control.id] { report([id](DialogModel& model) { return model.Press(id); }); });
    return Made<QPushButton>(control, button, [](QPushButton& shown, const DialogControl& now) {
        shown.setText(ToQt(now.text));
        shown.setDefault(now.IsDefaultButton());
    });
}

template <class W>
std::unique_ptr<ControlWidget> NewCheck(QWidget& parent, DialogControl& control, const ControlReport& report)
{
    auto* box = new W(&parent);
    box->setAutoExclusive(false);
    QObject::connect(box, &W::clicked, box,
                     [report, id = control.id] { report([id](DialogModel& model) { return model.Press(id); }); });
    return Made<W>(control, box, [](W& shown, const DialogControl& now) {
        shown.setText(ToQt(now.text));
        if constexpr (std::is_same_v<W, QCheckBox>)
            shown.setCheckState(now.check == 0 ? Qt::Unchecked : now.check == 1 ? Qt::Checked : Qt::PartiallyChecked);
        else
            shown.setChecked(now.check != 0);
    });
}

std::unique_ptr<ControlWidget> NewEdit(QWidget& parent, DialogControl& control, const ControlReport& report)
{
    auto* edit = new QLineEdit(&parent);
    edit->setReadOnly(control.IsReadOnly());
    edit->setEchoMode(control.IsPassword() ? QLineEdit::Password : QLineEdit::Normal);
    edit->setMaxLength(int(std::min<size_t>(control.textLimit, 32767)));
    QObject::connect(edit, &QLineEdit::textEdited, edit, [report, id = control.id](const QString& text) {
        report([id, text = FromQt(text)](DialogModel& model) { return model.SetText(id, text); });
    });
    return Made<QLineEdit>(control, edit, [](QLineEdit& shown, const DialogControl& now) {
        if (FromQt(shown.text()) != now.text)
            shown.setText(ToQt(now.text));
    });
}

std::unique_ptr<ControlWidget> NewTextBox(QWidget& parent, DialogControl& control, const ControlReport& report)
{
    auto* box = new QPlainTextEdit(&parent);
    box->setReadOnly(control.IsReadOnly());
    box->setTabChangesFocus(true);
    QObject::connect(box, &QPlainTextEdit::textChanged, box, [box, report, id = control.id] {
        report([id, text = FromQt(box->toPlainText())](DialogModel& model) { return model.SetText(id, text); });
    });
    return Made<QPlainTextEdit>(control, box, [](QPlainTextEdit& shown, const DialogControl& now) {
        const QString text = ToQt(now.text).remove(QLatin1Char('\r'));
        if (shown.toPlainText() != text)
            shown.setPlainText(text);
    });
}

std::unique_ptr<ControlWidget> NewCombo(QWidget& parent, DialogControl& control, const ControlReport& report)
{
    auto* combo = new QComboBox(&parent);
    combo->setEditable(control.EditsText());
    combo->setInsertPolicy(QComboBox::NoInsert);
    QObject::connect(combo, &QComboBox::activated, combo, [report, id = control.id](int row) {
        report([id, row](DialogModel& model) { return model.Select(id, {row}); });
    });
    if (control.EditsText())
        QObject::connect(combo, &QComboBox::editTextChanged, combo, [report, id = control.id](const QString& text) {
            report([id, text = FromQt(text)](DialogModel& model) { return model.SetText(id, text); });
        });
    return Made<QComboBox>(control, combo, [](QComboBox& shown, const DialogControl& now) {
        QStringList rows;
        for (const DialogRow& row : now.rows)
            rows << (row.cells.empty() ? QString() : ToQt(row.cells[0]));
        QStringList present;
        for (int at = 0; at < shown.count(); ++at)
            present << shown.itemText(at);
        if (rows != present) {
            shown.clear();
            shown.addItems(rows);
        }
        shown.setCurrentIndex(now.FirstSelected());
        if (shown.isEditable() && FromQt(shown.currentText()) != now.text)
            shown.setEditText(ToQt(now.text));
    });
}

std::unique_ptr<ControlWidget> NewGroup(QWidget& parent, DialogControl& control)
{
    auto* group = new QGroupBox(&parent);
    group->lower();
    return Made<QGroupBox>(control, group,
                           [](QGroupBox& shown, const DialogControl& now) { shown.setTitle(ToQt(now.text)); });
}

std::unique_ptr<ControlWidget> NewByKind(QWidget& parent, DialogControl& control, const ControlReport& report)
{
    switch (control.kind) {
    case ControlKind::Label:
        return NewLabel(parent, control);
    case ControlKind::Button:
        return NewButton(parent, control, report);
    case ControlKind::CheckBox:
        return NewCheck<QCheckBox>(parent, control, report);
    case ControlKind::RadioButton:
        return NewCheck<QRadioButton>(parent, control, report);
    case ControlKind::GroupBox:
        return NewGroup(parent, control);
    case ControlKind::Edit:
        return (control.style & ES_MULTILINE) != 0 ? NewTextBox(parent, control, report)
                                                   : NewEdit(parent, control, report);
    case ControlKind::ListBox:
    case ControlKind::ListView:
        return NewListWidget(parent, control, report);
    case ControlKind::ComboBox:
        return NewCombo(parent, control, report);
    case ControlKind::Other:
        break;
    }
    return Made<QFrame>(control, new QFrame(&parent), [](QFrame&, const DialogControl&) {});
}

}   // namespace

std::unique_ptr<ControlWidget> NewControlWidget(QWidget& parent, DialogControl& control, const ControlReport& report)
{
    std::unique_ptr<ControlWidget> made = NewByKind(parent, control, report);
    made->Widget().setObjectName(QStringLiteral("control.%1").arg(control.id));
    return made;
}

}   // namespace KxDesktop
