// The properties of what is selected. Layer, colour and linetype of all of it are changed here, in one step of undo.
#pragma once
#include "ap/AcApDocument.h"
#include "EntityProperties.h"
#include <functional>
#include <QDockWidget>

class QLabel;
class QTreeWidget;
class QTreeWidgetItem;

namespace KxDesktop {

class PropertyPanel : public QDockWidget {
public:
    explicit PropertyPanel(QWidget* parent);

    // `ids` are selected in the document; null for none.
    void Show(AcApDocument* document, const std::vector<AcDbObjectId>& ids);
    void SetLanguageTexts();

    std::function<void()> changed;
    // False while a command is at work and nothing may be changed beside it.
    std::function<bool()> mayChange;
    std::function<void(const QString&)> refused;

private:
    void Fill();
    void AddRows(const QString& group, const std::vector<PropertyRow>& rows);
    void AddChoice(QTreeWidgetItem& item, PropertyRow::Choice choice, const QString& value);
    void ChooseColor();
    void Change(const std::function<Acad::ErrorStatus(AcDbEntity&)>& change);

    AcApDocument* m_document = nullptr;
    std::vector<AcDbObjectId> m_ids;
    EntityProperties m_shown;
    bool m_isFilled = false;
    QLabel* m_title;
    QTreeWidget* m_tree;
};

}   // namespace KxDesktop
