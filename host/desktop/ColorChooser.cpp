#include "ColorChooser.h"
#include "Texts.h"
#include <QColorDialog>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QSpinBox>

namespace KxDesktop {

namespace {

QColor ScreenColor(int index)
{
    return QColor::fromRgb(AcCmEntityColor::lookUpRGB(Adesk::UInt8(index)));
}

// The numbers in rows of ten above the nine standard ones and the greys: all in sight, a click takes one.
class Palette : public QWidget {
public:
    Palette(QWidget* parent, std::function<void(int)> chosen) : QWidget(parent), m_chosen(std::move(chosen))
    {
        setObjectName(QStringLiteral("colorPalette"));
        setFixedSize(24 * kCell, 13 * kCell);
        setMouseTracking(true);
    }
    void SetIndex(int index)
    {
        m_index = index;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        for (int index = 1; index <= 255; ++index) {
            const QRect place = PlaceOf(index);
            painter.fillRect(place.adjusted(1, 1, -1, -1), ScreenColor(index));
            if (index == m_index) {
                painter.setPen(QPen(palette().color(QPalette::Highlight), 3));
                painter.drawRect(place.adjusted(1, 1, -1, -1));
            }
        }
    }
    void mousePressEvent(QMouseEvent* event) override
    {
        for (int index = 1; index <= 255; ++index)
            if (PlaceOf(index).contains(event->pos()))
                m_chosen(index);
    }

private:
    static constexpr int kCell = 20;

    // 10 to 249 by hue from left to right, then 1 to 9, then the greys.
    static QRect PlaceOf(int index)
    {
        int column = (index - 10) / 10, row = (index - 10) % 10;
        if (index < 10) {
            column = index - 1;
            row = 11;
        } else if (index >= 250) {
            column = index - 250;
            row = 12;
        }
        return QRect(column * kCell, row * kCell, kCell, kCell);
    }

    std::function<void(int)> m_chosen;
    int m_index = 0;
};

class Chooser : public QDialog {
public:
    Chooser(QWidget& parent, const AcCmColor& color, bool hasLogical) : QDialog(&parent), m_color(color)
    {
        setObjectName(QStringLiteral("colorChooser"));
        setWindowTitle(Say(Text::ChooseColor));
        auto* grid = new QGridLayout(this);
        m_palette = new Palette(this, [this](int index) { TakeIndex(index); });
        grid->addWidget(m_palette, 0, 0, 1, 4);
        grid->addWidget(new QLabel(Say(Text::ColorNumber), this), 1, 0);
        m_number = new QSpinBox(this);
        m_number->setObjectName(QStringLiteral("colorNumber"));
        m_number->setRange(1, 255);
        m_number->setValue(color.isByACI() ? color.colorIndex() : 7);
        connect(m_number, &QSpinBox::valueChanged, this, [this](int index) { TakeIndex(index); });
        grid->addWidget(m_number, 1, 1);
        auto* other = new QPushButton(QStringLiteral("RGB…"), this);
        other->setObjectName(QStringLiteral("colorTrue"));
        connect(other, &QPushButton::clicked, this, [this] { TakeTrueColor(); });
        grid->addWidget(other, 1, 2);
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
        connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        if (hasLogical) {
            AddLogical(*buttons, Text::ByLayer, 256);
            AddLogical(*buttons, Text::ByBlock, 0);
        }
        grid->addWidget(buttons, 2, 0, 1, 4);
        m_palette->SetIndex(color.isByACI() ? color.colorIndex() : 0);
    }
    const AcCmColor& color() const { return m_color; }

private:
    void AddLogical(QDialogButtonBox& buttons, Text text, int index)
    {
        QPushButton* button = buttons.addButton(Say(text), QDialogButtonBox::ActionRole);
        button->setObjectName(QStringLiteral("color.%1").arg(index));
        connect(button, &QPushButton::clicked, this, [this, index] {
            m_color.setColorIndex(Adesk::UInt16(index));
            accept();
        });
    }
    void TakeIndex(int index)
    {
        m_color.setColorIndex(Adesk::UInt16(index));
        m_palette->SetIndex(index);
        m_number->setValue(index);
    }
    void TakeTrueColor()
    {
        const QColor chosen = QColorDialog::getColor(QColor(m_color.red(), m_color.green(), m_color.blue()), this,
                                                     QString(), QColorDialog::DontUseNativeDialog);
        if (!chosen.isValid())
            return;
        m_color.setRGB(Adesk::UInt8(chosen.red()), Adesk::UInt8(chosen.green()), Adesk::UInt8(chosen.blue()));
        accept();
    }

    AcCmColor m_color;
    Palette* m_palette;
    QSpinBox* m_number;
};

}   // namespace

bool RunColorChooser(QWidget& parent, AcCmColor& color, bool hasLogical)
{
    Chooser chooser(parent, color, hasLogical);
    if (chooser.exec() != QDialog::Accepted)
        return false;
    color = chooser.color();
    return true;
}

}   // namespace KxDesktop
