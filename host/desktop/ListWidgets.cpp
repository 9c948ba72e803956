#include "ListWidgets.h"
#include "QtText.h"
#include "ui/ControlStyles.h"
#include <algorithm>
#include <QHeaderView>
#include <QSignalBlocker>
#include <QTreeWidget>

using namespace KxPlat;

namespace KxDesktop {

namespace {

class ListWidget : public ControlWidget {
public:
    ListWidget(QWidget& parent, DialogControl& control, ControlReport report)
        : ControlWidget(control), m_tree(new QTreeWidget(&parent)), m_report(std::move(report))
    {
        m_tree->setRootIsDecorated(false);
        m_tree->setUniformRowHeights(true);
        m_tree->setAllColumnsShowFocus(true);
        m_tree->setAlternatingRowColors(control.kind == ControlKind::ListView);
        m_tree->setSelectionMode(control.IsMultiSelect() ? QAbstractItemView::ExtendedSelection
                                                         : QAbstractItemView::SingleSelection);
        ShowColumns();
        const int id = control.id;
        QObject::connect(m_tree, &QTreeWidget::itemSelectionChanged, m_tree, [this, id] {
            m_report([id, rows = SelectedRows()](DialogModel& model) { return model.Select(id, rows); });
        });
        QObject::connect(m_tree, &QTreeWidget::itemDoubleClicked, m_tree, [this, id](QTreeWidgetItem* item) {
            m_report([id, row = m_tree->indexOfTopLevelItem(item)](DialogModel& model) {
                return model.DoubleClick(id, row);
            });
        });
        QObject::connect(m_tree, &QTreeWidget::itemChanged, m_tree, [this, id](QTreeWidgetItem* item) {
            const bool isChecked = item->checkState(0) == Qt::Checked;
            m_report([id, isChecked, row = m_tree->indexOfTopLevelItem(item)](DialogModel& model) {
                return model.CheckRow(id, row, isChecked);
            });
        });
    }

    QWidget& Widget() override { return *m_tree; }

    void Follow() override
    {
        const QSignalBlocker quiet(m_tree);
        if (m_tree->columnCount() != ColumnCount())
            ShowColumns();
        while (m_tree->topLevelItemCount() > int(Control().rows.size()))
            delete m_tree->takeTopLevelItem(m_tree->topLevelItemCount() - 1);
        for (int at = 0; at < int(Control().rows.size()); ++at) {
            if (at == m_tree->topLevelItemCount())
                m_tree->addTopLevelItem(new QTreeWidgetItem());
            FollowRow(*m_tree->topLevelItem(at), Control().rows[size_t(at)]);
        }
        if (Control().columns.empty())
            m_tree->resizeColumnToContents(0);
    }

private:
    int ColumnCount() const { return std::max(1, int(Control().columns.size())); }

    void ShowColumns()
    {
        const std::vector<DialogColumn>& columns = Control().columns;
        m_tree->setColumnCount(ColumnCount());
        m_tree->setHeaderHidden(columns.empty());
        QStringList titles;
        for (const DialogColumn& column : columns)
            titles << ToQt(column.title);
        m_tree->setHeaderLabels(titles);
        m_tree->header()->setStretchLastSection(true);
        m_tree->header()->setMinimumSectionSize(24);
        for (int at = 0; at < int(columns.size()); ++at)
            m_tree->setColumnWidth(at, std::max(columns[size_t(at)].width, 24));
    }

    void FollowRow(QTreeWidgetItem& item, const DialogRow& row)
    {
        for (int column = 0; column < int(row.cells.size()); ++column) {
            const QString text = ToQt(row.cells[size_t(column)]);
            if (item.text(column) != text)
                item.setText(column, text);
            if (column < int(Control().columns.size()) && Control().columns[size_t(column)].rightAligned)
                item.setTextAlignment(column, Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
        }
        if (Control().HasRowChecks())
            item.setCheckState(0, row.checked ? Qt::Checked : Qt::Unchecked);
        if (item.isSelected() != row.selected)
            item.setSelected(row.selected);
    }

    // The row with the focus comes last, as the model remembers the last one as focused.
    std::vector<int> SelectedRows() const
    {
        std::vector<int> rows;
        for (QTreeWidgetItem* item : m_tree->selectedItems())
            rows.push_back(m_tree->indexOfTopLevelItem(item));
        std::sort(rows.begin(), rows.end());
        const auto focused = std::find(rows.begin(), rows.end(), m_tree->currentIndex().row());
        if (focused != rows.end())
            std::rotate(focused, focused + 1, rows.end());
        return rows;
    }

    QTreeWidget* m_tree;
    ControlReport m_report;
};

}   // namespace

std::unique_ptr<ControlWidget> NewListWidget(QWidget& parent, DialogControl& control, ControlReport report)
{
    return std::make_unique<ListWidget>(parent, control, std::move(report));
}

}   // namespace KxDesktop
