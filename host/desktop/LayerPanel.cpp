#include "LayerPanel.h"
#include "ColorChooser.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbLayerTableRecord.h"
#include "db/AcDbLinetypeTableRecord.h"
#include "DrawingEdit.h"
#include "Icons.h"
#include "QtText.h"
#include "Texts.h"
#include "win/CharTables.h"
#include <algorithm>
#include <QHeaderView>
#include <QLineEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace KxPlat;

namespace KxDesktop {

LayerPanel::LayerPanel(QWidget* parent) : QDockWidget(parent)
{
    setObjectName(QStringLiteral("layerPanel"));
    auto* body = new QWidget(this);
    body->setObjectName(QStringLiteral("layerBody"));
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(4, 4, 4, 4);
    column->setSpacing(4);
    m_filter = new QLineEdit(body);
    m_filter->setObjectName(QStringLiteral("layerFilter"));
    m_filter->setClearButtonEnabled(true);
    m_tree = new QTreeWidget(body);
    m_tree->setObjectName(QStringLiteral("layerList"));
    m_tree->setRootIsDecorated(false);
    m_tree->setUniformRowHeights(true);
    m_tree->setColumnCount(kColumns);
    m_tree->setIconSize(QSize(16, 16));
    m_tree->setFocusPolicy(Qt::ClickFocus);
    m_tree->setSelectionMode(QAbstractItemView::NoSelection);
    m_tree->header()->setStretchLastSection(true);
    m_tree->header()->setMinimumSectionSize(26);
    m_tree->header()->setSectionsMovable(false);
    column->addWidget(m_filter);
    column->addWidget(m_tree, 1);
    setWidget(body);
    const int widths[kColumns] = {120, 27, 27, 27, 70, 80};
    for (int at = 0; at < kColumns; ++at)
        m_tree->setColumnWidth(at, widths[at]);
    connect(m_filter, &QLineEdit::textChanged, this, [this] { Filter(); });
    connect(m_tree, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item, int at) { Click(*item, at); });
    connect(m_tree, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item, int at) {
        if (at == kName && m_tree->indexOfTopLevelItem(item) < int(m_shown.size()))
            MakeCurrent(m_shown[size_t(m_tree->indexOfTopLevelItem(item))].id);
    });
    SetLanguageTexts();
}

void LayerPanel::SetLanguageTexts()
{
    setWindowTitle(Say(Text::Layers));
    m_filter->setPlaceholderText(Say(Text::LayerFilter));
    m_tree->setHeaderLabels(
        {Say(Text::LayerName), QString(), QString(), QString(), Say(Text::LayerColor), Say(Text::Linetype)});
    const QColor ink = palette().color(QPalette::WindowText);
    m_tree->headerItem()->setIcon(kOn, GlyphIcon(Glyph::On, ink));
    m_tree->headerItem()->setIcon(kFrozen, GlyphIcon(Glyph::Frozen, ink));
    m_tree->headerItem()->setIcon(kLocked, GlyphIcon(Glyph::Locked, ink));
    const Text tips[] = {Text::LayerOn, Text::LayerFrozen, Text::LayerLocked};
    for (int at = 0; at < 3; ++at)
        m_tree->headerItem()->setToolTip(kOn + at, Say(tips[at]));
    m_shown.clear();
    Follow();
}

void LayerPanel::ShowDocument(AcApDocument* document)
{
    m_document = document;
    Follow();
}

std::vector<LayerPanel::Layer> LayerPanel::Layers() const
{
    std::vector<Layer> layers;
    AcDbLayerTable* table = nullptr;
    if (m_document == nullptr || m_document->database()->getLayerTable(table, AcDb::kForRead) != Acad::eOk)
        return layers;
    const AcDbObjectId current = m_document->database()->clayer();
    for (AcDbStub* stub : table->records()) {
        const AcDbObjectId id(stub);
        if (id.isErased())
            continue;
        const OpenObject<AcDbLayerTableRecord> record(id, AcDb::kForRead);
        if (!record)
            continue;
        const AcCmColor color = record->color();
        Layer layer{id,
                    record->nameText().GetString(),
                    !record->isOff(),
                    record->isFrozen(),
                    record->isLocked(),
                    id == current,
                    0,
                    {},
                    {}};
        layer.rgb = uint32_t(color.red()) << 16 | uint32_t(color.green()) << 8 | color.blue();
        layer.colorName =
            color.isByColor() ? FromQt(QString::asprintf("#%06X", layer.rgb)) : std::to_wstring(color.colorIndex());
        if (const OpenObject<AcDbLinetypeTableRecord> linetype(record->linetypeObjectId(), AcDb::kForRead); linetype)
            layer.linetype = linetype->nameText().GetString();
        layers.push_back(std::move(layer));
    }
    table->close();
    std::sort(layers.begin(), layers.end(),
              [](const Layer& a, const Layer& b) { return CompareNoCase(a.name, b.name) < 0; });
    return layers;
}

void LayerPanel::Follow()
{
    std::vector<Layer> layers = Layers();
    const QColor ink = palette().color(QPalette::WindowText);
    if (layers == m_shown && ink == m_shownInk)
        return;
    const int scrolled = m_tree->topLevelItemCount();
    for (int at = scrolled; at < int(layers.size()); ++at)
        m_tree->addTopLevelItem(new QTreeWidgetItem());
    while (m_tree->topLevelItemCount() > int(layers.size()))
        delete m_tree->takeTopLevelItem(m_tree->topLevelItemCount() - 1);
    for (size_t at = 0; at < layers.size(); ++at)
        if (at >= m_shown.size() || !(layers[at] == m_shown[at]) || ink != m_shownInk)
            ShowRow(*m_tree->topLevelItem(int(at)), layers[at]);
    m_shown = std::move(layers);
    m_shownInk = ink;
    Filter();
}

void LayerPanel::ShowRow(QTreeWidgetItem& item, const Layer& layer) const
{
    const QColor ink = palette().color(QPalette::WindowText);
    item.setText(kName, ToQt(layer.name));
    item.setToolTip(kName, ToQt(layer.name) +
                               (layer.isCurrent ? QStringLiteral(" · ") + Say(Text::LayerIsCurrent) : QString()));
    item.setIcon(kName, GlyphIcon(layer.isCurrent ? Glyph::Current : Glyph::Nothing, ink));
    item.setIcon(kOn, GlyphIcon(layer.isOn ? Glyph::On : Glyph::Off, ink));
    item.setIcon(kFrozen, GlyphIcon(layer.isFrozen ? Glyph::Frozen : Glyph::Thawed, ink));
    item.setIcon(kLocked, GlyphIcon(layer.isLocked ? Glyph::Locked : Glyph::Unlocked, ink));
    item.setIcon(kColor, ColorIcon(QColor::fromRgb(layer.rgb)));
    item.setText(kColor, ToQt(layer.colorName));
    item.setText(kLinetype, ToQt(layer.linetype));
    QFont font = item.font(kName);
    font.setBold(layer.isCurrent);
    item.setFont(kName, font);
}

void LayerPanel::Filter()
{
    const std::wstring wanted = FromQt(m_filter->text());
    for (size_t at = 0; at < m_shown.size(); ++at) {
        const bool fits = wanted.empty() || Upper(m_shown[at].name).find(Upper(wanted)) != std::wstring::npos;
        m_tree->topLevelItem(int(at))->setHidden(!fits);
    }
}

// The row's layer may go with what is done to it, so that a copy is worked on.
void LayerPanel::Click(QTreeWidgetItem& item, int column)
{
    const int row = m_tree->indexOfTopLevelItem(&item);
    if (m_document == nullptr || row < 0 || row >= int(m_shown.size()) || !mayChange())
        return;
    const Layer layer = m_shown[size_t(row)];
    switch (column) {
    case kOn:
        return Change(layer.id, [&](AcDbLayerTableRecord& record) {
            record.setIsOff(layer.isOn);
            return Acad::eOk;
        });
    case kFrozen:
        return Change(layer.id, [&](AcDbLayerTableRecord& record) { return record.setIsFrozen(!layer.isFrozen); });
    case kLocked:
        return Change(layer.id, [&](AcDbLayerTableRecord& record) {
            record.setIsLocked(!layer.isLocked);
            return Acad::eOk;
        });
    case kColor:
        return ChooseColor(layer.id);
    default:
        return;
    }
}

void LayerPanel::ChooseColor(AcDbObjectId id)
{
    AcCmColor color;
    {
        const OpenObject<AcDbLayerTableRecord> record(id, AcDb::kForRead);
        if (!record)
            return;
        color = record->color();
    }
    if (!RunColorChooser(*this, color, false))
        return;
    Change(id, [&](AcDbLayerTableRecord& record) {
        record.setColor(color);
        return Acad::eOk;
    });
}

void LayerPanel::MakeCurrent(AcDbObjectId id)
{
    if (m_document == nullptr || !mayChange())
        return;
    Acad::ErrorStatus status = Acad::eOk;
    {
        const DrawingEdit edit(*m_document, L"CLAYER");
        status = m_document->database()->setClayer(id);
    }
    AfterChange(status);
}

void LayerPanel::Change(AcDbObjectId id, const std::function<Acad::ErrorStatus(AcDbLayerTableRecord&)>& change)
{
    Acad::ErrorStatus status = Acad::eOk;
    {
        const DrawingEdit edit(*m_document, L"LAYER");
        const OpenObject<AcDbLayerTableRecord> record(id, AcDb::kForWrite);
        status = record ? change(*record) : record.status();
    }
    AfterChange(status);
}

void LayerPanel::AfterChange(Acad::ErrorStatus status)
{
    if (status != Acad::eOk && refused)
        refused(ToQt(acadErrorStatusText(status)));
    Follow();
    if (changed)
        changed();
}

}   // namespace KxDesktop
