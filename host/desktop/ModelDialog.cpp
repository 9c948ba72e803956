#include "ModelDialog.h"
#include "ControlWidgets.h"
#include "QtText.h"
#include "QtWindows.h"
#include "ui/WindowTable.h"
#include "win/KxWinTypes.h"
#include <memory>
#include <QDialog>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <vector>

using namespace KxPlat;

namespace KxDesktop {

namespace {

class ModelDialog : public QDialog {
public:
    ModelDialog(QWidget& parent, DialogModel& model, std::function<void()> changed, bool isPanel = false)
        : QDialog(&parent), m_model(model), m_changed(std::move(changed)), m_isPanel(isPanel)
    {
        setObjectName(isPanel ? QStringLiteral("modelPanel") : QStringLiteral("modelDialog"));
        Measure();
        QWidget* label = nullptr;
        for (const auto& control : model.Controls()) {
            m_widgets.push_back(
                NewControlWidget(*this, *control, [this](const std::function<bool(DialogModel&)>& work) { Do(work); }));
            QWidget& widget = m_widgets.back()->Widget();
            widget.setGeometry(RectOf(control->rect, control->kind));
            if (auto* text = qobject_cast<QLabel*>(label))
                text->setBuddy(&widget);
            label = control->kind == ControlKind::Label ? &widget : nullptr;
        }
        Follow();
        if (QWidget* first = WidgetOf(model.focusId))
            first->setFocus();
    }

    // Widgets on their way out have nothing to report.
    ~ModelDialog() override
    {
        for (const auto& shown : m_widgets)
            shown->Widget().blockSignals(true);
    }
    ModelDialog(const ModelDialog&) = delete;

    // Of a window in the dialog, which the platform lays out for letters of another size.
    QRect PlaceOf(const RECT& rect) const
    {
        const RECT whole = PixelsOf(m_model.rect, m_model.fontSize);
        const double x = m_model.rect.width * m_unitX / std::max(1.0, double(whole.right - whole.left));
        const double y = m_model.rect.height * m_unitY / std::max(1.0, double(whole.bottom - whole.top));
        return QRectF(rect.left * x, rect.top * y, (rect.right - rect.left) * x, (rect.bottom - rect.top) * y).toRect();
    }

    // Everything as the model has it now.
    void Follow()
    {
        if (m_model.Ended())
            return done(m_model.Result());
        if (m_isFollowing)
            return;
        m_isFollowing = true;
        setWindowTitle(ToQt(m_model.caption));
        for (const auto& shown : m_widgets) {
            shown->Widget().setVisible(shown->Control().visible);
            shown->Widget().setEnabled(shown->Control().enabled);
            shown->Follow();
        }
        m_isFollowing = false;
    }

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->key() == Qt::Key_Escape)
            return reject();
        if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
            return QDialog::keyPressEvent(event);
        if (auto* button = qobject_cast<QPushButton*>(focusWidget()))
            return button->click();
        Do([](DialogModel& model) {
            for (const auto& control : model.Controls())
                if (control->IsDefaultButton() && control->visible && control->enabled)
                    return model.Press(control->id);
            return model.Accept();
        });
    }
    // The box in the caption, too.
    void reject() override
    {
        Do([](DialogModel& model) { return model.Cancel(); });
    }

private:
    // Dialog units: a quarter of the mean width of a letter, an eighth of the height.
    void Measure()
    {
        const QFontMetricsF metrics(font());
        const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
        m_unitX = metrics.horizontalAdvance(letters) / 52 / 4;
        m_unitY = std::max(metrics.height(), 16.0) / 8;
        const QSize size(int(m_model.rect.width * m_unitX), int(m_model.rect.height * m_unitY));
        m_isPanel ? resize(size) : setFixedSize(size);
    }
    QRect RectOf(const DialogRect& rect, ControlKind kind) const
    {
        // What drops down is not part of a combo box's height here.
        const int height = kind == ControlKind::ComboBox ? 14 : rect.height;
        return QRectF(rect.x * m_unitX, rect.y * m_unitY, rect.width * m_unitX, height * m_unitY).toRect();
    }
    QWidget* WidgetOf(int id) const
    {
        for (const auto& shown : m_widgets)
            if (shown->Control().id == id && id != 0)
                return &shown->Widget();
        return nullptr;
    }

    void Do(const std::function<bool(DialogModel&)>& work)
    {
        if (m_isFollowing)
            return;
        work(m_model);
        Follow();
        m_changed();
    }
    DialogModel& m_model;
    std::function<void()> m_changed;
    std::vector<std::unique_ptr<ControlWidget>> m_widgets;
    double m_unitX = 2, m_unitY = 2;
    bool m_isFollowing = false;
    bool m_isPanel;
};

}   // namespace

QWidget* NewModelPanel(QWidget& parent, DialogModel& model, QtWindows& windows, bool isInside)
{
    auto* panel = new ModelDialog(
        parent, model, [] {}, true);
    panel->setWindowFlags(isInside ? Qt::Widget : Qt::Tool);
    panel->setModal(false);
    windows.BeginDialog(model, *panel, [panel](const RECT& rect) { return panel->PlaceOf(rect); });
    return panel;
}

void FollowModelPanel(QWidget& panel)
{
    static_cast<ModelDialog&>(panel).Follow();
}

int RunModelDialog(QWidget& parent, DialogModel& model, QtWindows& windows, const std::function<void()>& changed)
{
    {
        ModelDialog dialog(parent, model, changed);
        windows.BeginDialog(model, dialog, [&](const RECT& rect) { return dialog.PlaceOf(rect); });
        if (!model.Ended())
            dialog.exec();
        windows.EndDialog(model);
    }
    if (!model.Ended())
        model.End(IDCANCEL);
    return model.Result();
}

}   // namespace KxDesktop
