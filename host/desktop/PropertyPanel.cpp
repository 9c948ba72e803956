#include "PropertyPanel.h"
#include "ColorChooser.h"
#include "DrawingEdit.h"
#include "QtText.h"
#include "Texts.h"
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace KxDesktop {

PropertyPanel::PropertyPanel(QWidget* parent) : QDockWidget(parent)
{
    setObjectName(QStringLiteral("propertyPanel"));
    auto* body = new QWidget(this);
    body->setObjectName(QStringLiteral("propertyBody"));
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(4, 4, 4, 4);
    column->setSpacing(4);
    m_title = new QLabel(body);
    m_title->setObjectName(QStringLiteral("propertyTitle"));
    m_tree = new QTreeWidget(body);
    m_tree->setObjectName(QStringLiteral("propertyList"));
    m_tree->setColumnCount(2);
    m_tree->setHeaderHidden(true);
    m_tree->setIndentation(10);
    m_tree->setColumnWidth(0, 118);
    m_tree->setFocusPolicy(Qt::ClickFocus);
    column->addWidget(m_title);
    column->addWidget(m_tree, 1);
    setWidget(body);
    SetLanguageTexts();
}

void PropertyPanel::SetLanguageTexts()
{
    setWindowTitle(Say(Text::Properties));
    m_isFilled = false;
    Show(m_document, m_ids);
}

void PropertyPanel::Show(AcApDocument* document, const std::vector<AcDbObjectId>& ids)
{
    m_document = document;
    m_ids = ids;
    if (!isVisible() && m_isFilled)
        return;
    EntityProperties now = document == nullptr ? EntityProperties() : PropertiesOf(ids);
    if (m_isFilled && now == m_shown)
        return;
    m_shown = std::move(now);
    Fill();
}

void PropertyPanel::Fill()
{
    m_isFilled = true;
    m_tree->clear();
    const bool isEmpty = m_shown.title.isEmpty();
    m_title->setText(isEmpty ? Say(Text::NoSelection) : m_shown.title);
    AddRows(Say(Text::General), m_shown.general);
    AddRows(Say(Text::Geometry), m_shown.geometry);
}

void PropertyPanel::AddRows(const QString& group, const std::vector<PropertyRow>& rows)
{
    if (rows.empty())
        return;
    auto* head = new QTreeWidgetItem(m_tree, {group});
    head->setFirstColumnSpanned(true);
    QFont font = head->font(0);
    font.setBold(true);
    head->setFont(0, font);
    for (const PropertyRow& row : rows) {
        auto* item = new QTreeWidgetItem(head, {row.name, row.value});
        item->setToolTip(1, row.value);
        if (row.choice != PropertyRow::Choice::None)
            AddChoice(*item, row.choice, row.value);
    }
    head->setExpanded(true);
}

void PropertyPanel::AddChoice(QTreeWidgetItem& item, PropertyRow::Choice choice, const QString& value)
{
    item.setText(1, QString());
    if (choice == PropertyRow::Choice::Color) {
        auto* button = new QToolButton(m_tree);
        button->setObjectName(QStringLiteral("propertyColor"));
        button->setText(value);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
        connect(button, &QToolButton::clicked, this, [this] { ChooseColor(); });
        m_tree->setItemWidget(&item, 1, button);
        return;
    }
    const bool isLayer = choice == PropertyRow::Choice::Layer;
    auto* box = new QComboBox(m_tree);
    box->setObjectName(isLayer ? QStringLiteral("propertyLayer") : QStringLiteral("propertyLinetype"));
    box->setFocusPolicy(Qt::ClickFocus);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    QStringList names = NamesFor(*m_document->database(), choice);
    if (!names.contains(value))
        names.prepend(value);
    box->addItems(names);
    box->setCurrentText(value);
    connect(box, &QComboBox::textActivated, this, [this, isLayer, value](const QString& name) {
        const std::wstring text = FromQt(name);
        if (name == value)
            return;
        Change([&](AcDbEntity& entity) {
            return isLayer ? entity.setLayer(text.c_str()) : entity.setLinetype(text.c_str());
        });
    });
    m_tree->setItemWidget(&item, 1, box);
}

void PropertyPanel::ChooseColor()
{
    AcCmColor color;
    if (m_ids.empty())
        return;
    {
        const OpenObject<AcDbEntity> first(m_ids.front(), AcDb::kForRead);
        if (first)
            color = first->color();
    }
    if (RunColorChooser(*this, color, true))
        Change([&](AcDbEntity& entity) { return entity.setColor(color); });
}

// What cannot be changed (an entity on a locked layer) stays, the others follow.
void PropertyPanel::Change(const std::function<Acad::ErrorStatus(AcDbEntity&)>& change)
{
    if (!mayChange())
        return;
    Acad::ErrorStatus fault = Acad::eOk;
    {
        const DrawingEdit edit(*m_document, L"PROPERTIES");
        for (const AcDbObjectId& id : m_ids) {
            const OpenObject<AcDbEntity> entity(id, AcDb::kForWrite);
            const Acad::ErrorStatus status = entity ? change(*entity) : entity.status();
            if (status != Acad::eOk)
                fault = status;
        }
    }
    if (fault != Acad::eOk && refused)
        refused(ToQt(acadErrorStatusText(fault)));
    // The boxes that told of it are still at work.
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_isFilled = false;
            if (changed)
                changed();
        },
        Qt::QueuedConnection);
}

}   // namespace KxDesktop
